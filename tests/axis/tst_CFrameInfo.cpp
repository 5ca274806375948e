#include "axis/CFrameInfo.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

namespace {

constexpr int kLargestInt = std::numeric_limits<int>::max();

/// The rule for frames per pixel as the loop that defines it.
int FramesPerPixelByCounting(double scale)
{
    int framesPerPixel = 1;
    if (scale <= 1.0) {
        while (scale > 0) {
            ++framesPerPixel;
            if (1.0 / framesPerPixel < scale)
                break;
        }
    }
    return framesPerPixel;
}

} // namespace

class tst_CFrameInfo : public QObject
{
    Q_OBJECT
private slots:
    void startsAtOneFramePerPixelWithStepsOfOne();
    void isACopyablePolymorphicRecordOfSixIntegers();
    void roundsAScaleToWholeSteps_data();
    void roundsAScaleToWholeSteps();
    void countsFramesPerPixelAsTheDefiningLoopDoes();
    void countsFramesPerPixelAtReciprocalsAndTheirNeighbours();
    void takesTheFewestFramesPerPixelBelowATinyScale();
    void keepsTheStepsOfAHugeFramesPerPixelInRange();
};

void tst_CFrameInfo::startsAtOneFramePerPixelWithStepsOfOne()
{
    const CFrameInfo info;
    QCOMPARE(info.pixelsPerFrame, 0);
    QCOMPARE(info.framesPerPixel, 1);
    QCOMPARE(info.step1, 1);
    QCOMPARE(info.step2, 1);
    QCOMPARE(info.step3, 1);
    QCOMPARE(info.step4, 1);
}

void tst_CFrameInfo::isACopyablePolymorphicRecordOfSixIntegers()
{
    static_assert(std::has_virtual_destructor_v<CFrameInfo>);
    QCOMPARE(sizeof(CFrameInfo), sizeof(void*) + 6 * sizeof(int));
    CFrameInfo copy;
    const CFrameInfo info(0.3);
    copy = info;
    QCOMPARE(copy.pixelsPerFrame, info.pixelsPerFrame);
    QCOMPARE(copy.framesPerPixel, info.framesPerPixel);
    QCOMPARE(copy.step1, info.step1);
    QCOMPARE(copy.step2, info.step2);
    QCOMPARE(copy.step3, info.step3);
    QCOMPARE(copy.step4, info.step4);
}

void tst_CFrameInfo::roundsAScaleToWholeSteps_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("pixelsPerFrame");
    QTest::addColumn<int>("framesPerPixel");
    QTest::addColumn<int>("step1");
    QTest::addColumn<int>("step2");
    QTest::addColumn<int>("step3");
    QTest::addColumn<int>("step4");

    QTest::newRow("12.0 is capped at 10") << 12.0 << 10 << 0 << 1 << 1 << 1 << 1;
    QTest::newRow("just above 10 is capped") << 10.000001 << 10 << 0 << 1 << 1 << 1 << 1;
    QTest::newRow("10.0") << 10.0 << 10 << 0 << 1 << 1 << 1 << 1;
    QTest::newRow("9.99 is rounded down") << 9.99 << 9 << 0 << 1 << 1 << 1 << 1;
    QTest::newRow("5.0 has a tick every frame") << 5.0 << 5 << 0 << 1 << 1 << 1 << 1;
    QTest::newRow("4.99 has a tick every five") << 4.99 << 4 << 0 << 1 << 5 << 1 << 1;
    QTest::newRow("3.7") << 3.7 << 3 << 0 << 1 << 5 << 1 << 1;
    QTest::newRow("2.0") << 2.0 << 2 << 0 << 1 << 5 << 1 << 1;
    QTest::newRow("1.999 is one frame per pixel") << 1.999 << 0 << 1 << 10 << 10 << 1 << 10;
    QTest::newRow("1.5") << 1.5 << 0 << 1 << 10 << 10 << 1 << 10;
    QTest::newRow("just above 1") << std::nextafter(1.0, 2.0) << 0 << 1 << 10 << 10 << 1 << 10;
    QTest::newRow("1.0 gives two") << 1.0 << 0 << 2 << 20 << 20 << 2 << 10;
    QTest::newRow("0.51") << 0.51 << 0 << 2 << 20 << 20 << 2 << 10;
    QTest::newRow("0.5 gives three") << 0.5 << 0 << 3 << 30 << 30 << 3 << 10;
    QTest::newRow("0.3 gives four") << 0.3 << 0 << 4 << 40 << 40 << 4 << 10;
    QTest::newRow("0.01 gives 101") << 0.01 << 0 << 101 << 1010 << 1010 << 101 << 10;
    QTest::newRow("0 gives one") << 0.0 << 0 << 1 << 10 << 10 << 1 << 10;
    QTest::newRow("-0 gives one") << -0.0 << 0 << 1 << 10 << 10 << 1 << 10;
    QTest::newRow("negative gives one") << -3.0 << 0 << 1 << 10 << 10 << 1 << 10;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 10 << 0 << 1 << 1 << 1
                              << 1;
    QTest::newRow("minus infinite")
        << -std::numeric_limits<double>::infinity() << 0 << 1 << 10 << 10 << 1 << 10;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 0 << 1 << 10 << 10
                                  << 1 << 10;
}

void tst_CFrameInfo::roundsAScaleToWholeSteps()
{
    QFETCH(double, scale);
    const CFrameInfo info(scale);
    QTEST(info.pixelsPerFrame, "pixelsPerFrame");
    QTEST(info.framesPerPixel, "framesPerPixel");
    QTEST(info.step1, "step1");
    QTEST(info.step2, "step2");
    QTEST(info.step3, "step3");
    QTEST(info.step4, "step4");
}

void tst_CFrameInfo::countsFramesPerPixelAsTheDefiningLoopDoes()
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> exponent(-13.0, 1.0);
    for (int round = 0; round < 20000; ++round) {
        const double scale = std::exp2(exponent(random));
        if (scale < 2.0)
            QCOMPARE(CFrameInfo(scale).framesPerPixel, FramesPerPixelByCounting(scale));
    }
}

void tst_CFrameInfo::countsFramesPerPixelAtReciprocalsAndTheirNeighbours()
{
    for (int k = 1; k <= 3000; ++k) {
        const double reciprocal = 1.0 / k;
        for (const double scale :
             {reciprocal, std::nextafter(reciprocal, 0.0), std::nextafter(reciprocal, 2.0)})
            QCOMPARE(CFrameInfo(scale).framesPerPixel, FramesPerPixelByCounting(scale));
    }
}

void tst_CFrameInfo::takesTheFewestFramesPerPixelBelowATinyScale()
{
    for (const double scale : {1e-6, 3.7e-8, 1.0 / (kLargestInt - 2)}) {
        const int k = CFrameInfo(scale).framesPerPixel;
        QVERIFY(1.0 / k < scale);
        QVERIFY(!(1.0 / (k - 1) < scale));
    }
    for (const double scale : {1e-10, 1e-300, std::numeric_limits<double>::denorm_min()})
        QCOMPARE(CFrameInfo(scale).framesPerPixel, kLargestInt);
}

void tst_CFrameInfo::keepsTheStepsOfAHugeFramesPerPixelInRange()
{
    const CFrameInfo info(1e-300);
    QCOMPARE(info.pixelsPerFrame, 0);
    QCOMPARE(info.step1, kLargestInt);
    QCOMPARE(info.step2, kLargestInt);
    QCOMPARE(info.step3, kLargestInt);
    QCOMPARE(info.step4, 10);
}

QTEST_MAIN(tst_CFrameInfo)
#include "tst_CFrameInfo.moc"
