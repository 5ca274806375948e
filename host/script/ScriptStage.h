#pragma once

#include "ScriptCommand.h"
#include "ScriptPrompts.h"
#include "TimelineHand.h"

#include <functional>
#include <optional>

namespace host {

class MainWindow;

/// What the commands of a script work with.
struct ScriptStage
{
    MainWindow& window;
    ScriptPrompts& prompts;
    InputHand& hand;
    TimelineHand& timeline;
    QString folder; ///< that of the script: what it reads is found there

    /// For a command that takes time, asked again and again: nothing as long as it is not done,
    /// then what was wrong, or an empty text.
    std::function<std::optional<QString>()> answer;

    /// Where a script finds what it reads, and where it puts what it writes: in the folder that the
    /// program was started in.
    QString PathToRead(const QString& name) const;
    static QString PathToWrite(const QString& name);
    /// Answers nothing before that many milliseconds.
    void Wait(
        int milliseconds, std::function<QString()> then = [] { return QString(); });
};

} // namespace host
