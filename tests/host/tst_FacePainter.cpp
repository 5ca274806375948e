#include "document/MouthShapes.h"
#include "preview/FacePainter.h"
#include "preview/MouthPainter.h"
#include "support/PictureCheck.h"

#include <QPainter>
#include <QtTest>

using namespace host;

namespace {

QImage Face(const QSize& size, const FacePose& pose, double pixelRatio = 1)
{
    QImage image(size * pixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::black);
    QPainter painter(&image);
    PaintFace(painter, QRectF(QPointF(), QSizeF(size)), pose);
    return image;
}

/// A sheet of all mouth shapes from 0 to 16, six in a row.
QImage AllMouths()
{
    constexpr int kCell = 120;
    constexpr int kColumns = 6;
    QImage sheet(kCell * kColumns, kCell * 3, QImage::Format_RGB32);
    sheet.fill(QColor(216, 178, 152));
    QPainter painter(&sheet);
    for (int shape = 0; shape < kMouthShapeCount; ++shape) {
        painter.save();
        painter.translate((shape % kColumns + 0.5) * kCell, (shape / kColumns + 0.4) * kCell);
        painter.scale(kCell / 3.0, kCell / 3.0);
        PaintMouth(painter, PoseOfShape(shape));
        painter.restore();
    }
    return sheet;
}

} // namespace

class tst_FacePainter : public QObject
{
    Q_OBJECT

private slots:
    void drawsEveryMouthShape();
    void drawsTheFaceAtRest();
    void dropsTheChinWithTheJaw();
    void shutsTheEyes();
    void drawsWhatLiesBetweenTwoShapes();
    void fitsIntoAWidePlace();
    void isAsSharpAsTheScreen();
    void staysWithinItsPlace();
    void drawsInTheSmallestPlaces();
};

void tst_FacePainter::drawsEveryMouthShape()
{
    KESTOVA_COMPARE_PICTURE(AllMouths(), "preview/mouths");
}

void tst_FacePainter::drawsTheFaceAtRest()
{
    KESTOVA_COMPARE_PICTURE(Face({240, 240}, {}), "preview/face-rest");
}

void tst_FacePainter::dropsTheChinWithTheJaw()
{
    KESTOVA_COMPARE_PICTURE(Face({240, 240}, {PoseOfShape(4), 0}), "preview/face-open");
}

void tst_FacePainter::shutsTheEyes()
{
    KESTOVA_COMPARE_PICTURE(Face({240, 240}, {PoseOfShape(2), 1}), "preview/face-blink");
}

void tst_FacePainter::drawsWhatLiesBetweenTwoShapes()
{
    const MouthPose between = Blended(PoseOfShape(6), PoseOfShape(4), 0.5F);
    KESTOVA_COMPARE_PICTURE(Face({240, 240}, {between, 0.4F}), "preview/face-between");
}

void tst_FacePainter::fitsIntoAWidePlace()
{
    KESTOVA_COMPARE_PICTURE(Face({400, 150}, {PoseOfShape(5), 0}), "preview/face-wide");
}

void tst_FacePainter::isAsSharpAsTheScreen()
{
    KESTOVA_COMPARE_PICTURE(Face({160, 160}, {PoseOfShape(3), 0}, 2), "preview/face-dense");
}

void tst_FacePainter::staysWithinItsPlace()
{
    QImage image(100, 100, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    const QRect place(20, 20, 60, 60);
    PaintFace(painter, place, {});
    painter.end();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const bool isUntouched = image.pixelColor(x, y) == QColor(Qt::magenta);
            QVERIFY(isUntouched != place.contains(x, y));
        }
    }
}

void tst_FacePainter::drawsInTheSmallestPlaces()
{
    for (const QSize& size : {QSize(1, 1), QSize(1, 300), QSize(300, 2)})
        QCOMPARE(Face(size, {}).size(), size);
}

QTEST_MAIN(tst_FacePainter)
#include "tst_FacePainter.moc"
