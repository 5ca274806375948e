#include "axis/FrameAxis.h"

#include "axis/ClampedInt.h"

#include <QtTest>

#include <algorithm>
#include <limits>
#include <random>

namespace {

__extension__ using Exact = __int128;

constexpr int kLargestInt = std::numeric_limits<int>::max();
constexpr int kSmallestInt = std::numeric_limits<int>::min();

FrameAxis AxisOf(int pixelsPerFrame, int framesPerPixel, int scrollX)
{
    FrameAxis axis;
    axis.info.pixelsPerFrame = pixelsPerFrame;
    axis.info.framesPerPixel = framesPerPixel;
    axis.scrollX = scrollX;
    return axis;
}

/// dividend / divisor toward zero, within the range of int.
int Quotient(Exact dividend, Exact divisor)
{
    const Exact quotient = dividend / divisor;
    return static_cast<int>(std::clamp<Exact>(quotient, kSmallestInt, kLargestInt));
}

/// Any int, with small ones and the ends as likely as the middle.
int AnyInt(std::mt19937& random)
{
    const auto bits = static_cast<unsigned int>(random());
    switch (random() % 4) {
    case 0:
        return static_cast<int>(bits % 200u) - 100;
    case 1:
        return static_cast<int>(bits % 200000u) - 100000;
    case 2:
        return (bits & 1u) ? kLargestInt - static_cast<int>(bits % 3u)
                           : kSmallestInt + static_cast<int>(bits % 3u);
    default:
        return static_cast<int>(bits);
    }
}

FrameAxis AnyAxis(std::mt19937& random)
{
    if (random() % 2)
        return AxisOf(2 + static_cast<int>(random() % 9u), 0, AnyInt(random));
    return AxisOf(0, std::max(1, AnyInt(random)), AnyInt(random));
}

/// The scale as a fraction.
Exact ScaleAbove(const FrameAxis& axis)
{
    return axis.IsFramesPerPixel() ? 1 : axis.info.pixelsPerFrame;
}
Exact ScaleBelow(const FrameAxis& axis)
{
    return axis.IsFramesPerPixel() ? axis.info.framesPerPixel : 1;
}

} // namespace

class tst_FrameAxis : public QObject
{
    Q_OBJECT
private slots:
    void startsWithoutFramesAtOneFramePerPixel();
    void mapsFramesToPixels_data();
    void mapsFramesToPixels();
    void mapsPixelsToFrames_data();
    void mapsPixelsToFrames();
    void givesMultiplesOfFramesPerPixelForEveryPixel();
    void findsEveryPixelAgainWhereAReciprocalWouldMissIt();
    void tellsItsScaleWithoutEverGivingZero();
    void agreesWithExactFractionsForAnyAxis();
    void addsAFractionOfAPixelBeforeItTruncates_data();
    void addsAFractionOfAPixelBeforeItTruncates();
    void clampsFramesFarBeyondInt();
    void takesSenselessScalesForOneFramePerPixel();
};

void tst_FrameAxis::startsWithoutFramesAtOneFramePerPixel()
{
    const FrameAxis axis;
    QCOMPARE(axis.frameCount, 0);
    QCOMPARE(axis.currentFrame, 0);
    QCOMPARE(axis.scrollX, 0);
    QVERIFY(axis.IsFramesPerPixel());
    QCOMPARE(axis.Scale(), 1.0);
    QCOMPARE(axis.FrameToPixel(7), 7);
    QCOMPARE(axis.PixelToFrame(7), 7);
}

void tst_FrameAxis::mapsFramesToPixels_data()
{
    QTest::addColumn<int>("pixelsPerFrame");
    QTest::addColumn<int>("framesPerPixel");
    QTest::addColumn<int>("scrollX");
    QTest::addColumn<int>("frame");
    QTest::addColumn<int>("pixel");
    QTest::newRow("10 pixels per frame") << 10 << 0 << 0 << 7 << 70;
    QTest::newRow("scrolled") << 10 << 0 << 65 << 7 << 5;
    QTest::newRow("left of the view") << 10 << 0 << 75 << 7 << -5;
    QTest::newRow("3 frames per pixel") << 0 << 3 << 0 << 9 << 3;
    QTest::newRow("inside a pixel") << 0 << 3 << 0 << 11 << 3;
    QTest::newRow("toward zero at the right") << 0 << 3 << 3 << 10 << 0;
    QTest::newRow("toward zero at the left") << 0 << 3 << 3 << 8 << 0;
    QTest::newRow("one whole pixel left") << 0 << 3 << 3 << 6 << -1;
    QTest::newRow("negative frame") << 0 << 3 << 0 << -4 << -1;
}

void tst_FrameAxis::mapsFramesToPixels()
{
    QFETCH(int, pixelsPerFrame);
    QFETCH(int, framesPerPixel);
    QFETCH(int, scrollX);
    QFETCH(int, frame);
    QTEST(AxisOf(pixelsPerFrame, framesPerPixel, scrollX).FrameToPixel(frame), "pixel");
}

void tst_FrameAxis::mapsPixelsToFrames_data()
{
    QTest::addColumn<int>("pixelsPerFrame");
    QTest::addColumn<int>("framesPerPixel");
    QTest::addColumn<int>("scrollX");
    QTest::addColumn<int>("pixel");
    QTest::addColumn<int>("frame");
    QTest::newRow("first pixel of a frame") << 10 << 0 << 0 << 70 << 7;
    QTest::newRow("last pixel of a frame") << 10 << 0 << 0 << 79 << 7;
    QTest::newRow("scrolled") << 10 << 0 << 65 << 5 << 7;
    QTest::newRow("toward zero left of frame 0") << 10 << 0 << 0 << -9 << 0;
    QTest::newRow("left of frame 0") << 10 << 0 << 0 << -10 << -1;
    QTest::newRow("3 frames per pixel") << 0 << 3 << 2 << 5 << 21;
}

void tst_FrameAxis::mapsPixelsToFrames()
{
    QFETCH(int, pixelsPerFrame);
    QFETCH(int, framesPerPixel);
    QFETCH(int, scrollX);
    QFETCH(int, pixel);
    QTEST(AxisOf(pixelsPerFrame, framesPerPixel, scrollX).PixelToFrame(pixel), "frame");
}

void tst_FrameAxis::givesMultiplesOfFramesPerPixelForEveryPixel()
{
    for (const int k : {1, 2, 7, 49, 93, 98, 103, 1000})
        for (int scrollX = 0; scrollX < 300; ++scrollX)
            QCOMPARE(AxisOf(0, k, scrollX).PixelToFrame(0), scrollX * k);
}

void tst_FrameAxis::findsEveryPixelAgainWhereAReciprocalWouldMissIt()
{
    // 49 * (1.0 / 49) is less than 1, and 1 / (1.0 / 93) less than 93.
    for (int k = 1; k <= 400; ++k)
        for (int x = 0; x < 400; ++x)
            QCOMPARE(AxisOf(0, k, 5).FrameToPixel(AxisOf(0, k, 5).PixelToFrame(x)), x);
}

void tst_FrameAxis::tellsItsScaleWithoutEverGivingZero()
{
    QCOMPARE(AxisOf(10, 0, 0).Scale(), 10.0);
    QCOMPARE(AxisOf(0, 4, 0).Scale(), 0.25);
    QVERIFY(AxisOf(0, kLargestInt, 0).Scale() > 0.0);
    QCOMPARE(AxisOf(0, 0, 0).Scale(), 1.0);
}

void tst_FrameAxis::agreesWithExactFractionsForAnyAxis()
{
    std::mt19937 random(2);
    for (int round = 0; round < 200000; ++round) {
        const FrameAxis axis = AnyAxis(random);
        const Exact above = ScaleAbove(axis);
        const Exact below = ScaleBelow(axis);
        const Exact scroll = axis.scrollX;
        const long long frame = AnyInt(random) * (random() % 8 ? 1LL : 1000003LL);
        const int x = AnyInt(random);

        QCOMPARE(axis.FrameToPixel(frame), Quotient(frame * above - scroll * below, below));
        QCOMPARE(axis.PixelToFrame(x), Quotient((x + scroll) * below, above));
        QCOMPARE(axis.SpanToPixel(frame), Quotient(frame * above, below));
        QCOMPARE(ClampedInt(axis.PixelsToFrames(x)), Quotient(x * below, above));

        const long long numerator = static_cast<long long>(AnyInt(random)) * AnyInt(random);
        const long long denominator =
            random() % 8 ? 1 + static_cast<long long>(random() % 1000u) : 1LL << 32;
        QCOMPARE(axis.FrameToPixelPlus(frame, numerator, denominator),
                 Quotient((frame * above - scroll * below) * denominator + numerator * below,
                          below * denominator));
    }
}

void tst_FrameAxis::addsAFractionOfAPixelBeforeItTruncates_data()
{
    QTest::addColumn<int>("pixelsPerFrame");
    QTest::addColumn<int>("framesPerPixel");
    QTest::addColumn<int>("scrollX");
    QTest::addColumn<int>("frame");
    QTest::addColumn<int>("numerator");
    QTest::addColumn<int>("denominator");
    QTest::addColumn<int>("pixel");
    QTest::newRow("no fraction") << 10 << 0 << 0 << 3 << 0 << 1 << 30;
    QTest::newRow("half a pixel right") << 10 << 0 << 0 << 3 << 1 << 2 << 30;
    QTest::newRow("half a pixel left") << 10 << 0 << 0 << 3 << -1 << 2 << 29;
    QTest::newRow("half a pixel left of zero") << 10 << 0 << 30 << 3 << -1 << 2 << 0;
    QTest::newRow("two thirds and two thirds") << 0 << 3 << 0 << 2 << 2 << 3 << 1;
    QTest::newRow("two thirds and one third") << 0 << 3 << 0 << 2 << 1 << 3 << 1;
    QTest::newRow("the same, left of zero") << 0 << 3 << 2 << 2 << 1 << 3 << -1;
    QTest::newRow("a third short of -1") << 0 << 3 << 2 << 2 << 2 << 3 << 0;
}

void tst_FrameAxis::addsAFractionOfAPixelBeforeItTruncates()
{
    QFETCH(int, pixelsPerFrame);
    QFETCH(int, framesPerPixel);
    QFETCH(int, scrollX);
    QFETCH(int, frame);
    QFETCH(int, numerator);
    QFETCH(int, denominator);
    QTEST(AxisOf(pixelsPerFrame, framesPerPixel, scrollX)
              .FrameToPixelPlus(frame, numerator, denominator),
          "pixel");
}

void tst_FrameAxis::clampsFramesFarBeyondInt()
{
    constexpr long long farthest = std::numeric_limits<long long>::max();
    constexpr long long nearest = std::numeric_limits<long long>::min();
    for (const int scrollX : {kSmallestInt, 0, kLargestInt}) {
        for (const FrameAxis& axis : {AxisOf(10, 0, scrollX), AxisOf(0, 1, scrollX)}) {
            QCOMPARE(axis.FrameToPixel(farthest), kLargestInt);
            QCOMPARE(axis.FrameToPixel(nearest), kSmallestInt);
            QCOMPARE(axis.SpanToPixel(farthest), kLargestInt);
            QCOMPARE(axis.FrameToPixelPlus(farthest, farthest, 1), kLargestInt);
            QCOMPARE(axis.FrameToPixelPlus(nearest, nearest, 1), kSmallestInt);
            QCOMPARE(axis.PixelToFrame(farthest), kLargestInt);
            QCOMPARE(axis.PixelToFrame(nearest), kSmallestInt);
        }
    }
}

void tst_FrameAxis::takesSenselessScalesForOneFramePerPixel()
{
    const FrameAxis axis = AxisOf(-4, -7, 3);
    QVERIFY(axis.IsFramesPerPixel());
    QCOMPARE(axis.Scale(), 1.0);
    QCOMPARE(axis.FrameToPixel(10), 7);
    QCOMPARE(axis.PixelToFrame(7), 10);
    QCOMPARE(axis.SpanToPixel(10), 10);
    QCOMPARE(axis.PixelsToFrames(10), 10);
}

QTEST_MAIN(tst_FrameAxis)
#include "tst_FrameAxis.moc"
