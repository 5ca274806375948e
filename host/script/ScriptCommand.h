#pragma once

#include <QStringList>
#include <QVector>

namespace host {

/// What a line of a script asks for. The order is that of the table of the grammar.
enum class ScriptVerb
{
    Open,
    Import,
    Drop,
    Save,
    Skin,
    Size,
    Frame,
    Zoom,
    ZoomRange,
    Select,
    Drag,
    Hover,
    Menu,
    RowMenu,
    Key,
    Undo,
    Redo,
    Play,
    Pause,
    Wait,
    Screenshot,
    ExpectFrame,
    ExpectKey,
    ExpectNoKey,
    ExpectSelected,
    ExpectStatus,
    ExpectSaved,
    Quit
};

/// One line of a script, read.
struct ScriptCommand
{
    ScriptVerb verb = ScriptVerb::Quit;
    int line = 0;         ///< in the script, from 1
    QStringList texts;    ///< names and paths, in the order of the line; none is empty
    QVector<int> numbers; ///< in the order of the line
    QStringList words;    ///< those of the grammar's own words that there was a choice of

    bool Says(const char* word) const { return words.contains(QLatin1String(word)); }
};

/// A script file, read.
struct Script
{
    QString path;
    QVector<ScriptCommand> commands;
};

} // namespace host
