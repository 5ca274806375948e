#include "support/PictureCheck.h"
#include "support/TimelineFixture.h"
#include "tracks/CTimelineTrackBaseInterface.h"
#include "tracks/CTimelineTrackHScroll.h"

#include <QtTest>

#include <functional>
#include <vector>

namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 17; // of the scroll row's caption picture

struct Message
{
    int code;
    CTimelineTrackBase* track;
    int number;
    QVariant values[3];
};

/// An owner that writes down what the track reports.
class RecordingOwner : public CTimelineTrackBaseInterface
{
public:
    std::vector<Message> messages;

    int OnTrackMessage(int code, CTimelineTrackBase* track, int number, QVariant value1,
                       QVariant value2, QVariant value3) override
    {
        messages.push_back({code, track, number, {value1, value2, value3}});
        return 0;
    }
    bool OnTrackDrop(QDropEvent*, CTimelineTrackBase*) override { return false; }
    bool OnTrackDragCheck(QDropEvent*, CTimelineTrackBase*, int) override { return false; }
};

/// The scroll track of a container: sized, marked and owned, over 400 frames at 10 pixels each.
struct Row
{
    Row()
    {
        track.Init(nullptr);
        track.MarkAsOwnTrack();
        track.SetOwner(&owner);
        track.SetRowHeight(kHeight);
        track.resize(kWidth, kHeight);
    }

    RecordingOwner owner;
    CTimelineTrackHScroll track;
};

FrameAxis& Axis()
{
    return TimelineLibrary::Instance().axis;
}

/// The picture painted the plain way: with two texture brushes from the row's corner.
QImage PaintedPlainly(const CTimelineTrackHScroll& track, const QSize& size, const QRect& rect)
{
    const ImageTables& images = TimelineLibrary::Instance().images;
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    painter.setBrushOrigin(rect.topLeft());
    painter.fillRect(rect, images.Brush(kRulerBrushes, 1));
    const ScrollThumb::Thumb& thumb = track.GetThumb();
    painter.fillRect(QRect(rect.topLeft() + QPoint(thumb.left, thumb.top),
                           rect.topLeft() + QPoint(thumb.right, thumb.bottom)),
                     images.Brush(kRulerBrushes, 9));
    return image;
}

} // namespace

using Run = std::function<void(CTimelineTrackHScroll&)>;
Q_DECLARE_METATYPE(Run)

class tst_CTimelineTrackHScroll : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();

    void isARowOfItsKindAfterInit();
    void takesAFirstSizeOfTenPixelsForSynchronisedUntilItIsLaidOut();
    void announcesEveryCommandOnce_data();
    void announcesEveryCommandOnce();
    void announcesNothingForAFrameInsideTheView();
    void announcesNothingForRefusedFractions();
    void announcesNothingWhenItPublishesTheZoom();
    void needsNoOwner();
    void worksOnTheSharedAxisWithTheWidgetsSize();
    void forwardsTheQueries();
    void tellsAndSetsTheThumbAsFractions();
    void saysYesToEveryScrollToFrame();
    void announcesButLeavesTheZoomWithoutFrames();
    void announcesButLeavesTheZoomWithoutWidth();
    void endsAPartialThumbAtTheRowHeightWhateverTheWidgetsHeight();

    void paintsTheThumbOverTheGround_data();
    void paintsTheThumbOverTheGround();
    void paintsAnywhereAndTakesTheRectanglesSize();
    void leavesThePaintersBrushOrigin();
    void paintsOnlyWhatTheClipShows();
};

void tst_CTimelineTrackHScroll::initTestCase()
{
    QVERIFY(KestovaTest::PrepareTimeline());
}

void tst_CTimelineTrackHScroll::init()
{
    KestovaTest::ResetAxis(400, 10.0);
}

void tst_CTimelineTrackHScroll::isARowOfItsKindAfterInit()
{
    QWidget parent;
    auto* track = new CTimelineTrackHScroll;
    QVERIFY(track->Init(&parent));
    QCOMPARE(track->parentWidget(), &parent);
    QCOMPARE(track->GetTrackType(), int{TL_TRACK_HSCROLL});
    QCOMPARE(track->size(), QSize(10, track->GetRowHeight()));
    QCOMPARE(track->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(track->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(track->accessibleName(), QStringLiteral("CTimelineTrackHScroll"));
    QVERIFY(track->LoadStyle(1));
    QVERIFY(!track->GetStyle());
}

void tst_CTimelineTrackHScroll::takesAFirstSizeOfTenPixelsForSynchronisedUntilItIsLaidOut()
{
    Row row;
    row.track.resize(10, kHeight);
    Axis().scrollX = 1000;
    row.track.SyncThumb(false); // no change of width: the left edge rests
    QCOMPARE(row.track.GetThumb().left, 0);
    Axis().scrollX = 1000;
    row.track.resize(kWidth, kHeight);
    row.track.SyncThumb(false);
    QCOMPARE(row.track.GetThumb().left, 100);
}

void tst_CTimelineTrackHScroll::announcesEveryCommandOnce_data()
{
    QTest::addColumn<Run>("run");
    QTest::newRow("SyncThumb") << Run([](auto& track) { track.SyncThumb(false); });
    QTest::newRow("SyncThumb forced") << Run([](auto& track) { track.SyncThumb(true); });
    QTest::newRow("ScrollToFrame") << Run([](auto& track) { track.ScrollToFrame(300, 0); });
    QTest::newRow("UnZoom") << Run([](auto& track) { track.UnZoom(); });
    QTest::newRow("ZoomIn") << Run([](auto& track) { track.ZoomIn(); });
    QTest::newRow("ZoomOut") << Run([](auto& track) { track.ZoomOut(); });
    QTest::newRow("ZoomAll") << Run([](auto& track) { track.ZoomAll(); });
    QTest::newRow("SetScrollInfo") << Run([](auto& track) { track.SetScrollInfo(0.25f, 0.5f); });
}

void tst_CTimelineTrackHScroll::announcesEveryCommandOnce()
{
    QFETCH(Run, run);
    Row row;
    row.track.SyncThumb(true);
    row.owner.messages.clear();
    run(row.track);
    QCOMPARE(row.owner.messages.size(), std::size_t{1});
    const Message& message = row.owner.messages.front();
    QCOMPARE(message.code, 1201);
    QCOMPARE(message.track, &row.track);
    QCOMPARE(message.number, 0);
    for (const QVariant& value : message.values)
        QCOMPARE(value, QVariant(0));
}

void tst_CTimelineTrackHScroll::announcesNothingForAFrameInsideTheView()
{
    Row row;
    row.track.SyncThumb(true);
    row.owner.messages.clear();
    QVERIFY(row.track.ScrollToFrame(20, 0));
    QVERIFY(row.owner.messages.empty());
    QCOMPARE(Axis().scrollX, 0);
}

void tst_CTimelineTrackHScroll::announcesNothingForRefusedFractions()
{
    Row row;
    row.track.SetScrollInfo(0.6f, 0.5f);
    row.track.SetScrollInfo(-0.1f, 0.5f);
    row.track.SetScrollInfo(0.5f, 1.1f);
    QVERIFY(row.owner.messages.empty());
}

void tst_CTimelineTrackHScroll::announcesNothingWhenItPublishesTheZoom()
{
    Row row;
    row.track.SetScrollInfo(0.0f, 0.5f);
    Axis().info = CFrameInfo(7.0);
    row.owner.messages.clear();
    row.track.PublishFrameInfo();
    QCOMPARE(Axis().info.pixelsPerFrame, 2);
    QVERIFY(row.owner.messages.empty());
}

void tst_CTimelineTrackHScroll::needsNoOwner()
{
    Row row;
    row.track.SetOwner(nullptr);
    row.track.SyncThumb(true);
    row.track.ZoomAll();
    QVERIFY(row.track.ScrollToFrame(300, 0));
    QVERIFY(row.owner.messages.empty());
    // All 400 frames at one per pixel fit the row.
    QCOMPARE(Axis().scrollX, 0);
    row.track.SetScrollInfo(0.0f, 0.1f);
    QVERIFY(row.track.ScrollToFrame(300, 0));
    QCOMPARE(Axis().info.pixelsPerFrame, 10);
    QCOMPARE(Axis().scrollX, 2800); // frame 280, 20 before the wanted one
    QVERIFY(row.owner.messages.empty());
}

void tst_CTimelineTrackHScroll::worksOnTheSharedAxisWithTheWidgetsSize()
{
    Row row;
    row.track.resize(800, kHeight);
    row.track.ZoomAll();
    QCOMPARE(row.track.GetThumb().right, 799);
    QCOMPARE(row.track.GetThumb().bottom, kHeight - 1);
    QCOMPARE(Axis().info.pixelsPerFrame, 2);
    row.track.SetScrollInfo(0.5f, 0.75f);
    QCOMPARE(Axis().info.pixelsPerFrame, 8);
    QCOMPARE(Axis().scrollX, 1600);
    row.track.SyncThumb(true);
    QCOMPARE(row.track.GetThumb().bottom, kHeight);
}

void tst_CTimelineTrackHScroll::forwardsTheQueries()
{
    Row row;
    row.track.ZoomAll();
    QVERIFY(row.track.CanZoomIn());
    QVERIFY(row.track.CanUnZoom());
    QVERIFY(!row.track.CanZoomOut());
    QVERIFY(!row.track.CanZoomAll());
    row.track.UnZoom();
    QVERIFY(!row.track.CanZoomIn());
    QVERIFY(!row.track.CanUnZoom());
    QVERIFY(row.track.CanZoomOut());
    QVERIFY(row.track.CanZoomAll());
    row.track.ZoomOut();
    QVERIFY(row.track.CanZoomIn());
    row.track.ZoomIn();
    QVERIFY(!row.track.CanZoomIn());
}

void tst_CTimelineTrackHScroll::tellsAndSetsTheThumbAsFractions()
{
    Row row;
    row.track.SetScrollInfo(0.25f, 0.5f);
    float left = 0;
    float right = 0;
    row.track.GetScrollInfo(left, right);
    QVERIFY(left == 0.25f);
    QVERIFY(right == 0.5f);
}

void tst_CTimelineTrackHScroll::saysYesToEveryScrollToFrame()
{
    Row row;
    for (const int frame : {-5, 0, 20, 399, 100000})
        QVERIFY(row.track.ScrollToFrame(frame, 0));
    Axis().frameCount = 0;
    QVERIFY(row.track.ScrollToFrame(20, 0));
}

void tst_CTimelineTrackHScroll::announcesButLeavesTheZoomWithoutFrames()
{
    KestovaTest::ResetAxis(0, 3.0, 50);
    Row row;
    row.track.SyncThumb(false);
    QCOMPARE(row.owner.messages.size(), std::size_t{1});
    QCOMPARE(row.track.GetThumb().right, kWidth - 1);
    QCOMPARE(Axis().scrollX, 0);
    QCOMPARE(Axis().info.pixelsPerFrame, 3);
}

void tst_CTimelineTrackHScroll::announcesButLeavesTheZoomWithoutWidth()
{
    KestovaTest::ResetAxis(400, 3.0, 50);
    Row row;
    row.track.resize(0, kHeight);
    row.track.SyncThumb(false);
    QCOMPARE(row.owner.messages.size(), std::size_t{1});
    QCOMPARE(row.owner.messages.front().code, 1201);
    QCOMPARE(row.track.GetThumb().left, 0);
    QCOMPARE(row.track.GetThumb().right, -1);
    QCOMPARE(Axis().scrollX, 0);
    QCOMPARE(Axis().info.pixelsPerFrame, 3);
}

void tst_CTimelineTrackHScroll::endsAPartialThumbAtTheRowHeightWhateverTheWidgetsHeight()
{
    Row row;
    row.track.resize(kWidth, kHeight + 6);
    row.track.SyncThumb(true);
    QCOMPARE(row.track.GetThumb().top, 0);
    QCOMPARE(row.track.GetThumb().bottom, kHeight);
    row.track.ZoomAll();
    QCOMPARE(row.track.GetThumb().bottom, kHeight + 5);
}

void tst_CTimelineTrackHScroll::paintsTheThumbOverTheGround_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("frameCount");
    QTest::addColumn<float>("left");
    QTest::addColumn<float>("right");
    QTest::newRow("full thumb") << "full" << 40 << 0.0f << 1.0f;
    QTest::newRow("part, at the start") << "start" << 100 << 0.0f << 0.5f;
    QTest::newRow("part, scrolled") << "part" << 100 << 0.25f << 0.75f;
    QTest::newRow("at the end") << "end" << 100 << 0.5f << 1.0f;
    QTest::newRow("narrow") << "narrow" << 100000 << 0.5f << 0.53f;
    QTest::newRow("no frames") << "no-frames" << 0 << 0.25f << 0.5f;
}

void tst_CTimelineTrackHScroll::paintsTheThumbOverTheGround()
{
    QFETCH(QString, name);
    QFETCH(int, frameCount);
    QFETCH(float, left);
    QFETCH(float, right);
    KestovaTest::ResetAxis(frameCount);
    Row row;
    row.track.ZoomAll(); // gives the thumb its height
    row.track.SetScrollInfo(left, right);
    const QSize size(kWidth, kHeight);
    const QImage image = KestovaTest::DrawRow(row.track, size);
    QCOMPARE(image, PaintedPlainly(row.track, size, QRect(QPoint(0, 0), size)));
    KESTOVA_COMPARE_PICTURE(image, "hscroll/" + name);
}

void tst_CTimelineTrackHScroll::paintsAnywhereAndTakesTheRectanglesSize()
{
    KestovaTest::ResetAxis(100, 10.0, 300);
    Row row;
    row.track.SyncThumb(true);
    const QSize size(500, 60);
    const QRect rect(40, 20, 300, 17);
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    row.track.DrawTrack(&painter, rect);
    painter.end();
    QCOMPARE(row.track.size(), rect.size());
    QCOMPARE(image, PaintedPlainly(row.track, size, rect));
}

void tst_CTimelineTrackHScroll::leavesThePaintersBrushOrigin()
{
    Row row;
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setBrushOrigin(7, 9);
    row.track.DrawTrack(&painter, image.rect());
    QCOMPARE(painter.brushOrigin(), QPoint(7, 9));
}

void tst_CTimelineTrackHScroll::paintsOnlyWhatTheClipShows()
{
    KestovaTest::ResetAxis(100, 10.0, 300);
    Row row;
    row.track.SyncThumb(true);
    const QImage whole = KestovaTest::DrawRow(row.track, QSize(kWidth, kHeight));
    const QRect clip(100, 0, 37, kHeight);
    QImage part(whole.size(), whole.format());
    part.fill(Qt::magenta);
    QPainter painter(&part);
    painter.setClipRect(clip);
    row.track.DrawTrack(&painter, part.rect());
    painter.end();
    QCOMPARE(part.copy(clip), whole.copy(clip));
    QCOMPARE(part.pixelColor(99, 5), QColor(Qt::magenta));
    QCOMPARE(part.pixelColor(137, 5), QColor(Qt::magenta));
}

QTEST_MAIN(tst_CTimelineTrackHScroll)
#include "tst_CTimelineTrackHScroll.moc"
