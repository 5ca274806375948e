#include "axis/ScrollThumb.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr int kLargestInt = std::numeric_limits<int>::max();
constexpr int kSmallestInt = std::numeric_limits<int>::min();
constexpr int kRowHeight = 20;

/// A scroll bar with an axis of its own: 1000 pixels and 400 frames at 10 pixels per frame, of
/// which a quarter is in view, so that the narrowest thumb is 250 pixels wide.
struct Bar
{
    explicit Bar(int width = 1000, int frameCount = 400, double scale = 10.0)
    {
        axis.frameCount = frameCount;
        axis.info = CFrameInfo(scale);
        thumb.SetSize(width, kRowHeight);
        thumb.SetSynchronisedWidth(width);
    }

    Bar& WithThumb(int left, int right)
    {
        thumb.SetThumb({left, 0, right, kRowHeight});
        return *this;
    }
    Bar& ScrolledTo(int scrollX)
    {
        axis.scrollX = scrollX;
        return *this;
    }
    int Left() const { return thumb.GetThumb().left; }
    int Right() const { return thumb.GetThumb().right; }

    FrameAxis axis;
    ScrollThumb thumb{axis};
};

struct State
{
    int left, top, right, bottom, scrollX, pixelsPerFrame, framesPerPixel, synchronisedWidth;
};

State StateOf(const Bar& bar)
{
    const ScrollThumb::Thumb& thumb = bar.thumb.GetThumb();
    return {thumb.left,
            thumb.top,
            thumb.right,
            thumb.bottom,
            bar.axis.scrollX,
            bar.axis.info.pixelsPerFrame,
            bar.axis.info.framesPerPixel,
            bar.thumb.SynchronisedWidth()};
}

bool operator==(const State& a, const State& b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom &&
           a.scrollX == b.scrollX && a.pixelsPerFrame == b.pixelsPerFrame &&
           a.framesPerPixel == b.framesPerPixel && a.synchronisedWidth == b.synchronisedWidth;
}

struct Command
{
    const char* name;
    std::function<void(ScrollThumb&)> run;
};

/// Every command that may change the view, with plain arguments.
std::vector<Command> AllCommands()
{
    const auto drag = [](ScrollThumb::DragMode mode) {
        return [mode](ScrollThumb& thumb) {
            thumb.BeginDrag(mode, 10);
            thumb.DragTo(30);
            thumb.EndDrag();
        };
    };
    return {{"Apply", [](ScrollThumb& t) { t.Apply(); }},
            {"SyncThumb", [](ScrollThumb& t) { t.SyncThumb(false); }},
            {"SyncThumb forced", [](ScrollThumb& t) { t.SyncThumb(true); }},
            {"ScrollToFrame", [](ScrollThumb& t) { t.ScrollToFrame(50, 0); }},
            {"UnZoom", [](ScrollThumb& t) { t.UnZoom(); }},
            {"ZoomIn", [](ScrollThumb& t) { t.ZoomIn(); }},
            {"ZoomOut", [](ScrollThumb& t) { t.ZoomOut(); }},
            {"ZoomAll", [](ScrollThumb& t) { t.ZoomAll(); }},
            {"SetScrollInfo", [](ScrollThumb& t) { t.SetScrollInfo(0.25f, 0.5f); }},
            {"Page", [](ScrollThumb& t) { t.Page(0); }},
            {"drag body", drag(ScrollThumb::kBody)},
            {"drag left edge", drag(ScrollThumb::kLeftEdge)},
            {"drag right edge", drag(ScrollThumb::kRightEdge)}};
}

int Between(std::mt19937& random, int lowest, int highest)
{
    return std::uniform_int_distribution<int>(lowest, highest)(random);
}

} // namespace

class tst_ScrollThumb : public QObject
{
    Q_OBJECT
private slots:
    void startsWithAnEmptyThumb();

    void knowsTheNarrowestThumb_data();
    void knowsTheNarrowestThumb();
    void allowsNoZoomInWhereAllFramesFitAtTenPixels();

    void zoomsByTheDistanceOfTheEdges_data();
    void zoomsByTheDistanceOfTheEdges();
    void scrollsToTheThumbsLeftEdgeRoundedUp_data();
    void scrollsToTheThumbsLeftEdgeRoundedUp();
    void publishesTheZoomWithoutScrolling();

    void hitsEdgesBeforeTheBodyAndTheGround_data();
    void hitsEdgesBeforeTheBodyAndTheGround();

    void pagesByOneThumbWidth_data();
    void pagesByOneThumbWidth();
    void keepsTheZoomWhilePaging();
    void widensByOnePixelWhenPagingAgainstEitherEnd();

    void dragsTheBody_data();
    void dragsTheBody();
    void dragsTheBodyStepByStep();
    void keepsTheThumbWidthWhenTheBodyIsDraggedAgainstEitherEnd();
    void keepsTheZoomWhileTheBodyIsDragged();
    void dragsTheLeftEdge_data();
    void dragsTheLeftEdge();
    void dragsTheRightEdge_data();
    void dragsTheRightEdge();
    void stopsALeftEdgeDragTwoPixelsWiderThanARightEdgeDrag();
    void zoomsAndScrollsWithAnEdgeDrag();
    void dragsNothingOutsideTheDragModes();

    void showsAFullThumbUnscrolledWhereAllFramesFit_data();
    void showsAFullThumbUnscrolledWhereAllFramesFit();
    void findsTheThumbAgainAfterAChangeElsewhere_data();
    void findsTheThumbAgainAfterAChangeElsewhere();
    void sizesAPartialThumbInSinglePrecision();
    void remembersTheWidthOfTheLastSynchronisation();
    void endsAPartialThumbAtTheRowHeight();
    void widensTheZoomByOneFrameWhenAWholeReciprocalIsPublishedAgain();

    void changesNothingForAFrameStrictlyInsideTheView();
    void scrollsToAFrame_data();
    void scrollsToAFrame();
    void halvesAnOddViewTowardZeroWhenItCentres();
    void scrollsToAFrameByWholeFramesPerPixel_data();
    void scrollsToAFrameByWholeFramesPerPixel();

    void unzoomsToTheNarrowestThumbAboutTheCentre_data();
    void unzoomsToTheNarrowestThumbAboutTheCentre();
    void zoomsIn_data();
    void zoomsIn();
    void zoomsOut_data();
    void zoomsOut();
    void zoomsToAllFrames();
    void countsADifferenceOfOnePixelAsNone_data();
    void countsADifferenceOfOnePixelAsNone();

    void tellsTheWidthAndTheEdgesAsFractionsInSinglePrecision();
    void setsTheEdgesFromFractions_data();
    void setsTheEdgesFromFractions();
    void refusesFractionsThatAreNoPartOfTheBar_data();
    void refusesFractionsThatAreNoPartOfTheBar();

    void fillsTheBarAndLeavesTheZoomWithoutFramesOrWidth_data();
    void fillsTheBarAndLeavesTheZoomWithoutFramesOrWidth();
    void offersNoZoomWithoutFramesOrWidth();

    void staysSaneUnderAnyGesturesOfAUser();
    void survivesAnyCommandOnAnyThumb();
};

void tst_ScrollThumb::startsWithAnEmptyThumb()
{
    FrameAxis axis;
    const ScrollThumb thumb(axis);
    QCOMPARE(thumb.GetThumb().left, 0);
    QCOMPARE(thumb.GetThumb().top, 0);
    QCOMPARE(thumb.GetThumb().right, -1);
    QCOMPARE(thumb.GetThumb().bottom, -1);
    QCOMPARE(thumb.GetDragMode(), ScrollThumb::kNone);
}

void tst_ScrollThumb::knowsTheNarrowestThumb_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("frameCount");
    QTest::addColumn<int>("narrowest");
    QTest::newRow("all frames fit exactly") << 100 << 10 << 100;
    QTest::newRow("one frame too many") << 100 << 11 << 91;
    QTest::newRow("a quarter") << 1000 << 400 << 250;
    QTest::newRow("rounded up") << 1000 << 300 << 334;
    QTest::newRow("many frames") << 1000 << 20000 << 5;
    QTest::newRow("less than a pixel") << 100 << 100000 << 1;
    QTest::newRow("no frames") << 100 << 0 << 100;
    QTest::newRow("more frames than ten times fit an int") << 1000 << kLargestInt << 1;
    // 840 * 840 / 3150 is 224 exactly; single precision lands just above.
    QTest::newRow("single precision") << 840 << 315 << 225;
}

void tst_ScrollThumb::knowsTheNarrowestThumb()
{
    QFETCH(int, width);
    QFETCH(int, frameCount);
    QTEST(Bar(width, frameCount).thumb.MinimumWidth(), "narrowest");
}

void tst_ScrollThumb::allowsNoZoomInWhereAllFramesFitAtTenPixels()
{
    Bar bar(1000, 100, 5.0);
    QCOMPARE(bar.thumb.MinimumWidth(), 1000);
    bar.thumb.SyncThumb(false);
    QVERIFY(!bar.thumb.CanZoomIn());
    QVERIFY(!bar.thumb.CanUnZoom());
    bar.thumb.ZoomIn();
    QCOMPARE(bar.Left(), 0);
    QCOMPARE(bar.Right(), 999);
}

void tst_ScrollThumb::zoomsByTheDistanceOfTheEdges_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("frameCount");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("pixelsPerFrame");
    QTest::addColumn<int>("framesPerPixel");
    QTest::newRow("10.02 is capped at 10") << 1000 << 200 << 0 << 499 << 10 << 0;
    QTest::newRow("exactly 10") << 1000 << 200 << 0 << 500 << 10 << 0;
    QTest::newRow("just below 10") << 1000 << 200 << 0 << 501 << 9 << 0;
    QTest::newRow("2.002") << 1000 << 500 << 0 << 999 << 2 << 0;
    QTest::newRow("just below 2") << 1000 << 501 << 0 << 999 << 0 << 1;
    QTest::newRow("just above a half") << 1000 << 20000 << 0 << 99 << 0 << 2;
    QTest::newRow("exactly a half counts one more") << 1000 << 20000 << 0 << 100 << 0 << 3;
    QTest::newRow("edges that meet") << 1000 << 20000 << 40 << 40 << 10 << 0;
    QTest::newRow("edges that have crossed") << 1000 << 20000 << 40 << 30 << 0 << 1;
    QTest::newRow("beyond 32 bits") << 40000 << kLargestInt << 0 << 39999 << 0 << 53686;
}

void tst_ScrollThumb::zoomsByTheDistanceOfTheEdges()
{
    QFETCH(int, width);
    QFETCH(int, frameCount);
    QFETCH(int, left);
    QFETCH(int, right);
    Bar bar(width, frameCount, 7.0);
    bar.WithThumb(left, right).thumb.Apply();
    QTEST(bar.axis.info.pixelsPerFrame, "pixelsPerFrame");
    QTEST(bar.axis.info.framesPerPixel, "framesPerPixel");
    QCOMPARE(bar.Left(), left);
    QCOMPARE(bar.Right(), right);
}

void tst_ScrollThumb::scrollsToTheThumbsLeftEdgeRoundedUp_data()
{
    QTest::addColumn<int>("frameCount");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("scrollX");
    QTest::newRow("at the left end") << 400 << 0 << 300 << 0;
    QTest::newRow("a whole offset") << 400 << 250 << 499 << 1000;
    // 0.1 is a little more in single precision: 400.000006 pixels.
    QTest::newRow("single precision") << 400 << 100 << 349 << 401;
    QTest::newRow("three frames per pixel") << 20000 << 250 << 350 << 1667;
    // A product with 1 / 5 rounded would end just above 15.
    QTest::newRow("five frames per pixel, exactly") << 100 << 750 << 50749 << 15;
    QTest::newRow("left of the bar") << 400 << -250 << 0 << -1000;
}

void tst_ScrollThumb::scrollsToTheThumbsLeftEdgeRoundedUp()
{
    QFETCH(int, frameCount);
    QFETCH(int, left);
    QFETCH(int, right);
    Bar bar(1000, frameCount);
    bar.WithThumb(left, right).thumb.Apply();
    QTEST(bar.axis.scrollX, "scrollX");
}

void tst_ScrollThumb::publishesTheZoomWithoutScrolling()
{
    Bar bar(1000, 400, 10.0);
    bar.WithThumb(250, 750).ScrolledTo(33).thumb.PublishFrameInfo();
    QCOMPARE(bar.axis.info.pixelsPerFrame, 5);
    QCOMPARE(bar.axis.scrollX, 33);
    QCOMPARE(bar.Left(), 250);
    QCOMPARE(bar.Right(), 750);
}

void tst_ScrollThumb::hitsEdgesBeforeTheBodyAndTheGround_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("y");
    QTest::addColumn<int>("mode");
    QTest::newRow("ground left") << 100 << 199 << 97 << 10 << 4;
    QTest::newRow("left edge from outside") << 100 << 199 << 98 << 10 << 2;
    QTest::newRow("left edge from inside") << 100 << 199 << 102 << 10 << 2;
    QTest::newRow("body beside the left edge") << 100 << 199 << 103 << 10 << 1;
    QTest::newRow("body beside the right edge") << 100 << 199 << 196 << 10 << 1;
    QTest::newRow("right edge from inside") << 100 << 199 << 197 << 10 << 3;
    QTest::newRow("right edge from outside") << 100 << 199 << 201 << 10 << 3;
    QTest::newRow("ground right") << 100 << 199 << 202 << 10 << 5;
    QTest::newRow("top of the body") << 100 << 199 << 150 << 0 << 1;
    QTest::newRow("bottom of the body") << 100 << 199 << 150 << kRowHeight << 1;
    QTest::newRow("above the body") << 100 << 199 << 150 << -1 << 0;
    QTest::newRow("below the body") << 100 << 199 << 150 << kRowHeight + 1 << 0;
    QTest::newRow("an edge at any height") << 100 << 199 << 100 << 500 << 2;
    QTest::newRow("the left edge is tested first") << 100 << 101 << 101 << 10 << 2;
    QTest::newRow("the right edge of a narrow thumb") << 100 << 101 << 103 << 10 << 3;
    QTest::newRow("far left") << 100 << 199 << kSmallestInt << 10 << 4;
    QTest::newRow("far right") << 100 << 199 << kLargestInt << 10 << 5;
}

void tst_ScrollThumb::hitsEdgesBeforeTheBodyAndTheGround()
{
    QFETCH(int, left);
    QFETCH(int, right);
    QFETCH(int, x);
    QFETCH(int, y);
    Bar bar;
    QTEST(int{bar.WithThumb(left, right).thumb.HitTest(x, y)}, "mode");
}

void tst_ScrollThumb::pagesByOneThumbWidth_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("newLeft");
    QTest::addColumn<int>("newRight");
    QTest::newRow("left") << 300 << 399 << 200 << 200 << 299;
    QTest::newRow("right") << 300 << 399 << 700 << 400 << 499;
    QTest::newRow("the middle, halved down, pages right") << 300 << 399 << 349 << 400 << 499;
    QTest::newRow("left of the middle pages left") << 300 << 399 << 348 << 200 << 299;
    QTest::newRow("to one pixel from the left end") << 101 << 200 << 0 << 1 << 100;
    QTest::newRow("to the left end") << 100 << 199 << 0 << 0 << 100;
    QTest::newRow("beyond the left end") << 50 << 149 << 0 << 0 << 100;
    QTest::newRow("to one pixel from the right end") << 799 << 898 << 999 << 899 << 998;
    QTest::newRow("to the right end") << 800 << 899 << 999 << 899 << 999;
    QTest::newRow("beyond the right end") << 850 << 949 << 999 << 899 << 999;
}

void tst_ScrollThumb::pagesByOneThumbWidth()
{
    QFETCH(int, left);
    QFETCH(int, right);
    QFETCH(int, x);
    Bar bar;
    bar.WithThumb(left, right).thumb.Page(x);
    QTEST(bar.Left(), "newLeft");
    QTEST(bar.Right(), "newRight");
}

void tst_ScrollThumb::keepsTheZoomWhilePaging()
{
    Bar bar(1000, 400, 4.0);
    bar.WithThumb(250, 749).thumb.Page(900);
    QCOMPARE(bar.Left(), 499);
    QCOMPARE(bar.axis.info.pixelsPerFrame, 4);
    QCOMPARE(bar.axis.scrollX, 799); // 4 * 0.499 * 400 is 798.4
}

void tst_ScrollThumb::widensByOnePixelWhenPagingAgainstEitherEnd()
{
    Bar left;
    left.WithThumb(20, 319).thumb.Page(0);
    QCOMPARE(left.Left(), 0);
    QCOMPARE(left.Right() - left.Left() + 1, 301);
    Bar right;
    right.WithThumb(680, 979).thumb.Page(999);
    QCOMPARE(right.Right(), 999);
    QCOMPARE(right.Right() - right.Left() + 1, 301);
}

void tst_ScrollThumb::dragsTheBody_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("newLeft");
    QTest::addColumn<int>("newRight");
    QTest::newRow("not at all") << 350 << 350 << 300 << 399;
    QTest::newRow("right") << 350 << 360 << 310 << 409;
    QTest::newRow("left") << 350 << 250 << 200 << 299;
    QTest::newRow("to one pixel from the left end") << 350 << 51 << 1 << 100;
    QTest::newRow("to the left end") << 350 << 50 << 0 << 99;
    QTest::newRow("far left") << 350 << kSmallestInt << 0 << 99;
    QTest::newRow("to one pixel from the right end") << 350 << 949 << 899 << 998;
    QTest::newRow("to the right end") << 350 << 950 << 900 << 999;
    QTest::newRow("far right") << 350 << kLargestInt << 900 << 999;
    QTest::newRow("from end to end of int") << kSmallestInt << kLargestInt << 900 << 999;
}

void tst_ScrollThumb::dragsTheBody()
{
    QFETCH(int, from);
    QFETCH(int, to);
    Bar bar;
    bar.WithThumb(300, 399).thumb.BeginDrag(ScrollThumb::kBody, from);
    bar.thumb.DragTo(to);
    QTEST(bar.Left(), "newLeft");
    QTEST(bar.Right(), "newRight");
}

void tst_ScrollThumb::dragsTheBodyStepByStep()
{
    Bar bar;
    bar.WithThumb(300, 399).thumb.BeginDrag(ScrollThumb::kBody, 350);
    bar.thumb.DragTo(360);
    bar.thumb.DragTo(340);
    QCOMPARE(bar.Left(), 290);
    // The pointer runs 100 pixels past the end; on its way back the thumb leaves at once.
    bar.thumb.DragTo(-50);
    QCOMPARE(bar.Left(), 0);
    bar.thumb.DragTo(-30);
    QCOMPARE(bar.Left(), 20);
}

void tst_ScrollThumb::keepsTheThumbWidthWhenTheBodyIsDraggedAgainstEitherEnd()
{
    Bar bar;
    bar.WithThumb(300, 599).thumb.BeginDrag(ScrollThumb::kBody, 400);
    bar.thumb.DragTo(-1000);
    QCOMPARE(bar.Left(), 0);
    QCOMPARE(bar.Right(), 299);
    bar.thumb.DragTo(5000);
    QCOMPARE(bar.Left(), 700);
    QCOMPARE(bar.Right(), 999);
}

void tst_ScrollThumb::keepsTheZoomWhileTheBodyIsDragged()
{
    Bar bar(1000, 400, 4.0);
    bar.WithThumb(250, 749).thumb.BeginDrag(ScrollThumb::kBody, 400);
    bar.thumb.DragTo(399);
    QCOMPARE(bar.axis.info.pixelsPerFrame, 4);
    QCOMPARE(bar.axis.scrollX, 399); // 4 * 0.249 * 400 is 398.4
}

void tst_ScrollThumb::dragsTheLeftEdge_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("newLeft");
    QTest::addColumn<int>("newRight");
    QTest::newRow("wider") << 300 << 799 << 200 << 200 << 799;
    QTest::newRow("narrower") << 300 << 799 << 400 << 400 << 799;
    QTest::newRow("beyond the left end") << 300 << 799 << -50 << 0 << 799;
    QTest::newRow("to exactly the narrowest") << 300 << 799 << 550 << 550 << 799;
    QTest::newRow("narrower than the narrowest") << 300 << 799 << 551 << 548 << 799;
    QTest::newRow("past the right edge") << 300 << 799 << 5000 << 548 << 799;
    QTest::newRow("narrowest at the left end") << 0 << 250 << 100 << 0 << 249;
    QTest::newRow("just fits at the left end") << 0 << 251 << 100 << 0 << 251;
    QTest::newRow("wider than the bar") << 100 << 1000 << 0 << -1 << 1000;
    QTest::newRow("far left") << 300 << 799 << kSmallestInt << 0 << 799;
    QTest::newRow("far right") << 300 << 799 << kLargestInt << 548 << 799;
}

void tst_ScrollThumb::dragsTheLeftEdge()
{
    QFETCH(int, left);
    QFETCH(int, right);
    QFETCH(int, x);
    Bar bar;
    bar.WithThumb(left, right).thumb.BeginDrag(ScrollThumb::kLeftEdge, left);
    bar.thumb.DragTo(x);
    QTEST(bar.Left(), "newLeft");
    QTEST(bar.Right(), "newRight");
}

void tst_ScrollThumb::dragsTheRightEdge_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("newLeft");
    QTest::addColumn<int>("newRight");
    QTest::newRow("wider") << 300 << 799 << 900 << 300 << 900;
    QTest::newRow("narrower") << 300 << 799 << 700 << 300 << 700;
    QTest::newRow("beyond the right end") << 300 << 799 << 5000 << 300 << 999;
    QTest::newRow("to exactly the narrowest") << 300 << 799 << 549 << 300 << 549;
    QTest::newRow("narrower than the narrowest") << 300 << 799 << 548 << 300 << 549;
    QTest::newRow("past the left edge") << 300 << 799 << -50 << 300 << 549;
    QTest::newRow("wider than the bar") << -1 << 500 << 999 << -1 << 998;
    QTest::newRow("far left") << 300 << 799 << kSmallestInt << 300 << 549;
    QTest::newRow("far right") << 300 << 799 << kLargestInt << 300 << 999;
}

void tst_ScrollThumb::dragsTheRightEdge()
{
    QFETCH(int, left);
    QFETCH(int, right);
    QFETCH(int, x);
    Bar bar;
    bar.WithThumb(left, right).thumb.BeginDrag(ScrollThumb::kRightEdge, right);
    bar.thumb.DragTo(x);
    QTEST(bar.Left(), "newLeft");
    QTEST(bar.Right(), "newRight");
}

void tst_ScrollThumb::stopsALeftEdgeDragTwoPixelsWiderThanARightEdgeDrag()
{
    Bar right;
    right.WithThumb(100, 599).thumb.BeginDrag(ScrollThumb::kRightEdge, 599);
    right.thumb.DragTo(110);
    QCOMPARE(right.Right() - right.Left() + 1, right.thumb.MinimumWidth());
    Bar left;
    left.WithThumb(100, 599).thumb.BeginDrag(ScrollThumb::kLeftEdge, 100);
    left.thumb.DragTo(590);
    QCOMPARE(left.Right() - left.Left() + 1, left.thumb.MinimumWidth() + 2);
}

void tst_ScrollThumb::zoomsAndScrollsWithAnEdgeDrag()
{
    Bar bar;
    bar.WithThumb(0, 300).thumb.BeginDrag(ScrollThumb::kRightEdge, 300);
    bar.thumb.DragTo(500);
    QCOMPARE(bar.axis.info.pixelsPerFrame, 5); // 1000 * 1000 / (500 * 400)
    bar.thumb.EndDrag();
    bar.thumb.BeginDrag(ScrollThumb::kLeftEdge, 0);
    bar.thumb.DragTo(125);
    QCOMPARE(bar.axis.info.pixelsPerFrame, 6); // 1000 * 1000 / (375 * 400)
    QCOMPARE(bar.axis.scrollX, 300);           // 6 * 0.125 * 400
}

void tst_ScrollThumb::dragsNothingOutsideTheDragModes()
{
    for (const auto mode : {ScrollThumb::kNone, ScrollThumb::kPageLeft, ScrollThumb::kPageRight}) {
        Bar bar;
        bar.WithThumb(300, 599).ScrolledTo(7);
        const State before = StateOf(bar);
        bar.thumb.BeginDrag(mode, 400);
        QCOMPARE(bar.thumb.GetDragMode(), mode);
        bar.thumb.DragTo(500);
        QVERIFY(StateOf(bar) == before);
    }
    Bar ended;
    ended.WithThumb(300, 599).thumb.BeginDrag(ScrollThumb::kBody, 400);
    ended.thumb.EndDrag();
    QCOMPARE(ended.thumb.GetDragMode(), ScrollThumb::kNone);
    ended.thumb.DragTo(500);
    QCOMPARE(ended.Left(), 300);
}

void tst_ScrollThumb::showsAFullThumbUnscrolledWhereAllFramesFit_data()
{
    QTest::addColumn<int>("frameCount");
    QTest::addColumn<double>("scale");
    QTest::newRow("well inside") << 20 << 10.0;
    QTest::newRow("exactly") << 100 << 10.0;
    QTest::newRow("frames per pixel, truncated") << 3002 << 0.4; // 1000.67 pixels
}

void tst_ScrollThumb::showsAFullThumbUnscrolledWhereAllFramesFit()
{
    QFETCH(int, frameCount);
    QFETCH(double, scale);
    for (const bool force : {false, true}) {
        Bar bar(1000, frameCount, scale);
        bar.WithThumb(300, 599).ScrolledTo(70).thumb.SyncThumb(force);
        QCOMPARE(bar.Left(), 0);
        QCOMPARE(bar.Right(), 999);
        QCOMPARE(bar.thumb.GetThumb().top, 0);
        QCOMPARE(bar.thumb.GetThumb().bottom, kRowHeight - 1);
        QCOMPARE(bar.axis.scrollX, 0);
    }
}

void tst_ScrollThumb::findsTheThumbAgainAfterAChangeElsewhere_data()
{
    QTest::addColumn<int>("frameCount");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("scrollX");
    QTest::addColumn<int>("synchronisedWidth");
    QTest::addColumn<bool>("force");
    QTest::addColumn<int>("newLeft");
    QTest::addColumn<int>("newRight");
    QTest::addColumn<int>("newScrollX");
    QTest::newRow("forced, a wide thumb")
        << 400 << 0 << 499 << 1000 << 1000 << true << 250 << 500 << 1000;
    QTest::newRow("forced, the narrowest thumb")
        << 400 << 0 << 249 << 1000 << 1000 << true << 250 << 499 << 1000;
    QTest::newRow("forced, one pixel wider than the narrowest")
        << 400 << 0 << 250 << 1000 << 1000 << true << 250 << 500 << 1000;
    QTest::newRow("after a change of width")
        << 400 << 0 << 499 << 1000 << 999 << false << 250 << 500 << 1000;
    QTest::newRow("the left edge rests without a change of width")
        << 400 << 100 << 499 << 1000 << 1000 << false << 100 << 350 << 401;
    QTest::newRow("the left edge is rounded up")
        << 400 << 0 << 499 << 1001 << 1000 << true << 251 << 501 << 1004;
    QTest::newRow("kept to the narrowest width") // 333 of 1000 pixels are in view, 334 narrowest
        << 300 << 0 << 499 << 600 << 1000 << true << 200 << 533 << 601;
    QTest::newRow("the view ends with the frames")
        << 400 << 0 << 499 << 3000 << 1000 << true << 750 << 1000 << 3000;
    QTest::newRow("the view runs past the end")
        << 400 << 0 << 499 << 3001 << 1000 << false << 750 << 999 << 3000;
    QTest::newRow("far past the end")
        << 400 << 0 << 499 << kLargestInt << 1000 << true << 750 << 999 << 3000;
    QTest::newRow("past the end, hardly wider than the row") // 1010 pixels in all
        << 101 << 0 << 499 << 5000 << 1000 << true << 9 << 999 << 10;
    QTest::newRow("past the end, narrower than the narrowest")
        << 300 << 0 << 499 << 2500 << 1000 << true << 664 << 999 << 1992;
    QTest::newRow("scrolled left of the first frame")
        << 400 << 0 << 499 << -10 << 1000 << true << -2 << 248 << -8;
}

void tst_ScrollThumb::findsTheThumbAgainAfterAChangeElsewhere()
{
    QFETCH(int, frameCount);
    QFETCH(int, left);
    QFETCH(int, right);
    QFETCH(int, scrollX);
    QFETCH(int, synchronisedWidth);
    QFETCH(bool, force);
    Bar bar(1000, frameCount);
    bar.WithThumb(left, right).ScrolledTo(scrollX);
    bar.thumb.SetSynchronisedWidth(synchronisedWidth);
    bar.thumb.SyncThumb(force);
    QTEST(bar.Left(), "newLeft");
    QTEST(bar.Right(), "newRight");
    QTEST(bar.axis.scrollX, "newScrollX");
    QCOMPARE(bar.axis.info.pixelsPerFrame, 10);
}

void tst_ScrollThumb::sizesAPartialThumbInSinglePrecision()
{
    // 420 * 420 / 720 is 245 exactly; single precision lands just below.
    Bar bar(420, 144, 5.0);
    bar.WithThumb(0, 300).thumb.SyncThumb(true);
    QCOMPARE(bar.Left(), 0);
    QCOMPARE(bar.Right(), 244);
}

void tst_ScrollThumb::remembersTheWidthOfTheLastSynchronisation()
{
    Bar bar;
    QCOMPARE(bar.thumb.SynchronisedWidth(), 1000);
    bar.thumb.SetSize(800, kRowHeight);
    QCOMPARE(bar.thumb.SynchronisedWidth(), 1000);
    bar.WithThumb(300, 799).ScrolledTo(1000).thumb.SyncThumb(false);
    QCOMPARE(bar.thumb.SynchronisedWidth(), 800);
    QCOMPARE(bar.Left(), 200);
    bar.ScrolledTo(2000).thumb.SyncThumb(false);
    QCOMPARE(bar.Left(), 200);
}

void tst_ScrollThumb::endsAPartialThumbAtTheRowHeight()
{
    Bar bar;
    bar.thumb.SetSize(1000, 24);
    bar.thumb.SetRowHeight(kRowHeight);
    bar.thumb.SetThumb({0, 7, 499, 9});
    bar.thumb.SyncThumb(true);
    QCOMPARE(bar.thumb.GetThumb().top, 0);
    QCOMPARE(bar.thumb.GetThumb().bottom, kRowHeight);
    bar.thumb.ZoomAll();
    QCOMPARE(bar.thumb.GetThumb().bottom, 23);
}

void tst_ScrollThumb::widensTheZoomByOneFrameWhenAWholeReciprocalIsPublishedAgain()
{
    Bar bar(1000, 20000, 0.101);
    QCOMPARE(bar.axis.info.framesPerPixel, 10);
    bar.WithThumb(0, 499);
    for (const int framesPerPixel : {11, 12, 13}) {
        bar.thumb.SyncThumb(false);
        bar.thumb.PublishFrameInfo();
        QCOMPARE(bar.axis.info.framesPerPixel, framesPerPixel);
    }
}

void tst_ScrollThumb::changesNothingForAFrameStrictlyInsideTheView()
{
    for (const int align : {-1, 0, 1}) {
        for (const int frame : {26, 75, 124}) {
            Bar bar;
            bar.WithThumb(62, 300).ScrolledTo(250);
            const State before = StateOf(bar);
            QVERIFY(!bar.thumb.ScrollToFrame(frame, align));
            QVERIFY(StateOf(bar) == before);
        }
    }
}

void tst_ScrollThumb::scrollsToAFrame_data()
{
    QTest::addColumn<int>("scrollX");
    QTest::addColumn<int>("frame");
    QTest::addColumn<int>("align");
    QTest::addColumn<int>("newLeft");
    QTest::addColumn<int>("newScrollX");
    QTest::newRow("centred") << 0 << 250 << 0 << 500 << 2000;
    QTest::newRow("at the right edge") << 0 << 250 << 1 << 375 << 1500;
    QTest::newRow("any number above 0 is the right edge") << 0 << 250 << 77 << 375 << 1500;
    QTest::newRow("at the left edge") << 0 << 250 << -1 << 625 << 2500;
    QTest::newRow("any number below 0 is the left edge") << 0 << 250 << -77 << 625 << 2500;
    QTest::newRow("the first frame in view is not inside") << 500 << 50 << 0 << 0 << 0;
    QTest::newRow("the last frame in view is not inside") << 0 << 100 << 0 << 125 << 500;
    QTest::newRow("no further than frame 0") << 2000 << 10 << 0 << 0 << 0;
    QTest::newRow("no further than the last frame") << 0 << 399 << -1 << 750 << 3000;
    // Offset 2990 is 747.5 pixels of the bar; 748 of them, in single precision, are 2992.00001.
    QTest::newRow("beyond the last frame is the last one") << 0 << 5000 << 1 << 748 << 2993;
    QTest::newRow("below frame 0 is frame 0") << 2000 << -7 << -1 << 0 << 0;
}

void tst_ScrollThumb::scrollsToAFrame()
{
    QFETCH(int, scrollX);
    QFETCH(int, frame);
    QFETCH(int, align);
    Bar bar;
    bar.WithThumb(0, 249).ScrolledTo(scrollX);
    QVERIFY(bar.thumb.ScrollToFrame(frame, align));
    QTEST(bar.Left(), "newLeft");
    QTEST(bar.axis.scrollX, "newScrollX");
}

void tst_ScrollThumb::halvesAnOddViewTowardZeroWhenItCentres()
{
    // 99 frames are in view: frame 250 stands 49 behind the first, which is at offset 2010.
    Bar bar(990);
    bar.WithThumb(0, 249);
    QVERIFY(bar.thumb.ScrollToFrame(250, 0));
    QCOMPARE(bar.Left(), 498);
    QCOMPARE(bar.axis.scrollX, 2013);
}

void tst_ScrollThumb::scrollsToAFrameByWholeFramesPerPixel_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<int>("align");
    QTest::addColumn<int>("newLeft");
    QTest::addColumn<int>("newScrollX");
    // 3000 frames are in view. Frame 8500 is at offset 2833.33, frame 10001 at 3333.67.
    QTest::newRow("centred") << 10000 << 0 << 425 << 2834;
    QTest::newRow("at the right edge") << 10000 << 1 << 350 << 2334;
    QTest::newRow("at the left edge") << 10000 << -1 << 500 << 3334;
    QTest::newRow("at the left edge, truncated") << 10001 << -1 << 500 << 3334;
}

void tst_ScrollThumb::scrollsToAFrameByWholeFramesPerPixel()
{
    QFETCH(int, frame);
    QFETCH(int, align);
    Bar bar(1000, 20000, 0.35);
    QCOMPARE(bar.axis.info.framesPerPixel, 3);
    bar.WithThumb(0, 400);
    QVERIFY(bar.thumb.ScrollToFrame(frame, align));
    QTEST(bar.Left(), "newLeft");
    QTEST(bar.axis.scrollX, "newScrollX");
}

void tst_ScrollThumb::unzoomsToTheNarrowestThumbAboutTheCentre_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("newLeft");
    QTest::addColumn<int>("newRight");
    QTest::newRow("from a full thumb") << 0 << 999 << 374 << 623;
    QTest::newRow("from the narrowest, a pixel further left") << 400 << 649 << 399 << 648;
    QTest::newRow("out at the left end") << 0 << 9 << -121 << 128;
    QTest::newRow("out at the right end") << 990 << 999 << 869 << 1118;
}

void tst_ScrollThumb::unzoomsToTheNarrowestThumbAboutTheCentre()
{
    QFETCH(int, left);
    QFETCH(int, right);
    Bar bar(1000, 400, 3.0);
    bar.WithThumb(left, right).thumb.UnZoom();
    QTEST(bar.Left(), "newLeft");
    QTEST(bar.Right(), "newRight");
    QCOMPARE(bar.axis.info.pixelsPerFrame, 10);
}

void tst_ScrollThumb::zoomsIn_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("newLeft");
    QTest::addColumn<int>("newRight");
    QTest::addColumn<int>("pixelsPerFrame");
    QTest::newRow("to half") << 0 << 999 << 250 << 749 << 5;
    QTest::newRow("to the narrowest") << 300 << 699 << 375 << 624 << 10;
    QTest::newRow("to one pixel above the narrowest, which stays") << 0 << 500 << 125 << 375 << 10;
    QTest::newRow("no further than the narrowest") << 400 << 649 << 400 << 649 << 10;
    QTest::newRow("kept inside the left end") << 0 << 9 << 0 << 249 << 10;
    QTest::newRow("kept inside the right end") << 900 << 999 << 750 << 999 << 10;
}

void tst_ScrollThumb::zoomsIn()
{
    QFETCH(int, left);
    QFETCH(int, right);
    Bar bar(1000, 400, 3.0);
    bar.WithThumb(left, right).thumb.ZoomIn();
    QTEST(bar.Left(), "newLeft");
    QTEST(bar.Right(), "newRight");
    QTEST(bar.axis.info.pixelsPerFrame, "pixelsPerFrame");
}

void tst_ScrollThumb::zoomsOut_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("newLeft");
    QTest::addColumn<int>("newRight");
    QTest::addColumn<int>("pixelsPerFrame");
    QTest::newRow("to the double") << 400 << 649 << 275 << 773 << 5;
    QTest::newRow("kept inside the left end") << 0 << 249 << 0 << 498 << 5;
    QTest::newRow("kept inside the right end") << 800 << 999 << 601 << 999 << 6;
    QTest::newRow("a full bar from the left ends one pixel late") << 100 << 799 << 0 << 1000 << 2;
    QTest::newRow("a full bar from the right starts one pixel early")
        << 300 << 900 << -1 << 999 << 2;
}

void tst_ScrollThumb::zoomsOut()
{
    QFETCH(int, left);
    QFETCH(int, right);
    Bar bar;
    bar.WithThumb(left, right).thumb.ZoomOut();
    QTEST(bar.Left(), "newLeft");
    QTEST(bar.Right(), "newRight");
    QTEST(bar.axis.info.pixelsPerFrame, "pixelsPerFrame");
}

void tst_ScrollThumb::zoomsToAllFrames()
{
    Bar bar;
    bar.WithThumb(300, 549).ScrolledTo(1200).thumb.ZoomAll();
    QCOMPARE(bar.Left(), 0);
    QCOMPARE(bar.Right(), 999);
    QCOMPARE(bar.thumb.GetThumb().top, 0);
    QCOMPARE(bar.thumb.GetThumb().bottom, kRowHeight - 1);
    QCOMPARE(bar.axis.info.pixelsPerFrame, 2);
    QCOMPARE(bar.axis.scrollX, 0);
}

void tst_ScrollThumb::countsADifferenceOfOnePixelAsNone_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addColumn<bool>("unZoom");
    QTest::addColumn<bool>("zoomIn");
    QTest::addColumn<bool>("zoomOut");
    QTest::addColumn<bool>("zoomAll");
    QTest::newRow("narrower than the narrowest by 2") << 0 << 247 << true << false << true << true;
    QTest::newRow("narrower by 1") << 0 << 248 << false << false << true << true;
    QTest::newRow("the narrowest") << 0 << 249 << false << false << true << true;
    QTest::newRow("wider by 1") << 0 << 250 << false << false << true << true;
    QTest::newRow("wider by 2") << 0 << 251 << true << true << true << true;
    QTest::newRow("full but for 2") << 0 << 997 << true << true << true << true;
    QTest::newRow("full but for 1") << 0 << 998 << true << true << false << false;
    QTest::newRow("full") << 0 << 999 << true << true << false << false;
    QTest::newRow("1 more than full") << 0 << 1000 << true << true << false << false;
    QTest::newRow("2 more than full") << 0 << 1001 << true << true << false << true;
}

void tst_ScrollThumb::countsADifferenceOfOnePixelAsNone()
{
    QFETCH(int, left);
    QFETCH(int, right);
    Bar bar;
    bar.WithThumb(left, right);
    QTEST(bar.thumb.CanUnZoom(), "unZoom");
    QTEST(bar.thumb.CanZoomIn(), "zoomIn");
    QTEST(bar.thumb.CanZoomOut(), "zoomOut");
    QTEST(bar.thumb.CanZoomAll(), "zoomAll");
}

void tst_ScrollThumb::tellsTheWidthAndTheEdgesAsFractionsInSinglePrecision()
{
    Bar bar;
    const ScrollThumb::ScrollInfo part = bar.WithThumb(100, 333).thumb.GetScrollInfo();
    QVERIFY(part.left == 100.0f / 1000.0f);
    QVERIFY(part.right == 333.0f / 1000.0f);
    QCOMPARE(part.width, 1000);
    bar.thumb.SetSize(0, kRowHeight);
    const ScrollThumb::ScrollInfo none = bar.thumb.GetScrollInfo();
    QVERIFY(none.left == 0.0f);
    QVERIFY(none.right == 1.0f);
    QCOMPARE(none.width, 0);
}

void tst_ScrollThumb::setsTheEdgesFromFractions_data()
{
    QTest::addColumn<float>("left");
    QTest::addColumn<float>("right");
    QTest::addColumn<int>("newLeft");
    QTest::addColumn<int>("newRight");
    QTest::addColumn<int>("pixelsPerFrame");
    QTest::addColumn<int>("scrollX");
    QTest::newRow("a part") << 0.25f << 0.75f << 250 << 750 << 5 << 500;
    QTest::newRow("truncated") << 0.1249f << 0.5006f << 124 << 500 << 6 << 298;
    // 0.501 is a little less in single precision, its product with 1000 is not.
    QTest::newRow("single precision") << 0.501f << 0.75f << 501 << 750 << 10 << 2004;
    QTest::newRow("all ends one pixel late") << 0.0f << 1.0f << 0 << 1000 << 2 << 0;
    QTest::newRow("nothing") << 0.5f << 0.5f << 500 << 500 << 10 << 2000;
    QTest::newRow("at the very end") << 1.0f << 1.0f << 1000 << 1000 << 10 << 4000;
}

void tst_ScrollThumb::setsTheEdgesFromFractions()
{
    QFETCH(float, left);
    QFETCH(float, right);
    Bar bar;
    QVERIFY(bar.thumb.SetScrollInfo(left, right));
    QTEST(bar.Left(), "newLeft");
    QTEST(bar.Right(), "newRight");
    QTEST(bar.axis.info.pixelsPerFrame, "pixelsPerFrame");
    QTEST(bar.axis.scrollX, "scrollX");
}

void tst_ScrollThumb::refusesFractionsThatAreNoPartOfTheBar_data()
{
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float infinity = std::numeric_limits<float>::infinity();
    QTest::addColumn<float>("left");
    QTest::addColumn<float>("right");
    QTest::newRow("left below 0") << -0.001f << 0.5f;
    QTest::newRow("both below 0") << -0.5f << -0.25f;
    QTest::newRow("right above 1") << 0.5f << 1.001f;
    QTest::newRow("both above 1") << 1.5f << 1.75f;
    QTest::newRow("crossed") << 0.6f << 0.5f;
    QTest::newRow("left not a number") << nan << 0.5f;
    QTest::newRow("right not a number") << 0.5f << nan;
    QTest::newRow("infinite") << -infinity << infinity;
}

void tst_ScrollThumb::refusesFractionsThatAreNoPartOfTheBar()
{
    QFETCH(float, left);
    QFETCH(float, right);
    Bar bar;
    bar.WithThumb(300, 599).ScrolledTo(7);
    const State before = StateOf(bar);
    QVERIFY(!bar.thumb.SetScrollInfo(left, right));
    QVERIFY(StateOf(bar) == before);
}

void tst_ScrollThumb::fillsTheBarAndLeavesTheZoomWithoutFramesOrWidth_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("frameCount");
    QTest::newRow("no frames") << 1000 << 0;
    QTest::newRow("a negative frame count") << 1000 << -5;
    QTest::newRow("no width") << 0 << 400;
    QTest::newRow("a negative width counts as none") << -12 << 400;
    QTest::newRow("neither") << 0 << 0;
}

void tst_ScrollThumb::fillsTheBarAndLeavesTheZoomWithoutFramesOrWidth()
{
    QFETCH(int, width);
    QFETCH(int, frameCount);
    for (const Command& command : AllCommands()) {
        Bar bar(width, frameCount, 3.0);
        bar.WithThumb(300, 599).ScrolledTo(77);
        command.run(bar.thumb);
        QVERIFY2(bar.Left() == 0 && bar.Right() == std::max(width, 0) - 1, command.name);
        QVERIFY2(bar.thumb.GetThumb().bottom == kRowHeight - 1, command.name);
        QVERIFY2(bar.axis.scrollX == 0, command.name);
        QVERIFY2(bar.axis.info.pixelsPerFrame == 3, command.name);
    }
    Bar bar(width, frameCount, 3.0);
    bar.WithThumb(300, 599).thumb.PublishFrameInfo();
    QCOMPARE(bar.axis.info.pixelsPerFrame, 3);
}

void tst_ScrollThumb::offersNoZoomWithoutFramesOrWidth()
{
    for (const auto& [width, frameCount] : {std::pair{1000, 0}, {1000, -5}, {0, 400}, {-12, 400}}) {
        Bar bar(width, frameCount);
        bar.WithThumb(300, 599);
        QVERIFY(!bar.thumb.CanUnZoom());
        QVERIFY(!bar.thumb.CanZoomIn());
        QVERIFY(!bar.thumb.CanZoomOut());
        QVERIFY(!bar.thumb.CanZoomAll());
    }
}

void tst_ScrollThumb::staysSaneUnderAnyGesturesOfAUser()
{
    std::mt19937 random(3);
    for (int session = 0; session < 400; ++session) {
        const int width = Between(random, 20, 2000);
        Bar bar(width, Between(random, 1, session % 2 ? 500 : 500000));
        bar.thumb.SyncThumb(false);
        bar.thumb.PublishFrameInfo();
        for (int gesture = 0; gesture < 60; ++gesture) {
            const int x = Between(random, 0, width - 1);
            switch (Between(random, 0, 7)) {
            case 0:
                if (bar.thumb.CanZoomIn())
                    bar.thumb.ZoomIn();
                break;
            case 1:
                if (bar.thumb.CanZoomOut())
                    bar.thumb.ZoomOut();
                break;
            case 2:
                if (bar.thumb.CanUnZoom())
                    bar.thumb.UnZoom();
                break;
            case 3:
                if (bar.thumb.CanZoomAll())
                    bar.thumb.ZoomAll();
                break;
            case 4:
                bar.thumb.ScrollToFrame(Between(random, -5, bar.axis.frameCount + 5),
                                        Between(random, -1, 1));
                break;
            case 5: {
                const float a = static_cast<float>(x) / static_cast<float>(width);
                bar.thumb.SetScrollInfo(a / 2, a);
                break;
            }
            default: {
                const auto mode = bar.thumb.HitTest(x, 5);
                if (mode == ScrollThumb::kPageLeft || mode == ScrollThumb::kPageRight) {
                    bar.thumb.Page(x);
                    break;
                }
                bar.thumb.BeginDrag(mode, x);
                bar.thumb.DragTo(Between(random, -width, 2 * width));
                bar.thumb.DragTo(Between(random, -width, 2 * width));
                bar.thumb.EndDrag();
            }
            }
            const long long total = bar.axis.SpanToPixel(bar.axis.frameCount) + 1LL;
            const QString state = QStringLiteral("session %1, gesture %2: %3 to %4 of %5, "
                                                 "scrolled %6 of %7 pixels")
                                      .arg(session)
                                      .arg(gesture)
                                      .arg(bar.Left())
                                      .arg(bar.Right())
                                      .arg(width)
                                      .arg(bar.axis.scrollX)
                                      .arg(total);
            QVERIFY2(bar.Left() <= bar.Right() + 1, qPrintable(state));
            QVERIFY2(bar.Left() > -width && bar.Right() < 2 * width, qPrintable(state));
            QVERIFY2(std::abs(static_cast<long long>(bar.axis.scrollX)) <= total + 1,
                     qPrintable(state));
            QVERIFY2((bar.axis.info.pixelsPerFrame >= 2 && bar.axis.info.pixelsPerFrame <= 10) !=
                         (bar.axis.info.framesPerPixel >= 1),
                     qPrintable(state));

            // However the gestures went, a forced synchronisation brings the view back.
            bar.thumb.SyncThumb(true);
            bar.thumb.SyncThumb(true);
            QVERIFY2(bar.axis.scrollX <= std::max(0LL, total - width + total / width + 2),
                     qPrintable(state));
        }
    }
}

void tst_ScrollThumb::survivesAnyCommandOnAnyThumb()
{
    // Judged by the sanitizers, and by coming to an end.
    const std::vector<Command> commands = AllCommands();
    const int extremes[] = {kSmallestInt, kSmallestInt + 1, -1000,      -1, 0, 1, 2, 10, 1000,
                            40000,        kLargestInt - 1,  kLargestInt};
    std::mt19937 random(4);
    const auto any = [&] { return extremes[random() % std::size(extremes)]; };
    for (int round = 0; round < 20000; ++round) {
        Bar bar(any(), any(), std::exp2(Between(random, -40, 5)));
        bar.thumb.SetThumb({any(), any(), any(), any()});
        bar.axis.scrollX = any();
        for (int step = 0; step < 8; ++step) {
            commands[random() % commands.size()].run(bar.thumb);
            bar.thumb.HitTest(any(), any());
            bar.thumb.Page(any());
            bar.thumb.BeginDrag(static_cast<ScrollThumb::DragMode>(random() % 6), any());
            bar.thumb.DragTo(any());
            bar.thumb.ScrollToFrame(any(), any());
            bar.thumb.CanZoomIn();
            bar.thumb.CanZoomOut();
            const ScrollThumb::ScrollInfo info = bar.thumb.GetScrollInfo();
            bar.thumb.SetScrollInfo(info.left, info.right);
        }
        QVERIFY(bar.axis.Scale() > 0.0);
        QVERIFY(bar.axis.info.step2 > 0);
        QVERIFY(bar.axis.info.step3 > 0);
    }
}

QTEST_MAIN(tst_ScrollThumb)
#include "tst_ScrollThumb.moc"
