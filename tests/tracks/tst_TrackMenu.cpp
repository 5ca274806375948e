#include "CTimelineKey.h"
#include "TimelineBoundaryRecords.h"
#include "container/CTimelineContainer.h"
#include "container/TestTracks.h"
#include "library/TimelineLibrary.h"
#include "skin/SkinFiles.h"
#include "support/HostFixture.h"
#include "support/Pointer.h"
#include "support/TimelineFixture.h"
#include "tracks/CTimelineTrackKey.h"
#include "tracks/ClipBuilder.h"
#include "tracks/HostDeeds.h"
#include "tracks/MenuHand.h"
#include "tracks/RowFixture.h"

#include <QContextMenuEvent>
#include <QShortcut>
#include <QtTest>

#include <deque>
#include <memory>
#include <utility>

using namespace KestovaTest;

namespace {

using Entry = _tmpTLMenuMapData;
using Entries = std::vector<Entry*>;

/// The host's side of a menu: entries that it owns and may free at any time.
class HostMenu
{
public:
    Entries top;

    /// Makes an entry that stands nowhere yet.
    Entry* Make(int command, const QString& text = QString(), Entries children = {})
    {
        m_entries.push_back(std::make_unique<Entry>());
        Entry* const entry = m_entries.back().get();
        entry->command = command;
        entry->text = text;
        entry->children = std::move(children);
        return entry;
    }
    Entry* Disabled(int command, const QString& text = QString())
    {
        Entry* const entry = Make(command, text);
        entry->enabled = false;
        return entry;
    }
    Entry* Separator() { return Make(-1); }
    void Free() { m_entries.clear(); }

private:
    std::deque<std::unique_ptr<Entry>> m_entries;
};

QStringList TextsOf(const QMenu& menu)
{
    QStringList texts;
    for (const QAction* action : menu.actions())
        texts << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return texts;
}

QAction* ActionOf(const QMenu& menu, const QString& text)
{
    for (QAction* action : menu.actions()) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

QMenu* SubmenuOf(const QMenu& menu, const QString& title)
{
    const QAction* const action = ActionOf(menu, title);
    return action ? action->menu() : nullptr;
}

/// A timeline of a root with two rows of keys that can be edited; the host fills in its menu
/// whenever it is asked.
class Scene
{
public:
    HostFixture fixture;
    HostMenu menu;
    CTimelineTrackBase* body;
    CTimelineTrackBase* arm;
    CTimelineTrackBase* leg;
    std::function<void(const QString& line)> alsoReact;

    Scene()
        : body(fixture.Root(TL_TRACK_CLIP, "Body")), arm(fixture.Child(body, TL_TRACK_KEY, "Arm")),
          leg(fixture.Child(body, TL_TRACK_KEY, "Leg"))
    {
        for (CTimelineTrackBase* const track : {arm, leg})
            fixture.SetEditModes(track, {TL_EDIT_MOVE_KEYS, TL_EDIT_COPY});
        fixture.AddKeys(arm, {20, 40});
        fixture.AddKeys(leg, {30});
        fixture.Settle();
        fixture.ForgetCalls();
        fixture.host.reaction = [this](const QString& line) {
            if (line.startsWith(QLatin1String("menu ")))
                *fixture.host.menuList = menu.top;
            if (alsoReact)
                alsoReact(line);
        };
    }

    /// Makes the row the active one and forgets what that told the host.
    void Activate(CTimelineTrackBase* track)
    {
        fixture.manager->SetActiveChildTrack(track);
        fixture.ForgetCalls();
    }

    QStringList Calls() { return fixture.host.TakeCalls(); }
};

/// Inside the cell of @p frame, in the middle of the row, where a key's glyph is.
QPoint PointAt(const CTimelineTrackBase* track, int frame)
{
    return {track->FrameToPixel(frame) + 2, track->height() / 2};
}

/// @return whether the row took the event.
bool RightClick(CTimelineTrackBase* track, QPoint point)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, point, track->mapToGlobal(point));
    event.ignore();
    QApplication::sendEvent(track, &event);
    return event.isAccepted();
}

bool RightClickAt(CTimelineTrackBase* track, int frame)
{
    return RightClick(track, PointAt(track, frame));
}

/// Makes @p text the skin from now on, until the next test.
void UseSkin(const QByteArray& text)
{
    static const SkinDirectory files;
    static int number = 0;
    TimelineLibrary::Instance().skinPath =
        files.Write(QStringLiteral("menu%1.ini").arg(++number), text);
}

int CurrentFrame()
{
    return TimelineLibrary::Instance().axis.currentFrame;
}

/// A row of clips whose sub-keys are edited: one clip from 10 to 40 with sub-keys at 15 and 25 (5
/// and 15 inside it), one from 60 to 90 with a sub-key at 70.
class SubKeyScene : public Scene
{
public:
    CTimelineTrackBase* mouth;
    VZ::CPointer<CTimelineKey> first;
    VZ::CPointer<CTimelineKey> second;

    SubKeyScene()
        : mouth(fixture.Child(body, TL_TRACK_CLIP, "Mouth")), first(ClipWith(10, {5, 15})),
          second(ClipWith(60, {10}))
    {
        fixture.SetEditModes(mouth, {TL_EDIT_MOVE_KEYS, TL_EDIT_SUB_KEYS});
        mouth->Keys().Add(first, false);
        mouth->Keys().Add(second, false);
        fixture.manager->InvalidateTimeline();
        fixture.Settle();
        Activate(mouth);
    }

    /// The point where the row itself finds the sub-key of the clip.
    QPoint PointOfSubKey(int clip, int subKey) const
    {
        const int frame = mouth->Keys().GetAt(clip)->frame;
        const int subFrame = mouth->Keys().GetAt(clip)->subKeys->GetAt(subKey)->frame;
        return PointAt(mouth, frame + subFrame);
    }

private:
    static VZ::CPointer<CTimelineKey> ClipWith(int frame, std::initializer_list<int> subFrames)
    {
        VZ::CPointer<CTimelineKey> clip = MakeClip(frame, 30);
        clip->subKeys = new CTimelineKeyArray;
        for (const int subFrame : subFrames)
            clip->subKeys->Add(NewKey(subFrame), false);
        return clip;
    }
};

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
    Entry entry;

    int OnTrackMessage(int code, CTimelineTrackBase* track, int number, QVariant value1,
                       QVariant value2, QVariant value3) override
    {
        OwnerSpy::OnTrackMessage(code, track, number, value1, value2, value3);
        if (code != 1116)
            return 0;
        static_cast<Entries*>(value1.value<void*>())->push_back(&entry);
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

/// The right button on a row: what it does to selection and current frame, the menu that the host
/// fills, and what is reported of it. The menus are real ones, driven by mouse and keyboard.
class tst_TrackMenu : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    // The press
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
    void aSubKeyWithSubKeysOfItsOwnKeepsTheFrameUnderThePointer();
    void aClipHitBesideItsSubKeysIsSelectedAlone();
    void aClickBesideAllClipsKeepsTheSelectionOfSubKeys();
    void aClipWithoutSubKeysIsSelectedOnARowOfSubKeysToo();
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

    // The menu
    void showsThreeLevelsInTheHostsOrder();
    void everyActionHasTextStateAndNumber_data();
    void everyActionHasTextStateAndNumber();
    void standardCommandsHaveTheirShortcuts_data();
    void standardCommandsHaveTheirShortcuts();
    void onlyTheTopLevelHasShortcuts();
    void theLastEntrySpeaksForItsSubmenu_data();
    void theLastEntrySpeaksForItsSubmenu();
    void aThirdLevelSubmenuStaysEnabled();
    void nullEntriesArePassedOver();
    void theTextsSizeComesFromTheSkin();
    void withoutTheSkinsSectionTheMenuLooksLikeAnyOther();
    void theStyleSheetComesFromTheHost();

    // The choice
    void theChosenEntryIsReportedByItsOwnCommand_data();
    void theChosenEntryIsReportedByItsOwnCommand();
    void longListsKeepTheirCommandsApart();
    void aChoiceByMouse();
    void aDisabledEntryCannotBeChosen();
    void closingTheMenuReportsNothing();
    void nothingOfTheMenuIsLeftWhenTheChoiceIsReported();
    void aMenuMayOpenOverAnother();

    // The host
    void theHostMayFreeItsEntriesWhileTheMenuIsOpen();
    void theHostMayReplaceTheKeysInAnyCallback_data();
    void theHostMayReplaceTheKeysInAnyCallback();
    void theHostMayReplaceClipsAndSubKeysInAnyCallback_data();
    void theHostMayReplaceClipsAndSubKeysInAnyCallback();
    void nothingFollowsFromAHostThat_data();
    void nothingFollowsFromAHostThat();
    void aTrackHiddenWhileTheMenuIsOpenReportsNothing();
};

void tst_TrackMenu::initTestCase()
{
    QVERIFY(PrepareTimeline());
    Q_CLEANUP_RESOURCE(contextmenu); // until a test plays the host
}

void tst_TrackMenu::init()
{
    QVERIFY(PrepareTimeline());
}

// ---- The press ----

void tst_TrackMenu::aRightClickOnAKeySelectsItOpensTheMenuAndReportsTheChoice()
{
    Scene scene;
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

void tst_TrackMenu::theRightButtonItselfOpensTheMenu()
{
    Scene scene;
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

void tst_TrackMenu::aSelectedKeyKeepsTheWholeSelection()
{
    Scene scene;
    scene.Activate(scene.arm);
    scene.arm->Keys().SetSelectionByIndex(0, 1, true, 0);
    QVERIFY(RightClickAt(scene.arm, 40));
    QCOMPARE(scene.Calls(),
             (QStringList{"same Body Arm", "frame 40 false", "frame 40 true", "menu Arm"}));
    QCOMPARE(scene.arm->Keys().SelectedIndexes(), (std::vector<int>{0, 1}));
}

void tst_TrackMenu::aClickBesideTheKeysKeepsTheSelection()
{
    Scene scene;
    scene.Activate(scene.arm);
    scene.arm->Keys().SetSelectionByIndex(0, 1, true, 0);
    QVERIFY(RightClickAt(scene.arm, 60));
    QCOMPARE(scene.Calls(),
             (QStringList{"same Body Arm", "frame 60 false", "frame 60 true", "menu Arm"}));
    QCOMPARE(scene.arm->Keys().SelectedIndexes(), (std::vector<int>{0, 1}));
}

void tst_TrackMenu::aKeyWithSubKeysKeepsTheFrameUnderThePointer()
{
    Scene scene;
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

void tst_TrackMenu::theKeysOwnFrameBecomesCurrentAndNoOther()
{
    Scene scene;
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

void tst_TrackMenu::aLockedKeyIsNotHit()
{
    Scene scene;
    scene.Activate(scene.arm);
    scene.arm->Keys().GetAt(0)->lockState = TL_KEY_LOCKED;
    scene.arm->InvalidateCaches();
    QVERIFY(RightClickAt(scene.arm, 20));
    QCOMPARE(scene.Calls(),
             (QStringList{"same Body Arm", "frame 20 false", "frame 20 true", "menu Arm"}));
    QVERIFY(!scene.arm->Keys().GetAt(0)->selected);
}

void tst_TrackMenu::aClickBeyondTheLastFrameIsBroughtBackAndToldAtOnce()
{
    Scene scene;
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

void tst_TrackMenu::aKeyBeyondTheLastFrameDoesNotTakeTheCurrentFrameThere()
{
    Scene scene;
    ResetAxis(50, 5.0);
    scene.arm->Keys().GetAt(1)->frame = 60;
    scene.arm->InvalidateCaches();
    QVERIFY(RightClickAt(scene.arm, 60));
    QVERIFY(scene.arm->Keys().GetAt(1)->selected);
    QCOMPARE(CurrentFrame(), 49);
}

void tst_TrackMenu::withoutFramesTheCurrentFrameIsZero()
{
    Scene scene;
    ResetAxis(0, 5.0);
    QVERIFY(RightClick(scene.arm, QPoint(100, 5)));
    QCOMPARE(CurrentFrame(), 0);
}

void tst_TrackMenu::aSubKeyThatIsHitIsSelectedInItsClipAlone()
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

void tst_TrackMenu::aSelectedSubKeyKeepsTheOthersSelected()
{
    SubKeyScene scene;
    scene.mouth->Keys().SetSelectionByIndex(0, 0, true, 0);
    scene.first->subKeys->SetSelectionByIndex(0, 1, true, 0);
    QVERIFY(RightClick(scene.mouth, scene.PointOfSubKey(0, 1)));
    QCOMPARE(scene.Calls(), (QStringList{"same Body Mouth", "cleared", "changed", "frame 25 false",
                                         "frame 25 true", "menu Mouth"}));
    QCOMPARE(scene.first->subKeys->SelectedIndexes(), (std::vector<int>{0, 1}));
}

void tst_TrackMenu::aSubKeyWithSubKeysOfItsOwnKeepsTheFrameUnderThePointer()
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

void tst_TrackMenu::aClipHitBesideItsSubKeysIsSelectedAlone()
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

void tst_TrackMenu::aClickBesideAllClipsKeepsTheSelectionOfSubKeys()
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

void tst_TrackMenu::aClipWithoutSubKeysIsSelectedOnARowOfSubKeysToo()
{
    SubKeyScene scene;
    scene.first->subKeys = nullptr;
    scene.mouth->InvalidateCaches();
    QVERIFY(RightClickAt(scene.mouth, 35));
    QCOMPARE(scene.Calls(), (QStringList{"same Body Mouth", "cleared", "changed", "frame 35 false",
                                         "frame 35 true", "menu Mouth"}));
    QVERIFY(scene.first->selected);
}

void tst_TrackMenu::aGestureUnderWayEndsBeforeTheMenu()
{
    RowWithGesture row;
    row.BuildContextMenu(row.mapToGlobal(QPoint(5, 5)));
    QCOMPARE(CodesOf(row.spy), (std::vector<int>{0, 1108, 1104, 1105, 1116}));
    // And with none under way there is nothing to end.
    row.spy.messages.clear();
    row.BuildContextMenu(row.mapToGlobal(QPoint(5, 5)));
    QCOMPARE(CodesOf(row.spy), (std::vector<int>{1108, 1104, 1105, 1116}));
}

void tst_TrackMenu::theTracksMessagesInTheirOrder()
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

void tst_TrackMenu::aRowOfFewerThanTwoEditModesOpensNoMenu_data()
{
    QTest::addColumn<int>("modes");
    QTest::newRow("none") << 0;
    QTest::newRow("one") << 1;
}

void tst_TrackMenu::aRowOfFewerThanTwoEditModesOpensNoMenu()
{
    QFETCH(int, modes);
    Scene scene;
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

void tst_TrackMenu::aWaveRowOpensNoMenu()
{
    Scene scene;
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

void tst_TrackMenu::theRulerAndTheScrollBarOpenNoMenu()
{
    Scene scene;
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

void tst_TrackMenu::noMenuOpensWithoutAnythingToChoose_data()
{
    QTest::addColumn<int>("entries");
    QTest::newRow("no entries at all") << 0;
    QTest::newRow("only separators") << 1;
    QTest::newRow("only null entries") << 2;
}

void tst_TrackMenu::noMenuOpensWithoutAnythingToChoose()
{
    QFETCH(int, entries);
    Scene scene;
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

void tst_TrackMenu::aNegativeAnswerMeansNoMenu()
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

void tst_TrackMenu::withoutAnOwnerNothingHappens()
{
    ResetAxis(100, 5.0, 0, 3);
    CTimelineTrackKey row;
    row.Init(nullptr);
    MenuHand hand;
    row.BuildContextMenu(QPoint(50, 5));
    QCOMPARE(hand.opened, 0);
    QCOMPARE(CurrentFrame(), 3);
}

// ---- The menu ----

void tst_TrackMenu::showsThreeLevelsInTheHostsOrder()
{
    Scene scene;
    HostMenu& m = scene.menu;
    Entry* const deep = m.Make(33, "Deep", {m.Make(44, "Deeper")});
    Entry* const third = m.Make(-1, "Third", {m.Make(31, "One"), m.Separator(), deep});
    m.top = {m.Make(1, "First"), m.Separator(),
             m.Make(2, "Second", {m.Make(21, "A"), m.Separator(), third, m.Make(22, "B")}),
             m.Make(3, "Last")};
    QStringList top;
    QStringList second;
    QStringList thirdTexts;
    bool hasFourth = true;
    MenuHand hand([&](QMenu& menu) {
        top = TextsOf(menu);
        const QMenu* const submenu = SubmenuOf(menu, "Second");
        second = TextsOf(*submenu);
        const QMenu* const subsubmenu = SubmenuOf(*submenu, "Third");
        thirdTexts = TextsOf(*subsubmenu);
        hasFourth = SubmenuOf(*subsubmenu, "Deep") != nullptr;
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(top, (QStringList{"First", "-", "Second", "Last"}));
    QCOMPARE(second, (QStringList{"A", "-", "Third", "B"}));
    QCOMPARE(thirdTexts, (QStringList{"One", "-", "Deep"}));
    QVERIFY(!hasFourth);
}

void tst_TrackMenu::everyActionHasTextStateAndNumber_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("checked");
    QTest::newRow("enabled") << true << false;
    QTest::newRow("enabled and checked") << true << true;
    QTest::newRow("disabled") << false << false;
    QTest::newRow("disabled and checked") << false << true;
}

void tst_TrackMenu::everyActionHasTextStateAndNumber()
{
    QFETCH(bool, enabled);
    QFETCH(bool, checked);
    Scene scene;
    HostMenu& m = scene.menu;
    Entry* const third = m.Make(5, "Third");
    Entry* const second = m.Make(5, "Second");
    Entry* const top = m.Make(5, "Top");
    m.top = {
        m.Separator(),
        m.Make(1, "Menu",
               {m.Make(2), second, m.Make(3, "Submenu", {m.Make(4), m.Make(4), third}), m.Make(9)}),
        top};
    for (Entry* const entry : {top, second, third}) {
        entry->enabled = enabled;
        entry->checked = checked;
    }
    QStringList found;
    MenuHand hand([&](QMenu& menu) {
        const QMenu* const submenu = SubmenuOf(menu, "Menu");
        const QMenu* const subsubmenu = SubmenuOf(*submenu, "Submenu");
        for (const QAction* const action : {ActionOf(menu, "Top"), ActionOf(*submenu, "Second"),
                                            ActionOf(*subsubmenu, "Third")}) {
            found << QStringLiteral("%1 %2 %3 %4")
                         .arg(action->text())
                         .arg(action->isEnabled())
                         .arg(action->isChecked())
                         .arg(action->data().toInt());
        }
    });
    RightClickAt(scene.arm, 60);
    const QString state = QStringLiteral(" %1 %2 ").arg(enabled).arg(checked);
    QCOMPARE(found, (QStringList{"Top" + state + "30000", "Second" + state + "20200",
                                 "Third" + state + "20303"}));
}

void tst_TrackMenu::standardCommandsHaveTheirShortcuts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QKeySequence>("keys");
    QTest::newRow("Copy") << "Copy" << QKeySequence(QKeySequence::Copy);
    QTest::newRow("Cut") << "Cut" << QKeySequence(QKeySequence::Cut);
    QTest::newRow("Delete") << "Delete" << QKeySequence(QKeySequence::Delete);
    QTest::newRow("Paste") << "Paste" << QKeySequence(QKeySequence::Paste);
    QTest::newRow("Break") << "Break" << QKeySequence("Ctrl+B");
    QTest::newRow("another spelling") << "copy" << QKeySequence();
    QTest::newRow("a longer text") << "Copy all" << QKeySequence();
    QTest::newRow("another command") << "Insert" << QKeySequence();
}

void tst_TrackMenu::standardCommandsHaveTheirShortcuts()
{
    QFETCH(QString, text);
    QFETCH(QKeySequence, keys);
    Scene scene;
    scene.menu.top = {scene.menu.Make(1, text)};
    QKeySequence shortcut("F12");
    Qt::ShortcutContext context = Qt::WidgetShortcut;
    MenuHand hand([&](QMenu& menu) {
        shortcut = menu.actions().first()->shortcut();
        context = menu.actions().first()->shortcutContext();
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(shortcut, keys);
    QCOMPARE(context, keys.isEmpty() ? Qt::WindowShortcut : Qt::ApplicationShortcut);
}

void tst_TrackMenu::onlyTheTopLevelHasShortcuts()
{
    Scene scene;
    HostMenu& m = scene.menu;
    m.top = {m.Make(1, "Edit", {m.Make(2, "Copy"), m.Make(3, "More", {m.Make(4, "Cut")})}),
             // Copy as the title of a submenu is no command.
             m.Make(5, "Copy", {m.Make(6, "All")})};
    QList<QKeySequence> shortcuts;
    MenuHand hand([&](QMenu& menu) {
        const QMenu* const edit = SubmenuOf(menu, "Edit");
        for (const QAction* const action :
             {ActionOf(*edit, "Copy"), ActionOf(*SubmenuOf(*edit, "More"), "Cut"),
              ActionOf(menu, "Copy")})
            shortcuts << action->shortcut();
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(shortcuts, (QList<QKeySequence>{{}, {}, {}}));
}

void tst_TrackMenu::theLastEntrySpeaksForItsSubmenu_data()
{
    QTest::addColumn<QString>("entries"); // e enabled, d disabled, - separator, s submenu, 0 null
    QTest::addColumn<bool>("enabled");
    QTest::newRow("a disabled one alone") << "d" << false;
    QTest::newRow("a disabled one after enabled ones") << "eed" << false;
    QTest::newRow("an enabled one after disabled ones") << "dde" << true;
    QTest::newRow("a separator after a disabled one") << "d-" << true;
    QTest::newRow("a submenu after a disabled one") << "ds" << true;
    QTest::newRow("a disabled one after a submenu") << "sd" << false;
    QTest::newRow("nothing after a disabled one") << "d0" << false;
    QTest::newRow("all enabled") << "ee" << true;
}

void tst_TrackMenu::theLastEntrySpeaksForItsSubmenu()
{
    QFETCH(QString, entries);
    QFETCH(bool, enabled);
    Scene scene;
    HostMenu& m = scene.menu;
    Entries children;
    for (const QChar each : entries) {
        children.push_back(each == 'e'   ? m.Make(1, "On")
                           : each == 'd' ? m.Disabled(2, "Off")
                           : each == 's' ? m.Make(3, "More", {m.Make(4, "On")})
                           : each == '-' ? m.Separator()
                                         : nullptr);
    }
    m.top = {m.Make(5, "Menu", children), m.Disabled(6, "Off")};
    bool isEnabled = !enabled;
    bool canBeOpened = !enabled;
    MenuHand hand([&](QMenu& menu) {
        isEnabled = SubmenuOf(menu, "Menu")->isEnabled();
        canBeOpened = ActionOf(menu, "Menu")->isEnabled();
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(hand.opened, 1);
    QCOMPARE(isEnabled, enabled);
    QCOMPARE(canBeOpened, enabled);
}

void tst_TrackMenu::aThirdLevelSubmenuStaysEnabled()
{
    Scene scene;
    HostMenu& m = scene.menu;
    m.top = {m.Make(1, "Menu", {m.Make(2, "More", {m.Disabled(3, "Off")})})};
    bool second = false;
    bool third = false;
    MenuHand hand([&](QMenu& menu) {
        second = SubmenuOf(menu, "Menu")->isEnabled();
        third = SubmenuOf(*SubmenuOf(menu, "Menu"), "More")->isEnabled();
    });
    RightClickAt(scene.arm, 60);
    QVERIFY(second);
    QVERIFY(third);
}

void tst_TrackMenu::nullEntriesArePassedOver()
{
    Scene scene;
    HostMenu& m = scene.menu;
    m.top = {nullptr, m.Make(1, "One"), nullptr,
             m.Make(2, "Menu", {nullptr, m.Make(3, "More", {nullptr, m.Make(4, "Two")})})};
    QStringList found;
    MenuHand hand([&](QMenu& menu) {
        const QMenu* const submenu = SubmenuOf(menu, "Menu");
        found = TextsOf(menu) + TextsOf(*submenu) + TextsOf(*SubmenuOf(*submenu, "More"));
        // Their places are left out of the numbers all the same.
        found << ActionOf(menu, "One")->data().toString();
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(found, (QStringList{"One", "Menu", "More", "Two", "20000"}));
}

void tst_TrackMenu::theTextsSizeComesFromTheSkin()
{
    Scene scene;
    HostMenu& m = scene.menu;
    m.top = {m.Make(1, "Menu", {m.Make(2, "More", {m.Make(3, "Two")})})};
    UseSkin("[TrackRightMenu]\nTxtFace = \"Nowhere Sans\"\nTxtSize = 23\n");
    const QFont plain = QMenu().font();
    QList<QFont> fonts;
    QString styleSheet("none");
    MenuHand hand([&](QMenu& menu) {
        const QMenu* const submenu = SubmenuOf(menu, "Menu");
        fonts = {menu.font(), submenu->font(), SubmenuOf(*submenu, "More")->font()};
        styleSheet = menu.styleSheet();
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(fonts.size(), 3);
    for (const QFont& font : qAsConst(fonts)) {
        QCOMPARE(font.pointSize(), 23);
        QCOMPARE(font.family(), plain.family());
    }
    // Without a style sheet from the host there is none, yet the size holds.
    QCOMPARE(styleSheet, QString());
}

void tst_TrackMenu::withoutTheSkinsSectionTheMenuLooksLikeAnyOther()
{
    Scene scene;
    HostMenu& m = scene.menu;
    m.top = {m.Make(1, "Menu", {m.Make(2, "One")})};
    Q_INIT_RESOURCE(contextmenu);
    QList<QFont> fonts;
    QString styleSheet("none");
    for (const char* const skin :
         {"[Other]\nTxtFace = \"Sans\"\nTxtSize = 23\n", "[TrackRightMenu]\nTxtSize = 23\n",
          "[TrackRightMenu]\nTxtFace = \"Sans\"\n"}) {
        UseSkin(skin);
        const QFont plain = QMenu().font();
        MenuHand hand([&](QMenu& menu) {
            fonts = {menu.font(), SubmenuOf(menu, "Menu")->font()};
            styleSheet = menu.styleSheet();
        });
        RightClickAt(scene.arm, 60);
        QCOMPARE(fonts, (QList<QFont>{plain, plain}));
        QCOMPARE(styleSheet, QString());
    }
    Q_CLEANUP_RESOURCE(contextmenu);
}

void tst_TrackMenu::theStyleSheetComesFromTheHost()
{
    Scene scene;
    HostMenu& m = scene.menu;
    m.top = {m.Make(1, "Menu", {m.Make(2, "One")})};
    UseSkin("[TrackRightMenu]\nTxtFace = \"Sans\"\nTxtSize = 23\n");
    Q_INIT_RESOURCE(contextmenu);
    QString styleSheet;
    int points = 0;
    QList<QColor> colours;
    MenuHand hand([&](QMenu& menu) {
        QMenu* const submenu = SubmenuOf(menu, "Menu");
        styleSheet = menu.styleSheet();
        points = submenu->font().pointSize();
        for (QMenu* const each : {&menu, submenu}) {
            each->ensurePolished();
            colours << each->palette().color(QPalette::WindowText);
        }
    });
    RightClickAt(scene.arm, 60);
    Q_CLEANUP_RESOURCE(contextmenu);
    QCOMPARE(styleSheet, QString("QMenu { color: #dee3e9; }\n"));
    QCOMPARE(points, 23);
    QCOMPARE(colours, (QList<QColor>{QColor("#dee3e9"), QColor("#dee3e9")}));
}

// ---- The choice ----

void tst_TrackMenu::theChosenEntryIsReportedByItsOwnCommand_data()
{
    QTest::addColumn<QString>("keys"); // d down, r right into a submenu
    QTest::addColumn<int>("command");
    QTest::newRow("the first") << "d" << 500;
    QTest::newRow("after a separator") << "dd" << 0;
    QTest::newRow("of the same command") << "ddd" << 500;
    QTest::newRow("in a submenu") << "ddddrd" << 17;
    QTest::newRow("in a submenu's submenu") << "ddddrddr" << 2147483647;
    QTest::newRow("in a submenu's submenu, the second") << "ddddrddrd" << 3;
}

void tst_TrackMenu::theChosenEntryIsReportedByItsOwnCommand()
{
    QFETCH(QString, keys);
    QFETCH(int, command);
    Scene scene;
    HostMenu& m = scene.menu;
    Entry* const more = m.Make(9, "More", {m.Make(2147483647, "X"), m.Make(3, "Y")});
    m.top = {m.Make(500, "A"), m.Separator(), m.Make(0, "B"), m.Make(500, "C"),
             m.Make(8, "Menu", {m.Make(16, "P"), m.Make(17, "Q"), more})};
    MenuHand hand([&](QMenu&) {
        QWindow* const window = scene.fixture.mainWindow.windowHandle();
        for (const QChar key : qAsConst(keys))
            QTest::keyClick(window, key == 'd' ? Qt::Key_Down : Qt::Key_Right);
        QTest::keyClick(window, Qt::Key_Return);
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(scene.fixture.host.calls.last(), QStringLiteral("chosen Arm %1").arg(command));
}

void tst_TrackMenu::longListsKeepTheirCommandsApart()
{
    // The hundredth entry of a submenu has the number of the next entry above it.
    Scene scene;
    HostMenu& m = scene.menu;
    Entries children;
    for (int i = 0; i < 100; ++i)
        children.push_back(m.Make(1000 + i, QString::number(i)));
    m.top = {m.Make(1, "Menu", children), m.Make(2, "Next")};
    MenuHand hand([](QMenu& menu) {
        QMenu* const submenu = SubmenuOf(menu, "Menu");
        QCOMPARE(ActionOf(*submenu, "99")->data(), ActionOf(menu, "Next")->data());
        menu.setActiveAction(ActionOf(menu, "Menu"));
        submenu->setActiveAction(ActionOf(*submenu, "99"));
        QTest::keyClick(submenu, Qt::Key_Return);
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(scene.fixture.host.calls.last(), QString("chosen Arm 1099"));
}

void tst_TrackMenu::aChoiceByMouse()
{
    Scene scene;
    scene.menu.top = {scene.menu.Make(1, "One"), scene.menu.Make(2, "Two")};
    MenuHand hand([](QMenu& menu) {
        const QPoint middle = menu.actionGeometry(ActionOf(menu, "Two")).center();
        Pointer pointer(&menu);
        pointer.MoveTo(&menu, middle - QPoint(3, 0));
        pointer.Click(&menu, middle);
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(scene.Calls(), (QStringList{"cleared", "active Body Arm", "frame 60 false",
                                         "frame 60 true", "menu Arm", "chosen Arm 2"}));
}

void tst_TrackMenu::aDisabledEntryCannotBeChosen()
{
    Scene scene;
    scene.menu.top = {scene.menu.Disabled(1, "One")};
    MenuHand hand([](QMenu& menu) {
        Pointer(&menu).Click(&menu, menu.actionGeometry(menu.actions().first()).center());
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(hand.opened, 1);
    QCOMPARE(scene.fixture.host.calls.last(), QString("menu Arm"));
}

void tst_TrackMenu::closingTheMenuReportsNothing()
{
    Scene scene;
    scene.menu.top = {scene.menu.Make(1, "One")};
    MenuHand hand([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_Escape); });
    RightClickAt(scene.arm, 60);
    QCOMPARE(hand.opened, 1);
    QCOMPARE(scene.Calls(), (QStringList{"cleared", "active Body Arm", "frame 60 false",
                                         "frame 60 true", "menu Arm"}));
}

void tst_TrackMenu::nothingOfTheMenuIsLeftWhenTheChoiceIsReported()
{
    Scene scene;
    scene.menu.top = {scene.menu.Make(1, "Copy"), scene.menu.Make(2, "Menu", {scene.menu.Make(3)})};
    // The host's own command by the same keys.
    QShortcut own(QKeySequence::Copy, &scene.fixture.mainWindow);
    own.setContext(Qt::ApplicationShortcut);
    int copies = 0;
    connect(&own, &QShortcut::activated, this, [&] { ++copies; });
    QList<QPointer<QObject>> parts;
    MenuHand hand([&](QMenu& menu) {
        parts << &menu;
        for (QObject* const each : menu.findChildren<QObject*>())
            parts << each;
        menu.setActiveAction(menu.actions().first());
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    int left = -1;
    scene.alsoReact = [&](const QString& line) {
        if (line.startsWith("chosen"))
            left = int(std::count_if(parts.begin(), parts.end(),
                                     [](const auto& each) { return !each.isNull(); }));
    };
    RightClickAt(scene.arm, 60);
    QVERIFY(parts.size() > 4);
    QCOMPARE(left, 0);
    // No window manager gives the window back what the menu took from it.
    scene.fixture.mainWindow.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&scene.fixture.mainWindow));
    QTest::keyClick(scene.fixture.mainWindow.windowHandle(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(copies, 1);
}

void tst_TrackMenu::aMenuMayOpenOverAnother()
{
    Scene scene;
    scene.menu.top = {scene.menu.Make(1, "One")};
    MenuHand hand([&](QMenu&) { RightClickAt(scene.leg, 60); });
    RightClickAt(scene.arm, 60);
    QCOMPARE(hand.opened, 2);
    QCOMPARE(scene.Calls(),
             (QStringList{"cleared", "active Body Arm", "frame 60 false", "frame 60 true",
                          "menu Arm", "active Body Leg", "menu Leg"}));
}

// ---- The host ----

void tst_TrackMenu::theHostMayFreeItsEntriesWhileTheMenuIsOpen()
{
    Scene scene;
    HostMenu& m = scene.menu;
    m.top = {m.Make(1, "One"), m.Make(2, "Menu", {m.Make(3, "Two")})};
    MenuHand hand([&](QMenu&) {
        scene.fixture.host.menuList->clear();
        m.Free();
        QWindow* const window = scene.fixture.mainWindow.windowHandle();
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Return})
            QTest::keyClick(window, key);
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(scene.fixture.host.calls.last(), QString("chosen Arm 3"));
}

void tst_TrackMenu::theHostMayReplaceTheKeysInAnyCallback_data()
{
    QTest::addColumn<int>("call");
    QTest::addColumn<int>("frame"); // that is current in the end
    QTest::newRow("active") << 0 << 20;
    QTest::newRow("cleared") << 1 << 20;
    QTest::newRow("changed") << 2 << 20;
    QTest::newRow("frame false") << 3 << 20;
    QTest::newRow("frame true") << 4 << 20;
    QTest::newRow("menu") << 5 << 20;
}

void tst_TrackMenu::theHostMayReplaceTheKeysInAnyCallback()
{
    QFETCH(int, call);
    QFETCH(int, frame);
    Scene scene;
    scene.menu.top = {scene.menu.Make(7, "Insert")};
    scene.Activate(scene.arm);
    int count = 0;
    scene.alsoReact = [&](const QString&) {
        if (count++ != call)
            return;
        scene.arm->Keys().RemoveAll();
        scene.fixture.AddKeys(scene.arm, {70});
    };
    MenuHand hand;
    RightClickAt(scene.arm, 20);
    scene.alsoReact = nullptr;
    QCOMPARE(hand.opened, 1);
    // What is new was never pressed.
    QVERIFY(!scene.arm->Keys().GetAt(0)->selected);
    QCOMPARE(scene.arm->Keys().SelectedIndexes(), std::vector<int>{});
    QCOMPARE(CurrentFrame(), frame);
    // Replaced in the first call, the press found no key.
    const QStringList press = call == 0 ? QStringList() : QStringList{"cleared", "changed"};
    const QStringList end{"frame 20 false", "frame 20 true", "menu Arm"};
    QCOMPARE(scene.Calls(), QStringList("same Body Arm") + press + end);
}

void tst_TrackMenu::theHostMayReplaceClipsAndSubKeysInAnyCallback_data()
{
    QTest::addColumn<int>("call");
    QTest::addColumn<bool>("clips"); // or the clip's sub-keys alone
    for (const bool clips : {false, true}) {
        const char* const what = clips ? "the clips" : "the sub-keys";
        QTest::addRow("%s in cleared", what) << 1 << clips;
        QTest::addRow("%s in the clip's changed", what) << 2 << clips;
        QTest::addRow("%s in the sub-key's changed", what) << 3 << clips;
    }
}

void tst_TrackMenu::theHostMayReplaceClipsAndSubKeysInAnyCallback()
{
    QFETCH(int, call);
    QFETCH(bool, clips);
    SubKeyScene scene;
    scene.menu.top = {scene.menu.Make(7, "Insert")};
    int count = 0;
    scene.alsoReact = [&](const QString&) {
        if (count++ != call)
            return;
        if (clips) {
            scene.first = nullptr;
            scene.second = nullptr;
            scene.mouth->Keys().RemoveAll();
            scene.mouth->Keys().Add(MakeClip(0, 5), false);
        } else {
            scene.first->subKeys = nullptr;
        }
    };
    MenuHand hand;
    RightClick(scene.mouth, scene.PointOfSubKey(0, 1));
    scene.alsoReact = nullptr;
    QCOMPARE(hand.opened, 1);
    QCOMPARE(scene.fixture.host.calls.last(), QString("menu Mouth"));
    if (clips)
        QVERIFY(!scene.mouth->Keys().GetAt(0)->selected);
}

void tst_TrackMenu::nothingFollowsFromAHostThat_data()
{
    QTest::addColumn<QString>("moment");
    QTest::addColumn<int>("deed");
    for (const char* const moment :
         {"cleared", "active Body Arm", "changed", "frame 20 false", "frame 20 true", "menu Arm",
          "the menu is open", "chosen Arm 7"}) {
        for (int deed = 0; deed < HostDeeds; ++deed)
            QTest::addRow("%s when '%s'", kDeedNames[deed], moment) << moment << deed;
    }
}

void tst_TrackMenu::nothingFollowsFromAHostThat()
{
    QFETCH(QString, moment);
    QFETCH(int, deed);
    Scene scene;
    HostFixture& fixture = scene.fixture;
    scene.menu.top = {scene.menu.Make(7, "Insert")};
    QStringList before;
    const auto act = [&] {
        if (!before.isEmpty())
            return;
        before = fixture.host.calls;
        Do(deed, fixture, {scene.arm, scene.leg, scene.body});
        before = fixture.host.calls;
    };
    scene.alsoReact = [&](const QString& line) {
        if (line == moment)
            act();
    };
    MenuHand hand([&](QMenu& menu) {
        if (moment == "the menu is open")
            act();
        menu.setActiveAction(menu.actions().first());
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    RightClickAt(scene.arm, 20);
    scene.alsoReact = nullptr;
    QVERIFY(!before.isEmpty());
    const QStringList after = fixture.host.calls.mid(before.size());
    QCOMPARE(after.filter("Arm"), QStringList());
    // From the second call on nobody but the row would have said anything.
    if (moment != "cleared")
        QCOMPARE(after, QStringList());
    const bool wasOpen = moment == "the menu is open" || moment == "chosen Arm 7";
    QCOMPARE(hand.opened, wasOpen ? 1 : 0);

    CTimelineTrackBase* const again = RowAfterDeed(fixture);
    QVERIFY(again);
    fixture.host.reaction = [&](const QString& line) {
        if (line == "menu Again")
            *fixture.host.menuList = scene.menu.top;
    };
    MenuHand next;
    QVERIFY(RightClickAt(again, 30));
    QCOMPARE(next.opened, 1);
}

void tst_TrackMenu::aTrackHiddenWhileTheMenuIsOpenReportsNothing()
{
    Scene scene;
    scene.menu.top = {scene.menu.Make(7, "Insert")};
    MenuHand hand([&](QMenu& menu) {
        scene.fixture.manager->HideChildTrack(scene.arm, true);
        menu.setActiveAction(menu.actions().first());
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(scene.fixture.host.calls.last(), QString("menu Arm"));
    QVERIFY(scene.fixture.manager->IsTrackExist(scene.arm));
}

QTEST_MAIN(tst_TrackMenu)
#include "tst_TrackMenu.moc"
