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

} // namespace

QString ComparePicture(const QImage& got, const QString& name)
{
    const QString reference = QStringLiteral(KESTOVA_SOURCE_DIR "/tests/pictures/%1.png").arg(name);
    const QImage picture = got.convertToFormat(QImage::Format_RGB32);
    if (qEnvironmentVariableIntValue("KESTOVA_RENEW_PICTURES") == 1) {
        QDir().mkpath(QFileInfo(reference).path());
        const bool written = picture.save(reference);
        return QStringLiteral("reference %1 %2")
            .arg(reference, written ? "renewed" : "could not be written");
    }

    const QImage wanted = QImage(reference).convertToFormat(QImage::Format_RGB32);
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
