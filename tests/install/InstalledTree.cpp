#include "InstalledTree.h"

#include "Shell.h"

#include <QDir>
#include <QFile>

namespace KestovaTest {

namespace {

/// Says in the test's log what a command wrote when it failed.
bool Succeeds(const Outcome& outcome)
{
    if (outcome.exitCode != 0)
        qWarning("%s", qPrintable(outcome.output));
    return outcome.exitCode == 0;
}

} // namespace

QStringList FilesOfPart(const QString& part)
{
    const QString list = QString::fromUtf8(TextOf(KESTOVA_LISTS_DIR "/" + part + ".txt"));
    QStringList files = list.split('\n', Qt::SkipEmptyParts);
    files.sort();
    return files;
}

QString DifferenceFromPart(const QStringList& files, const QString& part)
{
    const QStringList expected = FilesOfPart(part);
    QString difference;
    for (const QString& file : expected)
        difference += files.contains(file) ? QString() : "missing: " + file + '\n';
    for (const QString& file : files)
        difference += expected.contains(file) ? QString() : "not expected: " + file + '\n';
    return difference;
}

bool InstalledTree::Install(const QString& part, const QString& prefix) const
{
    return Succeeds(Run(KESTOVA_CMAKE, {"--install", KESTOVA_BINARY_DIR, "--component", part,
                                        "--prefix", In(prefix)}));
}

bool InstalledTree::InstallAndMove() const
{
    for (const QString& part : kParts) {
        if (!Install(part, "installed"))
            return false;
    }
    return QDir().rename(In("installed"), Prefix());
}

bool InstalledTree::BuildMinimal(const QString& build, const QStringList& options) const
{
    const QStringList common{"-S",
                             KESTOVA_SOURCE_DIR "/examples/minimal",
                             "-B",
                             In(build),
                             "-G",
                             KESTOVA_GENERATOR,
                             "-DCMAKE_CXX_COMPILER=" KESTOVA_CXX,
                             "-DCMAKE_CXX_COMPILER_LAUNCHER=" KESTOVA_LAUNCHER};
    return Succeeds(Run(KESTOVA_CMAKE, common + options)) &&
           Succeeds(Run(KESTOVA_CMAKE, {"--build", In(build)}));
}

QImage InstalledTree::PictureOf(const QString& program) const
{
    const QString file = In("picture.png");
    QFile::remove(file);
    return Succeeds(Run(program, {"--picture", file})) ? QImage(file) : QImage();
}

QImage PictureOfTheHost(const QString& program)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("host.png");
    return Succeeds(Run(program, {"--screenshot", file})) ? QImage(file) : QImage();
}

} // namespace KestovaTest
