#include "TimelineKeyValues.h"
#include "container/CTimelineContainer.h"
#include "container/TestTracks.h"
#include "support/Pointer.h"
#include "tracks/MenuScene.h"

#include <QtTest>

using namespace KestovaTest;

namespace {

/// A row with a gesture under way, which notes in its owner's list when that is ended.
class RowWithGesture : public CTimelineTrackKey
{
public:
    OwnerSpy spy;

    RowWithGesture()
    {
        Init(nullptr);
        MarkAsOwnTrack();
        SetOwner(&spy);
        Gesture().Begin();
    }
    void EndGesture() override
    {
        Gesture().End();
        spy.messages.push_back({0, this, 0, {}});
    }
};

/// An owner that fills in one entry and answers the query as it is told.
class AnsweringOwner : public OwnerSpy
{
public:
    int answer = 0;
    MenuEntry entry;

    int OnTrackMessage(int code, CTimelineTrackBase* track, int number, QVariant value1,
                       QVariant value2, QVariant value3) override
    {
        OwnerSpy::OnTrackMessage(code, track, number, value1, value2, value3);
        if (code != 1116)
            return 0;
        static_cast<MenuEntries*>(value1.value<void*>())->push_back(&entry);
        return answer;
    }
};

std::vector<int> CodesOf(const OwnerSpy& spy)
{
    std::vector<int> codes;
    for (const OwnerSpy::Message& message : spy.messages)
        codes.push_back(message.code);
    return codes;
}

} // namespace

/// What the right button does to the selection and the current frame of a row before its menu
/// opens, and which rows open none.
class tst_TrackMenuPress : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void aRightClickOnAKeySelectsItOpensTheMenuAndReportsTheChoice();
    void theRightButtonItselfOpensTheMenu();
    void aSelectedKeyKeepsTheWholeSelection();
    void aClickBesideTheKeysKeepsTheSelection();
    void aKeyWithSubKeysKeepsTheFrameUnderThePointer();
    void theKeysOwnFrameBecomesCurrentAndNoOther();
    void aLockedKeyIsNotHit();
    void aClickBeyondTheLastFrameIsBroughtBackAndToldAtOnce();
    void aKeyBeyondTheLastFrameDoesNotTakeTheCurrentFrameThere();
    void withoutFramesTheCurrentFrameIsZero();
    void aSubKeyThatIsHitIsSelectedInItsClipAlone();
    void aSelectedSubKeyKeepsTheOthersSelected();
    void aSelectedSubKeyIsGoneToFromBesideItsFrame();
    void aSubKeyWithSubKeysOfItsOwnKeepsTheFrameUnderThePointer();
    void aClipHitBesideItsSubKeysIsSelectedAlone();
    void aClickBesideAllClipsKeepsTheSelectionOfSubKeys();
    void aClipWithoutSubKeysIsSelectedOnARowOfSubKeysToo();
    void subKeysThatClipsShareKeepTheirSelection();
    void theFrameIsBroughtBackIntoATimelineThatTheHostHasShortened();
    void aKeyDragEndsBeforeTheMenu();
    void aRowOfSwitchesOpensItsMenuToo();
    void aGestureUnderWayEndsBeforeTheMenu();
    void theTracksMessagesInTheirOrder();

    // No menu
    void aRowOfFewerThanTwoEditModesOpensNoMenu_data();
    void aRowOfFewerThanTwoEditModesOpensNoMenu();
    void aWaveRowOpensNoMenu();
    void theRulerAndTheScrollBarOpenNoMenu();
    void noMenuOpensWithoutAnythingToChoose_data();
    void noMenuOpensWithoutAnythingToChoose();
    void aNegativeAnswerMeansNoMenu();
    void withoutAnOwnerNothingHappens();
};

void tst_TrackMenuPress::initTestCase()
{
    QVERIFY(PrepareTimeline());
}

// ---- The press ----

void tst_TrackMenuPress::aRightClickOnAKeySelectsItOpensTheMenuAndReportsTheChoice()
{
    MenuScene scene;
    scene.menu.top = {scene.menu.Make(7, "Insert")};
    MenuHand hand([](QMenu& menu) {
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    QVERIFY(RightClickAt(scene.arm, 20));
    QCOMPARE(scene.Calls(),
             (QStringList{"cleared", "active Body Arm", "cleared", "changed", "frame 20 false",
                          "frame 20 true", "menu Arm", "chosen Arm 7"}));
    QCOMPARE(hand.opened, 1);
    QCOMPARE(scene.arm->Keys().SelectedIndexes(), std::vector<int>{0});
}

void tst_TrackMenuPress::theRightButtonItselfOpensTheMenu()
{
    MenuScene scene;
    scene.menu.top = {scene.menu.Make(7, "Insert")};
    QPoint corner;
    MenuHand hand([&](QMenu& menu) { corner = menu.pos(); });
    Pointer pointer(scene.arm);
    const QPoint point = PointAt(scene.arm, 20);
    pointer.Press(scene.arm, point, Qt::RightButton);
    pointer.Release(Qt::RightButton);
    QCOMPARE(hand.opened, 1);
    QCOMPARE(corner, scene.arm->mapToGlobal(point));
    QCOMPARE(scene.fixture.host.calls.last(), QString("menu Arm"));
}

void tst_TrackMenuPress::aSelectedKeyKeepsTheWholeSelection()
{
    MenuScene scene;
    scene.Activate(scene.arm);
    scene.arm->Keys().SetSelectionByIndex(0, 1, true, 0);
    QVERIFY(RightClickAt(scene.arm, 40));
    QCOMPARE(scene.Calls(),
             (QStringList{"same Body Arm", "frame 40 false", "frame 40 true", "menu Arm"}));
    QCOMPARE(scene.arm->Keys().SelectedIndexes(), (std::vector<int>{0, 1}));
}

void tst_TrackMenuPress::aClickBesideTheKeysKeepsTheSelection()
{
    MenuScene scene;
    scene.Activate(scene.arm);
    scene.arm->Keys().SetSelectionByIndex(0, 1, true, 0);
    QVERIFY(RightClickAt(scene.arm, 60));
    QCOMPARE(scene.Calls(),
             (QStringList{"same Body Arm", "frame 60 false", "frame 60 true", "menu Arm"}));
    QCOMPARE(scene.arm->Keys().SelectedIndexes(), (std::vector<int>{0, 1}));
}

void tst_TrackMenuPress::aKeyWithSubKeysKeepsTheFrameUnderThePointer()
{
    MenuScene scene;
    CTimelineTrackBase* const clips = scene.fixture.Child(scene.body, TL_TRACK_CLIP, "Clips");
    scene.fixture.SetEditModes(clips, {TL_EDIT_MOVE_KEYS, TL_EDIT_COPY});
    VZ::CPointer<CTimelineKey> clip = MakeClip(10, 30);
    clip->subKeys = new CTimelineKeyArray;
    clips->Keys().Add(clip, false);
    scene.fixture.manager->InvalidateTimeline();
    scene.fixture.Settle();
    scene.Activate(clips);
    QVERIFY(RightClickAt(clips, 22));
    QCOMPARE(scene.Calls(), (QStringList{"same Body Clips", "cleared", "changed", "frame 22 false",
                                         "frame 22 true", "menu Clips"}));
    QVERIFY(clip->selected);
}

void tst_TrackMenuPress::theKeysOwnFrameBecomesCurrentAndNoOther()
{
    MenuScene scene;
    CTimelineTrackBase* const clips = scene.fixture.Child(scene.body, TL_TRACK_CLIP, "Clips");
    scene.fixture.SetEditModes(clips, {TL_EDIT_MOVE_KEYS, TL_EDIT_COPY});
    clips->Keys().Add(MakeClip(10, 30), false);
    scene.fixture.manager->InvalidateTimeline();
    scene.fixture.Settle();
    scene.Activate(clips);
    QVERIFY(RightClickAt(clips, 22));
    QCOMPARE(scene.Calls(), (QStringList{"same Body Clips", "cleared", "changed", "frame 10 false",
                                         "frame 10 true", "menu Clips"}));
    // Selected now, it gives its frame again.
    TimelineLibrary::Instance().axis.currentFrame = 55;
    QVERIFY(RightClickAt(clips, 22));
    QCOMPARE(CurrentFrame(), 10);
}

void tst_TrackMenuPress::aLockedKeyIsNotHit()
{
    MenuScene scene;
    scene.Activate(scene.arm);
    scene.arm->Keys().GetAt(0)->lockState = TL_KEY_LOCKED;
    scene.arm->InvalidateCaches();
    QVERIFY(RightClickAt(scene.arm, 20));
    QCOMPARE(scene.Calls(),
             (QStringList{"same Body Arm", "frame 20 false", "frame 20 true", "menu Arm"}));
    QVERIFY(!scene.arm->Keys().GetAt(0)->selected);
}

void tst_TrackMenuPress::aClickBeyondTheLastFrameIsBroughtBackAndToldAtOnce()
{
    MenuScene scene;
    scene.Activate(scene.arm);
    ResetAxis(50, 5.0);
    scene.arm->Keys().GetAt(0)->frame = 0;
    scene.arm->Keys().GetAt(1)->frame = 60;
    scene.arm->InvalidateCaches();
    QCOMPARE(scene.arm->HitTestKey(PointAt(scene.arm, 60)), 1);
    QVERIFY(RightClickAt(scene.arm, 60));
    // Before the selection changes; the notices after it have no other frame to tell of.
    QCOMPARE(scene.Calls(), (QStringList{"same Body Arm", "frame 49 false", "frame 49 true",
                                         "cleared", "changed", "menu Arm"}));
}

void tst_TrackMenuPress::aKeyBeyondTheLastFrameDoesNotTakeTheCurrentFrameThere()
{
    MenuScene scene;
    ResetAxis(50, 5.0);
    scene.arm->Keys().GetAt(1)->frame = 60;
    scene.arm->InvalidateCaches();
    QVERIFY(RightClickAt(scene.arm, 60));
    QVERIFY(scene.arm->Keys().GetAt(1)->selected);
    QCOMPARE(CurrentFrame(), 49);
}

void tst_TrackMenuPress::withoutFramesTheCurrentFrameIsZero()
{
    MenuScene scene;
    ResetAxis(0, 5.0);
    QVERIFY(RightClick(scene.arm, QPoint(100, 5)));
    QCOMPARE(CurrentFrame(), 0);
}

void tst_TrackMenuPress::aSubKeyThatIsHitIsSelectedInItsClipAlone()
{
    SubKeyScene scene;
    scene.first->subKeys->SetSelectionByIndex(0, 0, true, 0);
    scene.second->subKeys->SetSelectionByIndex(0, 0, true, 0);
    scene.mouth->Keys().SetSelectionByIndex(1, 1, true, 0);
    const QPoint point = scene.PointOfSubKey(0, 1);
    QCOMPARE(scene.mouth->HitTestSubKey(point, 0), 1);
    QVERIFY(RightClick(scene.mouth, point));
    QCOMPARE(scene.Calls(), (QStringList{"same Body Mouth", "cleared", "changed", "changed",
                                         "frame 25 false", "frame 25 true", "menu Mouth"}));
    QCOMPARE(scene.mouth->Keys().SelectedIndexes(), std::vector<int>{0});
    QCOMPARE(scene.first->subKeys->SelectedIndexes(), std::vector<int>{1});
    QCOMPARE(scene.second->subKeys->SelectedIndexes(), std::vector<int>{});
}

void tst_TrackMenuPress::aSelectedSubKeyKeepsTheOthersSelected()
{
    SubKeyScene scene;
    scene.mouth->Keys().SetSelectionByIndex(0, 0, true, 0);
    scene.first->subKeys->SetSelectionByIndex(0, 1, true, 0);
    QVERIFY(RightClick(scene.mouth, scene.PointOfSubKey(0, 1)));
    QCOMPARE(scene.Calls(), (QStringList{"same Body Mouth", "cleared", "changed", "frame 25 false",
                                         "frame 25 true", "menu Mouth"}));
    QCOMPARE(scene.first->subKeys->SelectedIndexes(), (std::vector<int>{0, 1}));
}

void tst_TrackMenuPress::aSelectedSubKeyIsGoneToFromBesideItsFrame()
{
    SubKeyScene scene;
    scene.first->subKeys->SetSelectionByIndex(1, 1, true, TL_KEY_ANY_KIND);
    RightClick(scene.mouth, scene.PointBeside(0, 1));
    QCOMPARE(scene.Calls(), QStringList({"same Body Mouth", "cleared", "changed", "frame 25 false",
                                         "frame 25 true", "menu Mouth"}));
}

void tst_TrackMenuPress::aSubKeyWithSubKeysOfItsOwnKeepsTheFrameUnderThePointer()
{
    SubKeyScene scene;
    const VZ::CPointer<CTimelineKey> subKey = scene.first->subKeys->GetAt(1);
    const QPoint point = scene.PointOfSubKey(0, 1) + QPoint(3, 0);
    const int frame = scene.mouth->PixelToFrame(point.x());
    subKey->subKeys = new CTimelineKeyArray;
    QCOMPARE(scene.mouth->HitTestSubKey(point, 0), 1);
    QVERIFY(RightClick(scene.mouth, point));
    QVERIFY(subKey->selected);
    QCOMPARE(CurrentFrame(), frame);
}

void tst_TrackMenuPress::aClipHitBesideItsSubKeysIsSelectedAlone()
{
    SubKeyScene scene;
    scene.mouth->Keys().SetSelectionByIndex(1, 1, true, 0);
    scene.first->subKeys->SetSelectionByIndex(0, 0, true, 0);
    scene.second->subKeys->SetSelectionByIndex(0, 0, true, 0);
    QVERIFY(RightClickAt(scene.mouth, 35));
    QCOMPARE(scene.Calls(), (QStringList{"same Body Mouth", "cleared", "changed", "frame 35 false",
                                         "frame 35 true", "menu Mouth"}));
    QCOMPARE(scene.mouth->Keys().SelectedIndexes(), std::vector<int>{0});
    // Its own sub-keys stay as they were.
    QCOMPARE(scene.first->subKeys->SelectedIndexes(), std::vector<int>{0});
    QCOMPARE(scene.second->subKeys->SelectedIndexes(), std::vector<int>{});
}

void tst_TrackMenuPress::aClickBesideAllClipsKeepsTheSelectionOfSubKeys()
{
    SubKeyScene scene;
    scene.mouth->Keys().SetSelectionByIndex(0, 0, true, 0);
    scene.first->subKeys->SetSelectionByIndex(0, 0, true, 0);
    QVERIFY(RightClickAt(scene.mouth, 50));
    QCOMPARE(scene.Calls(),
             (QStringList{"same Body Mouth", "frame 50 false", "frame 50 true", "menu Mouth"}));
    QCOMPARE(scene.first->subKeys->SelectedIndexes(), std::vector<int>{0});
    QVERIFY(scene.first->selected);
}

void tst_TrackMenuPress::aClipWithoutSubKeysIsSelectedOnARowOfSubKeysToo()
{
    SubKeyScene scene;
    scene.first->subKeys = nullptr;
    scene.mouth->InvalidateCaches();
    QVERIFY(RightClickAt(scene.mouth, 35));
    QCOMPARE(scene.Calls(), (QStringList{"same Body Mouth", "cleared", "changed", "frame 35 false",
                                         "frame 35 true", "menu Mouth"}));
    QVERIFY(scene.first->selected);
}

void tst_TrackMenuPress::subKeysThatClipsShareKeepTheirSelection()
{
    SubKeyScene scene;
    scene.second->subKeys = scene.first->subKeys;
    scene.mouth->InvalidateCaches();
    scene.first->subKeys->SetSelectionByIndex(0, 1, true, 0);
    QVERIFY(RightClick(scene.mouth, scene.PointOfSubKey(0, 1)));
    QCOMPARE(scene.mouth->Keys().SelectedIndexes(), std::vector<int>{0});
    QCOMPARE(scene.first->subKeys->SelectedIndexes(), (std::vector<int>{0, 1}));
}

void tst_TrackMenuPress::theFrameIsBroughtBackIntoATimelineThatTheHostHasShortened()
{
    for (const int frameCount : {30, 0}) {
        MenuScene scene;
        scene.Activate(scene.arm);
        scene.alsoReact = [&](const QString& line) {
            if (line == "cleared")
                TimelineLibrary::Instance().axis.frameCount = frameCount;
        };
        QVERIFY(RightClickAt(scene.arm, 40));
        QCOMPARE(CurrentFrame(), std::max(frameCount - 1, 0));
        QVERIFY(scene.Calls().filter("frame 40").isEmpty());
    }
}

void tst_TrackMenuPress::aKeyDragEndsBeforeTheMenu()
{
    MenuScene scene;
    scene.Activate(scene.arm);
    Pointer pointer(scene.arm);
    pointer.Press(scene.arm, PointAt(scene.arm, 20));
    pointer.MoveTo(scene.arm, PointAt(scene.arm, 24));
    scene.Calls();
    pointer.Press(scene.arm, PointAt(scene.arm, 60), Qt::RightButton);
    // The frame of the menu's press is the one that the drag has ended at: no news.
    QCOMPARE(scene.Calls(),
             QStringList({"edit 2 [Arm] 36 0", "edit 6 [Arm] 40 0", "edit 1 [Arm] 0 0",
                          "frame 60 false", "frame 60 true", "same Body Arm", "menu Arm"}));
    pointer.Release(Qt::RightButton);
    pointer.Release();
    QCOMPARE(scene.Calls(), QStringList());
}

void tst_TrackMenuPress::aRowOfSwitchesOpensItsMenuToo()
{
    MenuScene scene;
    CTimelineTrackBase* const row = scene.fixture.Child(scene.body, TL_TRACK_SWITCH, "Switch");
    std::vector<_tmpTLSwitchBtnData> buttons{{"One", 0}, {"Two", 2}};
    scene.fixture.manager->SetTrackSwitchBtnList(row, buttons);
    scene.fixture.SetEditModes(row, {TL_EDIT_MOVE_KEYS, TL_EDIT_COPY});
    scene.fixture.manager->InvalidateTimeline();
    scene.fixture.Settle();
    scene.Activate(row);
    int x = 0;
    while (x < row->width() && row->HitTestKey(QPoint(x, row->height() / 2)) != 1)
        ++x;
    QCOMPARE(row->HitTestKey(QPoint(x, row->height() / 2)), 1); // a button, and no key
    QVERIFY(RightClick(row, QPoint(x, row->height() / 2)));
    const int frame = row->PixelToFrame(x);
    QCOMPARE(scene.Calls(), (QStringList{"same Body Switch", QString("frame %1 false").arg(frame),
                                         QString("frame %1 true").arg(frame), "menu Switch"}));
}

void tst_TrackMenuPress::aGestureUnderWayEndsBeforeTheMenu()
{
    RowWithGesture row;
    row.BuildContextMenu(row.mapToGlobal(QPoint(5, 5)));
    QCOMPARE(CodesOf(row.spy), (std::vector<int>{0, 1108, 1104, 1105, 1116}));
    // And with none under way there is nothing to end.
    row.spy.messages.clear();
    row.BuildContextMenu(row.mapToGlobal(QPoint(5, 5)));
    QCOMPARE(CodesOf(row.spy), (std::vector<int>{1108, 1104, 1105, 1116}));
}

void tst_TrackMenuPress::theTracksMessagesInTheirOrder()
{
    ResetAxis(100, 5.0);
    CTimelineTrackKey row;
    AnsweringOwner owner;
    owner.entry.command = 31;
    owner.entry.text = "Only";
    row.Init(nullptr);
    row.LoadStyle(1);
    row.MarkAsOwnTrack();
    row.SetOwner(&owner);
    AddKey(row, 4);
    QCOMPARE(row.HitTestKey(PointAt(&row, 4)), 0);
    MenuHand hand([](QMenu& menu) {
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    row.BuildContextMenu(row.mapToGlobal(PointAt(&row, 4)));
    QCOMPARE(CodesOf(owner), (std::vector<int>{1108, 1103, 1102, 1104, 1105, 1116, 1117}));
    for (const OwnerSpy::Message& message : owner.messages) {
        QCOMPARE(message.track, &row);
        QCOMPARE(message.number, 0);
        if (message.code != 1116)
            QCOMPARE(message.values[0], QVariant(0));
        QCOMPARE(message.values[1], QVariant(message.code == 1117 ? 31 : 0));
        QCOMPARE(message.values[2], QVariant(0));
    }
}

// ---- No menu ----

void tst_TrackMenuPress::aRowOfFewerThanTwoEditModesOpensNoMenu_data()
{
    QTest::addColumn<int>("modes");
    QTest::newRow("none") << 0;
    QTest::newRow("one") << 1;
}

void tst_TrackMenuPress::aRowOfFewerThanTwoEditModesOpensNoMenu()
{
    QFETCH(int, modes);
    MenuScene scene;
    scene.menu.top = {scene.menu.Make(7, "Insert")};
    if (modes == 0)
        scene.fixture.SetEditModes(scene.arm, {});
    else
        scene.fixture.SetEditModes(scene.arm, {TL_EDIT_MOVE_KEYS});
    MenuHand hand;
    QVERIFY(!RightClickAt(scene.arm, 20));
    QCOMPARE(scene.Calls(), QStringList());
    QCOMPARE(hand.opened, 0);
}

void tst_TrackMenuPress::aWaveRowOpensNoMenu()
{
    MenuScene scene;
    scene.menu.top = {scene.menu.Make(7, "Insert")};
    CTimelineTrackBase* const wave = MakeTrack(TL_TRACK_WAVE, "Wave", 1, &scene.fixture.mainWindow);
    VZ::CArrayList<TLEditType> modes;
    modes.Add(TL_EDIT_MOVE_KEYS);
    modes.Add(TL_EDIT_COPY);
    wave->SetEditModes(modes);
    scene.fixture.Container()->ShowChildTrack(scene.body, wave, 9, true);
    scene.fixture.Settle();
    scene.fixture.ForgetCalls();
    MenuHand hand;
    QVERIFY(!RightClickAt(wave, 20));
    QCOMPARE(scene.Calls(), QStringList());
    QCOMPARE(hand.opened, 0);
}

void tst_TrackMenuPress::theRulerAndTheScrollBarOpenNoMenu()
{
    MenuScene scene;
    scene.menu.top = {scene.menu.Make(7, "Insert")};
    MenuHand hand;
    for (CTimelineTrackBase* const track :
         scene.fixture.Container()->findChildren<CTimelineTrackBase*>()) {
        if (track->GetTrackType() == TL_TRACK_TICK || track->GetTrackType() == TL_TRACK_HSCROLL)
            QVERIFY(!RightClickAt(track, 20));
    }
    QCOMPARE(scene.Calls(), QStringList());
    QCOMPARE(hand.opened, 0);
}

void tst_TrackMenuPress::noMenuOpensWithoutAnythingToChoose_data()
{
    QTest::addColumn<int>("entries");
    QTest::newRow("no entries at all") << 0;
    QTest::newRow("only separators") << 1;
    QTest::newRow("only null entries") << 2;
}

void tst_TrackMenuPress::noMenuOpensWithoutAnythingToChoose()
{
    QFETCH(int, entries);
    MenuScene scene;
    if (entries == 1)
        scene.menu.top = {scene.menu.Separator(), scene.menu.Separator()};
    else if (entries == 2)
        scene.menu.top = {nullptr, nullptr};
    MenuHand hand;
    QVERIFY(RightClickAt(scene.arm, 60));
    QCOMPARE(hand.opened, 0);
    QCOMPARE(scene.Calls(), (QStringList{"cleared", "active Body Arm", "frame 60 false",
                                         "frame 60 true", "menu Arm"}));
}

void tst_TrackMenuPress::aNegativeAnswerMeansNoMenu()
{
    ResetAxis(100, 5.0);
    CTimelineTrackKey row;
    AnsweringOwner owner;
    owner.entry.text = "Only";
    row.Init(nullptr);
    row.MarkAsOwnTrack();
    row.SetOwner(&owner);
    MenuHand hand;
    for (const int answer : {-1, 0, 1}) {
        hand.opened = 0;
        owner.answer = answer;
        row.BuildContextMenu(QPoint(5, 5));
        QCOMPARE(hand.opened, answer < 0 ? 0 : 1);
    }
}

void tst_TrackMenuPress::withoutAnOwnerNothingHappens()
{
    ResetAxis(100, 5.0, 0, 3);
    CTimelineTrackKey row;
    row.Init(nullptr);
    MenuHand hand;
    row.BuildContextMenu(QPoint(50, 5));
    QCOMPARE(hand.opened, 0);
    QCOMPARE(CurrentFrame(), 3);
}

QTEST_MAIN(tst_TrackMenuPress)
#include "tst_TrackMenuPress.moc"
