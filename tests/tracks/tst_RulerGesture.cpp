#include "MessageSpy.h"
#include "container/CTimelineContainer.h"
#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "support/HostFixture.h"
#include "support/PaintCounter.h"
#include "support/Pointer.h"
#include "tracks/CTimelineTrackTick.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTimer>
#include <QtTest>

#include <memory>

using namespace KestovaTest;

namespace {

constexpr int kPixelsPerFrame = 6;
constexpr int kMarkerY = 5; // inside the markers
constexpr int kPlainY = 20; // below them

/// What a host may do to its timeline from a callback.
using Deed = std::function<void(HostFixture&)>;

void DeleteDock(HostFixture& fixture)
{
    delete fixture.dock;
}
void DeleteManager(HostFixture& fixture)
{
    fixture.manager.reset();
}
void ReleaseWindow(HostFixture& fixture)
{
    fixture.manager->ReleaseTimelineWnd();
}
void DeleteContainer(HostFixture& fixture)
{
    delete fixture.Container();
}

} // namespace

Q_DECLARE_METATYPE(Deed)

/// The left button on the frame ruler, from the press to what the host hears of it.
class tst_RulerGesture : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;
    std::unique_ptr<Pointer> m_pointer;
    QLineEdit* m_elsewhere = nullptr;

    CTimelineTrackTick* Ruler() const { return m_fixture->Container()->TickTrack(); }
    static FrameAxis& Axis() { return TimelineLibrary::Instance().axis; }
    QStringList Calls() { return m_fixture->host.TakeCalls(); }

    /// The middle of a frame's cell, below the markers.
    QPoint Cell(int frame) const
    {
        return QPoint(Ruler()->FrameToPixel(frame) + kPixelsPerFrame / 2, kPlainY);
    }
    QPoint StartMarker() const
    {
        return QPoint(Ruler()->FrameToPixel(Ruler()->TimeMarkStart()) + 8, kMarkerY);
    }
    QPoint EndMarker() const
    {
        return QPoint(Ruler()->FrameToPixel(Ruler()->TimeMarkEnd() + 1) - 8, kMarkerY);
    }
    void Press(QPoint point) { m_pointer->Press(Ruler(), point); }
    void MoveTo(QPoint point) { m_pointer->MoveTo(Ruler(), point); }
    void Release() { m_pointer->Release(); }
    void MarkFrames(int start, int end) { m_fixture->manager->SetTimeMarkFrame(start, end); }
    void SendMouse(QEvent::Type type, QPoint point, Qt::MouseButton button,
                   Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, point, Ruler()->mapToGlobal(point), button, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(Ruler(), &event);
    }
    /// The next press must start a gesture that knows nothing of the one before.
    void VerifyStartsClean()
    {
        Calls();
        Press(Cell(30));
        MoveTo(Cell(31));
        Release();
        QCOMPARE(Calls(), (QStringList{"frame 30 false", "frame 31 false", "frame 31 true"}));
    }

private slots:
    void init();
    void cleanup();

    void dragsTheCurrentFrame();
    void reportsThePressFirst();
    void saysNothingOfAMoveInsideTheFrame();
    void saysNothingOfAClickOnTheCurrentFrame();
    void stopsAtBothEndsOfTheAxis();
    void stopsAtTheLastFrameOfAShortTimeline();
    void findsTheFrameInAScrolledView();
    void findsTheFrameWithSeveralFramesToThePixel();
    void answersMinusOneWithoutFrames();

    void dragsTheStartMarker();
    void dragsTheEndMarker();
    void reportsTheMarkersFrameAtThePress();
    void theEndMarkerWinsWhereBothStand();
    void aStartMarkerDraggedPastTheEndMarkerStopsAtItsFrame();
    void anEndMarkerDraggedBeforeTheStartMarkerStopsAtItsFrame();
    void markersStopAtTheEndsOfTheAxis();
    void markersSetInReverseOrderAreMetAsTheyStand();
    void aMarkerInsideTheCurrentFramesCellIsNotGrabbed();
    void aMarkerAtTheCurrentFrameIsGrabbedWithSeveralFramesToThePixel();
    void aNewRulersMarkersStandAtFrames0And1();
    void repaintsForAMarker();

    void otherButtonsDoNothing();
    void otherButtonsDoNotDisturbADrag();
    void movesWithoutAGestureDoNothing();
    void everyEventGoesOnToTheContainer();
    void hasTheFocusOnlyWhileItIsDragged();
    void aDoubleClickLeavesNoGesture();

    void endsWithAMoveThatFindsTheButtonUp();
    void endsAMarkerWithAMoveThatFindsTheButtonUp();
    void endsWithAMoveOfTheLeftButtonItself();
    void endsBeforeAnotherPress();
    void endsWhenTheFocusGoesElsewhere();
    void endsWhenItIsHidden();
    void endsWhenTheWindowIsHidden();
    void endsWhenACallbackOpensAModalDialog();
    void endsAMarkerWhenACallbackOpensAModalDialog();
    void endsWhenADialogOpensInTheReportOfThePress();
    void grabsNothingWhenTheButtonGoesUpInTheReportOfThePress();

    void followsAHostThatSnapsTheFrame();
    void followsAHostThatMovesTheMarkers();
    void survivesTheHostsDeedInACallback_data();
    void survivesTheHostsDeedInACallback();
    void survivesTheHostsDeedAtALostEnd_data();
    void survivesTheHostsDeedAtALostEnd();
    void keepsQuietAfterItWasReleasedDuringADrag();
};

void tst_RulerGesture::init()
{
    m_fixture = std::make_unique<HostFixture>();
    m_elsewhere = new QLineEdit;
    m_fixture->mainWindow.setCentralWidget(m_elsewhere);
    Axis().info = CFrameInfo(kPixelsPerFrame);
    Axis().scrollX = 0;
    MarkFrames(20, 40);
    m_fixture->Settle();
    m_fixture->ForgetCalls();
    m_pointer = std::make_unique<Pointer>(m_fixture->Container());
    EnterWindow(m_fixture->Container());
}

void tst_RulerGesture::cleanup()
{
    m_pointer.reset();
    m_fixture.reset();
}

void tst_RulerGesture::dragsTheCurrentFrame()
{
    Press(Cell(10));
    QCOMPARE(Axis().currentFrame, 10);
    MoveTo(Cell(12));
    QCOMPARE(Axis().currentFrame, 12);
    MoveTo(Cell(7));
    Release();
    QCOMPARE(Calls(),
             (QStringList{"frame 10 false", "frame 12 false", "frame 7 false", "frame 7 true"}));
    QCOMPARE(m_fixture->manager->GetCurrentFrame(), 7);
}

void tst_RulerGesture::reportsThePressFirst()
{
    MessageSpy spy(Ruler());
    Press(Cell(10));
    MoveTo(Cell(12));
    Release();
    QCOMPARE(spy.TakeMessages(), (QStringList{"1108 (0, 0, 0, 0)", "1104 (0, 0, 0, 0)",
                                              "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
    Press(EndMarker());
    MoveTo(Cell(50));
    Release();
    QCOMPARE(spy.TakeMessages(), (QStringList{"1108 (0, 0, 0, 0)", "1106 (0, 0, 1, 40)",
                                              "1106 (0, 0, 1, 50)", "1107 (0, 0, 1, 50)"}));
}

void tst_RulerGesture::saysNothingOfAMoveInsideTheFrame()
{
    Press(Cell(10));
    MoveTo(Cell(10) + QPoint(1, 0));
    MoveTo(Cell(10) + QPoint(2, 3));
    Release();
    QCOMPARE(Calls(), (QStringList{"frame 10 false", "frame 10 true"}));
}

void tst_RulerGesture::saysNothingOfAClickOnTheCurrentFrame()
{
    Press(Cell(0));
    Release();
    QCOMPARE(Calls(), QStringList());
}

void tst_RulerGesture::stopsAtBothEndsOfTheAxis()
{
    Press(Cell(10));
    MoveTo(QPoint(-200, kPlainY));
    MoveTo(QPoint(5000, kPlainY));
    Release();
    QCOMPARE(Calls(),
             (QStringList{"frame 10 false", "frame 0 false", "frame 99 false", "frame 99 true"}));
}

void tst_RulerGesture::stopsAtTheLastFrameOfAShortTimeline()
{
    Axis().frameCount = 20;
    Press(Cell(30));
    Release();
    QCOMPARE(Calls(), (QStringList{"frame 19 false", "frame 19 true"}));
}

void tst_RulerGesture::findsTheFrameInAScrolledView()
{
    Axis().scrollX = 50 * kPixelsPerFrame + 2;
    Press(QPoint(kPixelsPerFrame - 3, kPlainY));
    MoveTo(QPoint(kPixelsPerFrame - 2, kPlainY));
    Release();
    QCOMPARE(Calls(), (QStringList{"frame 50 false", "frame 51 false", "frame 51 true"}));
}

void tst_RulerGesture::findsTheFrameWithSeveralFramesToThePixel()
{
    Axis().frameCount = 5000;
    Axis().info = CFrameInfo(0.3); // four frames to the pixel
    QVERIFY(Axis().IsFramesPerPixel());
    const int k = Axis().info.framesPerPixel;
    Press(QPoint(100, kPlainY));
    MoveTo(QPoint(101, kPlainY));
    Release();
    QCOMPARE(Calls(), (QStringList{QStringLiteral("frame %1 false").arg(100 * k),
                                   QStringLiteral("frame %1 false").arg(101 * k),
                                   QStringLiteral("frame %1 true").arg(101 * k)}));
}

void tst_RulerGesture::answersMinusOneWithoutFrames()
{
    m_fixture->manager->SetFrameCount(0);
    Calls();
    Press(QPoint(100, kPlainY));
    QCOMPARE(Axis().currentFrame, -1);
    Release();
    QCOMPARE(Axis().currentFrame, -1);
}

void tst_RulerGesture::dragsTheStartMarker()
{
    Press(StartMarker());
    MoveTo(Cell(15));
    MoveTo(Cell(25));
    Release();
    QCOMPARE(Calls(), (QStringList{"mark 0 20 false", "mark 0 15 false", "mark 0 25 false",
                                   "mark 0 25 true"}));
    QCOMPARE(Ruler()->TimeMarkStart(), 25);
    QCOMPARE(Ruler()->TimeMarkEnd(), 40);
    QCOMPARE(Axis().currentFrame, 0);
}

void tst_RulerGesture::dragsTheEndMarker()
{
    Press(EndMarker());
    MoveTo(Cell(45));
    MoveTo(Cell(35));
    Release();
    QCOMPARE(Calls(), (QStringList{"mark 1 40 false", "mark 1 45 false", "mark 1 35 false",
                                   "mark 1 35 true"}));
    QCOMPARE(Ruler()->TimeMarkStart(), 20);
    QCOMPARE(Ruler()->TimeMarkEnd(), 35);
    QCOMPARE(Axis().currentFrame, 0);
}

void tst_RulerGesture::reportsTheMarkersFrameAtThePress()
{
    // Eight pixels into the marker the pointer stands on another frame.
    QVERIFY(Ruler()->PixelToFrame(StartMarker().x()) != 20);
    Press(StartMarker());
    Release();
    QCOMPARE(Calls(), (QStringList{"mark 0 20 false", "mark 0 20 true"}));
}

void tst_RulerGesture::theEndMarkerWinsWhereBothStand()
{
    MarkFrames(20, 21);
    const QPoint both(Ruler()->FrameToPixel(20) + 3, kMarkerY);
    Press(both);
    Release();
    QCOMPARE(Calls(), (QStringList{"mark 1 21 false", "mark 1 21 true"}));
}

void tst_RulerGesture::aStartMarkerDraggedPastTheEndMarkerStopsAtItsFrame()
{
    Press(StartMarker());
    MoveTo(Cell(70));
    Release();
    QCOMPARE(Calls(), (QStringList{"mark 0 20 false", "mark 0 40 false", "mark 0 40 true"}));
}

void tst_RulerGesture::anEndMarkerDraggedBeforeTheStartMarkerStopsAtItsFrame()
{
    Press(EndMarker());
    MoveTo(Cell(3));
    Release();
    QCOMPARE(Calls(), (QStringList{"mark 1 40 false", "mark 1 20 false", "mark 1 20 true"}));
}

void tst_RulerGesture::markersStopAtTheEndsOfTheAxis()
{
    Press(StartMarker());
    MoveTo(QPoint(-90, kPlainY));
    Release();
    Press(EndMarker());
    MoveTo(QPoint(9000, kPlainY));
    Release();
    QCOMPARE(Calls(), (QStringList{"mark 0 20 false", "mark 0 0 false", "mark 0 0 true",
                                   "mark 1 40 false", "mark 1 99 false", "mark 1 99 true"}));
}

void tst_RulerGesture::markersSetInReverseOrderAreMetAsTheyStand()
{
    MarkFrames(60, 30);
    Press(StartMarker());
    Release();
    QCOMPARE(Calls(), (QStringList{"mark 0 60 false", "mark 0 60 true"}));
    QCOMPARE(Ruler()->TimeMarkStart(), 60);
    Press(StartMarker());
    MoveTo(Cell(61)); // the first step brings it before the end marker
    MoveTo(Cell(25));
    Release();
    QCOMPARE(Calls(), (QStringList{"mark 0 60 false", "mark 0 30 false", "mark 0 25 false",
                                   "mark 0 25 true"}));
}

void tst_RulerGesture::aMarkerInsideTheCurrentFramesCellIsNotGrabbed()
{
    m_fixture->manager->SetCurrentFrame(20);
    m_fixture->ForgetCalls();
    const int x = Ruler()->FrameToPixel(20);
    Press(QPoint(x + kPixelsPerFrame, kMarkerY)); // the cell's right edge, frame 21
    Release();
    QCOMPARE(Calls(), (QStringList{"frame 21 false", "frame 21 true"}));
    QCOMPARE(Ruler()->TimeMarkStart(), 20);

    m_fixture->manager->SetCurrentFrame(20);
    m_fixture->ForgetCalls();
    Press(QPoint(x + kPixelsPerFrame + 1, kMarkerY)); // beside the cell, still on the marker
    Release();
    QCOMPARE(Calls(), (QStringList{"mark 0 20 false", "mark 0 20 true"}));
}

void tst_RulerGesture::aMarkerAtTheCurrentFrameIsGrabbedWithSeveralFramesToThePixel()
{
    m_fixture->manager->SetFrameCount(5000);
    Axis().info = CFrameInfo(0.3);
    Axis().scrollX = 0;
    MarkFrames(400, 900);
    m_fixture->manager->SetCurrentFrame(400);
    m_fixture->ForgetCalls();
    QCOMPARE(Ruler()->PixelToFrame(Ruler()->FrameToPixel(400)), 400);
    Press(QPoint(Ruler()->FrameToPixel(400), kMarkerY));
    Release();
    QCOMPARE(Calls(), (QStringList{"mark 0 400 false", "mark 0 400 true"}));
}

void tst_RulerGesture::aNewRulersMarkersStandAtFrames0And1()
{
    m_fixture->manager->ReleaseTimelineWnd();
    m_fixture->manager->CreateTimelineMainWidget(m_fixture->dock);
    QCOMPARE(Ruler()->TimeMarkStart(), 0);
    QCOMPARE(Ruler()->TimeMarkEnd(), 1);
}

void tst_RulerGesture::repaintsForAMarker()
{
    Press(StartMarker());
    m_fixture->Settle();
    PaintCounter counter(*m_fixture->Container());
    MoveTo(Cell(30));
    m_fixture->Settle();
    QVERIFY(counter.paints > 0);
    Release();
}

void tst_RulerGesture::otherButtonsDoNothing()
{
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        for (const QPoint point : {Cell(50), StartMarker()}) {
            m_pointer->Press(Ruler(), point, button);
            MoveTo(Cell(55));
            m_pointer->Release(button);
        }
    }
    QCOMPARE(Calls().filter("frame") + Calls().filter("mark"), QStringList());
    QCOMPARE(Axis().currentFrame, 0);
    QCOMPARE(Ruler()->TimeMarkStart(), 20);
}

void tst_RulerGesture::otherButtonsDoNotDisturbADrag()
{
    Press(Cell(10));
    m_pointer->Press(Ruler(), Cell(10), Qt::MiddleButton);
    MoveTo(Cell(12));
    m_pointer->Release(Qt::MiddleButton);
    MoveTo(Cell(13));
    Release();
    QCOMPARE(Calls(),
             (QStringList{"frame 10 false", "frame 12 false", "frame 13 false", "frame 13 true"}));
}

void tst_RulerGesture::movesWithoutAGestureDoNothing()
{
    MoveTo(Cell(10));
    MoveTo(StartMarker());
    MoveTo(EndMarker());
    QCOMPARE(Calls(), QStringList());
    QCOMPARE(Axis().currentFrame, 0);
}

void tst_RulerGesture::everyEventGoesOnToTheContainer()
{
    m_fixture->Container()->setMouseTracking(true); // or it hears of no move without a button
    MouseEventLog log(m_fixture->Container());
    Press(Cell(10));
    MoveTo(Cell(12));
    Release();
    QCOMPARE(log.TakeEvents(), (QStringList{"move", "press", "move", "release"}));
    Press(StartMarker());
    MoveTo(Cell(12));
    Release();
    QCOMPARE(log.TakeEvents(), (QStringList{"move", "press", "move", "release"}));
    m_pointer->Press(Ruler(), Cell(14), Qt::MiddleButton);
    m_pointer->Release(Qt::MiddleButton);
    QCOMPARE(log.TakeEvents(), (QStringList{"move", "press", "release"}));
}

void tst_RulerGesture::hasTheFocusOnlyWhileItIsDragged()
{
    for (const QPoint point : {Cell(10), EndMarker()}) {
        Press(point);
        QVERIFY(Ruler()->hasFocus());
        MoveTo(point + QPoint(30, 0));
        QVERIFY(Ruler()->hasFocus());
        Release();
        QVERIFY(!Ruler()->hasFocus());
    }
}

void tst_RulerGesture::aDoubleClickLeavesNoGesture()
{
    m_pointer->DoubleClick(Ruler(), Cell(10));
    QCOMPARE(Axis().currentFrame, 10);
    Calls();
    MoveTo(Cell(60));
    QCOMPARE(Calls(), QStringList());
    QCOMPARE(Axis().currentFrame, 10);
}

void tst_RulerGesture::endsWithAMoveThatFindsTheButtonUp()
{
    Press(Cell(10));
    MoveTo(Cell(12));
    m_pointer->LoseButtons();
    MoveTo(Cell(60));
    MoveTo(Cell(61));
    QCOMPARE(Calls(), (QStringList{"frame 10 false", "frame 12 false", "frame 12 true"}));
    QVERIFY(!Ruler()->hasFocus());
    VerifyStartsClean();
}

void tst_RulerGesture::endsAMarkerWithAMoveThatFindsTheButtonUp()
{
    Press(EndMarker());
    MoveTo(Cell(50));
    m_pointer->LoseButtons();
    MoveTo(Cell(60));
    QCOMPARE(Calls(), (QStringList{"mark 1 40 false", "mark 1 50 false", "mark 1 50 true"}));
    VerifyStartsClean();
}

void tst_RulerGesture::endsWithAMoveOfTheLeftButtonItself()
{
    Press(Cell(10));
    SendMouse(QEvent::MouseMove, Cell(20), Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(Calls(), (QStringList{"frame 10 false", "frame 10 true"}));
    MoveTo(Cell(20));
    Release();
    QCOMPARE(Calls(), QStringList());
    VerifyStartsClean();
}

void tst_RulerGesture::endsBeforeAnotherPress()
{
    Press(Cell(10));
    MoveTo(Cell(12));
    SendMouse(QEvent::MouseButtonPress, Cell(30), Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(Calls(),
             (QStringList{"frame 10 false", "frame 12 false", "frame 12 true", "frame 30 false"}));
    Release();
    QCOMPARE(Calls(), (QStringList{"frame 30 true"}));
}

void tst_RulerGesture::endsWhenTheFocusGoesElsewhere()
{
    Press(Cell(10));
    MoveTo(Cell(12));
    m_elsewhere->setFocus();
    m_fixture->Settle();
    QCOMPARE(Calls(), (QStringList{"frame 10 false", "frame 12 false", "frame 12 true"}));
    QVERIFY(m_elsewhere->hasFocus());
    MoveTo(Cell(14));
    Release();
    QCOMPARE(Calls(), QStringList());
    VerifyStartsClean();
}

void tst_RulerGesture::endsWhenItIsHidden()
{
    Press(StartMarker());
    MoveTo(Cell(22));
    Ruler()->hide();
    m_fixture->Settle();
    QCOMPARE(Calls(), (QStringList{"mark 0 20 false", "mark 0 22 false", "mark 0 22 true"}));
    Ruler()->show();
    Release();
    QCOMPARE(Calls(), QStringList());
    VerifyStartsClean();
}

void tst_RulerGesture::endsWhenTheWindowIsHidden()
{
    Press(Cell(10));
    m_fixture->mainWindow.hide();
    m_fixture->Settle();
    QCOMPARE(Calls(), (QStringList{"frame 10 false", "frame 10 true"}));
    m_fixture->mainWindow.show();
    m_fixture->Settle();
    Release();
    QCOMPARE(Calls(), QStringList());
    VerifyStartsClean();
}

void tst_RulerGesture::endsWhenACallbackOpensAModalDialog()
{
    m_fixture->host.reaction = [this](const QString& line) {
        if (line != QLatin1String("frame 12 false"))
            return;
        QDialog dialog(&m_fixture->mainWindow);
        QTimer::singleShot(0, &dialog, &QDialog::reject);
        dialog.exec();
        m_fixture->host.calls << QStringLiteral("dialog closed");
    };
    Press(Cell(10));
    MoveTo(Cell(12));
    QCOMPARE(Calls(),
             (QStringList{"frame 10 false", "frame 12 false", "dialog closed", "frame 12 true"}));
    MoveTo(Cell(14));
    Release();
    QCOMPARE(Calls(), QStringList());
    VerifyStartsClean();
}

void tst_RulerGesture::endsAMarkerWhenACallbackOpensAModalDialog()
{
    m_fixture->host.reaction = [this](const QString& line) {
        if (line != QLatin1String("mark 0 20 false"))
            return;
        QDialog dialog(&m_fixture->mainWindow);
        QTimer::singleShot(0, &dialog, &QDialog::reject);
        dialog.exec();
    };
    Press(StartMarker());
    QCOMPARE(Calls(), (QStringList{"mark 0 20 false", "mark 0 20 true"}));
    Release();
    QCOMPARE(Calls(), QStringList());
    VerifyStartsClean();
}

void tst_RulerGesture::endsWhenADialogOpensInTheReportOfThePress()
{
    MessageSpy spy(Ruler());
    spy.reaction = [&](int code) {
        if (code != kTrackPressed)
            return;
        QDialog dialog(&m_fixture->mainWindow);
        QTimer::singleShot(0, &dialog, &QDialog::reject);
        dialog.exec();
    };
    Press(Cell(10));
    spy.reaction = nullptr;
    QCOMPARE(Calls(), (QStringList{"frame 10 false", "frame 10 true"}));
    MoveTo(Cell(14));
    Release();
    QCOMPARE(Calls(), QStringList());
    VerifyStartsClean();
}

void tst_RulerGesture::grabsNothingWhenTheButtonGoesUpInTheReportOfThePress()
{
    MessageSpy spy(Ruler());
    spy.reaction = [&](int code) {
        if (code == kTrackPressed)
            Release();
    };
    Press(Cell(10));
    spy.reaction = nullptr;
    QCOMPARE(spy.TakeMessages(), QStringList({"1108 (0, 0, 0, 0)"}));
    VerifyStartsClean();
}

void tst_RulerGesture::followsAHostThatSnapsTheFrame()
{
    m_fixture->host.reaction = [this](const QString&) {
        m_fixture->manager->SetCurrentFrame(Axis().currentFrame / 5 * 5);
    };
    Press(Cell(11));
    QCOMPARE(Axis().currentFrame, 10);
    MoveTo(Cell(13));
    MoveTo(Cell(16));
    Release();
    QCOMPARE(Calls(),
             (QStringList{"frame 11 false", "frame 13 false", "frame 16 false", "frame 15 true"}));
    QCOMPARE(Axis().currentFrame, 15);
}

void tst_RulerGesture::followsAHostThatMovesTheMarkers()
{
    m_fixture->host.reaction = [this](const QString& line) {
        if (line == QLatin1String("mark 1 45 false"))
            MarkFrames(43, 50);
    };
    Press(EndMarker());
    MoveTo(Cell(45));
    Release();
    QCOMPARE(Calls(), (QStringList{"mark 1 40 false", "mark 1 45 false", "mark 1 50 true"}));
    QCOMPARE(Ruler()->TimeMarkStart(), 43);
}

void tst_RulerGesture::survivesTheHostsDeedInACallback_data()
{
    QTest::addColumn<Deed>("deed");
    QTest::addColumn<QString>("callback");
    const struct
    {
        const char* name;
        Deed deed;
    } deeds[] = {{"releases the window", ReleaseWindow},
                 {"deletes the manager", DeleteManager},
                 {"deletes the dock", DeleteDock},
                 {"deletes the container", DeleteContainer}};
    for (const auto& each : deeds) {
        for (const char* callback : {"frame 10 false", "frame 12 false", "frame 12 true",
                                     "mark 1 40 false", "mark 1 45 false", "mark 1 45 true"})
            QTest::addRow("%s in %s", each.name, callback)
                << each.deed << QString::fromLatin1(callback);
    }
}

void tst_RulerGesture::survivesTheHostsDeedAtALostEnd_data()
{
    QTest::addColumn<Deed>("deed");
    QTest::addColumn<int>("type");
    const std::pair<const char*, QEvent::Type> events[] = {{"press", QEvent::MouseButtonPress},
                                                           {"move", QEvent::MouseMove},
                                                           {"release", QEvent::MouseButtonRelease}};
    for (const auto& [name, type] : events) {
        QTest::addRow("deletes the dock at a %s", name) << Deed(DeleteDock) << int(type);
        QTest::addRow("deletes the container at a %s", name) << Deed(DeleteContainer) << int(type);
    }
}

/// The focus went, and before the event loop ends the gesture, another event comes.
void tst_RulerGesture::survivesTheHostsDeedAtALostEnd()
{
    QFETCH(Deed, deed);
    QFETCH(int, type);
    m_pointer->Press(Ruler(), Cell(10));
    Calls();
    const QPointer<CTimelineTrackTick> ruler = Ruler();
    const QPoint cell = Cell(12);
    m_fixture->host.reaction = [&](const QString& line) {
        if (line == "frame 10 true")
            deed(*m_fixture);
    };
    m_elsewhere->setFocus();
    QMouseEvent event(
        QEvent::Type(type), cell, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
        type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(ruler, &event);
    QCOMPARE(Calls(), QStringList{"frame 10 true"});
    m_fixture->Settle();
    QVERIFY(!ruler);
}

void tst_RulerGesture::survivesTheHostsDeedInACallback()
{
    QFETCH(Deed, deed);
    QFETCH(QString, callback);
    m_fixture->host.reaction = [&](const QString& line) {
        if (line == callback)
            deed(*m_fixture);
    };
    CTimelineTrackTick* const ruler = Ruler();
    const bool ofMarker = callback.startsWith(QLatin1String("mark"));
    const QPointer<QWidget> window(&m_fixture->mainWindow);
    const auto at = [&](QPoint point) { return ruler->mapTo(window, point); };
    const QPoint press = at(ofMarker ? EndMarker() : Cell(10));
    const QPoint step = at(Cell(ofMarker ? 45 : 12));
    m_pointer->Press(window, press);
    m_pointer->MoveTo(window, step);
    m_pointer->Release();
    m_fixture->Settle();
    const QStringList calls = Calls();
    QVERIFY(!calls.isEmpty());
    QCOMPARE(calls.last(), callback); // nothing follows from a ruler that is gone
    QVERIFY(!CTimelineTrackBase::IsAlive(ruler));
}

void tst_RulerGesture::keepsQuietAfterItWasReleasedDuringADrag()
{
    Press(Cell(10));
    Calls();
    m_fixture->manager->ReleaseTimelineWnd();
    m_fixture->Settle();
    Release();
    QCOMPARE(Calls(), QStringList());
    m_fixture->manager->CreateTimelineMainWidget(m_fixture->dock);
    m_fixture->manager->ShowTimelineWnd(true);
    m_fixture->Settle();
    Axis().info = CFrameInfo(kPixelsPerFrame);
    Axis().scrollX = 0;
    VerifyStartsClean();
}

QTEST_MAIN(tst_RulerGesture)
#include "tst_RulerGesture.moc"
