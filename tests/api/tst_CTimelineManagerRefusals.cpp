#include "ManagerOperations.h"
#include "TimelineKeyValues.h"
#include "container/CTimelineContainer.h"
#include "container/TestTracks.h"
#include "library/TimelineLibrary.h"
#include "support/HostFixture.h"
#include "support/TimelineFixture.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

#include <QtTest>

using namespace KestovaTest;

namespace {

/// Why a track is none of the manager's.
enum Reason
{
    NullTrack,
    NeverGivenToAManager,
    Deleted,
    DestroyedByQt,
    OfAnotherManager,
    TheRuler,
    TheScrollBar,
    TrackReasons,
    // Why there is no timeline.
    BeforeTheWindow = TrackReasons,
    AfterTheWindow,
    WithoutItsWidget,
    Reasons
};
const char* const kReasonNames[] = {"null",
                                    "a track that no manager made",
                                    "a deleted track",
                                    "a track that Qt destroyed",
                                    "a track of another manager",
                                    "the ruler",
                                    "the scroll bar",
                                    "before the window is made",
                                    "after the window was released",
                                    "in a window that lost the timeline"};

/// All of a timeline that the operations can change, as one text.
QString StateOf(const HostFixture& fixture, const std::vector<CTimelineTrackBase*>& tracks)
{
    QStringList lines;
    if (const CTimelineContainer* const container = fixture.Container()) {
        for (const CTimelineTrackBase* const track : container->Tree().AllTracks())
            lines << "row " + track->GetCaption();
    }
    for (CTimelineTrackBase* const track : tracks) {
        if (!CTimelineTrackBase::IsAlive(track))
            continue;
        QStringList buttons;
        if (const auto* const style = track->StyleAs<TrackStyle>()) {
            for (const CaptionButtonStyle& button : style->captionButtons)
                buttons << QString::number(button.state);
        }
        if (auto* const switches = qobject_cast<CTimelineTrackSwitch*>(track)) {
            for (const _tmpTLSwitchBtnData& button : switches->GetButtons())
                buttons << button.text;
            buttons << QString::number(switches->AreArrowsShown());
        }
        lines << QStringLiteral(
                     "%1 range %2 %3 modes %4 active %5 parent %6 selected %7 copied %8 %9")
                     .arg(track->GetCaption())
                     .arg(track->RangeStart())
                     .arg(track->RangeEnd())
                     .arg(track->GetEditModes().GetSize())
                     .arg(track->IsActive())
                     .arg(quintptr(track->parentWidget()))
                     .arg(track->Keys().SelGetSize())
                     .arg(track->Clipboard().HasData())
                     .arg(buttons.join(' '));
    }
    const TimelineLibrary& library = TimelineLibrary::Instance();
    lines << QStringLiteral("axis %1 %2 %3 relations %4")
                 .arg(library.axis.frameCount)
                 .arg(library.axis.scrollX)
                 .arg(library.axis.Scale())
                 .arg(library.relations.Rows().size());
    return lines.join('\n');
}

/// A timeline in which every operation has something to do.
struct Scene
{
    HostFixture fixture;
    CTimelineTrackBase* body = fixture.Root(TL_TRACK_CLIP, "Body");
    CTimelineTrackBase* gaze = fixture.Child(body, TL_TRACK_SWITCH, "Gaze");
    CTimelineTrackBase* face = fixture.Root(TL_TRACK_CLIP, "Face");
    CTimelineTrackBase* lips = fixture.Child(face, TL_TRACK_VISEME_KEY, "Lips");

    Scene()
    {
        fixture.SetEditModes(gaze, {TL_EDIT_CUT, TL_EDIT_SELECT_ALL});
        std::vector<_tmpTLSwitchBtnData> buttons{{"Left", 0}};
        fixture.manager->SetTrackSwitchBtnList(gaze, buttons);
        fixture.manager->SetTrackSelFrame(gaze, 11, 12);
        fixture.manager->SetActiveChildTrack(lips);
        for (CTimelineTrackBase* const track : {gaze, lips}) {
            fixture.AddKeys(track, {5});
            track->Keys().SetSelectionByIndex(0, 0, true, TL_KEY_ANY_KIND);
            track->CopySelectionToClipboard();
            track->Keys().GetAt(0)->lockState = TL_KEY_LOCKED;
        }
        fixture.manager->SetCurrentFrame(5);
        fixture.manager->SetTimeMarkFrame(4, 9);
        fixture.ForgetCalls();
    }
    QString State() const { return StateOf(fixture, {body, gaze, face, lips}); }
};

} // namespace

/// Every operation of the manager with everything that it refuses: the refused value comes back,
/// nothing changes, and neither window nor host hears of it.
class tst_CTimelineManagerRefusals : public QObject
{
    Q_OBJECT

    // Making a timeline takes much longer than refusing something in it: rows of one reason share
    // theirs, until one of them fails.
    std::unique_ptr<Scene> m_scene;
    std::unique_ptr<HostFixture> m_otherHost;
    int m_sceneOf = -1;

    Scene& SceneOf(int reason);

private slots:
    void cleanup();
    void cleanupTestCase();
    void refusesATrackThatIsNotTheManagers_data();
    void refusesATrackThatIsNotTheManagers();
    void refusesWithoutATimeline_data();
    void refusesWithoutATimeline();
    void switchOperationsRefuseOtherKinds_data();
    void switchOperationsRefuseOtherKinds();
    void actsWhereNothingStandsAgainstIt_data();
    void actsWhereNothingStandsAgainstIt();
    void anUnknownTrackStandsAtMinusOneAmongTheRootsAndAtZeroAmongTheChildren();
    void filtersSetWithoutATimelineAreForgotten();
    void editsAndFileQueriesPassOverWhatIsNoTrackAnyMore();
};

Scene& tst_CTimelineManagerRefusals::SceneOf(int reason)
{
    if (!m_scene || m_sceneOf != reason) {
        m_scene = std::make_unique<Scene>();
        m_sceneOf = reason;
        if (reason == AfterTheWindow)
            m_scene->fixture.manager->ReleaseTimelineWnd();
        if (reason == WithoutItsWidget) {
            // Rows that stand in it would go with it.
            for (CTimelineTrackBase* const root : {m_scene->body, m_scene->face})
                m_scene->fixture.manager->HideRootTrack(root, false);
            delete m_scene->fixture.Container();
        }
        m_scene->fixture.manager->SetFrameCount(100);
    }
    m_scene->fixture.ForgetCalls();
    return *m_scene;
}

void tst_CTimelineManagerRefusals::cleanup()
{
    if (QTest::currentTestFailed())
        m_scene.reset();
}

void tst_CTimelineManagerRefusals::cleanupTestCase()
{
    m_scene.reset();
    m_otherHost.reset();
}

void tst_CTimelineManagerRefusals::refusesATrackThatIsNotTheManagers_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<int>("reason");
    for (int reason = 0; reason < TrackReasons; ++reason) {
        int index = 0;
        for (const ManagerOperation& operation : kManagerOperations) {
            const bool isRefused = (operation.needs & NeedsTheTrack) &&
                                   !(reason == NullTrack && (operation.needs & TakesNull));
            if (isRefused)
                QTest::addRow("%s, %s", operation.name, kReasonNames[reason]) << index << reason;
            ++index;
        }
    }
}

void tst_CTimelineManagerRefusals::refusesATrackThatIsNotTheManagers()
{
    QFETCH(int, operation);
    QFETCH(int, reason);
    Scene& scene = SceneOf(reason);
    HostFixture& fixture = scene.fixture;
    // A switch, so that it is the track and not its kind that is refused.
    CTimelineTrackSwitch stranger;
    CTimelineTrackBase* track = nullptr;
    switch (reason) {
    case NeverGivenToAManager:
        track = &stranger;
        break;
    case Deleted:
        track = fixture.Root(TL_TRACK_SWITCH, "Gone");
        fixture.manager->DeleteTrack(track);
        break;
    case DestroyedByQt:
        track = fixture.manager->CreateTrack(TL_TRACK_SWITCH, "Gone", 1);
        delete track;
        break;
    case OfAnotherManager:
        if (!m_otherHost)
            m_otherHost = std::make_unique<HostFixture>();
        track = m_otherHost->Root(TL_TRACK_SWITCH, "Foreign");
        m_otherHost->AddKeys(track, {5});
        track->Keys().SetSelectionByIndex(0, 0, true, TL_KEY_ANY_KIND);
        track->CopySelectionToClipboard();
        break;
    case TheRuler:
        track = fixture.Container()->TickTrack();
        break;
    case TheScrollBar:
        track = fixture.Container()->ScrollTrack();
        break;
    default:
        break;
    }
    fixture.ForgetCalls();
    const auto state = [&] {
        return scene.State() + StateOf(m_otherHost ? *m_otherHost : fixture, {track});
    };
    const QString before = state();
    QVERIFY(kManagerOperations[operation].isRefused(*fixture.manager, track, scene.face));
    QCOMPARE(state(), before);
    QCOMPARE(fixture.host.calls, QStringList());
    QCOMPARE(fixture.Window().calls, QStringList());
}

void tst_CTimelineManagerRefusals::refusesWithoutATimeline_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<int>("reason");
    for (int reason = BeforeTheWindow; reason < Reasons; ++reason) {
        int index = 0;
        for (const ManagerOperation& operation : kManagerOperations) {
            // Tracks are made in a timeline, so before the first none can be named.
            const bool canBe = reason != BeforeTheWindow || !(operation.needs & NeedsTheTrack) ||
                               (operation.needs & TakesNull);
            if ((operation.needs & NeedsTheTimeline) && canBe)
                QTest::addRow("%s, %s", operation.name, kReasonNames[reason]) << index << reason;
            ++index;
        }
    }
}

void tst_CTimelineManagerRefusals::refusesWithoutATimeline()
{
    QFETCH(int, operation);
    QFETCH(int, reason);
    const ManagerOperation& call = kManagerOperations[operation];
    Scene& scene = SceneOf(reason);
    HostFixture& fixture = scene.fixture;
    if (reason == BeforeTheWindow) {
        CTimelineManager fresh(&fixture.mainWindow);
        fresh.CreateTimelineManager(&fixture.host, TimelineLibrary::Instance().skinPath);
        fresh.SetFrameCount(100);
        fresh.SetTimeMarkFrame(4, 9);
        const QString before = scene.State();
        // An active root can be cleared where there is none.
        QCOMPARE(call.isRefused(fresh, nullptr, nullptr), !(call.needs & TakesNull));
        QCOMPARE(scene.State(), before);
        QCOMPARE(fixture.host.calls, QStringList());
        return;
    }
    QVERIFY(!fixture.Container());
    const QString before = scene.State();
    QVERIFY(call.isRefused(*fixture.manager, scene.gaze, scene.body));
    QCOMPARE(scene.State(), before);
    QCOMPARE(fixture.host.calls, QStringList());
    if (reason == WithoutItsWidget)
        QCOMPARE(fixture.Window().calls, QStringList());
}

void tst_CTimelineManagerRefusals::switchOperationsRefuseOtherKinds_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<int>("type");
    int index = 0;
    for (const ManagerOperation& operation : kManagerOperations) {
        for (int type = TL_TRACK_KEY; type <= TL_TRACK_CLIP; ++type) {
            if (operation.needs & NeedsASwitch)
                QTest::addRow("%s of a track of type %d", operation.name, type) << index << type;
        }
        ++index;
    }
}

void tst_CTimelineManagerRefusals::switchOperationsRefuseOtherKinds()
{
    QFETCH(int, operation);
    QFETCH(int, type);
    HostFixture fixture;
    CTimelineTrackBase* const track = fixture.Root(TL_TRACK_TYPE(type), "Row");
    QVERIFY(kManagerOperations[operation].isRefused(*fixture.manager, track, track));
}

void tst_CTimelineManagerRefusals::actsWhereNothingStandsAgainstIt_data()
{
    QTest::addColumn<int>("operation");
    int index = 0;
    for (const ManagerOperation& operation : kManagerOperations)
        QTest::addRow("%s", operation.name) << index++;
}

void tst_CTimelineManagerRefusals::actsWhereNothingStandsAgainstIt()
{
    QFETCH(int, operation);
    const ManagerOperation& call = kManagerOperations[operation];
    Scene scene;
    // The wave row, which the sound under the lips is asked of; no manager makes one.
    CTimelineTrackBase* const wave = MakeTrack(TL_TRACK_WAVE, "Wave", 1, scene.fixture.Container());
    AddKeysTo(*wave, {5});
    static_cast<void>(scene.fixture.Container()->ShowChildTrack(scene.face, wave, 0xFFFFu, false));
    // A second child stands at 1, which is not what an unknown one is answered with.
    CTimelineTrackBase* const arm = scene.fixture.Child(scene.body, TL_TRACK_KEY, "Arm");
    const QString name = call.name;
    CTimelineTrackBase* track = scene.gaze;
    if (name == QStringLiteral("GetChildTrackSortIndex"))
        track = arm;
    else if (name == QStringLiteral("GetRootTrackSortIndex"))
        track = scene.body;
    else if (name == QStringLiteral("ShowChildTrack of the parent"))
        track = scene.body;
    CTimelineTrackBase* const other =
        name == QStringLiteral("ShowChildTrack of the parent") ? scene.gaze : scene.body;

    const QString before = scene.State();
    const bool isRefused = call.isRefused(*scene.fixture.manager, track, other);
    if (call.needs & RefusesWhatever)
        QVERIFY(isRefused);
    if (!(call.needs & ActsUnseen))
        QVERIFY(!isRefused || scene.State() != before);
}

void tst_CTimelineManagerRefusals::
    anUnknownTrackStandsAtMinusOneAmongTheRootsAndAtZeroAmongTheChildren()
{
    HostFixture fixture;
    CTimelineTrackKey stranger;
    QCOMPARE(fixture.manager->GetRootTrackSortIndex(&stranger), -1);
    QCOMPARE(fixture.manager->GetChildTrackSortIndex(&stranger), 0);
}

void tst_CTimelineManagerRefusals::filtersSetWithoutATimelineAreForgotten()
{
    HostFixture fixture;
    fixture.manager->ReleaseTimelineWnd();
    fixture.manager->SetEnableDragEnterFiletype(true, true, true, true, true, true);
    QVERIFY(fixture.manager->CreateTimelineMainWidget(fixture.dock));
    QVERIFY(!fixture.Container()->GetDropRules().IsAnyFilterOn());
    fixture.manager->SetEnableDragEnterFiletype(false, false, true, false, false, false);
    QVERIFY(fixture.Container()->GetDropRules().IsAnyFilterOn());
}

void tst_CTimelineManagerRefusals::editsAndFileQueriesPassOverWhatIsNoTrackAnyMore()
{
    Scene scene;
    CTimelineTrackBase* const gone = scene.fixture.Child(scene.body, TL_TRACK_KEY, "Gone");
    scene.fixture.AddKeys(gone, {5});
    scene.fixture.manager->DeleteTrack(gone);
    scene.fixture.ForgetCalls();
    QVERIFY(!scene.fixture.manager->CanDoTrackEdit(gone, TL_EDIT_SELECT_ALL));
    QVERIFY(!scene.fixture.manager->DoTrackEdit(gone, TL_EDIT_SELECT_ALL));
    QVERIFY(!scene.fixture.manager->CheckIdleClip(gone, 5));
    scene.fixture.manager->SetDropTrackFocusAndPickJustLoadClip(gone);
    QVERIFY(!scene.fixture.manager->ScrollToTrack(gone));
    QCOMPARE(scene.fixture.host.calls, QStringList());
}

QTEST_MAIN(tst_CTimelineManagerRefusals)
#include "tst_CTimelineManagerRefusals.moc"
