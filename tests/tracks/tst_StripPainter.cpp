#include "support/TimelineFixture.h"
#include "tracks/StripPainter.h"

#include <QtTest>

namespace {

/// A texture whose every pixel differs from its neighbours, so that a wrong phase shows.
QImage Texture(const QSize& size, QImage::Format format)
{
    QImage texture(size, format);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            texture.setPixel(x, y, qRgba(40 + 9 * y, 13 * x, 90 + 5 * (x ^ y), 255 - 8 * y));
    return texture;
}

/// @p texture beside itself, @p copies times.
QPixmap Repeated(const QImage& texture, int copies)
{
    QImage strip(texture.width() * copies, texture.height(), texture.format());
    for (int y = 0; y < strip.height(); ++y)
        for (int x = 0; x < strip.width(); ++x)
            strip.setPixel(x, y, texture.pixel(x % texture.width(), y));
    return QPixmap::fromImage(strip);
}

QImage Canvas()
{
    QImage canvas(700, 80, QImage::Format_RGB32);
    canvas.fill(QColor(200, 180, 20));
    return canvas;
}

QImage FilledWithBrush(const QRect& rect, const QBrush& brush, const QPoint& origin,
                       const QPoint& translation = {})
{
    QImage canvas = Canvas();
    QPainter painter(&canvas);
    painter.translate(translation);
    painter.setBrushOrigin(origin);
    painter.fillRect(rect, brush);
    painter.end();
    return canvas;
}

} // namespace

class tst_StripPainter : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void fillsAsTheTextureBrushDoes_data();
    void fillsAsTheTextureBrushDoes();
    void fillsWithEveryTextureOfTheTables();
    void followsThePaintersTranslation();
    void leavesThePainterAsItWas();
    void paintsNothingForAnEmptyRectangleOrAMissingTexture();
};

void tst_StripPainter::initTestCase()
{
    QVERIFY(KestovaTest::PrepareTimeline());
}

void tst_StripPainter::fillsAsTheTextureBrushDoes_data()
{
    QTest::addColumn<QSize>("textureSize");
    QTest::addColumn<int>("copies");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QPoint>("origin");
    const QSize column(1, 24);
    QTest::newRow("a row as high as the strip")
        << column << 512 << QRect(5, 7, 300, 24) << QPoint(5, 7);
    QTest::newRow("wider than the strip") << column << 64 << QRect(5, 7, 600, 24) << QPoint(5, 7);
    QTest::newRow("lower than the strip") << column << 512 << QRect(5, 7, 300, 11) << QPoint(5, 7);
    QTest::newRow("higher than the strip") << column << 512 << QRect(5, 7, 300, 60) << QPoint(5, 7);
    QTest::newRow("a tick two pixels wide") << column << 512 << QRect(45, 7, 2, 24) << QPoint(5, 7);
    QTest::newRow("begins below the origin")
        << column << 512 << QRect(45, 20, 30, 30) << QPoint(5, 7);
    QTest::newRow("begins above and left of the origin")
        << column << 512 << QRect(5, 7, 300, 60) << QPoint(90, 33);
    QTest::newRow("reaches out of the picture")
        << column << 512 << QRect(-50, -9, 900, 200) << QPoint(-3, 2);
    QTest::newRow("a texture one pixel high")
        << QSize(15, 1) << 30 << QRect(7, 7, 500, 22) << QPoint(5, 7);
    QTest::newRow("a texture one pixel high, left of the origin")
        << QSize(13, 1) << 30 << QRect(7, 7, 500, 22) << QPoint(101, 50);
    QTest::newRow("a strip that is the texture itself")
        << QSize(15, 6) << 1 << QRect(3, 9, 200, 50) << QPoint(11, 4);
}

void tst_StripPainter::fillsAsTheTextureBrushDoes()
{
    QFETCH(QSize, textureSize);
    QFETCH(int, copies);
    QFETCH(QRect, rect);
    QFETCH(QPoint, origin);
    for (const auto format : {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied}) {
        const QImage texture = Texture(textureSize, QImage::Format_ARGB32).convertToFormat(format);
        QImage canvas = Canvas();
        QPainter painter(&canvas);
        FillStrip(painter, rect, Repeated(texture, copies), origin);
        painter.end();
        QVERIFY(canvas != Canvas());
        QCOMPARE(canvas, FilledWithBrush(rect, QBrush(texture), origin));
    }
}

void tst_StripPainter::fillsWithEveryTextureOfTheTables()
{
    const ImageTables& images = TimelineLibrary::Instance().images;
    const QRect rect(9, 5, 640, 70);
    const QPoint origin(4, 5);
    for (const BrushGroup group : {kGridBrushes, kBandedBrushes, kRulerBrushes}) {
        QVERIFY(images.BrushCount(group) > 0);
        for (int index = 0; index < images.BrushCount(group); ++index) {
            QImage canvas = Canvas();
            QPainter painter(&canvas);
            FillStrip(painter, rect, group, index, origin);
            painter.end();
            QCOMPARE(canvas, FilledWithBrush(rect, images.Brush(group, index), origin));
        }
    }
}

void tst_StripPainter::followsThePaintersTranslation()
{
    const QImage texture = Texture(QSize(15, 24), QImage::Format_RGB32);
    const QRect rect(10, 3, 400, 30);
    const QPoint translation(23, 11);
    QImage canvas = Canvas();
    QPainter painter(&canvas);
    painter.translate(translation);
    FillStrip(painter, rect, Repeated(texture, 8), QPoint(2, 1));
    painter.end();
    QCOMPARE(canvas, FilledWithBrush(rect, QBrush(texture), QPoint(2, 1), translation));
}

void tst_StripPainter::leavesThePainterAsItWas()
{
    QImage canvas = Canvas();
    QPainter painter(&canvas);
    painter.setBrushOrigin(17, 19);
    painter.setBrush(Qt::red);
    painter.setPen(Qt::green);
    FillStrip(painter, QRect(3, 3, 600, 40), kRulerBrushes, 2, QPoint(5, 5));
    FillStrip(painter, QRect(3, 3, 2, 2), kRulerBrushes, 2, QPoint(5, 5));
    QCOMPARE(painter.brushOrigin(), QPoint(17, 19));
    QCOMPARE(painter.brush(), QBrush(Qt::red));
    QCOMPARE(painter.pen(), QPen(Qt::green));
}

void tst_StripPainter::paintsNothingForAnEmptyRectangleOrAMissingTexture()
{
    QImage canvas = Canvas();
    QPainter painter(&canvas);
    FillStrip(painter, QRect(), kRulerBrushes, 2, QPoint(0, 0));
    FillStrip(painter, QRect(5, 5, -20, 10), kRulerBrushes, 2, QPoint(0, 0));
    FillStrip(painter, QRect(5, 5, 20, 10), kRulerBrushes, -1, QPoint(0, 0));
    FillStrip(painter, QRect(5, 5, 20, 10), kRulerBrushes, 5000, QPoint(0, 0));
    FillStrip(painter, QRect(5, 5, 20, 10), static_cast<BrushGroup>(99), 0, QPoint(0, 0));
    FillStrip(painter, QRect(5, 5, 20, 10), QPixmap(), QPoint(0, 0));
    painter.end();
    QCOMPARE(canvas, Canvas());
}

QTEST_MAIN(tst_StripPainter)
#include "tst_StripPainter.moc"
