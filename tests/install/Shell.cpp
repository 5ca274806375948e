#include "Shell.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>

namespace KestovaTest {

Outcome Run(const QString& program, const QStringList& arguments, const QStringList& environment)
{
    constexpr int kLongest = 500000; // milliseconds; a whole build may take minutes
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setEnvironment(QProcess::systemEnvironment() + environment);
    process.start(program, arguments);
    if (!process.waitForFinished(kLongest) || process.exitStatus() != QProcess::NormalExit)
        return {-1, program + ": " + process.errorString() + '\n' + process.readAll()};
    return {process.exitCode(), QString::fromUtf8(process.readAll())};
}

QStringList FilesBelow(const QString& folder)
{
    const QDir root(folder);
    QStringList files;
    QDirIterator entries(folder, QDir::Files | QDir::System | QDir::Hidden,
                         QDirIterator::Subdirectories);
    while (entries.hasNext())
        files << root.relativeFilePath(entries.next());
    files.sort();
    return files;
}

QByteArray TextOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace KestovaTest
