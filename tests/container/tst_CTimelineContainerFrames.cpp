#include "container/CTimelineContainer.h"
#include "container/CTimelineContainerInterface.h"
#include "library/TimelineLibrary.h"
#include "support/HostFixture.h"
#include "support/PaintCounter.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

#include <QtTest>

#include <climits>
#include <functional>
#include <vector>

using namespace KestovaTest;

namespace {

FrameAxis& Axis()
{
    return TimelineLibrary::Instance().axis;
}

/// Stands in for a container as the owner of its scroll bar and counts what the bar sends.
class ScrollSpy : public CTimelineTrackBaseInterface
{
public:
    explicit ScrollSpy(CTimelineContainer& container) : m_container(container)
    {
        container.ScrollTrack()->SetOwner(this);
    }
    ~ScrollSpy() { m_container.ScrollTrack()->SetOwner(nullptr); }
    std::vector<int> codes;

    int OnTrackMessage(int code, CTimelineTrackBase*, int, QVariant, QVariant, QVariant) override
    {
        codes.push_back(code);
        return 0;
    }
    bool OnTrackDrop(QDropEvent*, CTimelineTrackBase*) override { return false; }
    bool OnTrackDragCheck(QDropEvent*, CTimelineTrackBase*, int) override { return false; }

private:
    CTimelineContainer& m_container;
};

struct ContainerMessage
{
    unsigned int code;
    CTimelineTrackBase* track;
    HANDLE handle;
    QVariant values[3];
    int scrollX; ///< when it was sent
};

/// Stands in for the manager as a container's owner and writes down its messages.
class RecordingOwner : public CTimelineContainerInterface
{
public:
    explicit RecordingOwner(CTimelineContainer& container) : m_container(container)
    {
        container.SetOwnerInterface(this);
    }
    ~RecordingOwner() override { m_container.SetOwnerInterface(nullptr); }
    std::vector<ContainerMessage> messages;

    int OnContainerMessage(unsigned int code, CTimelineTrackBase* track, HANDLE handle,
                           QVariant value1, QVariant value2, QVariant value3) override
    {
        messages.push_back({code, track, handle, {value1, value2, value3}, Axis().scrollX});
        return 0;
    }
    int OnContainerTrackEdit(TLEditType, const VZ::CArrayList<CTimelineTrackBase*>&, QVariant,
                             QVariant) override
    {
        return -1;
    }
    bool OnContainerDrop(TLDropFileType, QString) override { return false; }

private:
    CTimelineContainer& m_container;
};

using ContainerCommand = std::function<void(CTimelineContainer&)>;

} // namespace

Q_DECLARE_METATYPE(ContainerCommand)

class tst_CTimelineContainerFrames : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;

    CTimelineContainer& Container() const { return *m_fixture->Container(); }
    QStringList WindowCalls() const { return m_fixture->Window().calls; }
    QStringList HostCalls() const { return m_fixture->host.calls; }

    bool IsInView(int frame) const
    {
        const CTimelineTrackBase& ruler = *Container().TickTrack();
        return ruler.PixelToFrame(0) < frame && frame < ruler.PixelToFrame(ruler.width());
    }

    /// Zooms in until the view shows but a part of the frames, around @p frame.
    void ZoomInAround(int frame, int count = 1000)
    {
        Container().SetFrameCount(count);
        Container().SetCurrentFrame(frame);
        while (Container().CanDoZoomIn())
            Container().DoZoomIn();
    }

private slots:
    void init() { m_fixture = std::make_unique<HostFixture>(); }
    void cleanup() { m_fixture.reset(); }

    // ---- Frame count and current frame ----

    void theCurrentFrameIsClampedIntoTheFrames_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("frame");
        QTest::addColumn<int>("current");
        QTest::newRow("500 of 100 gives 99") << 100 << 500 << 99;
        QTest::newRow("the count itself gives the last") << 100 << 100 << 99;
        QTest::newRow("the last stays") << 100 << 99 << 99;
        QTest::newRow("one inside stays") << 100 << 42 << 42;
        QTest::newRow("0 stays") << 100 << 0 << 0;
        QTest::newRow("-5 gives 0") << 100 << -5 << 0;
        QTest::newRow("the smallest gives 0") << 100 << INT_MIN << 0;
        QTest::newRow("with count 0, 0 gives 0") << 0 << 0 << 0;
        QTest::newRow("with count 0, 7 gives 0") << 0 << 7 << 0;
        QTest::newRow("with count 0, -7 gives 0") << 0 << -7 << 0;
        QTest::newRow("with a negative count 7 gives 0") << -3 << 7 << 0;
        QTest::newRow("with the smallest count 7 gives 0") << INT_MIN << 7 << 0;
    }
    void theCurrentFrameIsClampedIntoTheFrames()
    {
        QFETCH(int, count);
        QFETCH(int, frame);
        Container().SetFrameCount(count);
        Container().SetCurrentFrame(frame);
        QTEST(Container().GetCurrentFrame(), "current");
    }

    void aSmallerFrameCountLeavesTheCurrentFrameUntilItIsNextSet()
    {
        Container().SetCurrentFrame(80);
        Container().SetFrameCount(50);
        QCOMPARE(Container().GetCurrentFrame(), 80);
        Container().SetCurrentFrame(80);
        QCOMPARE(Container().GetCurrentFrame(), 49);
        Container().SetFrameCount(20);
        QCOMPARE(Container().GetCurrentFrame(), 49);
        Container().GotoFrame(49);
        QCOMPARE(Container().GetCurrentFrame(), 19);
    }

    void settingTheFrameCountStoresItUnclampedAndRebuildsTheView()
    {
        m_fixture->ForgetCalls();
        Container().SetFrameCount(-3);
        QCOMPARE(Axis().frameCount, -3);
        // At three pixels a frame all frames fit: the thumb fills the bar, and the bar's 629 pixels
        // make it six.
        Axis().info = CFrameInfo(3.0);
        Container().SetFrameCount(100);
        QCOMPARE(Container().ScrollTrack()->width(), 629);
        QCOMPARE(Axis().info.pixelsPerFrame, 6);
        QCOMPARE(WindowCalls(), (QStringList{"refreshed", "refreshed"}));
        QCOMPARE(HostCalls(), QStringList());
    }

    void settingTheFrameCountFitsTheThumbToTheOldZoomFirst()
    {
        // A full view of 1000 frames in 629 pixels holds 2 frames in each. So 5000 frames are 2500
        // pixels wide, of which the thumb stands for 629 * 629 / 2500 of its bar's: 158, and that
        // is 2 frames a pixel again. The other way round it would be 8, and a full thumb.
        Container().SetFrameCount(1000);
        Container().DoZoomAll();
        QCOMPARE(Container().ScrollTrack()->width(), 629);
        QCOMPARE(Axis().info.framesPerPixel, 2);
        Container().SetFrameCount(5000);
        QCOMPARE(Container().ScrollTrack()->GetThumb().left, 0);
        QCOMPARE(Container().ScrollTrack()->GetThumb().right, 158);
        QCOMPARE(Axis().info.framesPerPixel, 2);
    }

    void settingTheFrameCountLeavesTheThumbsLeftEdge()
    {
        ZoomInAround(500);
        const int left = Container().ScrollTrack()->GetThumb().left;
        const int scrollX = Axis().scrollX;
        QVERIFY(left > 0);
        Axis().scrollX = 0;
        Container().SetFrameCount(1000);
        QCOMPARE(Container().ScrollTrack()->GetThumb().left, left);
        QCOMPARE(Axis().scrollX, scrollX);
    }

    void settingTheFrameCountRepaintsLater()
    {
        m_fixture->Settle();
        PaintCounter counter(Container());
        Container().SetFrameCount(70);
        QCOMPARE(counter.paints, 0);
        m_fixture->Settle();
        QVERIFY(counter.paints > 0);
    }

    void settingTheCurrentFrameRepaintsAtOnceTellsTheWindowAndNotTheHost()
    {
        m_fixture->Settle();
        m_fixture->ForgetCalls();
        PaintCounter counter(Container());
        Container().SetCurrentFrame(12);
        QVERIFY(counter.paints > 0);
        QCOMPARE(WindowCalls(), QStringList{"refreshed"});
        QCOMPARE(HostCalls(), QStringList());
    }

    void settingTheCurrentFrameScrollsNothing()
    {
        ZoomInAround(500);
        const int before = Axis().scrollX;
        Container().SetCurrentFrame(0);
        QCOMPARE(Axis().scrollX, before);
        QVERIFY(!IsInView(0));
    }

    void twoContainersShareTheFrames()
    {
        Container().SetCurrentFrame(33);
        HostFixture other; // starts its own frames anew
        other.Container()->SetFrameCount(60);
        other.Container()->SetCurrentFrame(21);
        QCOMPARE(Container().GetCurrentFrame(), 21);
        Container().SetCurrentFrame(99);
        QCOMPARE(other.Container()->GetCurrentFrame(), 59);
    }

    // ---- Going to a frame ----

    void goingToAFrameSends1301Before1302BothWithTheClampedFrame()
    {
        m_fixture->ForgetCalls();
        Container().GotoFrame(500);
        QCOMPARE(Container().GetCurrentFrame(), 99);
        QCOMPARE(HostCalls(), (QStringList{"frame 99 false", "frame 99 true"}));
    }

    void goingToAFrameSendsNoTracksAndNothingButTheFrame()
    {
        ZoomInAround(500);
        const int before = Axis().scrollX;
        RecordingOwner owner(Container());
        Container().GotoFrame(100);
        QCOMPARE(owner.messages.size(), std::size_t{2});
        QCOMPARE(owner.messages[0].code, 1301u);
        QCOMPARE(owner.messages[1].code, 1302u);
        for (const ContainerMessage& message : owner.messages) {
            QVERIFY(!message.track);
            QVERIFY(!message.handle);
            QCOMPARE(message.values[0], QVariant(100));
            QCOMPARE(message.values[1], QVariant(0));
            QCOMPARE(message.values[2], QVariant(0));
        }
        // The view has moved before the owner hears of it.
        QVERIFY(Axis().scrollX != before);
        QCOMPARE(owner.messages[0].scrollX, Axis().scrollX);
    }

    void goingToAFrameRepaintsAtOnceAndTellsTheWindow()
    {
        m_fixture->Settle();
        Container().SetOwnerInterface(nullptr);
        m_fixture->ForgetCalls();
        PaintCounter counter(Container());
        Container().GotoFrame(12);
        QVERIFY(counter.paints > 0);
        QCOMPARE(WindowCalls(), QStringList{"refreshed"});
    }

    void goingToAFrameBringsItIntoTheMiddleOfTheView()
    {
        ZoomInAround(500);
        Container().GotoFrame(100);
        QVERIFY(IsInView(100));
        const CTimelineTrackBase& ruler = *Container().TickTrack();
        const int middle = ruler.PixelToFrame(ruler.width() / 2);
        QVERIFY(qAbs(middle - 100) <= 2);
    }

    void goingToAFrameWithoutAnOwnerMovesButSendsNothing()
    {
        Container().SetOwnerInterface(nullptr);
        m_fixture->ForgetCalls();
        Container().GotoFrame(40);
        QCOMPARE(Container().GetCurrentFrame(), 40);
        QCOMPARE(HostCalls(), QStringList());
    }

    // ---- Time mark ----

    void theTimeMarkIsStoredUnchanged_data()
    {
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("end");
        QTest::newRow("ordered") << 3 << 9;
        QTest::newRow("the larger first") << 9 << 3;
        QTest::newRow("beyond the frames") << -4 << 5000;
    }
    void theTimeMarkIsStoredUnchanged()
    {
        QFETCH(int, start);
        QFETCH(int, end);
        m_fixture->ForgetCalls();
        Container().SetTimeMarkFrame(start, end);
        int gotStart = -1;
        int gotEnd = -1;
        Container().GetTimeMarkFrame(gotStart, gotEnd);
        QCOMPARE(gotStart, start);
        QCOMPARE(gotEnd, end);
        QCOMPARE(WindowCalls(), QStringList{"refreshed"});
        QCOMPARE(HostCalls(), QStringList());
    }

    void settingTheTimeMarkRepaintsLater()
    {
        m_fixture->Settle();
        PaintCounter counter(Container());
        Container().SetTimeMarkFrame(3, 9);
        QCOMPARE(counter.paints, 0);
        m_fixture->Settle();
        QVERIFY(counter.paints > 0);
    }

    void theTimeMarkOfANewContainerIsFrames0And1()
    {
        QWidget parent;
        auto* const container = new CTimelineContainer(nullptr); // the parent's from Create on
        QVERIFY(container->Create(&parent, QRect(0, 0, 400, 200)));
        QVERIFY(container->TickTrack());
        int start = 8;
        int end = 8;
        container->GetTimeMarkFrame(start, end);
        QCOMPARE(start, 0);
        QCOMPARE(end, 1);
    }

    // ---- Without the fixed tracks ----

    void withoutTheFixedTracksEveryOperationAnswersItsDefault()
    {
        CTimelineContainer bare(nullptr);
        Axis().frameCount = 77;
        Axis().currentFrame = 7;
        bare.SetFrameCount(500);
        QCOMPARE(Axis().frameCount, 77);
        bare.SetCurrentFrame(9);
        QCOMPARE(Axis().currentFrame, 7);
        QCOMPARE(bare.GetCurrentFrame(), 0);
        bare.GotoFrame(30);
        QCOMPARE(Axis().currentFrame, 7);
        bare.SetTimeMarkFrame(4, 5);
        int start = 8;
        int end = 8;
        bare.GetTimeMarkFrame(start, end);
        QCOMPARE(start, 0);
        QCOMPARE(end, 1);
        float left = 0.25f;
        float right = 0.75f;
        bare.SetScrollInfo(0.0f, 0.5f);
        bare.GetScrollInfo(left, right);
        QCOMPARE(left, 0.25f);
        QCOMPARE(right, 0.75f);
        QVERIFY(!bare.ScrollToFrame(10, 0));
        QVERIFY(!bare.ScrollToTrack(nullptr));
        QVERIFY(!bare.CanDoZoomIn());
        QVERIFY(!bare.CanDoZoomOut());
        QVERIFY(!bare.CanDoZoomAll());
        QVERIFY(!bare.CanDoUnZoom());
        const int scrollX = Axis().scrollX;
        bare.DoZoomIn();
        bare.DoZoomOut();
        bare.DoZoomAll();
        bare.DoUnZoom();
        QCOMPARE(Axis().scrollX, scrollX);
    }

    // ---- View ----

    void theScrollInformationIsTheScrollTracks()
    {
        float left = 0;
        float right = 0;
        Container().SetFrameCount(1000);
        Container().SetScrollInfo(0.25f, 0.75f);
        Container().GetScrollInfo(left, right);
        float trackLeft = 0;
        float trackRight = 0;
        Container().ScrollTrack()->GetScrollInfo(trackLeft, trackRight);
        QCOMPARE(left, trackLeft);
        QCOMPARE(right, trackRight);
        QVERIFY(qAbs(left - 0.25f) < 0.01f);
        QVERIFY(qAbs(right - 0.75f) < 0.01f);
    }

    void scrollingToAFrameIsTheScrollTracks()
    {
        ZoomInAround(500);
        QVERIFY(!IsInView(20));
        QVERIFY(Container().ScrollToFrame(20, 0));
        QVERIFY(IsInView(20));
        QCOMPARE(Container().GetCurrentFrame(), 500);
    }

    void scrollingToATrackIsTheHostsAndAnswersFalse()
    {
        CTimelineTrackBase* const track = m_fixture->Root(TL_TRACK_KEY, "a");
        m_fixture->Settle();
        m_fixture->ForgetCalls();
        PaintCounter counter(Container());
        const QRect place = track->geometry();
        QVERIFY(!Container().ScrollToTrack(track));
        QVERIFY(!Container().ScrollToTrack(nullptr));
        QVERIFY(!m_fixture->manager->ScrollToTrack(track));
        QCOMPARE(WindowCalls(), QStringList());
        QCOMPARE(track->geometry(), place);
        m_fixture->Settle();
        QCOMPARE(counter.paints, 0);
    }

    void theZoomQueriesAreTheScrollTracks()
    {
        Container().SetFrameCount(1000);
        const auto compare = [this] {
            CTimelineTrackHScroll& scroll = *Container().ScrollTrack();
            QCOMPARE(Container().CanDoZoomIn(), scroll.CanZoomIn());
            QCOMPARE(Container().CanDoZoomOut(), scroll.CanZoomOut());
            QCOMPARE(Container().CanDoZoomAll(), scroll.CanZoomAll());
            QCOMPARE(Container().CanDoUnZoom(), scroll.CanUnZoom());
        };
        Container().DoZoomAll();
        QVERIFY(Container().CanDoZoomIn());
        QVERIFY(!Container().CanDoZoomOut());
        QVERIFY(!Container().CanDoZoomAll());
        QVERIFY(Container().CanDoUnZoom());
        compare();
        Container().DoZoomIn();
        QVERIFY(Container().CanDoZoomOut());
        QVERIFY(Container().CanDoZoomAll());
        compare();
        Container().DoUnZoom();
        QVERIFY(!Container().CanDoZoomIn());
        QVERIFY(!Container().CanDoUnZoom());
        compare();
    }

    void zoomCommandsKeepTheCurrentFrameInView_data()
    {
        QTest::addColumn<int>("command");
        QTest::newRow("zoom in") << 0;
        QTest::newRow("zoom out") << 1;
        QTest::newRow("un-zoom") << 2;
    }
    void zoomCommandsKeepTheCurrentFrameInView()
    {
        QFETCH(int, command);
        ZoomInAround(700, 8000);
        if (command != 1)
            Container().DoZoomOut();
        Container().ScrollToFrame(5000, 0);
        QVERIFY(!IsInView(700));
        const int scale = Axis().info.pixelsPerFrame * 1000 - Axis().info.framesPerPixel;
        switch (command) {
        case 0:
            Container().DoZoomIn();
            QVERIFY(Axis().info.pixelsPerFrame * 1000 - Axis().info.framesPerPixel > scale);
            break;
        case 1:
            Container().DoZoomOut();
            QVERIFY(Axis().info.pixelsPerFrame * 1000 - Axis().info.framesPerPixel < scale);
            break;
        default:
            Container().DoUnZoom();
            QCOMPARE(Axis().info.pixelsPerFrame, 10);
        }
        QVERIFY(IsInView(700));
    }

    void zoomingAllShowsEveryFrameAndDoesNotFollowTheCurrentFrame()
    {
        ZoomInAround(700, 8000);
        Container().DoZoomAll();
        QCOMPARE(Axis().scrollX, 0);
        QVERIFY(!Container().CanDoZoomAll());
        // Zooming in from here does follow it.
        Container().SetCurrentFrame(7000);
        while (Container().CanDoZoomIn())
            Container().DoZoomIn();
        QVERIFY(IsInView(7000));
    }

    void zoomingAllScrollsToNoFrame()
    {
        // Frame 0 never lies strictly inside the view, so that scrolling to it would be announced.
        ZoomInAround(0);
        ScrollSpy spy(Container());
        Container().ScrollToFrame(0, 0);
        QCOMPARE(spy.codes, std::vector<int>{1201});
        spy.codes.clear();
        Container().DoZoomAll();
        QCOMPARE(spy.codes, std::vector<int>{1201});
        Container().DoZoomIn();
        QCOMPARE(spy.codes, (std::vector<int>{1201, 1201, 1201}));
    }

    void aZoomThatIsNotPossibleChangesAndSendsNothing_data()
    {
        QTest::addColumn<bool>("zoomedIn"); // else all frames are in view
        QTest::addColumn<ContainerCommand>("command");
        QTest::newRow("zoom in") << true << ContainerCommand([](auto& c) { c.DoZoomIn(); });
        QTest::newRow("un-zoom") << true << ContainerCommand([](auto& c) { c.DoUnZoom(); });
        QTest::newRow("zoom out") << false << ContainerCommand([](auto& c) { c.DoZoomOut(); });
        QTest::newRow("zoom all") << false << ContainerCommand([](auto& c) { c.DoZoomAll(); });
    }
    void aZoomThatIsNotPossibleChangesAndSendsNothing()
    {
        QFETCH(bool, zoomedIn);
        QFETCH(ContainerCommand, command);
        ZoomInAround(500);
        if (!zoomedIn)
            Container().DoZoomAll();
        // Frame 0 would be scrolled to, and a full view be scrolled back.
        Container().SetCurrentFrame(0);
        Axis().scrollX = 333;
        const ScrollThumb::Thumb before = Container().ScrollTrack()->GetThumb();
        ScrollSpy spy(Container());
        command(Container());
        const ScrollThumb::Thumb& after = Container().ScrollTrack()->GetThumb();
        QCOMPARE(after.left, before.left);
        QCOMPARE(after.right, before.right);
        QCOMPARE(Axis().scrollX, 333);
        QCOMPARE(spy.codes, std::vector<int>());
    }

    void withoutFramesNoZoomIsPossible()
    {
        Container().SetFrameCount(0);
        QVERIFY(!Container().CanDoZoomIn());
        QVERIFY(!Container().CanDoZoomOut());
        QVERIFY(!Container().CanDoZoomAll());
        QVERIFY(!Container().CanDoUnZoom());
    }

    void framesOutliveTheContainer()
    {
        Container().SetFrameCount(123);
        Container().SetCurrentFrame(45);
        m_fixture->manager->ReleaseTimelineWnd();
        m_fixture->Settle();
        QCOMPARE(Axis().frameCount, 123);
        QCOMPARE(Axis().currentFrame, 45);
    }
};

QTEST_MAIN(tst_CTimelineContainerFrames)
#include "tst_CTimelineContainerFrames.moc"
