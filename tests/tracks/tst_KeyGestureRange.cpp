#include "MouseScene.h"

#include "container/CTimelineContainer.h"

using namespace KestovaTest;

// The rubber band that selects a time range and the keys in it.

namespace {

class Group : public CReltedGroupBase
{
};

} // namespace

class tst_KeyGestureRange : public QObject
{
    Q_OBJECT

private slots:
    void selectsTheKeysBetweenThePressAndThePointer();
    void reportsEachStepToTheOwner();
    void followsThePointerBackOverThePress();
    void selectsTheKeysOfThePressedFrameAtOnce();
    void clearsTheOtherRowsSelections();
    void extendsFromTheCurrentFrameWithShift();
    void shiftOnAKeyBeginsARangeAndNoKeyDrag();
    void shiftNeedsNoModeForDraggingKeys();
    void addsToTheSelectionWithCtrl();
    void addsARangeFromTheCurrentFrameWithShiftAndCtrl();
    void asksForCtrlAtEachStep();
    void passesOverLockedKeys();
    void keepsTheRangeInTheTimeline_data();
    void keepsTheRangeInTheTimeline();
    void leavesNoRangeBehindWithoutItsMode();
    void keepsTheRangeWithItsMode();
    void selectsOnceMoreAtTheReleaseAndReportsOnlyTheFrame();
    void aGroupInTheBandSurvivesTheRelease();
    void movesTheCurrentFrameAtBothEndsOnly();
    void takesTheFocusSoThatTheRowHasIt();
    void aPressOnAKeyTakesNoFocus();
    void needsNoFocusToGoOn();
    void theNextPressStartsAnew();
};

void tst_KeyGestureRange::selectsTheKeysBetweenThePressAndThePointer()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20, 30, 40});
    scene.Select(scene.row, 3);

    scene.Press(15);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed",
                                             "frame 15 false", "frame 15 true"}));
    QCOMPARE(scene.Selection(), Indexes{});
    QCOMPARE(scene.Range(), FrameRange(15, 15));

    scene.MoveTo(20);
    QCOMPARE(scene.TakeCalls(), QStringList({"changed"}));
    QCOMPARE(scene.Selection(), Indexes{1});
    QCOMPARE(scene.Range(), FrameRange(15, 20));

    scene.MoveTo(32);
    QCOMPARE(scene.TakeCalls(), QStringList({"changed"}));
    QCOMPARE(scene.Selection(), (Indexes{1, 2}));

    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"frame 32 false", "frame 32 true"}));
    QCOMPARE(scene.Selection(), (Indexes{1, 2}));
    QCOMPARE(scene.Range(), kNoRange);

    scene.MoveTo(45);
    QCOMPARE(scene.TakeCalls(), QStringList());
    QCOMPARE(scene.Selection(), (Indexes{1, 2}));
}

void tst_KeyGestureRange::reportsEachStepToTheOwner()
{
    MouseScene scene(kDragKeys);
    MessageSpy spy(scene.row);
    scene.Press(15);
    QCOMPARE(spy.TakeMessages(),
             QStringList({"1108 (0, 0, 0, 0)", "1103 (0, 0, 0, 0)", "1102 (0, 0, 0, 0)",
                          "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
    scene.pointer.MoveTo(scene.row, scene.Spot(158)); // in the same frame
    QCOMPARE(spy.TakeMessages(), QStringList({"1102 (0, 0, 0, 0)"}));
    scene.Release();
    QCOMPARE(spy.TakeMessages(), QStringList({"1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
}

void tst_KeyGestureRange::followsThePointerBackOverThePress()
{
    MouseScene scene(kKeepRange);
    scene.AddKeys({10, 20, 30});
    scene.Press(25);
    scene.MoveTo(35);
    QCOMPARE(scene.Selection(), Indexes{2});
    scene.MoveTo(18);
    QCOMPARE(scene.Selection(), Indexes{1});
    QCOMPARE(scene.Range(), FrameRange(25, 18));
    int lo = 0;
    int hi = 0;
    scene.row->GetRangeFrames(lo, hi);
    QCOMPARE(FrameRange(lo, hi), FrameRange(18, 25));
}

/// In a key's cell, but above its glyph.
void tst_KeyGestureRange::selectsTheKeysOfThePressedFrameAtOnce()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    QPoint above = scene.At(20);
    above.setY(0);
    QCOMPARE(scene.row->HitTestKey(above), -1);
    scene.pointer.Press(scene.row, above);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed",
                                             "frame 20 false", "frame 20 true"}));
    QCOMPARE(scene.Selection(), Indexes{0});
}

void tst_KeyGestureRange::clearsTheOtherRowsSelections()
{
    MouseScene scene(kDragKeys);
    scene.fixture.AddKeys(scene.other, {5});
    scene.Select(scene.other, 0);
    scene.Press(15);
    QCOMPARE(scene.other->Keys().SelectedIndexes(), Indexes{});
}

void tst_KeyGestureRange::extendsFromTheCurrentFrameWithShift()
{
    MouseScene scene(kKeepRange);
    scene.AddKeys({10, 20, 30, 40});
    scene.Select(scene.row, 3);
    scene.SetCurrentFrame(18);
    scene.fixture.AddKeys(scene.other, {5});
    scene.Select(scene.other, 0);

    scene.Press(25, Qt::ShiftModifier);
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "changed", "frame 25 false", "frame 25 true"}));
    QCOMPARE(scene.Selection(), Indexes{1});
    QCOMPARE(scene.Range(), FrameRange(18, 25));
    QCOMPARE(scene.other->Keys().SelectedIndexes(), Indexes{0}); // they are left alone

    scene.MoveTo(32);
    QCOMPARE(scene.TakeCalls(), QStringList({"changed"}));
    QCOMPARE(scene.Selection(), (Indexes{1, 2}));
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"frame 32 false", "frame 32 true"}));
    QCOMPARE(scene.Range(), FrameRange(18, 32));
}

void tst_KeyGestureRange::shiftOnAKeyBeginsARangeAndNoKeyDrag()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20, 30});
    scene.SetCurrentFrame(8);
    scene.Press(30, Qt::ShiftModifier);
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "changed", "frame 30 false", "frame 30 true"}));
    QCOMPARE(scene.Selection(), (Indexes{0, 1, 2}));
    scene.MoveTo(22);
    QCOMPARE(scene.TakeCalls(), QStringList({"changed"}));
    QCOMPARE(scene.Selection(), (Indexes{0, 1}));
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"frame 22 false", "frame 22 true"}));
    QCOMPARE(scene.Key(2).frame, 30);
}

void tst_KeyGestureRange::shiftNeedsNoModeForDraggingKeys()
{
    MouseScene scene(kSelectOnly);
    scene.AddKeys({10, 20});
    scene.Press(20, Qt::ShiftModifier);
    QCOMPARE(scene.Selection(), (Indexes{0, 1}));
    scene.MoveTo(12);
    QCOMPARE(scene.Selection(), Indexes{0});
}

void tst_KeyGestureRange::addsToTheSelectionWithCtrl()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20, 30, 40});
    scene.Select(scene.row, 0);
    scene.Press(25, Qt::ControlModifier);
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "changed", "frame 25 false", "frame 25 true"}));
    QCOMPARE(scene.Selection(), Indexes{0});
    scene.MoveTo(42);
    QCOMPARE(scene.Selection(), (Indexes{0, 2, 3}));
    scene.MoveTo(32); // what was added stays
    QCOMPARE(scene.TakeCalls(), QStringList({"changed", "changed"}));
    QCOMPARE(scene.Selection(), (Indexes{0, 2, 3}));
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"frame 32 false", "frame 32 true"}));
    QCOMPARE(scene.Selection(), (Indexes{0, 2, 3}));
}

void tst_KeyGestureRange::addsARangeFromTheCurrentFrameWithShiftAndCtrl()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20, 30, 40});
    scene.Select(scene.row, 3);
    scene.SetCurrentFrame(15);
    scene.Press(25, Qt::ShiftModifier | Qt::ControlModifier);
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "changed", "frame 25 false", "frame 25 true"}));
    QCOMPARE(scene.Selection(), (Indexes{1, 3}));
    QCOMPARE(scene.Range(), FrameRange(15, 25));
}

void tst_KeyGestureRange::asksForCtrlAtEachStep()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20, 30});
    scene.Press(15);
    scene.MoveTo(22);
    QCOMPARE(scene.Selection(), Indexes{1});
    scene.pointer.modifiers = Qt::ControlModifier;
    scene.MoveTo(8);
    QCOMPARE(scene.Selection(), (Indexes{0, 1}));
    scene.pointer.modifiers = Qt::NoModifier;
    scene.Release(); // which clears nothing, with Ctrl or without
    QCOMPARE(scene.Selection(), (Indexes{0, 1}));
    QCOMPARE(scene.Range(), kNoRange);
}

void tst_KeyGestureRange::passesOverLockedKeys()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20, 30});
    scene.Key(1).lockState = TL_KEY_LOCKED;
    scene.Press(5);
    scene.MoveTo(35);
    QCOMPARE(scene.Selection(), (Indexes{0, 2}));
}

void tst_KeyGestureRange::keepsTheRangeInTheTimeline_data()
{
    QTest::addColumn<int>("pressed");
    QTest::addColumn<int>("released");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<int>("currentFrame");
    QTest::newRow("to the left out of the row") << 5 << -40 << 5 << 0 << 0;
    QTest::newRow("to the right out of the timeline") << 40 << 54 << 40 << 49 << 49;
    QTest::newRow("from behind the end") << 54 << 45 << 49 << 45 << 45;
    QTest::newRow("to the last frame") << 40 << 49 << 40 << 49 << 49;
    QTest::newRow("to the first frame") << 40 << 0 << 40 << 0 << 0;
}

void tst_KeyGestureRange::keepsTheRangeInTheTimeline()
{
    QFETCH(const int, pressed);
    QFETCH(const int, released);
    QFETCH(const int, start);
    QFETCH(const int, end);
    QFETCH(const int, currentFrame);
    MouseScene scene(kKeepRange);
    scene.Press(pressed);
    scene.MoveTo(released);
    QCOMPARE(scene.Range(), FrameRange(start, end));
    scene.Release();
    QCOMPARE(scene.Range(), FrameRange(start, end));
    QCOMPARE(scene.CurrentFrame(), currentFrame);
}

void tst_KeyGestureRange::leavesNoRangeBehindWithoutItsMode()
{
    MouseScene scene(kDragKeys);
    scene.Press(5);
    scene.MoveTo(9);
    QCOMPARE(scene.Range(), FrameRange(5, 9));
    scene.Release();
    QCOMPARE(scene.Range(), kNoRange);
}

void tst_KeyGestureRange::keepsTheRangeWithItsMode()
{
    MouseScene scene(kKeepRange);
    scene.Press(5);
    scene.MoveTo(9);
    scene.Release();
    QCOMPARE(scene.Range(), FrameRange(5, 9));
}

void tst_KeyGestureRange::selectsOnceMoreAtTheReleaseAndReportsOnlyTheFrame()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20, 30});
    scene.Press(5);
    scene.MoveTo(25);
    scene.Keys().ClearAllSelection();
    scene.Select(scene.row, 2);
    scene.TakeCalls();
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"frame 25 false", "frame 25 true"}));
    QCOMPARE(scene.Selection(), (Indexes{0, 1, 2})); // in addition to what is selected
}

void tst_KeyGestureRange::aGroupInTheBandSurvivesTheRelease()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20, 40});
    const VZ::CPointer<CReltedGroupBase> group(new Group);
    scene.Key(1).group = group;
    scene.Key(2).group = group;
    scene.Press(15);
    scene.MoveTo(25);
    QCOMPARE(scene.Selection(), (Indexes{1, 2})); // the key at 40 follows the one at 20
    scene.TakeCalls();
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"frame 25 false", "frame 25 true"}));
    QCOMPARE(scene.Selection(), (Indexes{1, 2}));
}

void tst_KeyGestureRange::movesTheCurrentFrameAtBothEndsOnly()
{
    MouseScene scene(kDragKeys);
    scene.Press(5);
    scene.MoveTo(25);
    QCOMPARE(scene.CurrentFrame(), 5);
    scene.Release();
    QCOMPARE(scene.CurrentFrame(), 25);
}

void tst_KeyGestureRange::takesTheFocusSoThatTheRowHasIt()
{
    MouseScene scene(kDragKeys);
    scene.Press(5);
    QVERIFY(scene.row->hasFocus());
    scene.Release();
    QVERIFY(scene.row->hasFocus());
}

void tst_KeyGestureRange::aPressOnAKeyTakesNoFocus()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Press(20);
    QVERIFY(!scene.row->hasFocus());
    QVERIFY(scene.fixture.Container()->hasFocus());
}

void tst_KeyGestureRange::needsNoFocusToGoOn()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20});
    scene.Press(5);
    scene.fixture.Container()->setFocus();
    scene.MoveTo(25);
    QCOMPARE(scene.Selection(), (Indexes{0, 1}));
}

void tst_KeyGestureRange::theNextPressStartsAnew()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20, 30});
    scene.Press(15);
    scene.MoveTo(35);
    scene.Release();
    scene.TakeCalls();
    scene.Press(5);
    scene.MoveTo(12);
    scene.Release();
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "cleared", "changed", "frame 5 false", "frame 5 true",
                          "changed", "frame 12 false", "frame 12 true"}));
    QCOMPARE(scene.Selection(), Indexes{0});
}

QTEST_MAIN(tst_KeyGestureRange)
#include "tst_KeyGestureRange.moc"
