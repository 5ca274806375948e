#include "tracks/SwitchLayout.h"

#include <QtTest>

namespace {

// Odd free heights tell the two roundings apart: 26 - 17 = 9 rows beside a button, 26 - 11 = 15
// beside an arrow.
const QSize kButton(50, 17);
const QSize kArrow(7, 11);
constexpr int kGap = 4;
constexpr int kHeight = 26;
constexpr int kButtonTop = 5; // of the hit box: 4.5 rounded up
constexpr int kDrawnTop = 4;  // of the picture: halved to a whole number
constexpr int kArrowTop = 8;  // 7.5 rounded up
constexpr int kArrowBottom = 2 * kArrowTop - 1 + 11;

SwitchLayout MakeLayout(int width, int buttons)
{
    return SwitchLayout(QSize(width, kHeight), kButton, kArrow, kGap, buttons);
}

} // namespace

class tst_SwitchLayout : public QObject
{
    Q_OBJECT
private slots:
    void countsButtonsGapsAndBothArrows()
    {
        QCOMPARE(MakeLayout(100, 1).TotalWidth(), 50LL + 14);
        QCOMPARE(MakeLayout(100, 3).TotalWidth(), 3 * 50LL + 2 * 4 + 14);
        QCOMPARE(MakeLayout(100, 0).TotalWidth(), -4LL + 14);
    }

    void canBeScrolledByWhatDoesNotFit()
    {
        QCOMPARE(MakeLayout(172, 3).MaximumScroll(), 0);
        QCOMPARE(MakeLayout(171, 3).MaximumScroll(), 1);
        QCOMPARE(MakeLayout(100, 3).MaximumScroll(), 72);
        QCOMPARE(MakeLayout(400, 3).MaximumScroll(), 0);
        QCOMPARE(MakeLayout(0, 0).MaximumScroll(), 10);
    }

    void keepsTheOffsetBetweenHomeAndTheMaximumScroll()
    {
        const SwitchLayout layout = MakeLayout(100, 3);
        QCOMPARE(layout.ClampedOffset(5), 0);
        QCOMPARE(layout.ClampedOffset(-30), -30);
        QCOMPARE(layout.ClampedOffset(-72), -72);
        QCOMPARE(layout.ClampedOffset(-73), -72);
    }

    void scrollsByTwentyPixelsAndNeverBeyondItsEnds()
    {
        const SwitchLayout layout = MakeLayout(100, 3); // 72 pixels at most
        QVector<int> right, left;
        int offset = 0;
        for (int i = 0; i < 5; ++i)
            right << (offset = layout.ScrolledOffset(kRightArrow, offset));
        for (int i = 0; i < 5; ++i)
            left << (offset = layout.ScrolledOffset(kLeftArrow, offset));
        QCOMPARE(right, QVector<int>({-20, -40, -60, -72, -72}));
        QCOMPARE(left, QVector<int>({-52, -32, -12, 0, 0}));
        QCOMPARE(layout.ScrolledOffset(kNoArrow, -33), -33);
    }

    void doesNotScrollButtonsThatFit()
    {
        const SwitchLayout layout = MakeLayout(400, 3);
        QCOMPARE(layout.ScrolledOffset(kRightArrow, 0), 0);
        QCOMPARE(layout.ScrolledOffset(kLeftArrow, 0), 0);
    }

    void findsTheArrows_data()
    {
        QTest::addColumn<QPoint>("point");
        QTest::addColumn<int>("arrow");
        const int y = kArrowTop;
        QTest::newRow("before the left arrow") << QPoint(-1, y) << int(kNoArrow);
        QTest::newRow("first column of the left") << QPoint(0, y) << int(kLeftArrow);
        QTest::newRow("last column of the left") << QPoint(6, y) << int(kLeftArrow);
        QTest::newRow("after the left arrow") << QPoint(7, y) << int(kNoArrow);
        QTest::newRow("before the right arrow") << QPoint(92, y) << int(kNoArrow);
        QTest::newRow("first column of the right") << QPoint(93, y) << int(kRightArrow);
        QTest::newRow("one column beyond the row") << QPoint(100, y) << int(kRightArrow);
        QTest::newRow("two columns beyond the row") << QPoint(101, y) << int(kNoArrow);
        QTest::newRow("above the left") << QPoint(3, y - 1) << int(kNoArrow);
        QTest::newRow("bottom of the left") << QPoint(3, kArrowBottom) << int(kLeftArrow);
        QTest::newRow("below the left") << QPoint(3, kArrowBottom + 1) << int(kNoArrow);
        QTest::newRow("above the right") << QPoint(95, y - 1) << int(kNoArrow);
        QTest::newRow("bottom of the right") << QPoint(95, kArrowBottom) << int(kRightArrow);
        QTest::newRow("below the right") << QPoint(95, kArrowBottom + 1) << int(kNoArrow);
    }
    void findsTheArrows()
    {
        QFETCH(QPoint, point);
        QTEST(MakeLayout(100, 3).HitArrow(point), "arrow");
    }

    void findsTheButtons_data()
    {
        QTest::addColumn<QPoint>("point");
        QTest::addColumn<int>("offset");
        QTest::addColumn<int>("button");
        const int y = kButtonTop;
        QTest::newRow("left of the first") << QPoint(6, y) << 0 << -1;
        QTest::newRow("first column") << QPoint(7, y) << 0 << 0;
        QTest::newRow("last column") << QPoint(56, y) << 0 << 0;
        QTest::newRow("gap") << QPoint(57, y) << 0 << -1;
        QTest::newRow("end of the gap") << QPoint(60, y) << 0 << -1;
        QTest::newRow("second button") << QPoint(61, y) << 0 << 1;
        QTest::newRow("above") << QPoint(20, y - 1) << 0 << -1;
        QTest::newRow("bottom row") << QPoint(20, y + 16) << 0 << 0;
        QTest::newRow("below") << QPoint(20, y + 17) << 0 << -1;
        QTest::newRow("third is cut by the right arrow") << QPoint(120, y) << 0 << -1;
        QTest::newRow("third, scrolled into the row") << QPoint(110, y) << -22 << 2;
        QTest::newRow("under the left arrow") << QPoint(2, y) << -20 << 0;
        QTest::newRow("beyond the last") << QPoint(146, y) << -72 << -1;
    }
    void findsTheButtons()
    {
        QFETCH(QPoint, point);
        QFETCH(int, offset);
        QTEST(MakeLayout(150, 3).HitButton(point, offset), "button");
    }

    void aButtonThatTheRightArrowCutsCannotBeHit()
    {
        // The third button covers columns 115 to 164.
        const QPoint inThird(120, 12);
        QCOMPARE(MakeLayout(171, 3).HitButton(inThird, 0), -1); // the arrow begins at column 164
        QCOMPARE(MakeLayout(172, 3).HitButton(inThird, 0), 2);  // and here at 165
    }

    void aButtonBeyondTheRightArrowEndsTheSearch()
    {
        QCOMPARE(MakeLayout(100, 30).HitButton(QPoint(7 + 54 * 5, 12), 0), -1);
        // With no room at all not even the first button can be hit.
        QCOMPARE(MakeLayout(7, 3).HitButton(QPoint(7, 12), 0), -1);
    }

    void withoutButtonsNothingIsHit()
    {
        QCOMPARE(MakeLayout(100, 0).HitButton(QPoint(10, 12), 0), -1);
    }

    void showsTheArrowUnderThePointer_data()
    {
        QTest::addColumn<int>("arrow");
        QTest::addColumn<bool>("pressed");
        QTest::addColumn<int>("left");
        QTest::addColumn<int>("right");
        QTest::newRow("neither") << int(kNoArrow) << false << 0 << 4;
        QTest::newRow("neither, pressed") << int(kNoArrow) << true << 0 << 4;
        QTest::newRow("left") << int(kLeftArrow) << false << 1 << 4;
        QTest::newRow("left pressed") << int(kLeftArrow) << true << 2 << 4;
        QTest::newRow("right") << int(kRightArrow) << false << 0 << 5;
        QTest::newRow("right pressed") << int(kRightArrow) << true << 0 << 6;
    }
    void showsTheArrowUnderThePointer()
    {
        QFETCH(int, arrow);
        QFETCH(bool, pressed);
        int offset = -30;
        const SwitchArrowImages images = MakeLayout(100, 3).Refresh(arrow, pressed, offset);
        QTEST(images.left, "left");
        QTEST(images.right, "right");
        QCOMPARE(offset, -30);
    }

    void disablesBothArrowsWhenButtonsFitOrThereAreNone_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("buttons");
        QTest::newRow("they fit") << 400 << 3;
        QTest::newRow("they just fit") << 172 << 3;
        QTest::newRow("none") << 400 << 0;
        QTest::newRow("none in a row too narrow for the arrows") << 2 << 0;
    }
    void disablesBothArrowsWhenButtonsFitOrThereAreNone()
    {
        QFETCH(int, width);
        QFETCH(int, buttons);
        for (const int arrow : {kNoArrow, kLeftArrow, kRightArrow}) {
            int offset = -30;
            const SwitchArrowImages images =
                MakeLayout(width, buttons).Refresh(arrow, true, offset);
            QCOMPARE(images.left, 3);
            QCOMPARE(images.right, 7);
            QCOMPARE(offset, 0);
        }
    }

    void bringsTheOffsetBackWhenTheRowBecameWider()
    {
        int offset = -200;
        MakeLayout(100, 3).Refresh(kNoArrow, false, offset);
        QCOMPARE(offset, -72);
    }

    void startsWithDisabledArrows()
    {
        QCOMPARE(SwitchArrowImages().left, 3);
        QCOMPARE(SwitchArrowImages().right, 7);
    }

    void placesTheDrawnButtons()
    {
        const SwitchLayout layout = MakeLayout(100, 3);
        QCOMPARE(layout.ButtonRect(0, 0), QRect(QPoint(7, kDrawnTop), kButton));
        QCOMPARE(layout.ButtonRect(2, -20), QRect(QPoint(95, kDrawnTop), kButton));
        QCOMPARE(layout.ArrowTop(), kArrowTop);
    }

    void placesWhatIsHigherThanTheRow()
    {
        const SwitchLayout layout(QSize(100, 10), QSize(50, 15), QSize(7, 13), kGap, 1);
        QCOMPARE(layout.ButtonRect(0, 0).y(), -1); // -5 / 2 = -2, then -1.5 toward zero
        QCOMPARE(layout.ArrowTop(), -1);           // -1.5 + 0.5
    }

    void drawsAButtonWhileAnyOfItIsBetweenTheArrows_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("offset");
        QTest::addColumn<bool>("visible");
        QTest::newRow("at home") << 0 << 0 << true;
        QTest::newRow("last column right of the left arrow") << 0 << -49 << true;
        QTest::newRow("wholly under the left arrow") << 0 << -50 << false;
        QTest::newRow("cut by the right arrow") << 1 << 0 << true;
        // The second button starts at 61 + offset; the row ends at column 99.
        QTest::newRow("one column left of the right arrow") << 1 << 30 << true;
        QTest::newRow("at the right arrow") << 1 << 31 << false;
        QTest::newRow("beyond the row") << 2 << 0 << false;
    }
    void drawsAButtonWhileAnyOfItIsBetweenTheArrows()
    {
        QFETCH(int, index);
        QFETCH(int, offset);
        QTEST(MakeLayout(100, 3).IsButtonVisible(index, offset), "visible");
    }

    void nothingIsDrawnFromTheFirstButtonBeyondTheEndOn_data()
    {
        QTest::addColumn<int>("gap");
        QTest::newRow("beside each other") << kGap;
        QTest::newRow("over each other") << -30;
        QTest::newRow("all in one place") << -50;
        QTest::newRow("to the left") << -70;
    }
    void nothingIsDrawnFromTheFirstButtonBeyondTheEndOn()
    {
        QFETCH(int, gap);
        constexpr int kCount = 12;
        const SwitchLayout layout(QSize(100, kHeight), kButton, kArrow, gap, kCount);
        for (int offset = -400; offset <= 400; ++offset) {
            bool beyond = false;
            for (int index = 0; index < kCount; ++index) {
                beyond = beyond || layout.AreButtonsBeyondEndFrom(index, offset);
                QVERIFY(!beyond || !layout.IsButtonVisible(index, offset));
            }
        }
        QCOMPARE(layout.AreButtonsBeyondEndFrom(0, 84), false);
        // Buttons that go to the left come into view later.
        QCOMPARE(layout.AreButtonsBeyondEndFrom(0, 85), gap >= -50);
    }

    void statesGainAndLoseTheHoverAndToggle_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<int>("without");
        QTest::addColumn<int>("with");
        QTest::addColumn<int>("toggled");
        QTest::addColumn<bool>("on");
        QTest::newRow("off") << 0 << 0 << 1 << 3 << false;
        QTest::newRow("off, hover") << 1 << 0 << 1 << 3 << false;
        QTest::newRow("on") << 2 << 2 << 3 << 1 << true;
        QTest::newRow("on, hover") << 3 << 2 << 3 << 1 << true;
        QTest::newRow("unknown") << 9 << 9 << 9 << 3 << false;
    }
    void statesGainAndLoseTheHoverAndToggle()
    {
        QFETCH(int, state);
        QTEST(WithoutHover(state), "without");
        QTEST(WithHover(state), "with");
        QTEST(Toggled(state), "toggled");
        QTEST(IsSwitchOn(state), "on");
    }
};

QTEST_MAIN(tst_SwitchLayout)
#include "tst_SwitchLayout.moc"
