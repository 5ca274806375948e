#pragma once

#include <QStringList>

namespace KestovaTest {

/// What a command left: its exit code, -1 when it could not be started or did not end, and what it
/// wrote.
struct Outcome
{
    int exitCode = -1;
    QString output;
};

/// Runs a command and waits for its end. @p environment, of "NAME=value", is added to ours.
Outcome Run(const QString& program, const QStringList& arguments,
            const QStringList& environment = {});

/// The files and symbolic links below a folder, as paths relative to it, in order.
QStringList FilesBelow(const QString& folder);

/// The whole text of a file; empty when it cannot be read.
QByteArray TextOf(const QString& path);

} // namespace KestovaTest

/// Runs a command, which has to end with the exit code 0.
#define KESTOVA_RUN(...)                                                                           \
    do {                                                                                           \
        const KestovaTest::Outcome outcome = KestovaTest::Run(__VA_ARGS__);                        \
        QVERIFY2(outcome.exitCode == 0, qPrintable(outcome.output));                               \
    } while (false)
