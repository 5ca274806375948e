#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

namespace host {

/// What the command line asks for.
struct HostOptions
{
    QStringList files;        ///< scene files; none means the sample scene
    QString skin;             ///< skin file; empty means the default skin
    QSize size{1280, 720};    ///< of the window, in pixels
    bool isSizeGiven = false; ///< else the window opens as it was left
    std::optional<int> frame; ///< current frame at the start; none: the document's, or the first
    QString screenshot;       ///< write a picture of the window here and leave; empty: stay
    QString screenGrab;       ///< the same, taken from the screen
    QString script;           ///< run this script file in the window; empty: none
};

/// Reads the command line. For --help and --version it answers them and leaves the program. Nothing
/// is returned, and @p error says in one line why, for a line that cannot be followed.
std::optional<HostOptions> ParseOptions(const QStringList& arguments, QString& error);

} // namespace host
