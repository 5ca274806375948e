#include "skin/SkinValues.h"

#include <QtTest>

class tst_SkinValues : public QObject
{
    Q_OBJECT

private slots:
    void cutsPoints_data();
    void cutsPoints();
    void cutsColours_data();
    void cutsColours();
    void cutsColoursWithAlpha_data();
    void cutsColoursWithAlpha();
    void everyComponentComesBackExactly();
    void componentsAreStoredAsFractions();
    void aPenIsSolidOnePixelWideAndOpaque();
    void aBrushIsSolidAndOpaque();
};

void tst_SkinValues::cutsPoints_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QPoint>("point");
    QTest::newRow("plain") << "(3,4)" << QPoint(3, 4);
    QTest::newRow("negative") << "(-3,-4)" << QPoint(-3, -4);
    QTest::newRow("blanks around numbers") << "( 3 , 4 )" << QPoint(3, 4);
    QTest::newRow("text before the bracket") << "at 9,(3,4)" << QPoint(3, 4);
    QTest::newRow("text behind the bracket") << "(3,4) and 5" << QPoint(3, 4);
    QTest::newRow("not masked") << "(300,4000)" << QPoint(300, 4000);
    QTest::newRow("no brackets") << "3,4" << QPoint(3, 4);
    QTest::newRow("no closing bracket") << "(3,4" << QPoint(3, 4);
    QTest::newRow("no opening bracket") << "3,4)" << QPoint(3, 4);
    QTest::newRow("a piece too many joins the last") << "(3,4,5)" << QPoint(3, 0);
    QTest::newRow("not numbers") << "(a,b)" << QPoint(0, 0);
    QTest::newRow("a number with a unit is not a number") << "(3px,4)" << QPoint(0, 4);
    QTest::newRow("not octal, not hexadecimal") << "(010,0x10)" << QPoint(10, 0);
    QTest::newRow("too large for an int") << "(99999999999,4)" << QPoint(0, 4);
    QTest::newRow("empty pieces") << "(,)" << QPoint(0, 0);
    QTest::newRow("empty") << "" << QPoint(0, 0);
    QTest::newRow("no comma: each piece is cut from a delimiter that is not there")
        << "7" << QPoint(7, 7);
    QTest::newRow("no comma in brackets") << "(7)" << QPoint(0, 0);
    QTest::newRow("bracket at the end") << "3,4(" << QPoint(0, 0);
}

void tst_SkinValues::cutsPoints()
{
    QFETCH(QString, text);
    QFETCH(QPoint, point);
    QCOMPARE(ParsePoint(text), point);
}

void tst_SkinValues::cutsColours_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("plain") << "(1,2,3)" << QColor(1, 2, 3);
    QTest::newRow("blanks") << "( 1, 2, 3 )" << QColor(1, 2, 3);
    QTest::newRow("300 is masked to 44") << "(300,0,0)" << QColor(44, 0, 0);
    QTest::newRow("256 reads as 0") << "(256,256,256)" << QColor(0, 0, 0);
    QTest::newRow("-1 reads as 255") << "(-1,-1,-1)" << QColor(255, 255, 255);
    QTest::newRow("blue without parentheses") << "0,0,255" << QColor(0, 0, 255);
    QTest::newRow("red without parentheses") << "255,0,0" << QColor(255, 0, 0);
    QTest::newRow("missing closing parenthesis") << "(1,2,3" << QColor(1, 2, 3);
    QTest::newRow("a fourth component joins the third") << "(1,2,3,4)" << QColor(1, 2, 0);
    QTest::newRow("not numbers") << "(red,green,blue)" << QColor(0, 0, 0);
    QTest::newRow("empty") << "" << QColor(0, 0, 0);
}

void tst_SkinValues::cutsColours()
{
    QFETCH(QString, text);
    QFETCH(QColor, colour);
    const StyleColour read = ParseColour(text);
    QCOMPARE(read.ToColor(), colour);
    QCOMPARE(read.alpha, 1.0f);
}

void tst_SkinValues::cutsColoursWithAlpha_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("plain") << "(1,2,3,4)" << QColor(1, 2, 3, 4);
    QTest::newRow("alpha is masked") << "(1,2,3,256)" << QColor(1, 2, 3, 0);
    QTest::newRow("alpha of -1") << "(1,2,3,-1)" << QColor(1, 2, 3, 255);
    QTest::newRow("no parentheses") << "1,2,3,4" << QColor(1, 2, 3, 4);
    // The third piece finds no comma and runs to the end; the fourth begins at index 0.
    QTest::newRow("only three components") << "(1,2,3)" << QColor(1, 2, 0, 0);
}

void tst_SkinValues::cutsColoursWithAlpha()
{
    QFETCH(QString, text);
    QFETCH(QColor, colour);
    QCOMPARE(ParseColourWithAlpha(text).ToColor(), colour);
}

void tst_SkinValues::everyComponentComesBackExactly()
{
    for (int n = 0; n <= 255; ++n) {
        const QString text = QStringLiteral("(%1,%1,%1,%1)").arg(n);
        QCOMPARE(ParseColourWithAlpha(text).ToColor(), QColor(n, n, n, n));
    }
}

void tst_SkinValues::componentsAreStoredAsFractions()
{
    const StyleColour colour = ParseColourWithAlpha(QStringLiteral("(0,51,128,255)"));
    QCOMPARE(colour.red, 0.0f);
    QCOMPARE(colour.green, 51 * 0.003921569f);
    QCOMPARE(colour.blue, 128 * 0.003921569f);
    QCOMPARE(colour.alpha, 255 * 0.003921569f);
}

void tst_SkinValues::aPenIsSolidOnePixelWideAndOpaque()
{
    const StylePen pen = ParsePen(QStringLiteral("(10,20,30)"));
    QCOMPARE(pen.pen, QPen(QColor(10, 20, 30, 255), 1, Qt::SolidLine));
    QCOMPARE(pen.colour.ToColor(), QColor(10, 20, 30));
}

void tst_SkinValues::aBrushIsSolidAndOpaque()
{
    const StyleBrush brush = ParseBrush(QStringLiteral("(10,20,30)"));
    QCOMPARE(brush.brush, QBrush(QColor(10, 20, 30, 255), Qt::SolidPattern));
    QCOMPARE(brush.colour.ToColor(), QColor(10, 20, 30));
}

QTEST_MAIN(tst_SkinValues)
#include "tst_SkinValues.moc"
