#include "CMyContainerInterface.h"
#include "container/CTimelineContainer.h"
#include "support/HostFixture.h"
#include "support/TimelineFixture.h"

#include <QtTest>

using namespace KestovaTest;

/// The road from the timeline to the host: every message code, edits and drops.
class tst_CTimelineManagerMessages : public QObject
{
    Q_OBJECT

private slots:
    void everyCodeReachesItsCallback_data();
    void everyCodeReachesItsCallback();
    void codesOutsideTheTableAreUnknownAndRaiseNothing_data();
    void codesOutsideTheTableAreUnknownAndRaiseNothing();

    void theWindowHearsOfAFrameBeforeTheHost_data();
    void theWindowHearsOfAFrameBeforeTheHost();
    void aFrameIsStoredBeforeAnybodyHearsOfIt();
    void framesAreCountedOnFromTheStoredOneOverTheNextWindow();

    void aFrameThatTheManagerHoldsCallsNeitherWindowNorHost();
    void aFinalNoticeFollowsThoughTheFrameIsStoredByThen();
    void noSecondFinalNoticeIsGiven();
    void aFinalNoticeOfANewFrameOwesNothing();

    void aFinalNoticeOfANewFrameTellsTheWindow();
    void theFinalNoticeIsOwedThoughTheWindowMovedTheFrame();
    void theMenuQueryHandsOverTheHostsList();
    void aDropOfTheContainerReachesTheHost();
    void theMenuQueryOfAHostIsPassedOn();
    void theRoadPassesEverythingOnUnchanged();
    void aMarkMessageStoresTheMarkThatItNames_data();
    void aMarkMessageStoresTheMarkThatItNames();
    void aMarkMessageReachesTheHostThoughNothingChanges();
    void onlyMarkMessagesStoreMarks();
    void timeMarkMessagesStoreUnclamped_data();
    void timeMarkMessagesStoreUnclamped();

    void editsAreAnsweredByTheHost();
    void dropsAreAnsweredByTheHost();
    void aHostThatOverridesNothingDeclines();
};

void tst_CTimelineManagerMessages::everyCodeReachesItsCallback_data()
{
    QTest::addColumn<unsigned int>("code");
    QTest::addColumn<QVariant>("value1");
    QTest::addColumn<QVariant>("value2");
    QTest::addColumn<QVariant>("value3");
    QTest::addColumn<QString>("call");
    const QVariant none(0);
    const QVariant point(QPoint(3, 4));
    QTest::newRow("1301") << 1301u << QVariant(7) << none << none << "frame 7 false";
    QTest::newRow("1302") << 1302u << QVariant(7) << none << none << "frame 7 true";
    QTest::newRow("1303 start") << 1303u << none << QVariant(0) << QVariant(9) << "mark 0 9 false";
    QTest::newRow("1303 end") << 1303u << none << QVariant(1) << QVariant(9) << "mark 1 9 false";
    QTest::newRow("1304 start") << 1304u << none << QVariant(0) << QVariant(9) << "mark 0 9 true";
    QTest::newRow("1304 end") << 1304u << none << QVariant(1) << QVariant(9) << "mark 1 9 true";
    QTest::newRow("1305") << 1305u << none << none << none << "active Root Child";
    QTest::newRow("1306") << 1306u << none << none << none << "same Root Child";
    QTest::newRow("1307") << 1307u << none << QVariant(5) << none << "double click Root 5";
    QTest::newRow("1308") << 1308u << none << QVariant(2) << none << "switch Root 2";
    QTest::newRow("1309") << 1309u << none << QVariant(2) << point << "caption button Root 2 (3,4)";
    QTest::newRow("1310") << 1310u << none << none << none << "menu Root";
    QTest::newRow("1311") << 1311u << none << QVariant(44) << none << "chosen Root 44";
    QTest::newRow("1312") << 1312u << none << none << none << "cleared";
    QTest::newRow("1313") << 1313u << none << none << none << "changed";
    QTest::newRow("1314") << 1314u << none << QVariant("a.kxs") << QVariant(12)
                          << "drag Root a.kxs 12";
}

void tst_CTimelineManagerMessages::everyCodeReachesItsCallback()
{
    QFETCH(unsigned int, code);
    QFETCH(QVariant, value1);
    QFETCH(QVariant, value2);
    QFETCH(QVariant, value3);
    QFETCH(QString, call);
    HostFixture fixture;
    CTimelineTrackBase* const root = fixture.Root(TL_TRACK_CLIP, QStringLiteral("Root"));
    CTimelineTrackBase* const child = fixture.Child(root, TL_TRACK_KEY, QStringLiteral("Child"));
    fixture.ForgetCalls();
    QCOMPARE(fixture.manager->ReceiveMessage(code, root, child, value1, value2, value3), 0);
    QCOMPARE(fixture.host.calls, QStringList{call});
    // The window hears of frames alone.
    const bool isFrame = code <= 1302;
    QCOMPARE(fixture.Window().calls, isFrame ? QStringList{"frame 7"} : QStringList());
}

void tst_CTimelineManagerMessages::theWindowHearsOfAFrameBeforeTheHost_data()
{
    QTest::addColumn<unsigned int>("code");
    QTest::addColumn<QString>("call");
    QTest::newRow("moved") << 1301u << "host frame 12 false";
    QTest::newRow("set") << 1302u << "host frame 12 true";
}

void tst_CTimelineManagerMessages::theWindowHearsOfAFrameBeforeTheHost()
{
    QFETCH(unsigned int, code);
    QFETCH(QString, call);
    HostFixture fixture;
    QStringList order;
    fixture.host.reaction = [&](const QString& line) { order << "host " + line; };
    fixture.Window().reaction = [&](const QString& line) { order << "window " + line; };
    fixture.manager->ReceiveMessage(code, nullptr, nullptr, 12, 0, 0);
    QCOMPARE(order, (QStringList{"window frame 12", call}));
    fixture.host.reaction = nullptr;
    fixture.Window().reaction = nullptr;
}

void tst_CTimelineManagerMessages::aFrameIsStoredBeforeAnybodyHearsOfIt()
{
    HostFixture fixture;
    // What is stored is what silences the same frame: asked from inside the notices themselves.
    const auto again = [&](const QString&) {
        fixture.manager->ReceiveMessage(1301, nullptr, nullptr, 12, 0, 0);
    };
    fixture.Window().reaction = again;
    fixture.host.reaction = again;
    fixture.manager->ReceiveMessage(1301, nullptr, nullptr, 12, 0, 0);
    fixture.Window().reaction = nullptr;
    fixture.host.reaction = nullptr;
    QCOMPARE(fixture.Window().calls, QStringList{"frame 12"});
    QCOMPARE(fixture.host.calls, QStringList{"frame 12 false"});
}

void tst_CTimelineManagerMessages::framesAreCountedOnFromTheStoredOneOverTheNextWindow()
{
    HostFixture fixture;
    fixture.manager->ReceiveMessage(1302, nullptr, nullptr, 12, 0, 0);
    fixture.manager->ReleaseTimelineWnd();
    fixture.manager->ReceiveMessage(1302, nullptr, nullptr, 30, 0, 0);
    QCOMPARE(fixture.host.TakeCalls(), (QStringList{"frame 12 true", "frame 30 true"}));
    fixture.manager->CreateTimelineMainWidget(fixture.dock);
    fixture.manager->ShowTimelineWnd(true);
    QCOMPARE(fixture.manager->GetCurrentFrame(), 30);
}

void tst_CTimelineManagerMessages::codesOutsideTheTableAreUnknownAndRaiseNothing_data()
{
    QTest::addColumn<unsigned int>("code");
    for (const unsigned int code : {0u, 1101u, 1300u, 1315u, 0xFFFFFFFFu})
        QTest::addRow("%u", code) << code;
}

void tst_CTimelineManagerMessages::codesOutsideTheTableAreUnknownAndRaiseNothing()
{
    QFETCH(unsigned int, code);
    HostFixture fixture;
    QCOMPARE(fixture.manager->ReceiveMessage(code, nullptr, nullptr, 5, 5, 5), -1);
    QVERIFY(fixture.host.calls.isEmpty());
    QVERIFY(fixture.Window().calls.isEmpty());
}

void tst_CTimelineManagerMessages::aFrameThatTheManagerHoldsCallsNeitherWindowNorHost()
{
    HostFixture fixture;
    fixture.manager->SetCurrentFrame(12);
    fixture.ForgetCalls();
    QCOMPARE(fixture.manager->ReceiveMessage(1301, nullptr, nullptr, 12, 0, 0), 0);
    QCOMPARE(fixture.manager->ReceiveMessage(1302, nullptr, nullptr, 12, 0, 0), 0);
    QVERIFY(fixture.host.calls.isEmpty());
    QVERIFY(fixture.Window().calls.isEmpty());
}

void tst_CTimelineManagerMessages::aFinalNoticeFollowsThoughTheFrameIsStoredByThen()
{
    HostFixture fixture;
    fixture.manager->ReceiveMessage(1301, nullptr, nullptr, 12, 0, 0);
    fixture.manager->ReceiveMessage(1302, nullptr, nullptr, 12, 0, 0);
    QCOMPARE(fixture.host.calls, (QStringList{"frame 12 false", "frame 12 true"}));
    // The window hears of a frame once: the second notice changes nothing for it.
    QCOMPARE(fixture.Window().calls, QStringList{"frame 12"});
}

void tst_CTimelineManagerMessages::noSecondFinalNoticeIsGiven()
{
    HostFixture fixture;
    fixture.manager->ReceiveMessage(1301, nullptr, nullptr, 12, 0, 0);
    fixture.manager->ReceiveMessage(1302, nullptr, nullptr, 12, 0, 0);
    fixture.ForgetCalls();
    fixture.manager->ReceiveMessage(1302, nullptr, nullptr, 12, 0, 0);
    QVERIFY(fixture.host.calls.isEmpty());
}

void tst_CTimelineManagerMessages::aFinalNoticeOfANewFrameOwesNothing()
{
    HostFixture fixture;
    fixture.manager->ReceiveMessage(1301, nullptr, nullptr, 12, 0, 0);
    fixture.manager->ReceiveMessage(1302, nullptr, nullptr, 14, 0, 0);
    QCOMPARE(fixture.host.TakeCalls(), (QStringList{"frame 12 false", "frame 14 true"}));
    fixture.manager->ReceiveMessage(1302, nullptr, nullptr, 14, 0, 0);
    QVERIFY(fixture.host.calls.isEmpty());
}

void tst_CTimelineManagerMessages::aFinalNoticeOfANewFrameTellsTheWindow()
{
    HostFixture fixture;
    fixture.manager->ReceiveMessage(1302, nullptr, nullptr, 21, 0, 0);
    QCOMPARE(fixture.Window().calls, QStringList{"frame 21"});
    QCOMPARE(fixture.host.calls, QStringList{"frame 21 true"});
}

void tst_CTimelineManagerMessages::theFinalNoticeIsOwedThoughTheWindowMovedTheFrame()
{
    HostFixture fixture;
    fixture.Window().reaction = [&](const QString& line) {
        if (line == "frame 12")
            fixture.manager->ReceiveMessage(1302, nullptr, nullptr, 20, 0, 0);
    };
    fixture.manager->ReceiveMessage(1301, nullptr, nullptr, 12, 0, 0);
    QCOMPARE(fixture.host.TakeCalls(), (QStringList{"frame 20 true", "frame 12 false"}));
    fixture.manager->ReceiveMessage(1302, nullptr, nullptr, 20, 0, 0);
    QCOMPARE(fixture.host.TakeCalls(), QStringList{"frame 20 true"});
}

void tst_CTimelineManagerMessages::theMenuQueryHandsOverTheHostsList()
{
    HostFixture fixture;
    CTimelineTrackBase* const arm = fixture.Root(TL_TRACK_KEY, QStringLiteral("Arm"));
    std::vector<_tmpTLMenuMapData*> menu;
    // As the track reports it: the list's address travels as the first value.
    fixture.Container()->OnTrackMessage(1116, arm, 0, QVariant::fromValue<void*>(&menu), 0, 0);
    QCOMPARE(fixture.host.menuList, &menu);
}

void tst_CTimelineManagerMessages::aDropOfTheContainerReachesTheHost()
{
    HostFixture fixture;
    fixture.host.dropAnswer = true;
    CMyContainerInterface road(fixture.manager.get());
    static_assert(sizeof road == 2 * sizeof(void*));
    QVERIFY(road.OnContainerDrop(TL_DROP_CLIP, QStringLiteral("a.clp")));
    const VZ::CArrayList<CTimelineTrackBase*> tracks;
    fixture.host.editAnswer = 5;
    QCOMPARE(road.OnContainerTrackEdit(TL_EDIT_CUT, tracks, 1, 2), 5);
    QCOMPARE(road.OnContainerMessage(1313, nullptr, nullptr, 0, 0, 0), 0);
    QCOMPARE(fixture.host.calls, (QStringList{"drop 9 a.clp", "edit 12 [] 1 2", "changed"}));
}

void tst_CTimelineManagerMessages::theMenuQueryOfAHostIsPassedOn()
{
    HostFixture fixture;
    CTimelineTrackBase* const arm = fixture.Root(TL_TRACK_KEY, QStringLiteral("Arm"));
    std::vector<_tmpTLMenuMapData*> menu;
    QCOMPARE(fixture.manager->ReceiveMessage(1310, arm, &menu, 0, 0, 0), 0);
    QCOMPARE(fixture.host.menuList, &menu);
}

void tst_CTimelineManagerMessages::theRoadPassesEverythingOnUnchanged()
{
    HostFixture fixture;
    CTimelineTrackBase* const root = fixture.Root(TL_TRACK_CLIP, QStringLiteral("Root"));
    CTimelineTrackBase* const child = fixture.Child(root, TL_TRACK_KEY, QStringLiteral("Child"));
    fixture.ForgetCalls();
    CMyContainerInterface road(fixture.manager.get());
    QCOMPARE(road.OnContainerMessage(1305, root, child, 0, 0, 0), 0);
    QCOMPARE(road.OnContainerMessage(1309, child, nullptr, 0, 2, QPoint(3, 4)), 0);
    QCOMPARE(road.OnContainerMessage(1303, root, nullptr, 5, 1, 9), 0);
    QCOMPARE(road.OnContainerMessage(1301, root, nullptr, 5, 1, 9), 0);
    QCOMPARE(road.OnContainerMessage(1300, root, nullptr, 5, 1, 9), -1);
    VZ::CArrayList<CTimelineTrackBase*> tracks;
    tracks.Add(child);
    tracks.Add(root);
    QCOMPARE(road.OnContainerTrackEdit(TL_EDIT_PASTE, tracks, 7, -8), -1);
    QVERIFY(!road.OnContainerDrop(TL_DROP_SCRIPT, QStringLiteral("a.kxs")));
    QCOMPARE(fixture.host.calls,
             (QStringList{"active Root Child", "caption button Child 2 (3,4)", "mark 1 9 false",
                          "frame 5 false", "edit 14 [Child,Root] 7 -8", "drop 8 a.kxs"}));
}

void tst_CTimelineManagerMessages::aMarkMessageStoresTheMarkThatItNames_data()
{
    QTest::addColumn<unsigned int>("code");
    QTest::addColumn<QVariant>("mark");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("call");
    QTest::newRow("1303 start") << 1303u << QVariant(0) << 60 << 20 << "mark 0 60 false";
    QTest::newRow("1303 end") << 1303u << QVariant(1) << 10 << 60 << "mark 1 60 false";
    QTest::newRow("1303 any other is the end")
        << 1303u << QVariant(7) << 10 << 60 << "mark 7 60 false";
    QTest::newRow("1304 start") << 1304u << QVariant(0) << 60 << 20 << "mark 0 60 true";
    QTest::newRow("1304 end") << 1304u << QVariant(1) << 10 << 60 << "mark 1 60 true";
}

void tst_CTimelineManagerMessages::aMarkMessageStoresTheMarkThatItNames()
{
    QFETCH(unsigned int, code);
    QFETCH(QVariant, mark);
    QFETCH(QString, call);
    HostFixture fixture;
    fixture.manager->SetTimeMarkFrame(10, 20);
    QCOMPARE(fixture.manager->ReceiveMessage(code, nullptr, nullptr, 0, mark, 60), 0);
    QCOMPARE(fixture.host.calls, QStringList{call});
    int start = 0;
    int end = 0;
    // The timeline is where the report came from: only the manager's memory follows.
    fixture.manager->GetTimeMarkFrame(start, end);
    QCOMPARE(start, 10);
    QCOMPARE(end, 20);
    fixture.manager->ShowTimelineWnd(true);
    fixture.manager->GetTimeMarkFrame(start, end);
    QTEST(start, "start");
    QTEST(end, "end");
}

void tst_CTimelineManagerMessages::aMarkMessageReachesTheHostThoughNothingChanges()
{
    HostFixture fixture;
    fixture.manager->SetTimeMarkFrame(10, 20);
    fixture.manager->ReceiveMessage(1303, nullptr, nullptr, 0, 0, 10);
    fixture.manager->ReceiveMessage(1303, nullptr, nullptr, 0, 0, 10);
    fixture.manager->ReceiveMessage(1304, nullptr, nullptr, 0, 0, 10);
    QCOMPARE(fixture.host.calls,
             (QStringList{"mark 0 10 false", "mark 0 10 false", "mark 0 10 true"}));
}

void tst_CTimelineManagerMessages::onlyMarkMessagesStoreMarks()
{
    HostFixture fixture;
    fixture.manager->SetTimeMarkFrame(10, 20);
    fixture.manager->SetCurrentFrame(5);
    std::vector<_tmpTLMenuMapData*> menu;
    for (unsigned int code = 1305; code <= 1314; ++code)
        fixture.manager->ReceiveMessage(code, nullptr, code == 1310 ? &menu : nullptr, 60, 0, 60);
    fixture.manager->ShowTimelineWnd(true);
    int start = 0;
    int end = 0;
    fixture.manager->GetTimeMarkFrame(start, end);
    QCOMPARE(start, 10);
    QCOMPARE(end, 20);
    QCOMPARE(fixture.manager->GetCurrentFrame(), 5);
}

void tst_CTimelineManagerMessages::timeMarkMessagesStoreUnclamped_data()
{
    QTest::addColumn<unsigned int>("code");
    QTest::newRow("moved") << 1303u;
    QTest::newRow("let go") << 1304u;
}

void tst_CTimelineManagerMessages::timeMarkMessagesStoreUnclamped()
{
    QFETCH(unsigned int, code);
    HostFixture fixture;
    fixture.manager->ReceiveMessage(code, nullptr, nullptr, 0, 0, 150);
    fixture.manager->ReceiveMessage(code, nullptr, nullptr, 0, 1, 170);
    // What was stored is seen when the frame count has grown and the window is shown again.
    fixture.manager->SetFrameCount(1000);
    fixture.manager->ShowTimelineWnd(true);
    int start = 0;
    int end = 0;
    fixture.manager->GetTimeMarkFrame(start, end);
    QCOMPARE(start, 150);
    QCOMPARE(end, 170);
}

void tst_CTimelineManagerMessages::editsAreAnsweredByTheHost()
{
    HostFixture fixture;
    CTimelineTrackBase* const arm = fixture.Root(TL_TRACK_KEY, QStringLiteral("Arm"));
    CTimelineTrackBase* const leg = fixture.Root(TL_TRACK_KEY, QStringLiteral("Leg"));
    VZ::CArrayList<CTimelineTrackBase*> tracks;
    tracks.Add(arm);
    tracks.Add(leg);
    fixture.ForgetCalls();
    fixture.host.editAnswer = 6;
    QCOMPARE(fixture.manager->ReceiveTrackEdit(TL_EDIT_MOVE_KEYS, tracks, 5, -2), 6);
    QCOMPARE(fixture.host.calls, QStringList{"edit 2 [Arm,Leg] 5 -2"});
}

void tst_CTimelineManagerMessages::dropsAreAnsweredByTheHost()
{
    HostFixture fixture;
    QVERIFY(!fixture.manager->ReceiveTrackDrop(TL_DROP_SCRIPT, QStringLiteral("a.kxs")));
    fixture.host.dropAnswer = true;
    QVERIFY(fixture.manager->ReceiveTrackDrop(TL_DROP_SCRIPT, QStringLiteral("b.kxs")));
    QCOMPARE(fixture.host.calls, (QStringList{"drop 8 a.kxs", "drop 8 b.kxs"}));
}

void tst_CTimelineManagerMessages::aHostThatOverridesNothingDeclines()
{
    PrepareTimeline();
    CTimelineManagerInterface host;
    CTimelineManager manager(nullptr);
    manager.CreateTimelineManager(&host, std::wstring());
    const VZ::CArrayList<CTimelineTrackBase*> tracks;
    QCOMPARE(manager.ReceiveTrackEdit(TL_EDIT_CUT, tracks, 0, 0), -1);
    QVERIFY(!manager.ReceiveTrackDrop(TL_DROP_CLIP, QStringLiteral("a.clp")));
    for (unsigned int code = 1301; code <= 1314; ++code)
        QCOMPARE(manager.ReceiveMessage(code, nullptr, nullptr, 0, 0, 0), 0);
}

QTEST_MAIN(tst_CTimelineManagerMessages)
#include "tst_CTimelineManagerMessages.moc"
