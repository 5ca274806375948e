#include "container/CTimelineContainer.h"
#include "library/TimelineLibrary.h"
#include "support/HostFixture.h"
#include "support/TimelineFixture.h"
#include "tracks/CTimelineTrackBase.h"

#include <QPointer>
#include <QtTest>

using namespace KestovaTest;

namespace {

using Tracks = std::vector<CTimelineTrackBase*>;
using Track = CTimelineTrackBase;

VZ::CPointer<CTimelineKey> KeyAt(int frame)
{
    VZ::CPointer<CTimelineKey> key(new CTimelineKey);
    key->frame = frame;
    return key;
}

} // namespace

/// The manager's operations on tracks: creation, place, state, refusals.
class tst_CTimelineManagerTracks : public QObject
{
    Q_OBJECT

private slots:
    void createTrackMakesTheClassOfItsType_data();
    void createTrackMakesTheClassOfItsType();
    void createTrackRefusesOtherTypes_data();
    void createTrackRefusesOtherTypes();
    void createTrackFailsWhenTheSkinLacksTheStyleAndLeavesNoTrack();
    void aNewTrackIsNotPlaced();

    void deletingARootDetachesItsChildrenAndDeletesNone();
    void deletingAChildRemovesItAlone();
    void deletedTrackExistsNoMore();
    void deleteAllWithAContainerDetachesOnly();
    void deleteAllWithoutAContainerDeletesEveryTrack();
    void aTrackThatQtDestroyedExistsNoMore();

    void hidingIsForwarded_data();
    void hidingIsForwarded();
    void showingTellsTheWindowWhenItIsAskedTo_data();
    void showingTellsTheWindowWhenItIsAskedTo();
    void sortIndexesAreForwarded();
    void visibleRootsAreAppended();
    void activeTracksAreForwardedAndANullRootClears();
    void trackNameIsSetAndLaidOut();
    void timeRangeIsKeptUnorderedAndReadOrdered();
    void editModesAreCopiedAndRepainted();
    void captionButtonStateIsSetThoughTheAnswerIsFalse();
    void switchButtonsAreCopiedBothWaysWithoutARepaint();
    void relationTableIsCopiedBothWays();
    void lipsTrackIsFoundAmongTheChildren();

    void keyArrayStaysTheSameWhileTheTrackExists();
    void clipboardIsFilledWithCopiesInFrameOrder();
    void clipboardKeepsWhatItHasWhenNothingIsSelected();
    void resettingAnEmptyClipboardSucceeds();
    void aResetClipboardMakesPastingImpossible();
    void theClipboardWorksWithoutAWindow();

    void frameStateIsClampedAndStored();
    void currentFrameIsPushedToTheContainerAndTheWindow();
};

void tst_CTimelineManagerTracks::createTrackMakesTheClassOfItsType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("className");
    QTest::newRow("switch") << 3 << QByteArray("CTimelineTrackSwitch");
    QTest::newRow("key") << 4 << QByteArray("CTimelineTrackKey");
    QTest::newRow("transition") << 5 << QByteArray("CTimelineTrackTransKey");
    QTest::newRow("link") << 6 << QByteArray("CTimelineTrackLinkKey");
    QTest::newRow("viseme") << 7 << QByteArray("CTimelineTrackVisemeKey");
    QTest::newRow("clip") << 8 << QByteArray("CTimelineTrackClip");
}

void tst_CTimelineManagerTracks::createTrackMakesTheClassOfItsType()
{
    QFETCH(int, type);
    QFETCH(QByteArray, className);
    HostFixture fixture;
    Track* const track = fixture.manager->CreateTrack(static_cast<TL_TRACK_TYPE>(type), "Name", 1);
    QVERIFY(track);
    QCOMPARE(QByteArray(track->metaObject()->className()), className);
    QCOMPARE(fixture.manager->GetTrackType(track), static_cast<TL_TRACK_TYPE>(type));
    QCOMPARE(track->GetCaption(), QStringLiteral("Name"));
    QCOMPARE(track->GetTrackId(), track);
    QVERIFY(track->GetStyle());
    QVERIFY(fixture.manager->IsTrackExist(track));
    // Shown, though it has no place yet.
    QVERIFY(!track->isHidden());
}

void tst_CTimelineManagerTracks::createTrackRefusesOtherTypes_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {-1, 0, 1, 2, 9, 10, 1000})
        QTest::addRow("%d", type) << type;
}

void tst_CTimelineManagerTracks::createTrackRefusesOtherTypes()
{
    QFETCH(int, type);
    HostFixture fixture;
    QVERIFY(!fixture.manager->CreateTrack(static_cast<TL_TRACK_TYPE>(type), "Name", 1));
}

void tst_CTimelineManagerTracks::createTrackFailsWhenTheSkinLacksTheStyleAndLeavesNoTrack()
{
    HostFixture fixture;
    const int children = fixture.Container()->children().size();
    QVERIFY(!fixture.manager->CreateTrack(TL_TRACK_KEY, "Name", 4711));
    QCOMPARE(fixture.Container()->children().size(), children);
}

void tst_CTimelineManagerTracks::aNewTrackIsNotPlaced()
{
    HostFixture fixture;
    Track* const track = fixture.manager->CreateTrack(TL_TRACK_KEY, "Arm", 1);
    QVERIFY(!track->GetParentTrack());
    QVERIFY(!track->GetOwner());
    QVERIFY(!track->IsAttached());
    QCOMPARE(fixture.manager->GetRootTrackSortIndex(track), -1);
    QCOMPARE(fixture.manager->GetChildTrackSortIndex(track), -1);
    Tracks roots;
    fixture.manager->GetVisibleRootTrackList(roots);
    QVERIFY(roots.empty());
}

void tst_CTimelineManagerTracks::deletingARootDetachesItsChildrenAndDeletesNone()
{
    HostFixture fixture;
    Track* const body = fixture.Root(TL_TRACK_CLIP, "Body");
    Track* const arm = fixture.Child(body, TL_TRACK_KEY, "Arm");
    fixture.ForgetCalls();
    QVERIFY(fixture.manager->DeleteTrack(body));
    QVERIFY(fixture.Window().calls.contains("track list"));
    QVERIFY(!fixture.manager->IsTrackExist(body));
    QVERIFY(fixture.manager->IsTrackExist(arm));
    QVERIFY(!arm->GetParentTrack());
    QVERIFY(fixture.manager->ShowRootTrack(arm, 0, true));
}

void tst_CTimelineManagerTracks::deletingAChildRemovesItAlone()
{
    HostFixture fixture;
    Track* const body = fixture.Root(TL_TRACK_CLIP, "Body");
    Track* const arm = fixture.Child(body, TL_TRACK_KEY, "Arm");
    Track* const leg = fixture.Child(body, TL_TRACK_KEY, "Leg");
    const QPointer<Track> watched(arm);
    QVERIFY(fixture.manager->DeleteTrack(arm));
    QVERIFY(watched.isNull());
    QCOMPARE(fixture.manager->GetChildTrackSortIndex(leg), 0);
    QCOMPARE(fixture.manager->GetRootTrackSortIndex(body), 0);
}

void tst_CTimelineManagerTracks::deletedTrackExistsNoMore()
{
    HostFixture fixture;
    Track* const arm = fixture.Root(TL_TRACK_KEY, "Arm");
    QVERIFY(fixture.manager->DeleteTrack(arm));
    QVERIFY(!fixture.manager->IsTrackExist(arm));
    QVERIFY(!fixture.manager->DeleteTrack(arm));
    QVERIFY(!fixture.manager->GetKeyDataArray(arm));
}

void tst_CTimelineManagerTracks::deleteAllWithAContainerDetachesOnly()
{
    HostFixture fixture;
    Track* const body = fixture.Root(TL_TRACK_CLIP, "Body");
    Track* const arm = fixture.Child(body, TL_TRACK_KEY, "Arm");
    QVERIFY(fixture.manager->DeleteAllTrack());
    QVERIFY(fixture.manager->IsTrackExist(body));
    QVERIFY(fixture.manager->IsTrackExist(arm));
    Tracks roots;
    fixture.manager->GetVisibleRootTrackList(roots);
    QVERIFY(roots.empty());
    QVERIFY(fixture.manager->ShowRootTrack(body, 0, true));
}

void tst_CTimelineManagerTracks::deleteAllWithoutAContainerDeletesEveryTrack()
{
    HostFixture fixture;
    const QPointer<Track> body = fixture.Root(TL_TRACK_CLIP, "Body");
    const QPointer<Track> loose = fixture.manager->CreateTrack(TL_TRACK_KEY, "Loose", 1);
    Track* const address = body;
    fixture.manager->ReleaseTimelineWnd();
    QVERIFY(fixture.manager->DeleteAllTrack());
    QVERIFY(body.isNull());
    QVERIFY(loose.isNull());
    QVERIFY(!fixture.manager->IsTrackExist(address));
}

void tst_CTimelineManagerTracks::aTrackThatQtDestroyedExistsNoMore()
{
    HostFixture fixture;
    Track* const arm = fixture.manager->CreateTrack(TL_TRACK_KEY, "Arm", 1);
    delete arm;
    QVERIFY(!fixture.manager->IsTrackExist(arm));
    QVERIFY(!fixture.manager->DeleteTrack(arm));
    fixture.manager->ReleaseTimelineWnd();
    QVERIFY(fixture.manager->DeleteAllTrack());
}

void tst_CTimelineManagerTracks::hidingIsForwarded_data()
{
    QTest::addColumn<bool>("notify");
    QTest::newRow("told") << true;
    QTest::newRow("untold") << false;
}

void tst_CTimelineManagerTracks::hidingIsForwarded()
{
    QFETCH(bool, notify);
    HostFixture fixture;
    Track* const body = fixture.Root(TL_TRACK_CLIP, "Body");
    Track* const arm = fixture.Child(body, TL_TRACK_KEY, "Arm");
    Track* const leg = fixture.Child(body, TL_TRACK_KEY, "Leg");
    fixture.ForgetCalls();
    QVERIFY(fixture.manager->HideChildTrack(arm, notify));
    QCOMPARE(fixture.Window().TakeCalls().contains("track list"), notify);
    QVERIFY(!arm->GetParentTrack());
    QCOMPARE(arm->parentWidget(), static_cast<QWidget*>(&fixture.mainWindow));
    QCOMPARE(fixture.manager->GetChildTrackSortIndex(leg), 0);
    QVERIFY(fixture.manager->HideRootTrack(body, notify));
    QCOMPARE(fixture.Window().TakeCalls().contains("track list"), notify);
    QVERIFY(!leg->GetParentTrack());
    QCOMPARE(fixture.manager->GetRootTrackSortIndex(body), -1);
    QVERIFY(fixture.manager->IsTrackExist(arm) && fixture.manager->IsTrackExist(body));
}

void tst_CTimelineManagerTracks::showingTellsTheWindowWhenItIsAskedTo_data()
{
    hidingIsForwarded_data();
}

void tst_CTimelineManagerTracks::showingTellsTheWindowWhenItIsAskedTo()
{
    QFETCH(bool, notify);
    HostFixture fixture;
    Track* const body = fixture.manager->CreateTrack(TL_TRACK_CLIP, "Body", 1);
    Track* const arm = fixture.manager->CreateTrack(TL_TRACK_KEY, "Arm", 1);
    fixture.ForgetCalls();
    QVERIFY(fixture.manager->ShowRootTrack(body, 0, notify));
    QCOMPARE(fixture.Window().TakeCalls().contains("track list"), notify);
    QVERIFY(fixture.manager->ShowChildTrack(body, arm, 0, notify));
    QCOMPARE(fixture.Window().TakeCalls().contains("track list"), notify);
    QCOMPARE(arm->GetParentTrack(), body);
}

void tst_CTimelineManagerTracks::sortIndexesAreForwarded()
{
    HostFixture fixture;
    Track* const body = fixture.Root(TL_TRACK_CLIP, "Body");
    Track* const face = fixture.Root(TL_TRACK_CLIP, "Face");
    Track* const arm = fixture.Child(body, TL_TRACK_KEY, "Arm");
    Track* const leg = fixture.Child(body, TL_TRACK_KEY, "Leg");
    QCOMPARE(fixture.manager->GetRootTrackSortIndex(face), 1);
    QCOMPARE(fixture.manager->GetChildTrackSortIndex(leg), 1);
    fixture.ForgetCalls();
    QVERIFY(fixture.manager->SetRootTrackSortIndex(face, 0, true));
    QVERIFY(fixture.Window().TakeCalls().contains("track list"));
    QVERIFY(fixture.manager->SetChildTrackSortIndex(leg, 0, false));
    QVERIFY(!fixture.Window().TakeCalls().contains("track list"));
    QCOMPARE(fixture.manager->GetRootTrackSortIndex(face), 0);
    QCOMPARE(fixture.manager->GetChildTrackSortIndex(arm), 1);
    // Not a root, not a child: -1 from both.
    QCOMPARE(fixture.manager->GetRootTrackSortIndex(arm), -1);
    QCOMPARE(fixture.manager->GetChildTrackSortIndex(body), -1);
}

void tst_CTimelineManagerTracks::visibleRootsAreAppended()
{
    HostFixture fixture;
    Track* const body = fixture.Root(TL_TRACK_CLIP, "Body");
    Track* const face = fixture.Root(TL_TRACK_CLIP, "Face");
    Tracks roots;
    fixture.manager->GetVisibleRootTrackList(roots);
    fixture.manager->GetVisibleRootTrackList(roots);
    QVERIFY(roots == (Tracks{body, face, body, face}));
}

void tst_CTimelineManagerTracks::activeTracksAreForwardedAndANullRootClears()
{
    HostFixture fixture;
    Track* const body = fixture.Root(TL_TRACK_CLIP, "Body");
    Track* const arm = fixture.Child(body, TL_TRACK_KEY, "Arm");
    QVERIFY(fixture.manager->SetActiveChildTrack(arm));
    QCOMPARE(fixture.manager->GetActiveRootTrack(), body);
    QCOMPARE(fixture.manager->GetActiveChildTrack(), arm);
    QVERIFY(fixture.manager->SetActiveRootTrack(nullptr));
    QVERIFY(!fixture.manager->GetActiveRootTrack());
    QVERIFY(!fixture.manager->GetActiveChildTrack());
    QVERIFY(!arm->IsActive());
    fixture.manager->ReleaseTimelineWnd();
    QVERIFY(fixture.manager->SetActiveRootTrack(nullptr));
}

void tst_CTimelineManagerTracks::trackNameIsSetAndLaidOut()
{
    HostFixture fixture;
    Track* const arm = fixture.Root(TL_TRACK_KEY, "Arm");
    fixture.ForgetCalls();
    QVERIFY(fixture.manager->SetTrackName(arm, "Left Arm"));
    QCOMPARE(arm->GetCaption(), QStringLiteral("Left Arm"));
    QVERIFY(fixture.Window().calls.contains("refreshed"));
}

void tst_CTimelineManagerTracks::timeRangeIsKeptUnorderedAndReadOrdered()
{
    HostFixture fixture;
    Track* const arm = fixture.Root(TL_TRACK_KEY, "Arm");
    int first = 5;
    int last = 5;
    fixture.manager->GetTrackSelFrame(arm, first, last);
    QCOMPARE(first, -1);
    QCOMPARE(last, -1);
    fixture.ForgetCalls();
    fixture.manager->SetTrackSelFrame(arm, 40, 12);
    QCOMPARE(fixture.Window().TakeCalls().last(), QStringLiteral("repaint"));
    QCOMPARE(arm->RangeStart(), 40);
    QCOMPARE(arm->RangeEnd(), 12);
    fixture.manager->GetTrackSelFrame(arm, first, last);
    QCOMPARE(first, 12);
    QCOMPARE(last, 40);
}

void tst_CTimelineManagerTracks::editModesAreCopiedAndRepainted()
{
    HostFixture fixture;
    Track* const arm = fixture.Root(TL_TRACK_KEY, "Arm");
    VZ::CArrayList<TLEditType> modes;
    modes.Add(TL_EDIT_MOVE_KEYS);
    fixture.ForgetCalls();
    QVERIFY(fixture.manager->SetTrackEditMode(arm, modes));
    QCOMPARE(fixture.Window().TakeCalls().last(), QStringLiteral("repaint"));
    modes.RemoveAll();
    QVERIFY(arm->HasEditMode(TL_EDIT_MOVE_KEYS));
    QVERIFY(fixture.manager->SetTrackEditMode(arm, modes));
    QVERIFY(!arm->HasEditMode(TL_EDIT_MOVE_KEYS));
}

void tst_CTimelineManagerTracks::captionButtonStateIsSetThoughTheAnswerIsFalse()
{
    HostFixture fixture;
    // The first style of some kind has caption buttons in the default skin.
    Track* buttoned = nullptr;
    int id = 0;
    for (unsigned int style = 1; style <= 3 && !buttoned; ++style) {
        Track* const track = fixture.manager->CreateTrack(TL_TRACK_KEY, "Arm", style);
        const auto* const record = track ? track->StyleAs<TrackStyle>() : nullptr;
        if (record && !record->captionButtons.empty()) {
            buttoned = track;
            id = record->captionButtons.front().buttonId;
        }
    }
    QVERIFY(buttoned);
    int state = -5;
    QVERIFY(fixture.manager->GetTrackCaptionBtnState(buttoned, id, state));
    QCOMPARE(state, 0);
    int wanted = 2;
    QVERIFY(!fixture.manager->SetTrackCaptionBtnState(buttoned, id, wanted));
    QVERIFY(fixture.manager->GetTrackCaptionBtnState(buttoned, id, state));
    QCOMPARE(state, 2);
    state = -5;
    QVERIFY(!fixture.manager->GetTrackCaptionBtnState(buttoned, 987654, state));
    QCOMPARE(state, -5);
}

void tst_CTimelineManagerTracks::switchButtonsAreCopiedBothWaysWithoutARepaint()
{
    HostFixture fixture;
    Track* const switches = fixture.Root(TL_TRACK_SWITCH, "Switches");
    fixture.Settle();
    fixture.ForgetCalls();
    std::vector<_tmpTLSwitchBtnData> buttons{{"Blink", 0}, {"Gaze", 2}};
    QVERIFY(fixture.manager->SetTrackSwitchBtnList(switches, buttons));
    QVERIFY(fixture.Window().calls.isEmpty());
    buttons.clear();
    std::vector<_tmpTLSwitchBtnData> read{{"old", 1}};
    QVERIFY(fixture.manager->GetTrackSwitchBtnList(switches, read));
    QCOMPARE(read.size(), std::size_t(2));
    QCOMPARE(read[1].text, QStringLiteral("Gaze"));
    QCOMPARE(read[1].state, 2);
    bool shown = true;
    QVERIFY(fixture.manager->GetTrackSwitchScrollState(switches, shown));
    QVERIFY(!shown);
    QVERIFY(fixture.manager->SetTrackSwitchScrollState(switches, true));
    QVERIFY(fixture.manager->GetTrackSwitchScrollState(switches, shown));
    QVERIFY(shown);
}

void tst_CTimelineManagerTracks::relationTableIsCopiedBothWays()
{
    HostFixture fixture;
    Track* const arm = fixture.Root(TL_TRACK_KEY, "Arm");
    Track* const leg = fixture.Root(TL_TRACK_KEY, "Leg");
    std::vector<_tmpTLRelatedMap> table(2);
    table[0].kind = 1;
    table[0].tracks = {arm, leg};
    table[1].kind = 77;
    QVERIFY(fixture.manager->SetTrackRelMapTable(table));
    table.clear();
    std::vector<_tmpTLRelatedMap> read(5);
    QVERIFY(fixture.manager->GetTrackRelMapTable(read));
    QCOMPARE(read.size(), std::size_t(2));
    QVERIFY(read[0].tracks == (Tracks{arm, leg}));
    QCOMPARE(read[1].kind, 77);
    // It is one for the whole process and outlives the window.
    fixture.manager->ReleaseTimelineWnd();
    QCOMPARE(TimelineLibrary::Instance().relations.Rows().size(), std::size_t(2));
    TimelineLibrary::Instance().relations.Set({});
}

void tst_CTimelineManagerTracks::lipsTrackIsFoundAmongTheChildren()
{
    HostFixture fixture;
    fixture.Root(TL_TRACK_VISEME_KEY, "Not these lips");
    QVERIFY(!fixture.manager->GetLipsTrack());
    Track* const face = fixture.Root(TL_TRACK_CLIP, "Face");
    fixture.Child(face, TL_TRACK_VISEME_KEY, "Upper");
    Track* const lower = fixture.Child(face, TL_TRACK_VISEME_KEY, "Lower");
    QCOMPARE(fixture.manager->GetLipsTrack(), lower);
}

void tst_CTimelineManagerTracks::keyArrayStaysTheSameWhileTheTrackExists()
{
    HostFixture fixture;
    Track* const arm = fixture.Root(TL_TRACK_KEY, "Arm");
    CTimelineKeyArray* const keys = fixture.manager->GetKeyDataArray(arm);
    QVERIFY(keys);
    {
        // A pointer that the host makes of it comes and goes without taking it along.
        const VZ::CPointer<CTimelineKeyArray> held(keys);
    }
    fixture.manager->HideRootTrack(arm, true);
    QCOMPARE(fixture.manager->GetKeyDataArray(arm), keys);
    keys->Add(KeyAt(3), false);
    QCOMPARE(keys->GetSize(), std::size_t(1));
}

void tst_CTimelineManagerTracks::clipboardIsFilledWithCopiesInFrameOrder()
{
    HostFixture fixture;
    Track* const arm = fixture.Root(TL_TRACK_KEY, "Arm");
    fixture.AddKeys(arm, {30, 10, 20});
    CTimelineKeyArray* const keys = fixture.manager->GetKeyDataArray(arm);
    keys->SetSelection(10, 20, true, 0xFFFFFFFFu);
    QVERIFY(fixture.manager->CopySelectionToClipboard(arm));
    std::vector<VZ::CPointer<CTimelineKey>> copied;
    int source = 0;
    QVERIFY(fixture.manager->GetClipboardKeys(arm, copied, source));
    QCOMPARE(copied.size(), std::size_t(2));
    QCOMPARE(copied[0]->frame, 10);
    QCOMPARE(copied[1]->frame, 20);
    QCOMPARE(source, 10);
    QVERIFY(copied[0] != keys->GetAt(0));
}

void tst_CTimelineManagerTracks::clipboardKeepsWhatItHasWhenNothingIsSelected()
{
    HostFixture fixture;
    Track* const arm = fixture.Root(TL_TRACK_KEY, "Arm");
    fixture.AddKeys(arm, {10});
    CTimelineKeyArray* const keys = fixture.manager->GetKeyDataArray(arm);
    keys->SetSelectionByIndex(0, 0, true, 0);
    QVERIFY(fixture.manager->CopySelectionToClipboard(arm));
    keys->ClearAllSelection();
    QVERIFY(!fixture.manager->CopySelectionToClipboard(arm));
    QVERIFY(arm->Clipboard().HasData());
}

void tst_CTimelineManagerTracks::resettingAnEmptyClipboardSucceeds()
{
    HostFixture fixture;
    Track* const arm = fixture.Root(TL_TRACK_KEY, "Arm");
    QVERIFY(fixture.manager->ResetClipboard(arm));
    QVERIFY(!arm->Clipboard().HasData());
    QCOMPARE(arm->Clipboard().GetSourceValue(), 0);
}

void tst_CTimelineManagerTracks::aResetClipboardMakesPastingImpossible()
{
    HostFixture fixture;
    Track* const arm = fixture.Root(TL_TRACK_KEY, "Arm");
    fixture.AddKeys(arm, {10});
    fixture.SetEditModes(arm, {TL_EDIT_PASTE});
    QVERIFY(!fixture.manager->CanDoTrackEdit(arm, TL_EDIT_PASTE));
    fixture.manager->GetKeyDataArray(arm)->SetSelectionByIndex(0, 0, true, 0);
    QVERIFY(fixture.manager->CopySelectionToClipboard(arm));
    QVERIFY(fixture.manager->CanDoTrackEdit(arm, TL_EDIT_PASTE));
    QVERIFY(fixture.manager->ResetClipboard(arm));
    QVERIFY(!fixture.manager->CanDoTrackEdit(arm, TL_EDIT_PASTE));
}

void tst_CTimelineManagerTracks::theClipboardWorksWithoutAWindow()
{
    HostFixture fixture;
    Track* const arm = fixture.Root(TL_TRACK_KEY, "Arm");
    fixture.AddKeys(arm, {10, 20});
    fixture.manager->GetKeyDataArray(arm)->SetSelectionByIndex(1, 1, true, 0);
    fixture.manager->ReleaseTimelineWnd();
    QVERIFY(!fixture.manager->GetTimelineWnd());

    QVERIFY(fixture.manager->CopySelectionToClipboard(arm));
    std::vector<VZ::CPointer<CTimelineKey>> copied;
    int source = 0;
    QVERIFY(fixture.manager->GetClipboardKeys(arm, copied, source));
    QCOMPARE(copied.size(), std::size_t(1));
    QCOMPARE(source, 20);
    QVERIFY(fixture.manager->ResetClipboard(arm));
    QVERIFY(!fixture.manager->GetClipboardKeys(arm, copied, source));
}

void tst_CTimelineManagerTracks::frameStateIsClampedAndStored()
{
    HostFixture fixture;
    fixture.manager->SetFrameCount(100);
    fixture.manager->SetTimeMarkFrame(-5, 500);
    int start = 7;
    int end = 7;
    fixture.manager->GetTimeMarkFrame(start, end);
    QCOMPARE(start, 0);
    QCOMPARE(end, 99);
    fixture.manager->SetCurrentFrame(500);
    QCOMPARE(fixture.manager->GetCurrentFrame(), 99);
    fixture.manager->SetCurrentFrame(-3);
    QCOMPARE(fixture.manager->GetCurrentFrame(), 0);
    QCOMPARE(fixture.manager->GetFrameCount(), 100);
}

void tst_CTimelineManagerTracks::currentFrameIsPushedToTheContainerAndTheWindow()
{
    HostFixture fixture;
    fixture.manager->SetCurrentFrame(42);
    QCOMPARE(TimelineLibrary::Instance().axis.currentFrame, 42);
    QCOMPARE(fixture.Window().calls, (QStringList{"refreshed", "frame 42"}));
    QVERIFY(fixture.host.calls.isEmpty());
}

QTEST_MAIN(tst_CTimelineManagerTracks)
#include "tst_CTimelineManagerTracks.moc"
