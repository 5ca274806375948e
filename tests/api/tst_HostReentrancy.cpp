#include "TimelineKeyValues.h"
#include "container/CTimelineContainer.h"
#include "container/EditCommands.h"
#include "container/KeyNavigation.h"
#include "library/TimelineLibrary.h"
#include "support/HostFixture.h"
#include "support/TimelineFixture.h"
#include "tracks/CTimelineTrackBase.h"

#include <QtTest>

#include <utility>

using namespace KestovaTest;

namespace {

/// What a host may do to the timeline from inside one of its calls.
enum Deed
{
    DeleteTheTrack,
    DeleteAllTracks,
    ReleaseTheWindow,
    DeleteTheDock,
    DeleteTheManager,
    Deeds
};
const char* const kDeedNames[] = {"deletes the track", "deletes all tracks", "releases the window",
                                  "deletes the dock", "deletes the manager"};

/// An operation that calls the host on its way.
struct Operation
{
    const char* name;
    void (*run)(HostFixture& fixture, CTimelineTrackBase* track);
};

void Report(HostFixture& fixture, CTimelineTrackBase* track, int code)
{
    fixture.Container()->OnTrackMessage(code, track, 0, 0, 0, 0);
}

// clang-format off
const Operation kOperations[] = {
    {"ShowTimelineWnd", [](HostFixture& f, CTimelineTrackBase*) { f.manager->ShowTimelineWnd(true); }},
    {"InvalidateTimeline", [](HostFixture& f, CTimelineTrackBase*) { f.manager->InvalidateTimeline(); }},
    {"SetCurrentFrame", [](HostFixture& f, CTimelineTrackBase*) { f.manager->SetCurrentFrame(5); }},
    {"SetFrameCount", [](HostFixture& f, CTimelineTrackBase*) { f.manager->SetFrameCount(50); }},
    {"SetTimeMarkFrame", [](HostFixture& f, CTimelineTrackBase*) { f.manager->SetTimeMarkFrame(1, 9); }},
    {"SetTrackName", [](HostFixture& f, CTimelineTrackBase* t) { f.manager->SetTrackName(t, "New"); }},
    {"SetTrackSelFrame", [](HostFixture& f, CTimelineTrackBase* t) { f.manager->SetTrackSelFrame(t, 2, 5); }},
    {"HideChildTrack", [](HostFixture& f, CTimelineTrackBase* t) { f.manager->HideChildTrack(t, true); }},
    {"HideRootTrack", [](HostFixture& f, CTimelineTrackBase* t) { f.manager->HideRootTrack(t->GetParentTrack(), true); }},
    {"SetChildTrackSortIndex", [](HostFixture& f, CTimelineTrackBase* t) { f.manager->SetChildTrackSortIndex(t, 9, true); }},
    {"SetRootTrackSortIndex", [](HostFixture& f, CTimelineTrackBase* t) { f.manager->SetRootTrackSortIndex(t->GetParentTrack(), 9, true); }},
    {"DeleteTrack", [](HostFixture& f, CTimelineTrackBase* t) { f.manager->DeleteTrack(t); }},
    {"DeleteAllTrack", [](HostFixture& f, CTimelineTrackBase*) { f.manager->DeleteAllTrack(); }},
    {"SetActiveChildTrack", [](HostFixture& f, CTimelineTrackBase* t) { f.manager->SetActiveChildTrack(t); }},
    {"SetActiveRootTrack", [](HostFixture& f, CTimelineTrackBase* t) { f.manager->SetActiveRootTrack(t->GetParentTrack()); }},
    {"ReleaseTimelineWnd", [](HostFixture& f, CTimelineTrackBase*) { f.manager->ReleaseTimelineWnd(); }},
    {"CreateTimelineMainWidget", [](HostFixture& f, CTimelineTrackBase*) { f.manager->CreateTimelineMainWidget(f.dock); }},
    {"GotoFrame", [](HostFixture& f, CTimelineTrackBase*) { f.Window().GotoFrame(20); }},
    {"DoSelectNextKey", [](HostFixture& f, CTimelineTrackBase* t) { SelectNextKey(*f.Container(), t); }},
    {"DoSelectPreviousKey", [](HostFixture& f, CTimelineTrackBase* t) { SelectPreviousKey(*f.Container(), t); }},
    {"DoTrackEdit", [](HostFixture& f, CTimelineTrackBase* t) { f.manager->DoTrackEdit(t, TL_EDIT_SELECT_ALL); }},
    {"SetDropTrackFocus", [](HostFixture& f, CTimelineTrackBase* t) { f.manager->SetDropTrackFocusAndPickJustLoadClip(t); }},
    {"selection changed", [](HostFixture& f, CTimelineTrackBase* t) { Report(f, t, 1102); }},
    {"selection cleared", [](HostFixture& f, CTimelineTrackBase* t) { Report(f, t, 1103); }},
    {"frame moved", [](HostFixture& f, CTimelineTrackBase* t) { TimelineLibrary::Instance().axis.currentFrame = 8; Report(f, t, 1104); }},
    {"frame set", [](HostFixture& f, CTimelineTrackBase* t) { TimelineLibrary::Instance().axis.currentFrame = 8; Report(f, t, 1105); }},
    {"time mark moved", [](HostFixture& f, CTimelineTrackBase* t) { Report(f, t, 1106); }},
    {"pressed", [](HostFixture& f, CTimelineTrackBase* t) { Report(f, t, 1108); }},
    {"double clicked", [](HostFixture& f, CTimelineTrackBase* t) { Report(f, t, 1115); }},
    {"edit begins", [](HostFixture& f, CTimelineTrackBase* t) { Report(f, t, 1203); }},
    {"edit ends", [](HostFixture& f, CTimelineTrackBase* t) { Report(f, t, 1205); }},
    {"switch toggled", [](HostFixture& f, CTimelineTrackBase* t) { Report(f, t, 1213); }},
};
// clang-format on

} // namespace

/// The host may call anything from anywhere: whatever it destroys, nothing is touched afterwards
/// and the timeline can be made again.
class tst_HostReentrancy : public QObject
{
    Q_OBJECT

private slots:
    void survivesAHostThat_data();
    void survivesAHostThat();
    void nothingFollowsFromATrackThatIsGone();
    void aHostMayMoveTheFrameFromTheFramesOwnNotice();
    void aWindowMayBeReleasedWhileItIsBeingMade_data();
    void aWindowMayBeReleasedWhileItIsBeingMade();
    void aWindowThatOutlivesItsManagerSpeaksToNobody();
    void hiddenTracksAreLookedAtAfreshWhenTheyAreShown();
};

void tst_HostReentrancy::survivesAHostThat_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<int>("deed");
    QTest::addColumn<bool>("fromWindow");
    int index = 0;
    for (const Operation& operation : kOperations) {
        for (int deed = 0; deed < Deeds; ++deed) {
            QTest::addRow("%s in a callback of %s", kDeedNames[deed], operation.name)
                << index << deed << false;
            QTest::addRow("%s in the window's operation under %s", kDeedNames[deed], operation.name)
                << index << deed << true;
        }
        ++index;
    }
}

void tst_HostReentrancy::survivesAHostThat()
{
    QFETCH(int, operation);
    QFETCH(int, deed);
    QFETCH(bool, fromWindow);
    HostFixture fixture;
    CTimelineTrackBase* const body = fixture.Root(TL_TRACK_CLIP, "Body");
    CTimelineTrackBase* const arm = fixture.Child(body, TL_TRACK_KEY, "Arm");
    CTimelineTrackBase* const leg = fixture.Child(body, TL_TRACK_KEY, "Leg");
    fixture.AddKeys(arm, {10, 20, 30});
    fixture.AddKeys(leg, {10});
    leg->Keys().SetSelectionByIndex(0, 0, true, 0);
    fixture.SetEditModes(arm, {TL_EDIT_MOVE_KEYS, TL_EDIT_COPY});
    fixture.ForgetCalls();

    bool isDone = false;
    const auto act = [&](const QString&) {
        if (isDone || !fixture.manager)
            return;
        isDone = true;
        switch (deed) {
        case DeleteTheTrack:
            fixture.manager->DeleteTrack(arm);
            break;
        case DeleteAllTracks:
            for (CTimelineTrackBase* const track : {arm, leg, body})
                fixture.manager->DeleteTrack(track);
            break;
        case ReleaseTheWindow:
            fixture.manager->ReleaseTimelineWnd();
            break;
        case DeleteTheDock:
            delete fixture.dock;
            fixture.dock = nullptr;
            break;
        default:
            // Not reset(): that calls the destructor with the pointer already null, which a host's
            // own operations would meet.
            delete fixture.manager.release();
            break;
        }
    };
    if (fromWindow)
        fixture.Window().reaction = act;
    else
        fixture.host.reaction = act;
    kOperations[operation].run(fixture, arm);
    fixture.host.reaction = nullptr;
    if (fixture.factory.window)
        fixture.factory.window->reaction = nullptr;
    fixture.Settle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    // And all of it works again.
    if (!fixture.manager) {
        fixture.manager = std::make_unique<CTimelineManager>(&fixture.mainWindow);
        fixture.manager->SetTimelineWndFactoryBase(&fixture.factory);
        fixture.manager->CreateTimelineManager(&fixture.host, TimelineLibrary::Instance().skinPath);
    }
    if (!fixture.dock) {
        fixture.dock = new QDockWidget(&fixture.mainWindow);
        fixture.mainWindow.addDockWidget(Qt::BottomDockWidgetArea, fixture.dock);
    }
    QVERIFY(fixture.manager->CreateTimelineMainWidget(fixture.dock));
    QVERIFY(fixture.manager->ShowTimelineWnd(true));
    CTimelineTrackBase* const again = fixture.Root(TL_TRACK_KEY, "Again");
    QVERIFY(fixture.manager->IsTrackExist(again));
    fixture.Settle();
    QVERIFY(again->isVisible());
}

void tst_HostReentrancy::nothingFollowsFromATrackThatIsGone()
{
    HostFixture fixture;
    CTimelineTrackBase* const body = fixture.Root(TL_TRACK_CLIP, "Body");
    CTimelineTrackBase* const clips = fixture.Child(body, TL_TRACK_CLIP, "Clips");
    fixture.ForgetCalls();
    fixture.host.reaction = [&](const QString&) { fixture.manager->DeleteTrack(clips); };
    Report(fixture, clips, 1205);
    fixture.host.reaction = nullptr;
    // The end of the drag would be followed by the end of the edit.
    QCOMPARE(fixture.host.calls, QStringList{"edit 7 [Clips] 0 0"});
    QVERIFY(!fixture.manager->IsTrackExist(clips));
}

void tst_HostReentrancy::aHostMayMoveTheFrameFromTheFramesOwnNotice()
{
    HostFixture fixture;
    fixture.host.reaction = [&](const QString& line) {
        if (line == QStringLiteral("frame 30 false"))
            fixture.manager->SetCurrentFrame(31);
    };
    fixture.Window().GotoFrame(30);
    fixture.host.reaction = nullptr;
    // The notice that was not final is followed by exactly one that is.
    QCOMPARE(fixture.host.calls, (QStringList{"frame 30 false", "frame 30 true"}));
}

void tst_HostReentrancy::aWindowMayBeReleasedWhileItIsBeingMade_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<bool>("insideACallback");
    for (const bool inside : {false, true}) {
        const char* const where = inside ? " inside a callback" : "";
        QTest::addRow("when it is created%s", where) << "create" << inside;
        QTest::addRow("when it is asked for its geometry%s", where) << "geometry" << inside;
    }
}

void tst_HostReentrancy::aWindowMayBeReleasedWhileItIsBeingMade()
{
    QFETCH(QString, operation);
    QFETCH(bool, insideACallback);
    HostFixture fixture;
    fixture.factory.prepare = [&](TestWindow& made) {
        made.reaction = [&](const QString& line) {
            if (line.startsWith(operation))
                fixture.manager->ReleaseTimelineWnd();
        };
    };
    bool answer = true;
    const auto make = [&] { answer = fixture.manager->CreateTimelineMainWidget(fixture.dock); };
    if (insideACallback) {
        bool isDone = false;
        fixture.host.reaction = [&](const QString&) {
            if (!std::exchange(isDone, true))
                make();
        };
        fixture.Window().GotoFrame(12);
        fixture.host.reaction = nullptr;
    } else {
        make();
    }
    QVERIFY(!answer);
    QVERIFY(!fixture.manager->GetTimelineWnd());
    fixture.factory.prepare = nullptr;
    QVERIFY(fixture.manager->CreateTimelineMainWidget(fixture.dock));
}

void tst_HostReentrancy::aWindowThatOutlivesItsManagerSpeaksToNobody()
{
    HostFixture fixture;
    fixture.manager->SetTimelineWndFactoryBase(nullptr);
    fixture.manager.reset();
    QVERIFY(fixture.factory.window);
    fixture.ForgetCalls();
    fixture.factory.window->GotoFrame(12);
    QVERIFY(fixture.host.calls.isEmpty());
    CTimelineWndBase* window = fixture.factory.window;
    fixture.factory.ReleaseTimelineWnd(&window);
}

void tst_HostReentrancy::hiddenTracksAreLookedAtAfreshWhenTheyAreShown()
{
    HostFixture fixture;
    CTimelineTrackBase* const blend = fixture.Root(TL_TRACK_TRANSITION_KEY, "Blend");
    fixture.manager->SetFrameCount(1000);
    fixture.AddKeys(blend, {0, 400, 800});
    for (const auto& key : blend->Keys().Keys())
        key->kindMask = TL_KEY_TRANSITION_OUT;
    fixture.manager->InvalidateTimeline();
    fixture.Settle();
    fixture.manager->HideRootTrack(blend, true);
    // A span that reaches into view from a key left of it.
    blend->Keys().GetAt(1)->transitionFrames = 300;
    fixture.manager->InvalidateTimeline();
    fixture.manager->ShowRootTrack(blend, 0, true);
    const auto picture = [&] {
        fixture.Settle();
        ResetAxis(1000, 5.0, 500 * 5);
        return fixture.Container()->grab(blend->geometry()).toImage();
    };
    const QImage shown = picture();
    fixture.manager->InvalidateTimeline();
    QVERIFY(shown == picture());
    // And the span is what made the difference.
    blend->Keys().GetAt(1)->transitionFrames = 0;
    fixture.manager->InvalidateTimeline();
    QVERIFY(shown != picture());
}

QTEST_MAIN(tst_HostReentrancy)
#include "tst_HostReentrancy.moc"
