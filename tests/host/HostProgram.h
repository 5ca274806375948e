#pragma once

#include "support/ProgramText.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

/// What a run of the program left behind.
struct HostRun
{
    int exitCode = -1; ///< -1 when the program crashed or did not end
    QString output;
    QString errors;
};

/// The environment of the test itself, on a platform that needs no screen.
inline QProcessEnvironment OffscreenEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    return environment;
}

#ifdef Q_OS_WIN
/// Wine does not hand on variables that begin with QT_.
const QStringList kWithoutScreen = {QStringLiteral("-platform"), QStringLiteral("offscreen")};
#else
const QStringList kWithoutScreen;
#endif

/// Starts the program with these arguments and waits until it has ended.
inline HostRun RunHostIn(const QProcessEnvironment& environment, const QStringList& arguments)
{
    constexpr int kPatience = 60000; // milliseconds; the sanitized program is slow
    QProcess program;
    static const QTemporaryDir runtimeDirectory;
    QProcessEnvironment complete = environment;
    // Qt remarks on its absence.
    complete.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeDirectory.path());
    program.setProcessEnvironment(complete);
    program.start(QStringLiteral(KESTOVA_HOST_PROGRAM), arguments);
    HostRun run;
    if (program.waitForFinished(kPatience) && program.exitStatus() == QProcess::NormalExit)
        run.exitCode = program.exitCode();
    run.output = ReadText(program.readAllStandardOutput());
    run.errors = ReadText(program.readAllStandardError());
    return run;
}

/// The same without a screen.
inline HostRun RunHost(const QStringList& arguments)
{
    return RunHostIn(OffscreenEnvironment(), arguments + kWithoutScreen);
}

/// The same where no window can be opened: on a platform that there is not.
inline HostRun RunHostWithoutPlatform(const QStringList& arguments)
{
    return RunHostIn(OffscreenEnvironment(),
                     arguments + QStringList{QStringLiteral("-platform"), QStringLiteral("none")});
}
