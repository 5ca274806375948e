#include "RunProgram.h"

#include <QProcess>

ProgramResult RunProgram(const QString& program, const QStringList& arguments,
                         const QByteArray& input)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForStarted())
        return {-1, program + QStringLiteral(" could not be started: ") + process.errorString()};
    process.write(input);
    process.closeWriteChannel();
    constexpr int kTwoMinutes = 120'000;
    const bool hasEnded =
        process.waitForFinished(kTwoMinutes) && process.exitStatus() == QProcess::NormalExit;
    return {hasEnded ? process.exitCode() : -1, QString::fromUtf8(process.readAll())};
}
