#include "TestTracks.h"
#include "container/CTimelineContainer.h"
#include "container/QTimelineCaptionArea.h"
#include "library/TimelineLibrary.h"
#include "support/HostFixture.h"
#include "support/PaintCounter.h"
#include "support/TimelineFixture.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QPointer>
#include <QTemporaryDir>

using namespace KestovaTest;

namespace {

constexpr int kCaptionWidth = 171;
constexpr int kTickHeight = 27;
constexpr int kLowRow = 20;

const QPixmap& Caption(int number)
{
    return TimelineLibrary::Instance().images.Picture(kCaptionPictures, number);
}

} // namespace

/// The container's life and its paint, in a host's dock.
class tst_CTimelineContainer : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;

    CTimelineContainer& Container() const { return *m_fixture->Container(); }

    CTimelineTrackBase* Root(const QString& name, TL_TRACK_TYPE type = TL_TRACK_KEY)
    {
        return m_fixture->Root(type, name);
    }

    QImage Grab() const
    {
        return Container().grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    QImage GrabRow(int y, int h = kLowRow) const
    {
        return Grab().copy(0, y, Container().width(), h);
    }

private slots:
    void init() { m_fixture = std::make_unique<HostFixture>(); }
    void cleanup() { m_fixture.reset(); }

    // ---- Life ----

    void isMadeExpandingAndNamedAndWithoutParent()
    {
        CTimelineContainer container(nullptr);
        QCOMPARE(container.parentWidget(), nullptr);
        QCOMPARE(container.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding,
                                                     QSizePolicy::DefaultType));
        QCOMPARE(container.accessibleName(), QString("CTimelineContainer"));
        QVERIFY(!container.TickTrack());
        QVERIFY(!container.ScrollTrack());
        QVERIFY(!container.HasOwner());
        QVERIFY(container.Tree().Records().empty());
        QVERIFY(container.findChildren<QWidget*>().isEmpty());
    }

    void takesNoDropsItself() { QVERIFY(!Container().acceptDrops()); }

    void withoutFixedTracksALayoutDoesNothingAndAPaintShowsNothing()
    {
        CTimelineContainer container(nullptr);
        container.resize(300, 200);
        container.Layout(false);
        QCOMPARE(container.size(), QSize(300, 200));
        QVERIFY(!container.findChild<QTimelineCaptionArea*>());
        const QImage image = container.grab().toImage();
        const QRgb ground = container.palette().color(QPalette::Window).rgb();
        for (const QPoint point : {QPoint(5, 5), QPoint(150, 13), QPoint(200, 100)})
            QCOMPARE(image.pixel(point), ground);
    }

    void creationPutsItIntoTheWindowAtTheGeometryAndMakesTheFixedTracks()
    {
        QWidget window;
        CTimelineContainer container(nullptr);
        QVERIFY(container.Create(&window, QRect(5, 6, 400, 300)));
        QCOMPARE(container.parentWidget(), &window);
        QCOMPARE(container.pos(), QPoint(5, 6));
        QCOMPARE(container.width(), 400);
        QCOMPARE(container.height(), 45); // as high as its rows need
        QVERIFY(!container.isHidden());
        CTimelineTrackBase* const fixedTracks[] = {container.ScrollTrack(), container.TickTrack()};
        for (CTimelineTrackBase* track : fixedTracks) {
            QCOMPARE(track->parentWidget(), &container);
            QCOMPARE(track->GetTrackId(), track);
            QVERIFY(track->GetOwner());
            QVERIFY(!track->isHidden());
        }
        QCOMPARE(container.ScrollTrack()->GetTrackType(), int(TL_TRACK_HSCROLL));
        QCOMPARE(container.TickTrack()->GetTrackType(), int(TL_TRACK_TICK));
        QVERIFY(container.TickTrack()->StyleAs<TickTrackStyle>());
        QVERIFY(!container.Tree().Contains(container.TickTrack()));
        container.setParent(nullptr);
    }

    void creationFailsWithoutARulerStyleAndLeavesWhatWasMade()
    {
        QTemporaryDir dir;
        QFile skin(dir.filePath("empty.ini"));
        QVERIFY(skin.open(QIODevice::WriteOnly));
        skin.write("[Nothing]\nKey = 1\n");
        skin.close();
        std::wstring& path = TimelineLibrary::Instance().skinPath;
        const std::wstring before = path;
        path = skin.fileName().toStdWString();
        QWidget window;
        QPointer<CTimelineTrackHScroll> scroll;
        QPointer<CTimelineTrackTick> tick;
        {
            CTimelineContainer container(nullptr);
            const bool created = container.Create(&window, QRect(0, 0, 400, 300));
            path = before;
            QVERIFY(!created);
            scroll = container.ScrollTrack();
            tick = container.TickTrack();
            QVERIFY(scroll); // needs no style of the skin
            QVERIFY(tick);
            QVERIFY(!container.findChild<QTimelineCaptionArea*>()); // nothing was laid out
        }
        QVERIFY(!scroll);
        QVERIFY(!tick);
    }

    void theEndTakesTheFixedTracksAndTheCaptionAreaAlong()
    {
        CTimelineTrackBase* const a = Root("a");
        const QPointer<CTimelineTrackHScroll> scroll = Container().ScrollTrack();
        const QPointer<CTimelineTrackTick> tick = Container().TickTrack();
        const QPointer<QTimelineCaptionArea> area = Container().findChild<QTimelineCaptionArea*>();
        QVERIFY(area);
        m_fixture->manager->ReleaseTimelineWnd();
        QVERIFY(!scroll);
        QVERIFY(!tick);
        QVERIFY(!area);
        QVERIFY(m_fixture->manager->IsTrackExist(a));
    }

    void theEndTakesScrollBarThenRulerThenCaptionArea()
    {
        QStringList gone;
        const auto watch = [&gone](QObject* object, const char* name) {
            connect(object, &QObject::destroyed, [&gone, name] { gone << name; });
        };
        watch(Container().ScrollTrack(), "scroll bar");
        watch(Container().TickTrack(), "ruler");
        watch(Container().findChild<QTimelineCaptionArea*>(), "caption area");
        m_fixture->manager->ReleaseTimelineWnd();
        QCOMPARE(gone, (QStringList{"scroll bar", "ruler", "caption area"}));
    }

    void theWindowForgetsAContainerThatGoesWithItsParentWidget()
    {
        delete m_fixture->Container();
        QVERIFY(!m_fixture->Window().GetContainer());
    }

    void tracksThatNobodyMovedAwayGoWithTheirParentWidget()
    {
        CTimelineTrackBase* const a = Root("a");
        delete m_fixture->Container();
        QVERIFY(!CTimelineTrackBase::IsAlive(a));
        QVERIFY(!m_fixture->manager->IsTrackExist(a));
    }

    // ---- Refreshing ----

    void aRefreshPaintsLaterOrAtOnce()
    {
        m_fixture->Settle();
        PaintCounter counter(Container());
        Container().Refresh(false);
        QCOMPARE(counter.paints, 0);
        m_fixture->Settle();
        QCOMPARE(counter.paints, 1);
        Container().Refresh(true);
        QCOMPARE(counter.paints, 2);
        m_fixture->Settle();
        QCOMPARE(counter.paints, 2);
    }

    void invalidatingLaysOutAndRepaints()
    {
        CTimelineTrackBase* const a = Root("a");
        m_fixture->Settle();
        a->StyleAs<TrackStyle>()->caption.bitmapId = 2;
        PaintCounter counter(Container());
        Container().InvalidateTimeline();
        QCOMPARE(a->height(), 26);
        m_fixture->Settle();
        QVERIFY(counter.paints > 0);
    }

    // ---- The back buffer ----

    void showingMakesAWhiteBackBufferOfTheWidgetsSize()
    {
        CTimelineContainer container(nullptr);
        container.resize(30, 20);
        QVERIFY(!container.BackBuffer());
        container.show();
        QVERIFY(container.BackBuffer());
        QCOMPARE(container.BackBuffer()->size(), QSize(30, 20));
        QImage white(30, 20, QImage::Format_RGB32);
        white.fill(Qt::white);
        QCOMPARE(container.BackBuffer()->toImage().convertToFormat(QImage::Format_RGB32), white);
    }

    void aBackBufferOfAnotherSizeIsMadeAnew()
    {
        CTimelineContainer container(nullptr);
        container.resize(30, 20);
        container.show();
        container.hide();
        const qint64 before = container.BackBuffer()->cacheKey();
        container.resize(50, 40);
        container.show();
        QVERIFY(container.BackBuffer());
        QCOMPARE(container.BackBuffer()->size(), QSize(50, 40));
        QVERIFY(container.BackBuffer()->cacheKey() != before);
    }

    // ---- Painting ----

    void theRulersCaptionStandsInTheCorner()
    {
        QImage wanted(kCaptionWidth, kTickHeight, QImage::Format_RGB32);
        wanted.fill(Container().palette().color(QPalette::Window));
        QPainter(&wanted).drawPixmap(0, 0, Caption(3));
        QCOMPARE(Grab().copy(0, 0, kCaptionWidth, kTickHeight), wanted);
    }

    void theScrollBarEndsOnePixelAboveTheBottomLine()
    {
        Root("a");
        const QImage image = Grab();
        const QRgb ground = Container().palette().color(QPalette::Window).rgb();
        const int bottom = Container().height() - 1;
        for (int x = 0; x < image.width(); ++x)
            QCOMPARE(image.pixel(x, bottom), ground);
        const QImage bar = image.copy(kCaptionWidth, bottom - 17, 300, 17);
        QCOMPARE(bar,
                 DrawRow(*Container().ScrollTrack(), QSize(Container().width() - kCaptionWidth, 17))
                     .copy(0, 0, 300, 17));
    }

    void everyRowIsPaintedByItsTrackBesideItsCaption()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const b = Root("b", TL_TRACK_CLIP);
        m_fixture->AddKeys(a, {5, 20});
        const QImage image = Grab();
        const int width = Container().width() - kCaptionWidth;
        QCOMPARE(image.copy(kCaptionWidth, kTickHeight, width, 20), DrawRow(*a, QSize(width, 20)));
        QCOMPARE(image.copy(kCaptionWidth, kTickHeight + 20, width, 26),
                 DrawRow(*b, QSize(width, 26)));
        QCOMPARE(image.copy(kCaptionWidth, 0, width, kTickHeight),
                 DrawRow(*Container().TickTrack(), QSize(width, kTickHeight)));
    }

    void aRowThatIsNotShownTakesNoRoomInAPaint()
    {
        CTimelineTrackBase* const a = Root("a");
        Root("b");
        const QImage second = GrabRow(kTickHeight + kLowRow);
        QVERIFY(GrabRow(kTickHeight) != second);
        a->hide();
        QCOMPARE(GrabRow(kTickHeight), second);
        a->show();
        QCOMPARE(GrabRow(kTickHeight + kLowRow), second);
    }

    void aRowTakesTheHeightOfItsFocusedPictureWhileItIsActive()
    {
        CTimelineTrackBase* const a = Root("a");
        Root("b");
        a->StyleAs<TrackStyle>()->caption.bitmapFocusId = 3; // 26 pixels instead of 20
        const QImage second = GrabRow(kTickHeight + 20).copy(0, 0, kCaptionWidth, kLowRow);
        Container().SetActiveRootTrack(a);
        QCOMPARE(GrabRow(kTickHeight + 26).copy(0, 0, kCaptionWidth, kLowRow), second);
    }

    void aRowBeginsBesideItsFocusedPictureWhileItIsActive()
    {
        CTimelineTrackBase* const a = Root("a");
        m_fixture->AddKeys(a, {5, 20});
        a->StyleAs<TrackStyle>()->caption.bitmapFocusId = 4;
        const QPixmap& focused = Caption(8);
        QCOMPARE(focused.size(), QSize(155, 27)); // narrower than the inactive row's
        Container().SetActiveRootTrack(a);
        // The container was laid out for the inactive picture: the scroll bar covers the rest.
        const QImage row = GrabRow(kTickHeight, kLowRow);
        QImage wanted(8, kLowRow, QImage::Format_RGB32);
        wanted.fill(Container().palette().color(QPalette::Window));
        QPainter(&wanted).drawPixmap(0, 0, focused);
        QCOMPARE(row.copy(0, 0, 8, kLowRow), wanted);
        // A caption button lies over the row's first columns.
        const int begin = kCaptionWidth - focused.width();
        const int width = Container().width() - focused.width();
        QCOMPARE(
            row.copy(kCaptionWidth, 0, width - begin, kLowRow),
            DrawRow(*a, QSize(width, focused.height())).copy(begin, 0, width - begin, kLowRow));
    }

    void anInactiveCaptionIsNotBoldThoughTheSkinsFontIs()
    {
        QFont& font = Root("Hips")->StyleAs<TrackStyle>()->caption.font;
        font.setWeight(QFont::Normal);
        const QImage normal = GrabRow(kTickHeight);
        font.setWeight(QFont::Bold);
        QCOMPARE(GrabRow(kTickHeight), normal);
    }

    void everyPaintForgetsTheTooltipsOfTheOneBefore()
    {
        CTimelineTrackBase* const a = Root("Hips");
        Root("Spine");
        Grab();
        QCOMPARE(Container().Captions().TooltipAreas().size(), std::size_t(2));
        a->hide();
        Grab();
        QCOMPARE(Container().Captions().TooltipAreas().size(), std::size_t(1));
        QCOMPARE(Container().Captions().TooltipAreas().front().text, QString("Spine"));
    }

    void aTrackWhoseKeysWereChangedWhileItWasHiddenIsPaintedRightWhenShown()
    {
        CTimelineTrackBase* const a = Root("a");
        m_fixture->AddKeys(a, {5, 20, 30});
        Grab(); // with keys in order, which a row remembers
        Container().HideRootTrack(a, m_fixture->manager->GetParentWidget(), true, true);
        a->Keys().GetAt(1)->frame = 5000; // out of order, and out of sight
        Container().ShowRootTrack(a, 0, true);
        const QImage shown = GrabRow(kTickHeight);
        a->InvalidateCaches();
        QCOMPARE(shown, GrabRow(kTickHeight));
    }

    void aWaveRowIsPaintedInTheVariableHeight()
    {
        CTimelineTrackBase* const root = Root("r");
        CTimelineTrackBase* const wave = MakeTrack(TL_TRACK_WAVE, "Voice", 1, &Container());
        Container().ShowChildTrack(root, wave, 0, false);
        m_fixture->Child(root, TL_TRACK_KEY, "b");
        const QImage b = GrabRow(kTickHeight); // the wave row has no height yet
        Container().GetWndMaxHeight(true);
        Container().resize(Container().width(), 44 + kLowRow + 60);
        QCOMPARE(Container().Rows().VariableRowHeight(), 60);
        // The layout is one pixel lower than the rows: the scroll bar lies on the last line.
        QCOMPARE(GrabRow(kTickHeight + 60).copy(0, 0, 700, kLowRow - 1),
                 b.copy(0, 0, 700, kLowRow - 1));
    }

    void theCaptionOfTheActiveRowIsPaintedBoldOnTheFocusedPicture()
    {
        CTimelineTrackBase* const a = Root("Hips");
        const QImage normal = GrabRow(kTickHeight);
        Container().SetActiveRootTrack(a);
        const QImage active = GrabRow(kTickHeight);
        QVERIFY(active != normal);
        // Left of the text and its buttons there is nothing but the picture.
        QImage wanted(8, kLowRow, QImage::Format_RGB32);
        QPainter(&wanted).drawPixmap(0, 0, Caption(5));
        QCOMPARE(active.copy(0, 0, 8, kLowRow), wanted);
    }

    void aPaintOfAPartShowsWhatAPaintOfTheWholeShows()
    {
        for (const char* name : {"a", "b", "c"})
            m_fixture->AddKeys(Root(name), {1, 5, 40});
        const QImage whole = Grab();
        QImage parts(whole.size(), QImage::Format_RGB32);
        parts.fill(Container().palette().color(QPalette::Window));
        for (const QRect part : {QRect(0, 0, 300, 40), QRect(300, 0, 500, 40),
                                 QRect(0, 40, 180, 200), QRect(180, 40, 620, 200)})
            Container().render(&parts, part.topLeft(), part);
        QCOMPARE(parts, whole);
    }

    void theCaptionAreaStandsAboveEverythingAfterAPaint()
    {
        Root("a");
        m_fixture->Settle();
        QCOMPARE(Container().children().last(),
                 static_cast<QObject*>(Container().findChild<QTimelineCaptionArea*>()));
    }

    // ---- The caption area ----

    void aDragOverTheCaptionColumnIsAlwaysRefused_data()
    {
        QTest::addColumn<bool>("acceptedBefore");
        QTest::newRow("offered as accepted") << true;
        QTest::newRow("offered as refused") << false;
    }
    void aDragOverTheCaptionColumnIsAlwaysRefused()
    {
        QFETCH(bool, acceptedBefore);
        m_fixture->manager->SetEnableDragEnterFiletype(true, true, true, true, true, true);
        m_fixture->ForgetCalls();
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile("/tmp/walk.kxmotion")});
        QDragEnterEvent event(QPoint(20, 40), Qt::CopyAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        event.setAccepted(acceptedBefore);
        QWidget* const area = Container().childAt(20, 10);
        QCOMPARE(area, static_cast<QWidget*>(Container().findChild<QTimelineCaptionArea*>()));
        QApplication::sendEvent(area, &event);
        QVERIFY(!event.isAccepted());
        QCOMPARE(m_fixture->host.calls, QStringList());
    }

    void theCaptionAreaShowsNothing()
    {
        Root("a");
        const QImage with = Grab();
        Container().findChild<QTimelineCaptionArea*>()->hide();
        QCOMPARE(Grab(), with);
    }

    void theCaptionAreaLetsTheMouseThroughToTheContainer()
    {
        QTimelineCaptionArea* const area = Container().findChild<QTimelineCaptionArea*>();
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(20, 10), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        press.accept();
        static_cast<QObject*>(area)->event(&press);
        QVERIFY(!press.isAccepted()); // so the toolkit goes on to the parent
    }
};

QTEST_MAIN(tst_CTimelineContainer)
#include "tst_CTimelineContainer.moc"
