#include "tracks/CellGeometry.h"

#include <QtTest>

namespace {

FrameAxis AxisAt(double scale, int scrollX = 0)
{
    FrameAxis axis;
    axis.info = CFrameInfo(scale);
    axis.scrollX = scrollX;
    return axis;
}

/// A scale that gives @p k frames a pixel.
double ScaleOf(int k)
{
    return k == 1 ? 1.5 : 1.0 / (k - 0.5);
}

/// trunc(numerator / denominator) of exact integers.
long long Trunc(long long numerator, long long denominator)
{
    return numerator / denominator;
}

} // namespace

class tst_CellGeometry : public QObject
{
    Q_OBJECT
private slots:
    void centredInCellIsExactInPixelsPerFrame()
    {
        for (int scale = 2; scale <= 10; ++scale) {
            const FrameAxis axis = AxisAt(scale);
            for (int x = -40; x <= 40; ++x) {
                for (int width = 0; width <= 27; ++width)
                    QCOMPARE(CentredInCell(axis, x, width), int(Trunc(2 * x + scale - width, 2)));
            }
        }
    }

    void centredInCellIsExactInFramesPerPixel()
    {
        for (const int k : {1, 2, 3, 7, 49, 93, 1000}) {
            const FrameAxis axis = AxisAt(ScaleOf(k));
            QCOMPARE(axis.info.framesPerPixel, k);
            for (int x = -40; x <= 40; ++x) {
                for (int width = 0; width <= 27; ++width)
                    QCOMPARE(CentredInCell(axis, x, width),
                             int(Trunc((2LL * x - width) * k + 1, 2LL * k)));
            }
        }
    }

    void cellCentreIsHalfACellToTheRight()
    {
        QCOMPARE(CellCentre(AxisAt(10), 100), 105);
        QCOMPARE(CellCentre(AxisAt(3), 100), 101);
        QCOMPARE(CellCentre(AxisAt(3), -2), 0);
        QCOMPARE(CellCentre(AxisAt(ScaleOf(4)), 100), 100);
        // Truncation is toward zero: trunc(-3 + 0.125).
        QCOMPARE(CellCentre(AxisAt(ScaleOf(4)), -3), -2);
    }

    void centredOnFrameTruncatesOnce()
    {
        for (const int k : {1, 2, 4, 49, 103}) {
            const FrameAxis axis = AxisAt(ScaleOf(k), 13);
            for (int frame = 0; frame < 60 * k; frame += 1 + k / 7) {
                QCOMPARE(CentredOnFrame(axis, frame, 5),
                         int(Trunc(2LL * (frame - 13LL * k) + 1 - 5LL * k, 2LL * k)));
            }
        }
        QCOMPARE(CentredOnFrame(AxisAt(10, 7), 5, 5), 45);
    }

    void placesStayInRange()
    {
        FrameAxis axis = AxisAt(10);
        const int largest = std::numeric_limits<int>::max();
        const int smallest = std::numeric_limits<int>::min();
        QCOMPARE(CentredInCell(axis, largest, 0), largest);
        QCOMPARE(CentredInCell(axis, smallest, largest), smallest);
        QCOMPARE(CentredOnFrame(axis, largest, 0), largest);
    }

    void alignedTopCentresOrPutsToAnEdge()
    {
        QCOMPARE(AlignedTop(kAlignCentre, 27, 10), 8);
        QCOMPARE(AlignedTop(kAlignTop, 27, 10), 0);
        QCOMPARE(AlignedTop(kAlignBottom, 27, 10), 17);
        QCOMPARE(AlignedTop(kAlignCentre, 10, 27), -8);
    }
};

QTEST_MAIN(tst_CellGeometry)
#include "tst_CellGeometry.moc"
