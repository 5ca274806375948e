#pragma once

#include "RunProgram.h"

#include <QString>
#include <QStringList>

/// A compiler that hosts may have, and how it is called to look at a source without making anything
/// of it. Qt's and its own headers are the system's: only ours are judged.
struct HeaderCompiler
{
    QString name;
    QString program;
    QStringList arguments;
    QString missing;          ///< what is not there for it; empty when it can be used
    bool hasWindowsH = false; ///< whether <windows.h> can be included

    /// Compiles a source; the code is 0 when there is not even a warning. From any thread.
    ProgramResult Compile(const QString& source) const;
    /// What the preprocessor makes of a source, without what it says about lines.
    QString Preprocess(const QString& source, const QStringList& definitions) const;
};

/// g++ and clang++ on Linux.
HeaderCompiler GnuOnLinux();
HeaderCompiler ClangOnLinux();
/// clang++ with Qt for Windows and the headers of the compiler that builds for Windows.
HeaderCompiler ClangForWindows();
/// clang++ as it reads sources that are written for the other compiler of that platform. Headers of
/// that one are not there; stand-ins for the few that ours include are enough to read ours.
HeaderCompiler ClangAsOnWindows();
