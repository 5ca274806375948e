#include "container/CTimelineContainer.h"
#include "library/TimelineLibrary.h"
#include "support/HostFixture.h"
#include "support/TimelineFixture.h"
#include "tracks/CTimelineTrackBase.h"

#include <QApplication>
#include <QPointer>
#include <QTemporaryDir>
#include <QtTest>

#include <cstring>

using namespace KestovaTest;

namespace {

std::wstring DefaultSkin()
{
    return QStringLiteral(KESTOVA_SOURCE_DIR "/skins/default.ini").toStdWString();
}

} // namespace

/// The manager's life: creation order, window, remembered frame state, release and destruction.
class tst_CTimelineManager : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void constructionLoadsThePicturesOnce();
    void destroyingOneOfTwoManagersFreesThePicturesAndTheNextLoadsThemAgain();
    void everyOperationIsHarmlessBeforeAWindowExists();

    void mainWidgetBeforeTheFactoryIsRefusedAndTouchesNothing();
    void mainWidgetIsRefusedWhenTheFactoryMakesNoWindow();
    void mainWidgetCallsTheWindowInOrderAndPutsItIntoTheDock();
    void mainWidgetToleratesAMissingDock();
    void failingWindowCreationReleasesTheWindow();
    void failingContainerCreationReleasesTheWindow();
    void secondMainWidgetReleasesTheFirstWindow();

    void secondCreateKeepsTheFirstInterfaceAndReplacesTheSkinPath();

    void currentFrameSetBeforeTheWindowIsClampedAndShownLater();
    void withoutFramesShowingPushesMinusOneToTheWindowAndTheTimeMark();
    void showingPushesTheRememberedStateInOrder();
    void showingAnswersWhatTheWindowAnswers();
    void showingGivesTheTimelineTheFocus();

    void windowOperationsAreForwarded();
    void invalidatingLaysOutAndRepaintsTheWindow();
    void focusGoesToTheWindowsWidgetAndThenToTheContainer();
    void containerIsEnabledAndDisabled();

    void releasingTwiceAnswersTrueAndReleasesOnce();
    void releasingHidesTheTracksAndTheyCanBeShownInTheNextWindow();
    void tracksThatWereNeverShownSurviveTheRelease();
    void frameStateSurvivesTheWindow();
    void releasingWithoutAFactoryKeepsTheWindow();
    void aFurtherCreateGivesTheNextWindowItsOwnContainerInterface();
    void aWindowWithoutItsTimelineIsStillToldToRepaint();
    void aWindowMayHaveNoWidget();
    void aManagerWithoutATimelineDeletesItsTracks();
    void aWindowThatDiesWithoutItsTimelineLeavesNothingDangling();

    void destroyingTheManagerReleasesTheWindow();
    void copySharesEverything();
};

void tst_CTimelineManager::init()
{
    ResetAxis();
}

void tst_CTimelineManager::constructionLoadsThePicturesOnce()
{
    ImageTables& images = TimelineLibrary::Instance().images;
    images.Free();
    QVERIFY(!images.IsLoaded());
    const CTimelineManager first(nullptr);
    QVERIFY(images.IsLoaded());
    const int pictures = images.PictureCount(kCaptionPictures);
    QCOMPARE(pictures, 9);
    const CTimelineManager second(nullptr);
    QCOMPARE(images.PictureCount(kCaptionPictures), pictures);
}

void tst_CTimelineManager::destroyingOneOfTwoManagersFreesThePicturesAndTheNextLoadsThemAgain()
{
    ImageTables& images = TimelineLibrary::Instance().images;
    const CTimelineManager first(nullptr);
    {
        const CTimelineManager second(nullptr);
    }
    QVERIFY(!images.IsLoaded());
    QCOMPARE(images.PictureCount(kCaptionPictures), 0);
    QVERIFY(images.Picture(kCaptionPictures, 0).isNull());
    const CTimelineManager third(nullptr);
    QVERIFY(images.IsLoaded());
}

void tst_CTimelineManager::everyOperationIsHarmlessBeforeAWindowExists()
{
    QWidget parent;
    CTimelineManager manager(&parent);
    QCOMPARE(manager.GetParentWidget(), &parent);
    QVERIFY(!manager.GetTimelineWnd());
    QVERIFY(!manager.ShowTimelineWnd(true));
    QVERIFY(!manager.EnableTimelineWnd(true));
    QVERIFY(!manager.IsTimelineWndVisible());
    manager.UpdateTimelineWnd();
    manager.InvalidateTimeline();
    manager.SetTimelineWndFocus();
    manager.SetContainerEnabled(true);
    QVERIFY(manager.ReleaseTimelineWnd());
    QVERIFY(!manager.CreateTrack(TL_TRACK_KEY, QStringLiteral("Arm"), 1));
}

void tst_CTimelineManager::mainWidgetBeforeTheFactoryIsRefusedAndTouchesNothing()
{
    QMainWindow mainWindow;
    QDockWidget dock(&mainWindow);
    RecordingHost host;
    CTimelineManager manager(&mainWindow);
    manager.CreateTimelineManager(&host, DefaultSkin());
    QVERIFY(!manager.CreateTimelineMainWidget(&dock));
    QVERIFY(!dock.widget());
    QVERIFY(!manager.GetTimelineWnd());
    QVERIFY(host.calls.isEmpty());
}

void tst_CTimelineManager::mainWidgetIsRefusedWhenTheFactoryMakesNoWindow()
{
    QMainWindow mainWindow;
    QDockWidget dock(&mainWindow);
    TestFactory factory;
    CTimelineManager manager(&mainWindow);
    factory.refuses = true;
    manager.SetTimelineWndFactoryBase(&factory);
    QVERIFY(!manager.CreateTimelineMainWidget(&dock));
    QVERIFY(!manager.GetTimelineWnd());
    QCOMPARE(factory.released, 0);
}

void tst_CTimelineManager::mainWidgetCallsTheWindowInOrderAndPutsItIntoTheDock()
{
    QMainWindow mainWindow;
    QDockWidget dock(&mainWindow);
    RecordingHost host;
    TestFactory factory;
    CTimelineManager manager(&mainWindow);
    factory.prepare = [](TestWindow& window) { window.initialGeometry = QRect(5, 6, 700, 200); };
    manager.SetTimelineWndFactoryBase(&factory);
    manager.CreateTimelineManager(&host, DefaultSkin());
    QVERIFY(manager.CreateTimelineMainWidget(&dock));

    TestWindow& window = *factory.window;
    QCOMPARE(manager.GetTimelineWnd(), &window);
    QCOMPARE(dock.widget(), window.GetWidget());
    QStringList calls = window.TakeCalls();
    calls.removeAll(QStringLiteral("refreshed"));
    QCOMPARE(calls, (QStringList{"create", "geometry (0,0,-1,-1)", "after create"}));
    const CTimelineContainer* const container = window.GetContainer();
    QVERIFY(container);
    QCOMPARE(container->parentWidget(), window.GetWidget());
    QCOMPARE(container->pos(), QPoint(5, 6));
    QCOMPARE(container->width(), 700);
    QVERIFY(container->TickTrack());
    QVERIFY(container->ScrollTrack());
    QVERIFY(container->HasOwner());
}

void tst_CTimelineManager::mainWidgetToleratesAMissingDock()
{
    QMainWindow mainWindow;
    RecordingHost host;
    TestFactory factory;
    CTimelineManager manager(&mainWindow);
    manager.SetTimelineWndFactoryBase(&factory);
    manager.CreateTimelineManager(&host, DefaultSkin());
    QVERIFY(manager.CreateTimelineMainWidget(nullptr));
    QVERIFY(manager.GetTimelineWnd());
}

void tst_CTimelineManager::failingWindowCreationReleasesTheWindow()
{
    QMainWindow mainWindow;
    QDockWidget dock(&mainWindow);
    RecordingHost host;
    TestFactory factory;
    CTimelineManager manager(&mainWindow);
    QStringList seen;
    factory.prepare = [&seen](TestWindow& window) {
        window.createAnswer = false;
        window.reaction = [&seen](const QString& line) { seen << line; };
    };
    manager.SetTimelineWndFactoryBase(&factory);
    manager.CreateTimelineManager(&host, DefaultSkin());
    QVERIFY(!manager.CreateTimelineMainWidget(&dock));
    QVERIFY(!manager.GetTimelineWnd());
    QCOMPARE(factory.made, 1);
    QCOMPARE(factory.released, 1);
    // None of the half-made window's other operations was called.
    QCOMPARE(seen, QStringList{"create"});
}

void tst_CTimelineManager::failingContainerCreationReleasesTheWindow()
{
    QMainWindow mainWindow;
    QDockWidget dock(&mainWindow);
    RecordingHost host;
    TestFactory factory;
    CTimelineManager manager(&mainWindow);
    manager.SetTimelineWndFactoryBase(&factory);
    // Without a skin the ruler has no style.
    manager.CreateTimelineManager(&host, L"/no/such/skin.ini");
    QVERIFY(!manager.CreateTimelineMainWidget(&dock));
    QVERIFY(!manager.GetTimelineWnd());
    QCOMPARE(factory.released, 1);
}

void tst_CTimelineManager::secondMainWidgetReleasesTheFirstWindow()
{
    HostFixture fixture;
    QVERIFY(fixture.manager->CreateTimelineMainWidget(fixture.dock));
    QCOMPARE(fixture.factory.made, 2);
    QCOMPARE(fixture.factory.released, 1);
    QCOMPARE(fixture.manager->GetTimelineWnd(), fixture.factory.window);
}

void tst_CTimelineManager::secondCreateKeepsTheFirstInterfaceAndReplacesTheSkinPath()
{
    HostFixture fixture;
    RecordingHost other;
    QVERIFY(fixture.manager->CreateTimelineManager(&other, L"/elsewhere.ini"));
    QVERIFY(TimelineLibrary::Instance().skinPath == L"/elsewhere.ini");
    fixture.manager->ReceiveMessage(1313, nullptr, nullptr, 0, 0, 0);
    QCOMPARE(fixture.host.TakeCalls(), QStringList{"changed"});
    QVERIFY(other.calls.isEmpty());
    // The container still speaks through the interface that it was given first.
    fixture.Container()->SendToHost(1312, nullptr, nullptr);
    QCOMPARE(fixture.host.TakeCalls(), QStringList{"cleared"});
}

void tst_CTimelineManager::currentFrameSetBeforeTheWindowIsClampedAndShownLater()
{
    QMainWindow mainWindow;
    QDockWidget dock(&mainWindow);
    RecordingHost host;
    TestFactory factory;
    CTimelineManager manager(&mainWindow);
    manager.SetTimelineWndFactoryBase(&factory);
    manager.CreateTimelineManager(&host, DefaultSkin());
    manager.SetFrameCount(5);
    manager.SetCurrentFrame(10);
    // Clamped when it was set: a frame count that grows afterwards does not bring 10 back.
    manager.SetFrameCount(100);
    QVERIFY(manager.CreateTimelineMainWidget(&dock));
    factory.window->TakeCalls();
    manager.ShowTimelineWnd(true);
    QCOMPARE(manager.GetCurrentFrame(), 4);
    QVERIFY(factory.window->calls.contains(QStringLiteral("frame 4")));
    QVERIFY(host.calls.isEmpty());
}

void tst_CTimelineManager::withoutFramesShowingPushesMinusOneToTheWindowAndTheTimeMark()
{
    HostFixture fixture;
    fixture.manager->SetFrameCount(0);
    fixture.ForgetCalls();
    fixture.manager->ShowTimelineWnd(true);
    QVERIFY(fixture.Window().calls.contains(QStringLiteral("frame -1")));
    int start = 0;
    int end = 0;
    fixture.manager->GetTimeMarkFrame(start, end);
    QCOMPARE(start, -1);
    QCOMPARE(end, -1);
    // The timeline clamps on its own, and never below 0.
    QCOMPARE(fixture.manager->GetCurrentFrame(), 0);
}

void tst_CTimelineManager::showingPushesTheRememberedStateInOrder()
{
    HostFixture fixture;
    fixture.manager->SetFrameCount(80);
    fixture.manager->SetCurrentFrame(30);
    fixture.manager->SetTimeMarkFrame(10, 20);
    fixture.manager->SetFrameCount(15);
    fixture.ForgetCalls();
    int markWhenShown = -1;
    fixture.Window().reaction = [&](const QString& line) {
        int markEnd = 0;
        if (line == QStringLiteral("show true"))
            fixture.manager->GetTimeMarkFrame(markWhenShown, markEnd);
    };
    fixture.manager->ShowTimelineWnd(true);
    QStringList calls = fixture.Window().calls;
    calls.removeAll(QStringLiteral("refreshed"));
    QCOMPARE(calls, (QStringList{"frame 14", "show true"}));
    QCOMPARE(markWhenShown, 10);
    int start = 0;
    int end = 0;
    fixture.manager->GetTimeMarkFrame(start, end);
    QCOMPARE(start, 10);
    QCOMPARE(end, 14);
    QCOMPARE(TimelineLibrary::Instance().axis.frameCount, 15);
}

void tst_CTimelineManager::showingAnswersWhatTheWindowAnswers()
{
    HostFixture fixture;
    fixture.Window().answer = false;
    QVERIFY(!fixture.manager->ShowTimelineWnd(true));
    fixture.Window().answer = true;
    QVERIFY(fixture.manager->ShowTimelineWnd(false));
    QVERIFY(fixture.Window().calls.contains(QStringLiteral("show false")));
}

void tst_CTimelineManager::showingGivesTheTimelineTheFocus()
{
    HostFixture fixture;
    fixture.mainWindow.setFocus();
    fixture.manager->ShowTimelineWnd(true);
    QVERIFY(fixture.Container()->hasFocus());
}

void tst_CTimelineManager::windowOperationsAreForwarded()
{
    HostFixture fixture;
    QVERIFY(fixture.manager->EnableTimelineWnd(true));
    QVERIFY(fixture.manager->IsTimelineWndVisible());
    fixture.manager->UpdateTimelineWnd();
    QCOMPARE(fixture.Window().TakeCalls(), (QStringList{"enable true", "visible", "update"}));
    fixture.Window().answer = false;
    QVERIFY(!fixture.manager->EnableTimelineWnd(false));
    QVERIFY(!fixture.manager->IsTimelineWndVisible());
    QCOMPARE(fixture.Window().TakeCalls(), (QStringList{"enable false", "visible"}));
}

void tst_CTimelineManager::invalidatingLaysOutAndRepaintsTheWindow()
{
    HostFixture fixture;
    fixture.manager->InvalidateTimeline();
    const QStringList calls = fixture.Window().TakeCalls();
    QVERIFY(calls.contains(QStringLiteral("refreshed")));
    QCOMPARE(calls.last(), QStringLiteral("repaint"));
}

void tst_CTimelineManager::focusGoesToTheWindowsWidgetAndThenToTheContainer()
{
    HostFixture fixture;
    QStringList focused;
    QWidget* const widget = fixture.Window().GetWidget();
    widget->setFocusPolicy(Qt::StrongFocus);
    fixture.mainWindow.setFocus();
    connect(qApp, &QApplication::focusChanged, this, [&](QWidget*, QWidget* now) {
        if (now == widget)
            focused << QStringLiteral("widget");
        else if (now == fixture.Container())
            focused << QStringLiteral("container");
    });
    fixture.manager->SetTimelineWndFocus();
    disconnect(qApp, &QApplication::focusChanged, this, nullptr);
    QCOMPARE(focused, (QStringList{"widget", "container"}));
}

void tst_CTimelineManager::containerIsEnabledAndDisabled()
{
    HostFixture fixture;
    fixture.manager->SetContainerEnabled(false);
    QVERIFY(!fixture.Container()->isEnabled());
    QVERIFY(fixture.Window().GetWidget()->isEnabled());
    fixture.manager->SetContainerEnabled(true);
    QVERIFY(fixture.Container()->isEnabled());
}

void tst_CTimelineManager::releasingTwiceAnswersTrueAndReleasesOnce()
{
    HostFixture fixture;
    QVERIFY(fixture.manager->ReleaseTimelineWnd());
    QVERIFY(!fixture.manager->GetTimelineWnd());
    QCOMPARE(fixture.factory.released, 1);
    QVERIFY(fixture.manager->ReleaseTimelineWnd());
    QCOMPARE(fixture.factory.released, 1);
}

void tst_CTimelineManager::releasingHidesTheTracksAndTheyCanBeShownInTheNextWindow()
{
    HostFixture fixture;
    CTimelineTrackBase* const body = fixture.Root(TL_TRACK_CLIP, QStringLiteral("Body"));
    CTimelineTrackBase* const arm = fixture.Child(body, TL_TRACK_KEY, QStringLiteral("Arm"));
    fixture.manager->ReleaseTimelineWnd();
    QVERIFY(fixture.manager->IsTrackExist(body));
    QVERIFY(fixture.manager->IsTrackExist(arm));
    QVERIFY(!arm->GetParentTrack());
    QCOMPARE(arm->parentWidget(), static_cast<QWidget*>(&fixture.mainWindow));

    QVERIFY(fixture.manager->CreateTimelineMainWidget(fixture.dock));
    fixture.manager->ShowTimelineWnd(true);
    QVERIFY(fixture.manager->ShowRootTrack(body, 0, true));
    QVERIFY(fixture.manager->ShowChildTrack(body, arm, 0, true));
    fixture.Settle();
    QVERIFY(arm->isVisible());
}

void tst_CTimelineManager::tracksThatWereNeverShownSurviveTheRelease()
{
    HostFixture fixture;
    CTimelineTrackBase* const arm =
        fixture.manager->CreateTrack(TL_TRACK_KEY, QStringLiteral("Arm"), 1);
    fixture.manager->ReleaseTimelineWnd();
    QVERIFY(fixture.manager->IsTrackExist(arm));
    QCOMPARE(fixture.manager->GetTrackType(arm), TL_TRACK_KEY);
    // Without a timeline the manager deletes what it has made.
    const QPointer<CTimelineTrackBase> watched(arm);
    QVERIFY(fixture.manager->DeleteAllTrack());
    QVERIFY(watched.isNull());
    QVERIFY(!fixture.manager->IsTrackExist(arm));
}

void tst_CTimelineManager::frameStateSurvivesTheWindow()
{
    HostFixture fixture;
    fixture.manager->SetFrameCount(60);
    fixture.manager->SetCurrentFrame(33);
    fixture.manager->SetTimeMarkFrame(4, 40);
    fixture.manager->ReleaseTimelineWnd();
    ResetAxis();
    fixture.manager->CreateTimelineMainWidget(fixture.dock);
    fixture.manager->ShowTimelineWnd(true);
    QCOMPARE(fixture.manager->GetFrameCount(), 60);
    QCOMPARE(TimelineLibrary::Instance().axis.frameCount, 60);
    QCOMPARE(fixture.manager->GetCurrentFrame(), 33);
    int start = 0;
    int end = 0;
    fixture.manager->GetTimeMarkFrame(start, end);
    QCOMPARE(start, 4);
    QCOMPARE(end, 40);
}

void tst_CTimelineManager::releasingWithoutAFactoryKeepsTheWindow()
{
    HostFixture fixture;
    fixture.manager->SetTimelineWndFactoryBase(nullptr);
    QVERIFY(fixture.manager->ReleaseTimelineWnd());
    QVERIFY(fixture.manager->GetTimelineWnd());
    fixture.manager->SetTimelineWndFactoryBase(&fixture.factory);
}

void tst_CTimelineManager::aFurtherCreateGivesTheNextWindowItsOwnContainerInterface()
{
    HostFixture fixture;
    const auto interfaceOf = [](const CTimelineManager& manager) {
        void* pointer = nullptr;
        std::memcpy(&pointer, reinterpret_cast<const char*>(&manager) + 40, sizeof pointer);
        return pointer;
    };
    void* const first = interfaceOf(*fixture.manager);
    QVERIFY(fixture.manager->CreateTimelineManager(&fixture.host, DefaultSkin()));
    QVERIFY(interfaceOf(*fixture.manager) != first);
    QVERIFY(fixture.manager->CreateTimelineMainWidget(fixture.dock));
    fixture.ForgetCalls();
    fixture.Container()->SendToHost(1312, nullptr, nullptr);
    QCOMPARE(fixture.host.calls, QStringList{"cleared"});
}

void tst_CTimelineManager::aWindowWithoutItsTimelineIsStillToldToRepaint()
{
    HostFixture fixture;
    delete fixture.Container();
    fixture.ForgetCalls();
    fixture.manager->InvalidateTimeline();
    QCOMPARE(fixture.Window().calls, QStringList{"repaint"});
}

void tst_CTimelineManager::aWindowMayHaveNoWidget()
{
    QMainWindow mainWindow;
    QDockWidget dock(&mainWindow);
    RecordingHost host;
    TestFactory factory;
    factory.prepare = [](TestWindow& window) { delete window.GetWidget(); };
    CTimelineManager manager(&mainWindow);
    manager.SetTimelineWndFactoryBase(&factory);
    manager.CreateTimelineManager(&host, DefaultSkin());
    QVERIFY(manager.CreateTimelineMainWidget(&dock));
    QVERIFY(!dock.widget());
    QVERIFY(!factory.window->GetContainer()->parentWidget());
    manager.ShowTimelineWnd(true);
    manager.SetTimelineWndFocus();
}

void tst_CTimelineManager::aManagerWithoutATimelineDeletesItsTracks()
{
    HostFixture fixture;
    const QPointer<CTimelineTrackBase> arm = fixture.Root(TL_TRACK_KEY, QStringLiteral("Arm"));
    fixture.manager->ReleaseTimelineWnd();
    QVERIFY(!arm.isNull());
    fixture.manager.reset();
    QVERIFY(arm.isNull());
}

void tst_CTimelineManager::aWindowThatDiesWithoutItsTimelineLeavesNothingDangling()
{
    HostFixture fixture;
    const QPointer<CTimelineContainer> container = fixture.Container();
    // The timeline widget goes with its Qt parent before its window does.
    delete container.data();
    QVERIFY(!fixture.Window().GetContainer());
    QVERIFY(!fixture.Window().CanDoZoomIn());
    fixture.manager->SetFrameCount(10);
    QCOMPARE(fixture.manager->GetCurrentFrame(), 0);
    QVERIFY(fixture.manager->ReleaseTimelineWnd());
}

void tst_CTimelineManager::destroyingTheManagerReleasesTheWindow()
{
    HostFixture fixture;
    const QPointer<CTimelineTrackBase> arm = fixture.Root(TL_TRACK_KEY, QStringLiteral("Arm"));
    fixture.manager.reset();
    QCOMPARE(fixture.factory.released, 1);
    // A shown track is parked in the manager's parent widget and goes with that.
    QVERIFY(!arm.isNull());
    QCOMPARE(arm->parentWidget(), static_cast<QWidget*>(&fixture.mainWindow));
}

void tst_CTimelineManager::copySharesEverything()
{
    HostFixture fixture;
    CTimelineTrackBase* const arm = fixture.Root(TL_TRACK_KEY, QStringLiteral("Arm"));
    {
        auto* const copy = new CTimelineManager(*fixture.manager);
        QCOMPARE(copy->GetTimelineWnd(), fixture.manager->GetTimelineWnd());
        QVERIFY(copy->IsTrackExist(arm));
        QCOMPARE(copy->GetFrameCount(), 100);
        CTimelineManager assigned(nullptr);
        assigned = *copy;
        QCOMPARE(assigned.GetTimelineWnd(), fixture.manager->GetTimelineWnd());
        // The copies go after the original's window was released through it.
        fixture.manager->ReleaseTimelineWnd();
        assigned = *fixture.manager;
        *copy = *fixture.manager;
        QVERIFY(!copy->GetTimelineWnd());
        fixture.manager->DeleteAllTrack();
        *copy = *fixture.manager;
        assigned = *fixture.manager;
        delete copy;
    }
    TimelineLibrary::Instance().images.Load();
}

QTEST_MAIN(tst_CTimelineManager)
#include "tst_CTimelineManager.moc"
