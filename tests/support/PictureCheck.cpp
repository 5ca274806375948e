#include "support/PictureCheck.h"

#include <QDir>
#include <QFileInfo>

namespace KestovaTest {

namespace {

QImage DifferencePicture(const QImage& got, const QImage& wanted, int& differing)
{
    QImage difference(got.size().expandedTo(wanted.size()), QImage::Format_RGB32);
    difference.fill(Qt::red);
    for (int y = 0; y < difference.height(); ++y) {
        for (int x = 0; x < difference.width(); ++x) {
            const bool same =
                got.valid(x, y) && wanted.valid(x, y) && got.pixel(x, y) == wanted.pixel(x, y);
            if (same) {
                const int grey = qGray(got.pixel(x, y)) / 3;
                difference.setPixel(x, y, qRgb(grey, grey, grey));
            } else {
                ++differing;
            }
        }
    }
    return difference;
}

QImage ReadPicture(const QString& path)
{
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}

/// Where the reference of that name lies. Windows has its own of those that look different there:
/// the ones with text, which another font engine draws, and what it rounds the other way.
QString ReferencePath(const QString& name)
{
#ifdef Q_OS_WIN
    const QString ownReference =
        QStringLiteral(KESTOVA_SOURCE_DIR "/tests/pictures/windows/%1.png").arg(name);
    if (QFile::exists(ownReference))
        return ownReference;
#endif
    return QStringLiteral(KESTOVA_SOURCE_DIR "/tests/pictures/%1.png").arg(name);
}

/// Writes the reference anew, and on Windows its own one only where the common one does not do.
QString RenewPicture(const QImage& picture, const QString& name)
{
#ifdef Q_OS_WIN
    const QString folder = QStringLiteral("windows/");
    QFile::remove(QStringLiteral(KESTOVA_SOURCE_DIR "/tests/pictures/windows/%1.png").arg(name));
    if (picture == ReadPicture(ReferencePath(name)))
        return QStringLiteral("reference %1 serves here too").arg(name);
#else
    const QString folder;
#endif
    const QString reference =
        QStringLiteral(KESTOVA_SOURCE_DIR "/tests/pictures/%1%2.png").arg(folder, name);
    QDir().mkpath(QFileInfo(reference).path());
    const bool written = picture.save(reference);
    return QStringLiteral("reference %1 %2")
        .arg(reference, written ? "renewed" : "could not be written");
}

} // namespace

QString ComparePicture(const QImage& got, const QString& name)
{
    const QImage picture = got.convertToFormat(QImage::Format_RGB32);
    if (qEnvironmentVariableIntValue("KESTOVA_RENEW_PICTURES") == 1)
        return RenewPicture(picture, name);

    const QString reference = ReferencePath(name);
    const QImage wanted = ReadPicture(reference);
    if (!wanted.isNull() && picture == wanted)
        return QString();

    const QString stem = QStringLiteral(KESTOVA_BINARY_DIR "/pictures/%1").arg(name);
    QDir().mkpath(QFileInfo(stem).path());
    picture.save(stem + ".got.png");
    if (wanted.isNull())
        return QStringLiteral("no reference %1; got %2.got.png").arg(reference, stem);
    int differing = 0;
    DifferencePicture(picture, wanted, differing).save(stem + ".diff.png");
    return QStringLiteral("%1 pixels differ from %2; see %3.got.png and %3.diff.png")
        .arg(differing)
        .arg(reference, stem);
}

} // namespace KestovaTest
