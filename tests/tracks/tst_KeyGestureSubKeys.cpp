#include "MouseScene.h"

using namespace KestovaTest;

// A row on which the sub-keys of its clips are edited instead of its own keys.

namespace {

/// A row of mouth shapes: a clip at 5 to 15 with sub-keys at 7, 9 and 13, one at 30 to 40 with
/// sub-keys at 32 and 36, and a key without sub-keys at 22. Two modes beside that for sub-keys.
class SubKeyScene : public MouseScene
{
public:
    enum Index
    {
        FirstClip,
        PlainKey,
        SecondClip
    };

    explicit SubKeyScene(std::initializer_list<TLEditType> modes = {TL_EDIT_SUB_KEYS,
                                                                    TL_EDIT_MOVE_KEYS,
                                                                    TL_EDIT_TIME_RANGE})
        : MouseScene(modes, TL_TRACK_VISEME_KEY)
    {
        AddClip(5, {2, 4, 8});
        AddKeys({22});
        AddClip(30, {2, 6});
    }

    CTimelineKeyArray& SubKeys(Index clip) { return *Key(clip).subKeys; }
    Indexes SubSelection(Index clip) { return SubKeys(clip).SelectedIndexes(); }
    void SelectSubKey(Index clip, int index)
    {
        SubKeys(clip).SetSelectionByIndex(index, index, true, TL_KEY_ANY_KIND);
    }
    /// What a host does that makes its keys anew: the clips with their sub-keys, or only these.
    void ReplaceKeys(bool clips)
    {
        if (clips) {
            Keys().RemoveAll();
            AddClip(5, {2, 4, 8});
            return;
        }
        Key(FirstClip).subKeys = new CTimelineKeyArray;
        for (const int frame : {2, 4, 8}) {
            VZ::CPointer<CTimelineKey> key(new CTimelineKey);
            key->frame = frame;
            SubKeys(FirstClip).Add(key, false);
        }
    }
    void AddClip(int frame, std::initializer_list<int> subFrames)
    {
        VZ::CPointer<CTimelineKey> clip(new CTimelineKey);
        clip->frame = frame;
        clip->clipLength = 10;
        clip->subKeys = new CTimelineKeyArray;
        for (const int subFrame : subFrames) {
            VZ::CPointer<CTimelineKey> key(new CTimelineKey);
            key->frame = subFrame;
            clip->subKeys->Add(key, false);
        }
        Keys().Add(clip, false);
    }
};

} // namespace

class tst_KeyGestureSubKeys : public QObject
{
    Q_OBJECT

private slots:
    void hitsWhereTheTestsBelowPress();

    void aPressBesideClipsOnlyClearsAndGoesThere_data();
    void aPressBesideClipsOnlyClearsAndGoesThere();

    void selectsThePressedSubKeyAndItsClip();
    void reportsEachStepOfAClickToTheOwner();
    void deselectsTheOtherClipsAndTheirSubKeys();
    void deselectsAClipThatWasLockedAfterwards();
    void clearsSubKeysOfUnselectedClipsToo();
    void keepsTheSubKeysThatClipsShare();
    void leavesASelectedSubKeySelectedWithTheOthers();
    void staysAtThePointersFrameOnASubKeyWithSubKeys();
    void leavesTheSubSelectionAloneAtAPressWithCtrl();
    void togglesTheSubKeyWithCtrlAtTheRelease();
    void togglesNothingBesideSubKeys();
    void aPressBehindTheTimelineSelectsTheSubKeyAndGoesToTheLastFrame();

    void selectsSubKeysByARangeInsideTheClip();
    void reportsEachStepOfARangeToTheOwner();
    void keepsTheRangeInsideTheClip_data();
    void keepsTheRangeInsideTheClip();
    void keepsTheRangeOfAClipAtTheEndInTheTimeline();
    void extendsFromTheCurrentFrameWithShift_data();
    void extendsFromTheCurrentFrameWithShift();
    void shiftOnASubKeyBeginsARange();
    void addsToTheSubSelectionWithCtrl();
    void addsFromTheCurrentFrameWithShiftAndCtrl();
    void neverSelectsTheSubKeysOfOtherClips();
    void selectsNothingMoreWhenTheClipWasTakenAway();
    void selectsNothingInAClipThatStandsInItsPlace();
    void staysInItsClipWhenTheHostAddsKeysInFront();

    void movesThePressedSubKey();
    void copiesThePressedSubKey();
    void goesToTheSubKeyUnderThePointerAfterADrag();
    void armsNothingWhenTheHostTookTheClipAway();

    void doubleClickSelectsClipAndSubKeyAndReportsTheSubKey();
    void doubleClickOnAClipBesideItsSubKeysReportsMinusOne();
    void doubleClickOnAKeyWithoutSubKeysGoesToIt();

    void goesToNoSubKeyThatTheHostReplaced_data();
    void goesToNoSubKeyThatTheHostReplaced();
    void doubleClickReportsNoSubKeyThatTheHostReplaced_data();
    void doubleClickReportsNoSubKeyThatTheHostReplaced();
    void keepsTheSelectionThatTheHostBringsWithNewClips();
    void aPressInsideTheReportOfAPressTakesItsPlace_data();
    void aPressInsideTheReportOfAPressTakesItsPlace();
};

void tst_KeyGestureSubKeys::hitsWhereTheTestsBelowPress()
{
    SubKeyScene scene;
    const auto hit = [&](int frame) {
        const int key = scene.row->HitTestKey(scene.At(frame));
        return FrameRange(key, scene.row->HitTestSubKey(scene.At(frame), key));
    };
    QCOMPARE(hit(7), FrameRange(0, 0));
    QCOMPARE(hit(9), FrameRange(0, 1));
    QCOMPARE(hit(11), FrameRange(0, -1));
    QCOMPARE(hit(13), FrameRange(0, 2));
    QCOMPARE(hit(22), FrameRange(1, -1));
    QCOMPARE(hit(25), FrameRange(-1, -1));
    QCOMPARE(hit(34), FrameRange(2, -1));
    QCOMPARE(hit(36), FrameRange(2, 1));
}

void tst_KeyGestureSubKeys::aPressBesideClipsOnlyClearsAndGoesThere_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<int>("modifiers");
    for (const int frame : {22, 25}) {
        const QByteArray place = frame == 22 ? "on a key without sub-keys" : "on no key";
        QTest::newRow(place) << frame << int(Qt::NoModifier);
        QTest::newRow(place + ", Shift") << frame << int(Qt::ShiftModifier);
        QTest::newRow(place + ", Ctrl") << frame << int(Qt::ControlModifier);
    }
}

void tst_KeyGestureSubKeys::aPressBesideClipsOnlyClearsAndGoesThere()
{
    QFETCH(const int, frame);
    QFETCH(const int, modifiers);
    SubKeyScene scene;
    scene.Select(scene.row, SubKeyScene::FirstClip);
    scene.SelectSubKey(SubKeyScene::FirstClip, 1);
    scene.Press(frame, Qt::KeyboardModifiers(modifiers));
    const QString line = QStringLiteral("frame %1 ").arg(frame);
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "cleared", line + "false", line + "true"}));
    QCOMPARE(scene.Selection(), Indexes{});
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{});

    scene.MoveTo(frame + 1); // no gesture began
    QCOMPARE(scene.TakeCalls(), QStringList());
    QCOMPARE(scene.Range(), kNoRange);
}

void tst_KeyGestureSubKeys::selectsThePressedSubKeyAndItsClip()
{
    SubKeyScene scene;
    scene.Press(9);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed", "changed",
                                             "frame 9 false", "frame 9 true"}));
    QCOMPARE(scene.Selection(), Indexes{SubKeyScene::FirstClip});
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{1});
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList());
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{1});
}

void tst_KeyGestureSubKeys::reportsEachStepOfAClickToTheOwner()
{
    SubKeyScene scene;
    MessageSpy spy(scene.row);
    scene.Press(9);
    QCOMPARE(spy.TakeMessages(),
             QStringList({"1108 (0, 0, 0, 0)", "1103 (0, 0, 0, 0)", "1102 (0, 0, 0, 0)",
                          "1102 (0, 0, 0, 0)", "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
    scene.Release();
    QCOMPARE(spy.TakeMessages(), QStringList({"1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
}

void tst_KeyGestureSubKeys::deselectsTheOtherClipsAndTheirSubKeys()
{
    SubKeyScene scene;
    scene.Select(scene.row, SubKeyScene::PlainKey);
    scene.Select(scene.row, SubKeyScene::SecondClip);
    scene.SelectSubKey(SubKeyScene::SecondClip, 0);
    scene.Click(9);
    QCOMPARE(scene.Selection(), Indexes{SubKeyScene::FirstClip});
    QCOMPARE(scene.SubSelection(SubKeyScene::SecondClip), Indexes{});
}

void tst_KeyGestureSubKeys::deselectsAClipThatWasLockedAfterwards()
{
    SubKeyScene scene;
    scene.Select(scene.row, SubKeyScene::SecondClip);
    scene.Key(SubKeyScene::SecondClip).lockState = TL_KEY_LOCKED;
    scene.Click(9);
    QCOMPARE(scene.Selection(), Indexes{SubKeyScene::FirstClip});
    QVERIFY(!scene.Key(SubKeyScene::SecondClip).selected);
}

void tst_KeyGestureSubKeys::clearsSubKeysOfUnselectedClipsToo()
{
    SubKeyScene scene;
    scene.SelectSubKey(SubKeyScene::SecondClip, 0);
    scene.Click(9, Qt::ControlModifier);
    QCOMPARE(scene.SubSelection(SubKeyScene::SecondClip), Indexes{});
}

void tst_KeyGestureSubKeys::keepsTheSubKeysThatClipsShare()
{
    SubKeyScene scene;
    scene.Key(SubKeyScene::SecondClip).subKeys = scene.Key(SubKeyScene::FirstClip).subKeys;
    scene.SelectSubKey(SubKeyScene::FirstClip, 2);
    scene.Click(9, Qt::ControlModifier);
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), (Indexes{1, 2}));
}

void tst_KeyGestureSubKeys::leavesASelectedSubKeySelectedWithTheOthers()
{
    SubKeyScene scene;
    scene.Select(scene.row, SubKeyScene::FirstClip);
    scene.SelectSubKey(SubKeyScene::FirstClip, 0);
    scene.SelectSubKey(SubKeyScene::FirstClip, 1);
    scene.Press(9);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed", "changed",
                                             "frame 9 false", "frame 9 true"}));
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), (Indexes{0, 1}));
}

void tst_KeyGestureSubKeys::staysAtThePointersFrameOnASubKeyWithSubKeys()
{
    SubKeyScene scene;
    CTimelineKey& subKey = *scene.SubKeys(SubKeyScene::FirstClip).GetAt(1);
    subKey.subKeys = new CTimelineKeyArray;
    ResetAxis(MouseScene::kFrames, 4, 0, 0);
    const QPoint beside = scene.Spot(9 * 4 - 1); // on the glyph, in the frame before
    QCOMPARE(scene.row->HitTestSubKey(beside, 0), 1);
    scene.pointer.Press(scene.row, beside);
    QCOMPARE(scene.CurrentFrame(), 8);
    scene.Release();
    QCOMPARE(scene.CurrentFrame(), 8);

    subKey.subKeys = nullptr;
    scene.pointer.Press(scene.row, beside);
    QCOMPARE(scene.CurrentFrame(), 9);
    scene.Release();
    QCOMPARE(scene.CurrentFrame(), 9);
}

void tst_KeyGestureSubKeys::leavesTheSubSelectionAloneAtAPressWithCtrl()
{
    SubKeyScene scene;
    scene.Select(scene.row, SubKeyScene::FirstClip);
    scene.SelectSubKey(SubKeyScene::FirstClip, 0);
    scene.Press(9, Qt::ControlModifier);
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "cleared", "changed", "frame 9 false", "frame 9 true"}));
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{0});
}

void tst_KeyGestureSubKeys::togglesTheSubKeyWithCtrlAtTheRelease()
{
    SubKeyScene scene;
    scene.Select(scene.row, SubKeyScene::FirstClip);
    scene.SelectSubKey(SubKeyScene::FirstClip, 0);
    scene.Press(9, Qt::ControlModifier);
    scene.TakeCalls();
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"changed"}));
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), (Indexes{0, 1}));
    scene.Click(9, Qt::ControlModifier);
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{0});
    QCOMPARE(scene.Selection(), Indexes{SubKeyScene::FirstClip}); // the clip stays selected
}

void tst_KeyGestureSubKeys::togglesNothingBesideSubKeys()
{
    SubKeyScene scene;
    scene.Press(9, Qt::ControlModifier);
    scene.TakeCalls();
    scene.SubKeys(SubKeyScene::FirstClip).RemoveAt(1);
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList());
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{});
    QCOMPARE(scene.Selection(), Indexes{SubKeyScene::FirstClip});
}

void tst_KeyGestureSubKeys::aPressBehindTheTimelineSelectsTheSubKeyAndGoesToTheLastFrame()
{
    SubKeyScene scene;
    TimelineLibrary::Instance().axis.frameCount = 8;
    scene.Press(9); // beyond the end of the timeline
    QCOMPARE(scene.CurrentFrame(), 7);
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{1});
}

void tst_KeyGestureSubKeys::selectsSubKeysByARangeInsideTheClip()
{
    SubKeyScene scene;
    scene.Select(scene.row, SubKeyScene::FirstClip);
    scene.SelectSubKey(SubKeyScene::FirstClip, 0);
    scene.Press(11);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed", "changed",
                                             "frame 11 false", "frame 11 true"}));
    QCOMPARE(scene.Selection(), Indexes{SubKeyScene::FirstClip});
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{});
    QCOMPARE(scene.Range(), FrameRange(11, 11));
    QVERIFY(scene.row->hasFocus());

    scene.MoveTo(13);
    QCOMPARE(scene.TakeCalls(), QStringList({"changed"}));
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{2});
    scene.MoveTo(8);
    QCOMPARE(scene.TakeCalls(), QStringList({"changed"}));
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{1});
    QCOMPARE(scene.Range(), FrameRange(11, 8));
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"frame 8 false", "frame 8 true"}));
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{1});
    QCOMPARE(scene.Selection(), Indexes{SubKeyScene::FirstClip});
    QCOMPARE(scene.Range(), FrameRange(11, 8));
}

void tst_KeyGestureSubKeys::reportsEachStepOfARangeToTheOwner()
{
    SubKeyScene scene;
    MessageSpy spy(scene.row);
    scene.Press(11);
    QCOMPARE(spy.TakeMessages(),
             QStringList({"1108 (0, 0, 0, 0)", "1103 (0, 0, 0, 0)", "1102 (0, 0, 0, 0)",
                          "1102 (0, 0, 0, 0)", "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
    scene.MoveTo(13);
    QCOMPARE(spy.TakeMessages(), QStringList({"1102 (0, 0, 0, 0)"}));
    scene.Release();
    QCOMPARE(spy.TakeMessages(), QStringList({"1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
}

void tst_KeyGestureSubKeys::keepsTheRangeInsideTheClip_data()
{
    QTest::addColumn<int>("pointer");
    QTest::addColumn<int>("end");
    QTest::newRow("before the clip") << 1 << 5;
    QTest::newRow("on its first frame") << 5 << 5;
    QTest::newRow("on its last frame") << 15 << 15;
    QTest::newRow("on the frame after it") << 16 << 16;
    QTest::newRow("beyond") << 35 << 16;
    QTest::newRow("out of the row") << -40 << 5;
}

void tst_KeyGestureSubKeys::keepsTheRangeInsideTheClip()
{
    QFETCH(const int, pointer);
    QFETCH(const int, end);
    SubKeyScene scene;
    QCOMPARE(scene.Key(SubKeyScene::FirstClip).displayLength, 10);
    scene.Press(11);
    scene.MoveTo(pointer);
    QCOMPARE(scene.Range(), FrameRange(11, end));
    scene.Release();
    QCOMPARE(scene.Range(), FrameRange(11, end));
    QCOMPARE(scene.CurrentFrame(), qMax(pointer, 0));
}

void tst_KeyGestureSubKeys::keepsTheRangeOfAClipAtTheEndInTheTimeline()
{
    SubKeyScene scene;
    TimelineLibrary::Instance().axis.frameCount = 38; // in the middle of the second clip
    scene.Press(34);
    scene.MoveTo(45);
    QCOMPARE(scene.Range(), FrameRange(34, 37));
    QCOMPARE(scene.CurrentFrame(), 34);
}

void tst_KeyGestureSubKeys::extendsFromTheCurrentFrameWithShift_data()
{
    QTest::addColumn<int>("currentFrame");
    QTest::addColumn<int>("start");
    QTest::addColumn<Indexes>("selected");
    QTest::newRow("inside the clip") << 8 << 8 << Indexes{1};
    QTest::newRow("before it") << 1 << 5 << Indexes{0, 1};
    QTest::newRow("behind it") << 30 << 16 << Indexes{2};
}

void tst_KeyGestureSubKeys::extendsFromTheCurrentFrameWithShift()
{
    QFETCH(const int, currentFrame);
    QFETCH(const int, start);
    QFETCH(const Indexes, selected);
    SubKeyScene scene;
    scene.Select(scene.row, SubKeyScene::FirstClip);
    scene.SelectSubKey(SubKeyScene::FirstClip, 0);
    scene.SetCurrentFrame(currentFrame);
    scene.Press(11, Qt::ShiftModifier);
    QCOMPARE(scene.Range(), FrameRange(start, 11));
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), selected);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed", "changed",
                                             "frame 11 false", "frame 11 true"}));
}

void tst_KeyGestureSubKeys::shiftOnASubKeyBeginsARange()
{
    SubKeyScene scene;
    scene.SetCurrentFrame(6);
    scene.Press(9, Qt::ShiftModifier);
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), (Indexes{0, 1}));
    scene.MoveTo(14);
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), (Indexes{0, 1, 2}));
    QCOMPARE(scene.SubKeys(SubKeyScene::FirstClip).GetAt(1)->frame, 4); // nothing is dragged
}

void tst_KeyGestureSubKeys::addsToTheSubSelectionWithCtrl()
{
    SubKeyScene scene;
    scene.Select(scene.row, SubKeyScene::FirstClip);
    scene.SelectSubKey(SubKeyScene::FirstClip, 0);
    scene.Press(11, Qt::ControlModifier);
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{0});
    scene.MoveTo(14);
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), (Indexes{0, 2}));
    scene.MoveTo(12);
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), (Indexes{0, 2}));
    scene.Release();
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), (Indexes{0, 2}));
}

void tst_KeyGestureSubKeys::addsFromTheCurrentFrameWithShiftAndCtrl()
{
    SubKeyScene scene;
    scene.Select(scene.row, SubKeyScene::FirstClip);
    scene.SelectSubKey(SubKeyScene::FirstClip, 2);
    scene.SetCurrentFrame(8);
    scene.Press(11, Qt::ShiftModifier | Qt::ControlModifier);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed", "changed",
                                             "frame 11 false", "frame 11 true"}));
    QCOMPARE(scene.Range(), FrameRange(8, 11));
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), (Indexes{1, 2}));
    scene.MoveTo(6);
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), (Indexes{0, 1, 2}));
}

void tst_KeyGestureSubKeys::neverSelectsTheSubKeysOfOtherClips()
{
    SubKeyScene scene;
    scene.Press(11);
    scene.MoveTo(40);
    scene.Release();
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{2});
    QCOMPARE(scene.SubSelection(SubKeyScene::SecondClip), Indexes{});
    QCOMPARE(scene.Selection(), Indexes{SubKeyScene::FirstClip});
}

void tst_KeyGestureSubKeys::selectsNothingMoreWhenTheClipWasTakenAway()
{
    SubKeyScene scene;
    scene.Press(34);
    scene.TakeCalls();
    scene.Keys().RemoveAll();
    scene.AddKeys({3, 35});
    scene.MoveTo(36);
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"changed", "frame 36 false", "frame 36 true"}));
    QCOMPARE(scene.Selection(), Indexes{});
    QCOMPARE(scene.Range(), FrameRange(34, 36));
}

void tst_KeyGestureSubKeys::selectsNothingInAClipThatStandsInItsPlace()
{
    SubKeyScene scene;
    scene.Press(34);
    scene.Keys().RemoveAt(SubKeyScene::SecondClip);
    scene.AddClip(30, {2, 6});
    scene.MoveTo(45);
    scene.Release();
    QCOMPARE(scene.SubSelection(SubKeyScene::SecondClip), Indexes{});
    QCOMPARE(scene.Range(), FrameRange(34, 45)); // no clip limits it
}

void tst_KeyGestureSubKeys::staysInItsClipWhenTheHostAddsKeysInFront()
{
    SubKeyScene scene;
    scene.Press(34);
    scene.AddKeys({1, 2}); // the first clip now stands where the second one stood
    scene.MoveTo(45);
    QCOMPARE(scene.Range(), FrameRange(34, 41));
    scene.MoveTo(31);
    scene.Release();
    QCOMPARE(scene.Range(), FrameRange(34, 31));
    QCOMPARE(scene.Key(4).subKeys->SelectedIndexes(), Indexes{0});
    QCOMPARE(scene.Key(2).subKeys->SelectedIndexes(), Indexes{});
}

void tst_KeyGestureSubKeys::movesThePressedSubKey()
{
    SubKeyScene scene;
    scene.Press(9);
    scene.TakeCalls();
    scene.MoveTo(11);
    QCOMPARE(scene.TakeCalls(), QStringList({"edit 0 [row] 0 0", "edit 2 [row] 2 0"}));
    QCOMPARE(scene.SubKeys(SubKeyScene::FirstClip).GetAt(1)->frame, 6);
    QCOMPARE(scene.Key(SubKeyScene::FirstClip).frame, 5);
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"edit 6 [row] 2 0", "edit 1 [row] 0 0",
                                             "frame 11 false", "frame 11 true"}));
    QCOMPARE(scene.Range(), kNoRange);
}

void tst_KeyGestureSubKeys::copiesThePressedSubKey()
{
    SubKeyScene scene;
    scene.Click(9);
    scene.Press(9, Qt::ControlModifier);
    MessageSpy spy(scene.row);
    scene.MoveTo(11);
    scene.Release();
    QCOMPARE(spy.TakeMessages(),
             QStringList({"1112 (0, 0, 0, 0)", "1113 (0, 0, 2, 0)", "1114 (0, 0, 0, 0)",
                          "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
}

void tst_KeyGestureSubKeys::goesToTheSubKeyUnderThePointerAfterADrag()
{
    SubKeyScene scene;
    ResetAxis(MouseScene::kFrames, 4, 0, 0);
    scene.pointer.Press(scene.row, scene.Spot(9 * 4 - 1)); // on its glyph, a frame before it
    scene.pointer.MoveTo(scene.row, scene.Spot(10 * 4 - 1));
    scene.Release();
    QCOMPARE(scene.SubKeys(SubKeyScene::FirstClip).GetAt(1)->frame, 5);
    QCOMPARE(scene.CurrentFrame(), 10);
}

void tst_KeyGestureSubKeys::armsNothingWhenTheHostTookTheClipAway()
{
    SubKeyScene scene;
    scene.When("cleared", [&] { scene.Keys().RemoveAll(); });
    scene.Press(9);
    scene.TakeCalls();
    scene.MoveTo(12);
    QCOMPARE(scene.TakeCalls(), QStringList());
}

void tst_KeyGestureSubKeys::doubleClickSelectsClipAndSubKeyAndReportsTheSubKey()
{
    SubKeyScene scene;
    scene.Click(9);
    scene.SelectSubKey(SubKeyScene::FirstClip, 2);
    scene.TakeCalls();
    scene.pointer.PressAgain();
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "cleared", "changed", "double click row 1"}));
    QCOMPARE(scene.Selection(), Indexes{SubKeyScene::FirstClip});
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{1});
    QCOMPARE(scene.CurrentFrame(), 9);
}

void tst_KeyGestureSubKeys::doubleClickOnAClipBesideItsSubKeysReportsMinusOne()
{
    SubKeyScene scene;
    scene.Click(11);
    scene.TakeCalls();
    scene.pointer.PressAgain();
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "cleared", "changed", "double click row -1"}));
    QCOMPARE(scene.Selection(), Indexes{SubKeyScene::FirstClip});
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{});
    QCOMPARE(scene.CurrentFrame(), 11);
}

void tst_KeyGestureSubKeys::doubleClickOnAKeyWithoutSubKeysGoesToIt()
{
    SubKeyScene scene;
    ResetAxis(MouseScene::kFrames, 4, 0, 0);
    const QPoint beside = scene.Spot(22 * 4 - 1);
    QCOMPARE(scene.row->HitTestKey(beside), int(SubKeyScene::PlainKey));
    scene.pointer.Click(scene.row, beside);
    scene.TakeCalls();
    scene.pointer.PressAgain();
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "cleared", "changed", "frame 22 false", "frame 22 true",
                          "double click row -1"}));
    QCOMPARE(scene.Selection(), Indexes{SubKeyScene::PlainKey});
}

void tst_KeyGestureSubKeys::goesToNoSubKeyThatTheHostReplaced_data()
{
    QTest::addColumn<QString>("callback");
    QTest::addColumn<bool>("clips");
    for (const char* const callback : {"cleared", "changed"}) {
        QTest::addRow("clips in \"%s\"", callback) << QString(callback) << true;
        QTest::addRow("sub-keys in \"%s\"", callback) << QString(callback) << false;
    }
}

void tst_KeyGestureSubKeys::goesToNoSubKeyThatTheHostReplaced()
{
    QFETCH(const QString, callback);
    QFETCH(const bool, clips);
    SubKeyScene scene;
    ResetAxis(MouseScene::kFrames, 4, 0, 0);
    scene.When(callback, [&] { scene.ReplaceKeys(clips); });
    scene.pointer.Press(scene.row, scene.Spot(9 * 4 - 1)); // on its glyph, a frame before it
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed", "changed",
                                             "frame 8 false", "frame 8 true"}));
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{});
    scene.pointer.MoveTo(scene.row, scene.Spot(14 * 4));
    QCOMPARE(scene.TakeCalls(), QStringList());
}

void tst_KeyGestureSubKeys::doubleClickReportsNoSubKeyThatTheHostReplaced_data()
{
    QTest::addColumn<bool>("clips");
    QTest::newRow("clips") << true;
    QTest::newRow("sub-keys") << false;
}

void tst_KeyGestureSubKeys::doubleClickReportsNoSubKeyThatTheHostReplaced()
{
    QFETCH(const bool, clips);
    SubKeyScene scene;
    scene.Click(9);
    scene.TakeCalls();
    scene.When("changed", [&] { scene.ReplaceKeys(clips); });
    scene.pointer.PressAgain();
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "cleared", "changed", "double click row -1"}));
}

void tst_KeyGestureSubKeys::keepsTheSelectionThatTheHostBringsWithNewClips()
{
    SubKeyScene scene;
    scene.When("cleared", [&] {
        scene.ReplaceKeys(true);
        scene.Select(scene.row, SubKeyScene::FirstClip);
        scene.SelectSubKey(SubKeyScene::FirstClip, 2);
    });
    scene.Press(9);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed", "changed",
                                             "frame 9 false", "frame 9 true"}));
    QCOMPARE(scene.Selection(), Indexes{SubKeyScene::FirstClip});
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{2});
}

void tst_KeyGestureSubKeys::aPressInsideTheReportOfAPressTakesItsPlace_data()
{
    QTest::addColumn<QString>("callback");
    QTest::addColumn<QStringList>("before");
    QTest::newRow("activation") << "same body row" << QStringList({"same body row"});
    QTest::newRow("clearing") << "cleared" << QStringList({"same body row", "cleared"});
    QTest::newRow("selection") << "changed" << QStringList({"same body row", "cleared", "changed"});
}

void tst_KeyGestureSubKeys::aPressInsideTheReportOfAPressTakesItsPlace()
{
    QFETCH(const QString, callback);
    QFETCH(const QStringList, before);
    SubKeyScene scene;
    scene.When(callback, [&] { scene.Press(36); });
    scene.Press(9);
    QCOMPARE(scene.TakeCalls(),
             before + QStringList({"same body row", "cleared", "changed", "changed",
                                   "frame 36 false", "frame 36 true"}));
    QCOMPARE(scene.Selection(), Indexes{SubKeyScene::SecondClip});
    QCOMPARE(scene.SubSelection(SubKeyScene::FirstClip), Indexes{});
    QCOMPARE(scene.SubSelection(SubKeyScene::SecondClip), Indexes{1});
    scene.MoveTo(38);
    QCOMPARE(scene.TakeCalls(), QStringList({"edit 0 [row] 0 0", "edit 2 [row] 2 0"}));
}

QTEST_MAIN(tst_KeyGestureSubKeys)
#include "tst_KeyGestureSubKeys.moc"
