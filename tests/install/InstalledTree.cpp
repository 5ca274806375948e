#include "InstalledTree.h"

#include "Shell.h"

#include <QDir>
#include <QFile>
#include <QSet>

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
    if (!Succeeds(Run(program, {"--picture", file})))
        return {};
    return QImage(file);
}

bool ShowsATimeline(const QImage& picture)
{
    // Of a window without a timeline there are fewer: its background, and letters with soft edges.
    constexpr int kColoursOfATimeline = 100;
    QSet<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            colours.insert(picture.pixel(x, y));
    }
    return colours.size() >= kColoursOfATimeline;
}

} // namespace KestovaTest
