#include "tracks/ShapedTexts.h"

#include <QImage>
#include <QPainter>
#include <QtTest>

namespace {

const QStringList kTexts = {QString(),
                            QStringLiteral("a"),
                            QStringLiteral("Right Arm"),
                            QStringLiteral("AVAWAY fi ffl Tj, ..."),
                            QStringLiteral("  two  spaces  "),
                            QStringLiteral("a & b <b>bold</b> &amp;"),
                            QString::fromUtf8("Übergröße é \u0416\u044f \u03a9"),
                            QString::fromUtf8("e\u0301\u0323 \u05d0\u05d1\u05d2 abc"),
                            QStringLiteral("tab\there"),
                            QStringLiteral("0123456789")};

QImage Canvas()
{
    QImage image(300, 60, QImage::Format_RGB32);
    image.fill(QColor(40, 44, 50));
    return image;
}

} // namespace

class tst_ShapedTexts : public QObject
{
    Q_OBJECT

private slots:
    void drawsAndMeasuresWhatThePainterDoes_data();
    void drawsAndMeasuresWhatThePainterDoes();
    void keepsFontsApart();
};

void tst_ShapedTexts::drawsAndMeasuresWhatThePainterDoes_data()
{
    QTest::addColumn<int>("pixelSize");
    QTest::addColumn<int>("pointSize");
    QTest::addColumn<int>("weight");
    for (const int size : {7, 9, 10, 11, 12, 13, 16, 21})
        QTest::addRow("%d pixels", size) << size << 0 << int(QFont::Normal);
    for (const int size : {6, 8, 9, 10, 13})
        QTest::addRow("%d points", size) << 0 << size << int(QFont::Normal);
    QTest::newRow("bold") << 11 << 0 << int(QFont::Bold);
}

void tst_ShapedTexts::drawsAndMeasuresWhatThePainterDoes()
{
    QFETCH(int, pixelSize);
    QFETCH(int, pointSize);
    QFETCH(int, weight);
    QFont font(QStringLiteral("DejaVu Sans"));
    if (pixelSize > 0)
        font.setPixelSize(pixelSize);
    else
        font.setPointSize(pointSize);
    font.setWeight(weight);
    for (const QString& text : kTexts) {
        // Twice: laid out and from what was laid out.
        for (int round = 0; round < 2; ++round) {
            QImage wanted = Canvas();
            QPainter plain(&wanted);
            plain.setFont(font);
            plain.setPen(QColor(220, 225, 230));
            plain.drawText(QPoint(7 + round, 33), text);
            plain.end();
            QImage got = Canvas();
            QPainter painter(&got);
            painter.setFont(font);
            painter.setPen(QColor(220, 225, 230));
            ShapedTexts& texts = ShapedTexts::For(painter);
            texts.Draw(painter, QPoint(7 + round, 33), text);
            QCOMPARE(texts.Width(text),
                     painter.fontMetrics().size(Qt::TextSingleLine, text).width());
            painter.end();
            QVERIFY2(got == wanted, qPrintable(text));
        }
    }
}

void tst_ShapedTexts::keepsFontsApart()
{
    QImage image = Canvas();
    QPainter painter(&image);
    QFont small(QStringLiteral("DejaVu Sans"));
    small.setPixelSize(8);
    QFont large(small);
    large.setPixelSize(20);
    painter.setFont(small);
    const int narrow = ShapedTexts::For(painter).Width(QStringLiteral("Arm"));
    painter.setFont(large);
    const int wide = ShapedTexts::For(painter).Width(QStringLiteral("Arm"));
    QVERIFY(wide > narrow);
    painter.setFont(small);
    QCOMPARE(ShapedTexts::For(painter).Width(QStringLiteral("Arm")), narrow);
}

QTEST_MAIN(tst_ShapedTexts)
#include "tst_ShapedTexts.moc"
