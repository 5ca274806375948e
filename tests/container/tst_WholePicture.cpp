#include "FullScene.h"
#include "support/PictureCheck.h"

using namespace KestovaTest;

namespace {

constexpr QSize kWhole(1000, 500);

} // namespace

/// The timeline as the user sees it.
class tst_WholePicture : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;
    std::unique_ptr<FullScene> m_scene;

    CTimelineContainer& Container() const { return *m_fixture->Container(); }

    void SizeTo(const QSize& size)
    {
        Container().GetWndMaxHeight(true);
        Container().resize(size);
        m_fixture->Settle();
    }

    QImage Grab() const { return Container().grab().toImage(); }

    /// The host's own window with the timeline in it.
    QImage GrabWindow() const { return Container().parentWidget()->grab().toImage(); }

private slots:
    void init()
    {
        m_fixture = std::make_unique<HostFixture>(kWhole);
        // The colour of what the timeline leaves free is the host's.
        QPalette palette = m_fixture->mainWindow.palette();
        palette.setColor(QPalette::Window, QColor(34, 36, 40));
        m_fixture->mainWindow.setPalette(palette);
        m_scene = std::make_unique<FullScene>(*m_fixture);
        m_fixture->manager->SetTimeMarkFrame(20, 95);
        m_fixture->manager->SetCurrentFrame(64);
        m_fixture->manager->SetActiveChildTrack(m_scene->joints[1]);
        m_scene->SelectSome();
        SizeTo(kWhole);
    }
    void cleanup()
    {
        m_scene.reset();
        m_fixture.reset();
    }

    void everyKindWithCaptionsRulerScrollBarCurrentFrameAndTimeMark()
    {
        QCOMPARE(Container().size(), kWhole);
        KESTOVA_COMPARE_PICTURE(Grab(), "timeline/whole");
    }

    void narrow()
    {
        SizeTo(QSize(360, 500));
        KESTOVA_COMPARE_PICTURE(Grab(), "timeline/narrow");
    }

    void zoomedToFramesPerPixel()
    {
        m_fixture->manager->SetFrameCount(4000);
        Container().DoZoomAll();
        m_fixture->manager->SetTimeMarkFrame(300, 2500);
        m_fixture->manager->SetCurrentFrame(1200);
        for (CTimelineTrackBase* track : m_scene->joints) {
            for (int frame = 160; frame < 4000; frame += 37)
                AddKeysTo(*track, {frame});
        }
        m_fixture->manager->InvalidateTimeline();
        KESTOVA_COMPARE_PICTURE(Grab(), "timeline/frames-per-pixel");
    }

    void zoomedInToTheMostAndScrolled()
    {
        while (Container().CanDoZoomIn())
            Container().DoZoomIn();
        m_fixture->Settle();
        KESTOVA_COMPARE_PICTURE(Grab(), "timeline/zoomed-in");
    }

    void tallerThanItsRows()
    {
        m_fixture->manager->HideRootTrack(m_scene->body, true);
        QWidget* const window = Container().parentWidget();
        SizeTo(kWhole);
        QVERIFY(Container().height() < window->height());
        KESTOVA_COMPARE_PICTURE(GrabWindow(), "timeline/taller-than-its-rows");
    }

    void shorterThanItsRows()
    {
        SizeTo(QSize(1000, 220));
        QCOMPARE(Container().size(), QSize(1000, 220));
        KESTOVA_COMPARE_PICTURE(Grab(), "timeline/shorter-than-its-rows");
    }

    void aSecondPaintShowsTheSame()
    {
        const QImage first = Grab();
        m_fixture->Settle();
        QCOMPARE(Grab(), first);
    }

    void whatTheWindowShowsIsWhatIsGrabbed()
    {
        // The part that the host's window leaves in sight, as it was painted on the screen.
        m_fixture->Settle();
        QWidget& window = m_fixture->mainWindow;
        const QImage shown = window.grab().toImage();
        const QPoint origin = Container().mapTo(&window, QPoint());
        const QRect part = window.rect().intersected(QRect(origin, Container().size()));
        QVERIFY(part.width() > 600 && part.height() > 300);
        const QRect visible =
            Container().visibleRegion().boundingRect().translated(origin).intersected(part);
        QCOMPARE(shown.copy(visible).convertToFormat(QImage::Format_RGB32),
                 Grab().copy(visible.translated(-origin)).convertToFormat(QImage::Format_RGB32));
    }
};

QTEST_MAIN(tst_WholePicture)
#include "tst_WholePicture.moc"
