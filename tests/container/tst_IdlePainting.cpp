#include "FullScene.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

#include <QElapsedTimer>

using namespace KestovaTest;

namespace {

constexpr int kIdleTime = 1000; // milliseconds
constexpr int kSettlingTime = 300;

/// Counts the paint events and the pending requests for one, of a widget and everything in it.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget& widget)
    {
        widget.installEventFilter(this);
        for (QWidget* child : widget.findChildren<QWidget*>())
            child->installEventFilter(this);
    }

    QStringList painted;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            painted << watched->metaObject()->className();
        return false;
    }
};

} // namespace

/// A timeline that nobody touches paints nothing: a row that asked for another paint while it is
/// painted would keep a processor busy for ever.
class tst_IdlePainting : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;
    std::unique_ptr<FullScene> m_scene;

    CTimelineContainer& Container() const { return *m_fixture->Container(); }

    void VerifyItComesToRest()
    {
        PaintWatch settling(Container());
        QTest::qWait(kSettlingTime);
        // Whatever was changed has been painted, in a few paints.
        QVERIFY2(!settling.painted.isEmpty(), "nothing was painted at all");
        QVERIFY2(settling.painted.count("CTimelineContainer") <= 6,
                 qPrintable(settling.painted.join(' ')));
        PaintWatch idle(Container());
        QTest::qWait(kIdleTime);
        QVERIFY2(idle.painted.isEmpty(), qPrintable(idle.painted.join(' ')));
    }

private slots:
    void init()
    {
        m_fixture = std::make_unique<HostFixture>(QSize(1000, 500));
        m_scene = std::make_unique<FullScene>(*m_fixture);
        Container().GetWndMaxHeight(true);
        Container().resize(1000, 480);
        m_fixture->manager->InvalidateTimeline();
    }
    void cleanup()
    {
        m_scene.reset();
        m_fixture.reset();
    }

    void everyKindIsShown()
    {
        QSet<int> kinds;
        for (const CTimelineTrackBase* track : Container().Tree().Rows()) {
            QVERIFY(track->isVisible());
            QVERIFY(!track->visibleRegion().isEmpty());
            kinds << track->GetTrackType();
        }
        QCOMPARE(kinds,
                 (QSet<int>{TL_TRACK_SWITCH, TL_TRACK_KEY, TL_TRACK_TRANSITION_KEY,
                            TL_TRACK_LINK_KEY, TL_TRACK_VISEME_KEY, TL_TRACK_CLIP, TL_TRACK_WAVE}));
        QVERIFY(m_scene->blend->Keys().GetSize() > 0);
        QVERIFY(Container().TickTrack()->isVisible());
        QVERIFY(Container().ScrollTrack()->isVisible());
    }

    void anIdleTimelineDoesNotPaint() { VerifyItComesToRest(); }

    void comesToRestAfterAResize()
    {
        QTest::qWait(kSettlingTime);
        Container().resize(900, 430);
        VerifyItComesToRest();
    }

    void comesToRestAfterAResizeThatHidesRows()
    {
        QTest::qWait(kSettlingTime);
        Container().resize(1000, 300);
        QVERIFY(!m_scene->lips->isVisible());
        VerifyItComesToRest();
    }

    void comesToRestAfterTheHostsWindowWasResized()
    {
        QTest::qWait(kSettlingTime);
        m_fixture->mainWindow.resize(700, 320);
        Container().InvalidateTimeline();
        VerifyItComesToRest();
    }

    void comesToRestAfterAScrollChange()
    {
        QTest::qWait(kSettlingTime);
        Container().SetScrollInfo(0.4f, 0.6f);
        VerifyItComesToRest();
        Container().ScrollToFrame(3, 0);
        VerifyItComesToRest();
    }

    void comesToRestAfterAZoom()
    {
        QTest::qWait(kSettlingTime);
        m_fixture->manager->SetFrameCount(5000);
        Container().DoZoomAll();
        VerifyItComesToRest();
        Container().DoZoomIn();
        VerifyItComesToRest();
    }

    void comesToRestAfterHidingAndShowing()
    {
        QTest::qWait(kSettlingTime);
        Container().hide();
        m_fixture->Settle();
        Container().show();
        VerifyItComesToRest();
    }

    void comesToRestAfterTheWindowWasHiddenAndShown()
    {
        QTest::qWait(kSettlingTime);
        m_fixture->mainWindow.hide();
        m_fixture->Settle();
        m_fixture->mainWindow.show();
        VerifyItComesToRest();
    }

    void comesToRestAfterActivationOfAnyRow()
    {
        for (CTimelineTrackBase* row : Container().Tree().Rows()) {
            if (row == m_scene->joints[2])
                break; // the others are of its kind
            Container().ActivateTrack(row);
            VerifyItComesToRest();
        }
    }

    void comesToRestWithATransitionRowPartlyOutOfSight()
    {
        QTest::qWait(kSettlingTime);
        // Above it only rows of fixed heights; the window shows half of the row.
        QWidget* const window = Container().parentWidget();
        Container().move(0, window->height() - m_scene->blend->y() - 10);
        VerifyItComesToRest();
        Container().move(-800, 0);
        VerifyItComesToRest();
    }
};

QTEST_MAIN(tst_IdlePainting)
#include "tst_IdlePainting.moc"
