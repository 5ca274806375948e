#include "MessageSpy.h"
#include "container/CTimelineContainer.h"
#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "support/HostFixture.h"
#include "support/PaintCounter.h"
#include "support/Pointer.h"
#include "tracks/CTimelineTrackHScroll.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTimer>
#include <QtTest>

#include <cmath>
#include <memory>

using namespace KestovaTest;

namespace {

constexpr int kFrames = 2000;
constexpr int kY = 8;
const char* const kPressed = "1108 (0, 0, 0, 0)";
const char* const kViewChanged = "1201 (0, 0, 0, 0)";

} // namespace

/// The mouse on the scroll-and-zoom bar.
class tst_ScrollBarGesture : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;
    std::unique_ptr<Pointer> m_pointer;
    std::unique_ptr<MessageSpy> m_spy;
    QLineEdit* m_elsewhere = nullptr;

    CTimelineTrackHScroll* Bar() const { return m_fixture->Container()->ScrollTrack(); }
    static FrameAxis& Axis() { return TimelineLibrary::Instance().axis; }
    int W() const { return Bar()->width(); }
    int L() const { return Bar()->GetThumb().left; }
    int R() const { return Bar()->GetThumb().right; }
    int Middle() const { return (L() + R()) / 2; }
    bool ShowsResizeCursor() const
    {
        return Bar()->testAttribute(Qt::WA_SetCursor) &&
               Bar()->cursor().shape() == Qt::SizeHorCursor;
    }
    /// ceil(scale * (L / W) * N), the quotient in single precision.
    int ScrollOfThumb() const
    {
        const float fraction = static_cast<float>(L()) / static_cast<float>(W());
        return static_cast<int>(std::ceil(Axis().Scale() * fraction * Axis().frameCount));
    }
    /// The frame info that the thumb's width stands for.
    CFrameInfo ZoomOfThumb() const
    {
        return CFrameInfo(double(W()) * W() / (double(R() - L()) * Axis().frameCount));
    }
    void Press(int x) { m_pointer->Press(Bar(), QPoint(x, kY)); }
    void MoveTo(int x) { m_pointer->MoveTo(Bar(), QPoint(x, kY)); }
    void Release() { m_pointer->Release(); }
    QStringList Messages() { return m_spy->TakeMessages(); }
    void VerifyThumb(int left, int right)
    {
        QCOMPARE(L(), left);
        QCOMPARE(R(), right);
        QCOMPARE(Axis().scrollX, ScrollOfThumb());
    }
    void VerifyZoomOfThumb()
    {
        QCOMPARE(Axis().info.pixelsPerFrame, ZoomOfThumb().pixelsPerFrame);
        QCOMPARE(Axis().info.framesPerPixel, ZoomOfThumb().framesPerPixel);
    }
    void VerifyIdle()
    {
        const int left = L();
        const int right = R();
        Messages();
        MoveTo(left + 40);
        MoveTo(left + 60);
        QCOMPARE(Messages(), QStringList());
        QCOMPARE(L(), left);
        QCOMPARE(R(), right);
        QVERIFY(!ShowsResizeCursor());
    }
    void VerifyStartsClean()
    {
        VerifyIdle();
        const int left = L();
        const int right = R();
        const int x = Middle();
        Press(x);
        MoveTo(x + 5);
        Release();
        QCOMPARE(Messages(), (QStringList{kPressed, kViewChanged}));
        QCOMPARE(L(), left + 5);
        QCOMPARE(R(), right + 5);
    }

private slots:
    void init();
    void cleanup();

    void scrollsByTheBody();
    void theBodyKeepsItsZoom();
    void theBodyFollowsEveryStepFromTheOneBefore();
    void theBodyKeepsItsWidthAtTheLeftEnd();
    void theBodyKeepsItsSpanAtTheRightEnd();
    void zoomsByTheLeftEdge();
    void zoomsByTheRightEdge();
    void theLeftEdgeStopsTwoPixelsAboveTheMinimum();
    void theRightEdgeStopsAtTheMinimum();
    void theEdgesReachTwoPixels_data();
    void theEdgesReachTwoPixels();
    void pagesToTheLeft();
    void pagesToTheRight();
    void pagingAgainstEitherEndWidensTheThumbByAPixel();
    void pagesOnceForAPressAndNotForItsMoves();
    void aFastSecondClickPagesAgain();
    void aFullBarHasNoZoomIn();
    void aTimelineThatFitsHasAFullThumb();
    void repaintsTheTimeline();
    void tellsTheHostNothing();

    void showsTheResizeCursorOverTheEdges();
    void keepsTheResizeCursorWhileAnEdgeIsDragged();
    void showsNoResizeCursorWhileTheBodyIsDragged();
    void otherButtonsDoNothing();
    void anyReleaseEndsTheDrag();
    void everyEventGoesOnToTheContainer();
    void movesThatDragNothingStayHere();

    void endsWithAMoveThatFindsTheButtonUp();
    void endsBeforeAnotherPress();
    void endsWhenTheFocusGoesElsewhere();
    void endsWhenItIsHidden();
    void endsWhenAModalDialogOpens();
    void endsWhenADialogOpensInTheReportOfThePress();
    void grabsNothingWhenTheButtonGoesUpInTheReportOfThePress();
    void survivesTheEndOfItsWindowDuringADrag();
};

void tst_ScrollBarGesture::init()
{
    m_fixture = std::make_unique<HostFixture>();
    m_elsewhere = new QLineEdit;
    m_fixture->mainWindow.setCentralWidget(m_elsewhere);
    m_fixture->manager->SetFrameCount(kFrames);
    m_fixture->manager->SetScrollInfo(0.25f, 0.5f);
    m_fixture->Settle();
    m_fixture->ForgetCalls();
    m_pointer = std::make_unique<Pointer>(m_fixture->Container());
    EnterWindow(m_fixture->Container());
    m_spy = std::make_unique<MessageSpy>(Bar());
}

void tst_ScrollBarGesture::cleanup()
{
    m_spy.reset();
    m_pointer.reset();
    m_fixture.reset();
}

void tst_ScrollBarGesture::scrollsByTheBody()
{
    const int left = L();
    const int right = R();
    const int x = Middle() + 7;
    Press(x);
    QCOMPARE(Messages(), (QStringList{kPressed}));
    MoveTo(x + 30);
    VerifyThumb(left + 30, right + 30);
    MoveTo(x + 12);
    VerifyThumb(left + 12, right + 12);
    Release();
    VerifyThumb(left + 12, right + 12);
    QCOMPARE(Messages(), (QStringList{kViewChanged, kViewChanged}));
    VerifyIdle();
}

void tst_ScrollBarGesture::theBodyKeepsItsZoom()
{
    // A zoom that is not the one of the thumb's width.
    Axis().info = CFrameInfo(7.0);
    const int x = Middle();
    Press(x);
    MoveTo(x + 20);
    QCOMPARE(Axis().info.pixelsPerFrame, 7);
    QCOMPARE(Axis().scrollX, ScrollOfThumb());
}

void tst_ScrollBarGesture::theBodyFollowsEveryStepFromTheOneBefore()
{
    const int left = L();
    const int span = R() - L();
    Press(left + 10);
    MoveTo(left + 10 - 500); // against the left end
    VerifyThumb(0, span);
    MoveTo(left + 10 - 480); // still left of the bar, but 20 pixels further right
    VerifyThumb(20, span + 20);
}

void tst_ScrollBarGesture::theBodyKeepsItsWidthAtTheLeftEnd()
{
    const int span = R() - L();
    const int x = Middle();
    Press(x);
    MoveTo(x - L()); // exactly to the end
    VerifyThumb(0, span);
    MoveTo(x - 300);
    VerifyThumb(0, span);
}

void tst_ScrollBarGesture::theBodyKeepsItsSpanAtTheRightEnd()
{
    const int span = R() - L();
    const int x = Middle();
    Press(x);
    MoveTo(x + W());
    VerifyThumb(W() - 1 - span, W() - 1);
}

void tst_ScrollBarGesture::zoomsByTheLeftEdge()
{
    const int right = R();
    const int x = L();
    Press(x);
    MoveTo(x - 40);
    VerifyThumb(x - 40, right);
    VerifyZoomOfThumb();
    MoveTo(-30);
    VerifyThumb(0, right);
    VerifyZoomOfThumb();
    Release();
    QCOMPARE(Messages(), (QStringList{kPressed, kViewChanged, kViewChanged}));
    VerifyIdle();
}

void tst_ScrollBarGesture::zoomsByTheRightEdge()
{
    const int left = L();
    const int x = R();
    Press(x);
    MoveTo(x + 40);
    VerifyThumb(left, x + 40);
    VerifyZoomOfThumb();
    MoveTo(W() + 50);
    VerifyThumb(left, W() - 1);
    VerifyZoomOfThumb();
    Release();
    QCOMPARE(Messages(), (QStringList{kPressed, kViewChanged, kViewChanged}));
    VerifyIdle();
}

void tst_ScrollBarGesture::theLeftEdgeStopsTwoPixelsAboveTheMinimum()
{
    const int minimum = static_cast<int>(
        std::ceil(static_cast<float>(W()) / (10.0f * kFrames) * static_cast<float>(W())));
    const int right = R();
    Press(L());
    MoveTo(right + 100);
    QCOMPARE(R(), right);
    QCOMPARE(R() - L() + 1, minimum + 2);
}

void tst_ScrollBarGesture::theRightEdgeStopsAtTheMinimum()
{
    const int minimum = static_cast<int>(
        std::ceil(static_cast<float>(W()) / (10.0f * kFrames) * static_cast<float>(W())));
    const int left = L();
    Press(R());
    MoveTo(left - 100);
    QCOMPARE(L(), left);
    QCOMPARE(R() - L() + 1, minimum);
}

void tst_ScrollBarGesture::theEdgesReachTwoPixels_data()
{
    QTest::addColumn<bool>("ofLeftEdge");
    QTest::addColumn<int>("offset");
    QTest::addColumn<bool>("isEdge");
    for (const bool ofLeftEdge : {true, false}) {
        for (int offset = -3; offset <= 3; ++offset)
            QTest::addRow("%s edge %+d", ofLeftEdge ? "left" : "right", offset)
                << ofLeftEdge << offset << (offset > -3 && offset < 3);
    }
}

void tst_ScrollBarGesture::theEdgesReachTwoPixels()
{
    QFETCH(bool, ofLeftEdge);
    QFETCH(int, offset);
    QFETCH(bool, isEdge);
    Press((ofLeftEdge ? L() : R()) + offset);
    QCOMPARE(ShowsResizeCursor(), isEdge);
    const int left = L();
    const int right = R();
    const int x = (ofLeftEdge ? L() + 20 : R() - 20);
    MoveTo(x);
    QCOMPARE(ofLeftEdge ? L() == x && R() == right : R() == x && L() == left, isEdge);
}

void tst_ScrollBarGesture::pagesToTheLeft()
{
    m_fixture->manager->SetScrollInfo(0.5f, 0.6f);
    Messages();
    Axis().info = CFrameInfo(7.0); // paging does not look at the zoom
    const int left = L();
    const int right = R();
    const int width = right - left + 1;
    Press(left - 10);
    VerifyThumb(left - width, right - width);
    QCOMPARE(Axis().info.pixelsPerFrame, 7);
    Release();
    QCOMPARE(Messages(), (QStringList{kPressed, kViewChanged}));
    VerifyIdle();
}

void tst_ScrollBarGesture::pagesToTheRight()
{
    const int left = L();
    const int right = R();
    const int width = right - left + 1;
    Press(right + 10);
    VerifyThumb(left + width, right + width);
    Release();
    QCOMPARE(Messages(), (QStringList{kPressed, kViewChanged}));
    VerifyIdle();
}

void tst_ScrollBarGesture::pagingAgainstEitherEndWidensTheThumbByAPixel()
{
    m_fixture->manager->SetScrollInfo(0.1f, 0.35f);
    const int width = R() - L() + 1;
    m_pointer->Click(Bar(), QPoint(5, kY));
    VerifyThumb(0, width);
    m_fixture->manager->SetScrollInfo(0.7f, 0.95f);
    const int before = R() - L() + 1;
    m_pointer->Click(Bar(), QPoint(W() - 3, kY));
    VerifyThumb(W() - 1 - before, W() - 1);
}

void tst_ScrollBarGesture::pagesOnceForAPressAndNotForItsMoves()
{
    Press(R() + 10);
    const int left = L();
    Messages();
    MoveTo(R() + 100);
    MoveTo(Middle());
    QCOMPARE(L(), left);
    QCOMPARE(Messages(), QStringList());
    Release();
}

void tst_ScrollBarGesture::aFastSecondClickPagesAgain()
{
    m_fixture->manager->SetScrollInfo(0.1f, 0.2f);
    const int left = L();
    const int width = R() - L() + 1;
    Messages();
    m_pointer->DoubleClick(Bar(), QPoint(W() - 10, kY));
    VerifyThumb(left + 2 * width, left + 3 * width - 1);
    QCOMPARE(Messages(), (QStringList{kPressed, kViewChanged, kPressed, kViewChanged}));
    VerifyIdle();
}

void tst_ScrollBarGesture::aFullBarHasNoZoomIn()
{
    m_fixture->manager->SetFrameCount(W() / 10); // W >= 10 N
    Messages();
    VerifyThumb(0, W() - 1);
    const int width = W();
    Press(R());
    MoveTo(R() - 100);
    Release();
    VerifyThumb(0, width - 1);
}

void tst_ScrollBarGesture::aTimelineThatFitsHasAFullThumb()
{
    m_fixture->manager->SetFrameCount(50);
    QVERIFY(Axis().SpanToPixel(50) <= W());
    VerifyThumb(0, W() - 1);
    QCOMPARE(Axis().scrollX, 0);
}

void tst_ScrollBarGesture::repaintsTheTimeline()
{
    const int x = Middle();
    Press(x);
    m_fixture->Settle();
    PaintCounter counter(*m_fixture->Container());
    MoveTo(x + 10);
    m_fixture->Settle();
    QVERIFY(counter.paints > 0);
}

void tst_ScrollBarGesture::tellsTheHostNothing()
{
    Press(Middle());
    MoveTo(Middle() + 10);
    Release();
    m_pointer->Click(Bar(), QPoint(W() - 5, kY));
    QCOMPARE(m_fixture->host.TakeCalls(), QStringList());
}

void tst_ScrollBarGesture::showsTheResizeCursorOverTheEdges()
{
    MoveTo(Middle());
    QVERIFY(!ShowsResizeCursor());
    MoveTo(L() + 1);
    QVERIFY(ShowsResizeCursor());
    MoveTo(Middle());
    QVERIFY(!ShowsResizeCursor());
    MoveTo(R() - 2);
    QVERIFY(ShowsResizeCursor());
    MoveTo(R() + 5);
    QVERIFY(!ShowsResizeCursor());
    QCOMPARE(Messages(), QStringList());
}

void tst_ScrollBarGesture::keepsTheResizeCursorWhileAnEdgeIsDragged()
{
    for (const bool ofLeftEdge : {true, false}) {
        Press(ofLeftEdge ? L() : R());
        QVERIFY(ShowsResizeCursor());
        MoveTo(W() + 100); // far from where the edge can go
        QVERIFY(ShowsResizeCursor());
        Release();
        QVERIFY(!ShowsResizeCursor());
        m_fixture->manager->SetScrollInfo(0.25f, 0.5f);
    }
}

void tst_ScrollBarGesture::showsNoResizeCursorWhileTheBodyIsDragged()
{
    const int x = Middle();
    Press(x);
    MoveTo(x + 9);
    QVERIFY(!ShowsResizeCursor());
    Release();
}

void tst_ScrollBarGesture::otherButtonsDoNothing()
{
    const int left = L();
    const int right = R();
    for (const int x : {L(), Middle(), R(), R() + 30, L() - 30}) {
        m_pointer->Press(Bar(), QPoint(x, kY), Qt::MiddleButton);
        MoveTo(Middle() + 15);
        m_pointer->Release(Qt::MiddleButton);
    }
    QCOMPARE(L(), left);
    QCOMPARE(R(), right);
    QCOMPARE(Messages(), QStringList());
}

void tst_ScrollBarGesture::anyReleaseEndsTheDrag()
{
    const int x = Middle();
    Press(x);
    m_pointer->Press(Bar(), QPoint(x, kY), Qt::MiddleButton);
    m_pointer->Release(Qt::MiddleButton);
    VerifyIdle();
    Release();
}

void tst_ScrollBarGesture::everyEventGoesOnToTheContainer()
{
    m_fixture->Container()->setMouseTracking(true); // or it hears of no move without a button
    MouseEventLog log(m_fixture->Container());
    for (const int x : {L(), Middle(), R()}) {
        Press(x);
        MoveTo(x + 4);
        Release();
        QCOMPARE(log.TakeEvents(), (QStringList{"press", "move", "release"}));
    }
}

void tst_ScrollBarGesture::movesThatDragNothingStayHere()
{
    m_fixture->Container()->setMouseTracking(true); // or it hears of no move without a button
    MouseEventLog log(m_fixture->Container());
    MoveTo(Middle());
    MoveTo(R());
    QVERIFY(ShowsResizeCursor());
    MoveTo(Middle());
    QVERIFY(!ShowsResizeCursor());
    QCOMPARE(log.TakeEvents(), QStringList());
    // A page does not drag.
    Press(R() + 30);
    MoveTo(R() + 34);
    Release();
    QCOMPARE(log.TakeEvents(), (QStringList{"press", "release"}));
}

void tst_ScrollBarGesture::endsWithAMoveThatFindsTheButtonUp()
{
    Press(R());
    MoveTo(R() + 20);
    m_pointer->LoseButtons();
    const int right = R();
    MoveTo(right + 60);
    QCOMPARE(R(), right);
    QVERIFY(!ShowsResizeCursor());
    VerifyStartsClean();
}

void tst_ScrollBarGesture::endsBeforeAnotherPress()
{
    Press(R());
    const QPoint point(Middle(), kY);
    QMouseEvent press(QEvent::MouseButtonPress, point, Bar()->mapToGlobal(point), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Bar(), &press);
    QVERIFY(!ShowsResizeCursor());
    const int left = L();
    const int right = R();
    MoveTo(point.x() + 8);
    VerifyThumb(left + 8, right + 8);
    Release();
    VerifyStartsClean();
}

void tst_ScrollBarGesture::endsWhenTheFocusGoesElsewhere()
{
    Press(L());
    m_elsewhere->setFocus();
    m_fixture->Settle();
    QVERIFY(!ShowsResizeCursor());
    MoveTo(Middle());
    Release();
    VerifyStartsClean();
}

void tst_ScrollBarGesture::endsWhenItIsHidden()
{
    Press(L());
    Bar()->hide();
    m_fixture->Settle();
    QVERIFY(!ShowsResizeCursor());
    Bar()->show();
    Release();
    VerifyStartsClean();
}

void tst_ScrollBarGesture::endsWhenAModalDialogOpens()
{
    Press(L());
    {
        QDialog dialog(&m_fixture->mainWindow);
        dialog.open();
        m_fixture->Settle();
    }
    QVERIFY(!ShowsResizeCursor());
    m_fixture->Settle();
    Release();
    VerifyStartsClean();
}

void tst_ScrollBarGesture::endsWhenADialogOpensInTheReportOfThePress()
{
    m_spy->reaction = [this](int code) {
        if (code != kTrackPressed)
            return;
        QDialog dialog(&m_fixture->mainWindow);
        QTimer::singleShot(0, &dialog, &QDialog::reject);
        dialog.exec();
    };
    Press(L());
    m_spy->reaction = nullptr;
    QVERIFY(!ShowsResizeCursor());
    MoveTo(L() + 50); // the button is still down
    QCOMPARE(Messages(), QStringList(kPressed));
    Release();
    VerifyStartsClean();
}

void tst_ScrollBarGesture::grabsNothingWhenTheButtonGoesUpInTheReportOfThePress()
{
    m_spy->reaction = [this](int code) {
        if (code == kTrackPressed)
            Release();
    };
    Press(L());
    m_spy->reaction = nullptr;
    QVERIFY(!ShowsResizeCursor());
    QCOMPARE(Messages(), QStringList(kPressed));
    VerifyStartsClean();
}

void tst_ScrollBarGesture::survivesTheEndOfItsWindowDuringADrag()
{
    const QPoint press = Bar()->mapTo(&m_fixture->mainWindow, QPoint(Middle(), kY));
    m_pointer->Press(&m_fixture->mainWindow, press);
    CTimelineTrackHScroll* const bar = Bar();
    m_spy.reset();
    m_fixture->manager->ReleaseTimelineWnd();
    m_fixture->Settle();
    m_pointer->MoveTo(&m_fixture->mainWindow, press + QPoint(10, 0));
    m_pointer->Release();
    QVERIFY(!CTimelineTrackBase::IsAlive(bar));
    QCOMPARE(m_fixture->host.TakeCalls(), QStringList());
}

QTEST_MAIN(tst_ScrollBarGesture)
#include "tst_ScrollBarGesture.moc"
