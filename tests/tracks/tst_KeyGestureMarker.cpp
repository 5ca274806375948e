#include "MouseScene.h"

using namespace KestovaTest;

// Dragging an end marker of a row's time range.

namespace {

constexpr FrameRange kRange(10, 20);

/// A row that shows a time range.
class MarkerScene : public MouseScene
{
public:
    explicit MarkerScene(FrameRange range = kRange) : MouseScene(kKeepRange)
    {
        row->SetRange(range.first, range.second);
    }

    /// On the marker of @p lo, the range's lower end, or of @p hi, its upper one.
    QPoint OnStartMarker(int lo) const { return Spot(lo * kPixelsPerFrame + 1); }
    QPoint OnEndMarker(int hi) const { return Spot((hi + 1) * kPixelsPerFrame - 2); }

    bool HasResizeCursor() const
    {
        return row->testAttribute(Qt::WA_SetCursor) && row->cursor().shape() == Qt::SizeHorCursor;
    }
};

} // namespace

class tst_KeyGestureMarker : public QObject
{
    Q_OBJECT

private slots:
    void dragsTheEndMarker();
    void dragsTheStartMarker();
    void dragsAMarkerPastTheOther();
    void swapsTheEndsSoThatTheMarkerUnderThePointerFollows_data();
    void swapsTheEndsSoThatTheMarkerUnderThePointerFollows();
    void reportsEachStepToTheOwner();
    void winsOverAKeyUnderIt();
    void neverTouchesTheOtherRows();
    void keepsTheSelectionWithCtrl();
    void needsTheModeForTimeRanges();
    void selectsNothingOnRowsWhoseSubKeysAreEdited();
    void keepsTheRangeInTheTimeline();
    void showsTheResizeCursorWhileItIsDragged();
    void leavesNoResizeCursorWhereTheButtonWasLost();
    void leavesNoRangeWhenTheModeWasTakenAwayMeanwhile();
    void showsNoCursorWhenTheHostTookTheRowAway();
    void showsNoCursorWhenTheReleaseCameInsideThePress();
};

void tst_KeyGestureMarker::dragsTheEndMarker()
{
    MarkerScene scene;
    scene.AddKeys({5, 15, 25, 40});
    scene.Select(scene.row, 0);
    const QPoint marker = scene.OnEndMarker(20);
    QCOMPARE(scene.row->HitTestRangeMarker(marker), 1);

    scene.pointer.Press(scene.row, marker);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "frame 20 false", "frame 20 true"}));
    QCOMPARE(scene.Selection(), Indexes{0});
    QCOMPARE(scene.Range(), FrameRange(10, 20));

    scene.MoveTo(30);
    QCOMPARE(scene.TakeCalls(), QStringList({"changed"}));
    QCOMPARE(scene.Selection(), (Indexes{1, 2}));
    QCOMPARE(scene.Range(), FrameRange(10, 30));
    QCOMPARE(scene.CurrentFrame(), 20);

    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"frame 30 false", "frame 30 true"}));
    QCOMPARE(scene.Selection(), (Indexes{1, 2}));
    QCOMPARE(scene.Range(), FrameRange(10, 30));

    scene.MoveTo(45);
    QCOMPARE(scene.TakeCalls(), QStringList());
    QCOMPARE(scene.Range(), FrameRange(10, 30));
}

void tst_KeyGestureMarker::dragsTheStartMarker()
{
    MarkerScene scene;
    scene.AddKeys({5, 15, 25});
    const QPoint marker = scene.OnStartMarker(10);
    QCOMPARE(scene.row->HitTestRangeMarker(marker), 0);
    scene.pointer.Press(scene.row, marker);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "frame 10 false", "frame 10 true"}));
    scene.MoveTo(3);
    QCOMPARE(scene.TakeCalls(), QStringList({"changed"}));
    QCOMPARE(scene.Range(), FrameRange(20, 3));
    QCOMPARE(scene.Selection(), (Indexes{0, 1}));
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"frame 3 false", "frame 3 true"}));
    QCOMPARE(scene.Range(), FrameRange(20, 3));
}

void tst_KeyGestureMarker::dragsAMarkerPastTheOther()
{
    MarkerScene scene;
    scene.pointer.Press(scene.row, scene.OnStartMarker(10));
    scene.MoveTo(30);
    QCOMPARE(scene.Range(), FrameRange(20, 30));
    scene.Release();
    QCOMPARE(scene.Range(), FrameRange(20, 30));
}

void tst_KeyGestureMarker::swapsTheEndsSoThatTheMarkerUnderThePointerFollows_data()
{
    QTest::addColumn<FrameRange>("range");
    QTest::addColumn<int>("marker");
    QTest::addColumn<FrameRange>("pressed");
    QTest::newRow("start, ends in order") << FrameRange(10, 20) << 0 << FrameRange(20, 10);
    QTest::newRow("start, ends reversed") << FrameRange(20, 10) << 0 << FrameRange(20, 10);
    QTest::newRow("end, ends in order") << FrameRange(10, 20) << 1 << FrameRange(10, 20);
    QTest::newRow("end, ends reversed") << FrameRange(20, 10) << 1 << FrameRange(10, 20);
    QTest::newRow("both on one frame") << FrameRange(10, 10) << 1 << FrameRange(10, 10);
}

void tst_KeyGestureMarker::swapsTheEndsSoThatTheMarkerUnderThePointerFollows()
{
    QFETCH(const FrameRange, range);
    QFETCH(const int, marker);
    QFETCH(const FrameRange, pressed);
    MarkerScene scene(range);
    const QPoint point = marker == 0 ? scene.OnStartMarker(qMin(range.first, range.second))
                                     : scene.OnEndMarker(qMax(range.first, range.second));
    QCOMPARE(scene.row->HitTestRangeMarker(point), marker);
    scene.pointer.Press(scene.row, point);
    QCOMPARE(scene.Range(), pressed);
    scene.MoveTo(33);
    QCOMPARE(scene.Range(), FrameRange(pressed.first, 33));
}

void tst_KeyGestureMarker::reportsEachStepToTheOwner()
{
    MarkerScene scene;
    MessageSpy spy(scene.row);
    scene.pointer.Press(scene.row, scene.OnEndMarker(20));
    QCOMPARE(spy.TakeMessages(),
             QStringList({"1108 (0, 0, 0, 0)", "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
    scene.MoveTo(30);
    QCOMPARE(spy.TakeMessages(), QStringList({"1102 (0, 0, 0, 0)"}));
    scene.Release();
    QCOMPARE(spy.TakeMessages(), QStringList({"1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
}

void tst_KeyGestureMarker::winsOverAKeyUnderIt()
{
    MarkerScene scene;
    scene.AddKeys({20});
    const QPoint point = scene.OnEndMarker(20);
    QCOMPARE(scene.row->HitTestKey(point), 0);
    scene.pointer.Press(scene.row, point);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "frame 20 false", "frame 20 true"}));
    scene.MoveTo(30);
    QCOMPARE(scene.TakeCalls(), QStringList({"changed"})); // and no edit
    QCOMPARE(scene.Key(0).frame, 20);
}

void tst_KeyGestureMarker::neverTouchesTheOtherRows()
{
    MarkerScene scene;
    scene.fixture.AddKeys(scene.other, {5});
    scene.Select(scene.other, 0);
    scene.pointer.Press(scene.row, scene.OnEndMarker(20));
    scene.MoveTo(30);
    scene.Release();
    QCOMPARE(scene.other->Keys().SelectedIndexes(), Indexes{0});
}

void tst_KeyGestureMarker::keepsTheSelectionWithCtrl()
{
    MarkerScene scene;
    scene.AddKeys({5, 15, 25, 40});
    scene.Select(scene.row, 3);
    scene.pointer.modifiers = Qt::ControlModifier;
    scene.pointer.Press(scene.row, scene.OnEndMarker(20));
    scene.MoveTo(30);
    QCOMPARE(scene.Selection(), (Indexes{1, 2, 3}));
}

void tst_KeyGestureMarker::needsTheModeForTimeRanges()
{
    MarkerScene scene;
    scene.fixture.SetEditModes(scene.row, kDragKeys);
    scene.pointer.Press(scene.row, scene.OnEndMarker(20));
    QCOMPARE(scene.Range(), FrameRange(20, 20)); // a rubber band
    QVERIFY(!scene.HasResizeCursor());
}

/// Without a pressed clip there is nothing that a range could select.
void tst_KeyGestureMarker::selectsNothingOnRowsWhoseSubKeysAreEdited()
{
    MarkerScene scene;
    scene.fixture.SetEditModes(scene.row, {TL_EDIT_TIME_RANGE, TL_EDIT_SUB_KEYS});
    scene.AddKeys({15, 40});
    scene.Select(scene.row, 1);
    scene.pointer.Press(scene.row, scene.OnEndMarker(20));
    scene.MoveTo(30);
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "frame 20 false", "frame 20 true", "changed"}));
    QCOMPARE(scene.Range(), FrameRange(10, 30));
    QCOMPARE(scene.Selection(), Indexes{1});
}

void tst_KeyGestureMarker::keepsTheRangeInTheTimeline()
{
    MarkerScene scene;
    scene.pointer.Press(scene.row, scene.OnEndMarker(20));
    scene.MoveTo(54);
    QCOMPARE(scene.Range(), FrameRange(10, 49));
    scene.MoveTo(-30);
    QCOMPARE(scene.Range(), FrameRange(10, 0));
    scene.Release();
    QCOMPARE(scene.Range(), FrameRange(10, 0));
    QCOMPARE(scene.CurrentFrame(), 0);
}

void tst_KeyGestureMarker::showsTheResizeCursorWhileItIsDragged()
{
    MarkerScene scene;
    scene.pointer.Press(scene.row, scene.OnEndMarker(20));
    QVERIFY(scene.HasResizeCursor());
    scene.row->unsetCursor();
    scene.MoveTo(30);
    QVERIFY(scene.HasResizeCursor());
    scene.Release();
    scene.MoveTo(40); // beside the markers
    QVERIFY(!scene.row->testAttribute(Qt::WA_SetCursor));
}

void tst_KeyGestureMarker::leavesNoResizeCursorWhereTheButtonWasLost()
{
    MarkerScene scene;
    scene.pointer.Press(scene.row, scene.OnEndMarker(20));
    scene.MoveTo(30);
    scene.pointer.LoseButtons();
    // Behind the last frame, where the marker cannot follow.
    const QPoint beside = scene.At(MouseScene::kFrames + 10);
    scene.pointer.MoveTo(scene.row, beside);
    QCOMPARE(scene.Range(), FrameRange(10, MouseScene::kFrames - 1));
    QCOMPARE(scene.row->HitTestRangeMarker(beside), -1);
    QVERIFY(!scene.HasResizeCursor());
}

void tst_KeyGestureMarker::leavesNoRangeWhenTheModeWasTakenAwayMeanwhile()
{
    MarkerScene scene;
    scene.pointer.Press(scene.row, scene.OnEndMarker(20));
    scene.fixture.SetEditModes(scene.row, kDragKeys);
    scene.Release();
    QCOMPARE(scene.Range(), kNoRange);
}

void tst_KeyGestureMarker::showsNoCursorWhenTheHostTookTheRowAway()
{
    MarkerScene scene;
    scene.When("frame 20 true", [&] {
        scene.fixture.manager->HideChildTrack(scene.row, true);
        scene.row->unsetCursor(); // the one of the hovering pointer
    });
    scene.pointer.Press(scene.row, scene.OnEndMarker(20));
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "frame 20 false", "frame 20 true"}));
    QVERIFY(!scene.HasResizeCursor());
}

void tst_KeyGestureMarker::showsNoCursorWhenTheReleaseCameInsideThePress()
{
    MarkerScene scene;
    scene.When("frame 20 true", [&] {
        scene.Release();
        scene.row->unsetCursor(); // the one of the hovering pointer
    });
    scene.pointer.Press(scene.row, scene.OnEndMarker(20));
    QVERIFY(!scene.row->testAttribute(Qt::WA_SetCursor));
}

QTEST_MAIN(tst_KeyGestureMarker)
#include "tst_KeyGestureMarker.moc"
