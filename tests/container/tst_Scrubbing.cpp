#include "FullScene.h"
#include "library/TimelineLibrary.h"
#include "support/Pointer.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

#include <QBackingStore>
#include <QPaintEvent>
#include <QRandomGenerator>
#include <QtTest>

using namespace KestovaTest;

namespace {

/// Adds up what is painted of a widget.
class PaintedRegion : public QObject
{
public:
    explicit PaintedRegion(QWidget& widget) { widget.installEventFilter(this); }

    QRegion region;
    int paints = 0;

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            ++paints;
            region += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
};

VZ::CArrayList<TLEditType> OneMode(TLEditType mode)
{
    VZ::CArrayList<TLEditType> modes;
    modes.Add(mode);
    return modes;
}

} // namespace

Q_DECLARE_METATYPE(std::function<void()>)

/// A step of the current frame repaints the columns that show it, and leaves the picture that a
/// repaint of everything would.
class tst_Scrubbing : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;
    std::unique_ptr<FullScene> m_scene;
    CTimelineTrackBase* m_hiddenSource = nullptr;

    CTimelineContainer& Container() const { return *m_fixture->Container(); }
    static FrameAxis& Axis() { return TimelineLibrary::Instance().axis; }

    /// What stands on the screen, whether or not it should.
    QImage OnScreen() const
    {
        const auto* const image =
            dynamic_cast<const QImage*>(Container().backingStore()->paintDevice());
        const QRect part(Container().mapTo(&m_fixture->mainWindow, QPoint()), Container().size());
        return image ? image->copy(part & m_fixture->mainWindow.rect())
                           .convertToFormat(QImage::Format_RGB32)
                     : QImage();
    }
    /// What would stand there after a repaint of everything.
    QImage RepaintedWhole()
    {
        Container().repaint();
        return OnScreen();
    }
    /// Zooms and scrolls, and lets everything be painted.
    void Show(double scale, int scrollX, int frame)
    {
        Axis().info = CFrameInfo(scale);
        Axis().scrollX = scrollX;
        Axis().currentFrame = frame;
        Container().repaint();
        m_fixture->Settle();
    }
    void Step(int frame) { m_fixture->manager->SetCurrentFrame(frame); }
    void VerifyPicture()
    {
        const QImage picture = OnScreen();
        QVERIFY(!picture.isNull());
        QCOMPARE(picture, RepaintedWhole());
    }
    /// Steps and checks the picture, which is made for the first of several steps. @return the
    /// region that was painted.
    QRegion VerifyStep(int frame)
    {
        PaintedRegion painted(Container());
        Step(frame);
        const QImage picture = OnScreen();
        const QRegion region = painted.region;
        m_fixture->Settle();
        const bool restsAtOnce = painted.region == region;
        if (!restsAtOnce)
            QTest::qFail("something was left to be painted", __FILE__, __LINE__);
        if (picture.isNull() || picture != RepaintedWhole())
            QTest::qFail(qPrintable(QStringLiteral("frame %1 leaves another picture than a whole "
                                                   "repaint does")
                                        .arg(frame)),
                         __FILE__, __LINE__);
        Scrub();
        return region;
    }
    static int Area(const QRegion& region)
    {
        int area = 0;
        for (const QRect& rect : region)
            area += rect.width() * rect.height();
        return area;
    }
    bool IsWhole(const QRegion& region) const
    {
        return (Container().visibleRegion() - region).isEmpty();
    }
    /// Several steps, as of somebody who goes on, and a repaint afterwards.
    void Scrub()
    {
        const int frame = Axis().currentFrame;
        for (const int step : {frame + 1, frame})
            Step(step);
        Container().repaint();
    }

private slots:
    void init();
    void cleanup();

    void paintsOnlyTheColumnsOfBothFrames();
    void paintsTheSameForAFarStep();
    void paintsNothingWhenTheFrameStays();
    void paintsBeforeItReturns();
    void aHostThatRepaintsEverythingAfterEachStepPaysOnce();
    void theRulersDragPaintsOnlyColumns();
    void everyRowKindStaysWhole_data();
    void everyRowKindStaysWhole();
    void bothEndsAndBeyondTheView_data();
    void bothEndsAndBeyondTheView();
    void theFrameCountItselfHasALineAndNoCell();
    void aWalkAtRandomKeepsThePicture_data();
    void aWalkAtRandomKeepsThePicture();
    void aRowCutOffByTheScrollBarStaysWhole();
    void aTimelinePartlyOutOfSightStaysWhole();
    void rowsOfDifferentCaptionsStayWhole();
    void whatReachesOverTheLineStaysThere();
    void rowsWithoutAGroundStayWhole();

    void aPendingChangeIsPaintedWithTheStep();
    void aPendingPartIsPaintedWithTheStep();
    void aPendingChangeIsPaintedThoughTheFrameStays();
    void aSilentChangeIsPaintedWithTheStep_data();
    void aSilentChangeIsPaintedWithTheStep();
    void aFrameThatWasMovedSilentlyIsFound();
    void aPictureTakenInBetweenDoesNotMislead();
    void anExposedPartInBetweenDoesNotMislead();
    void stepsWhileHiddenAreMadeUpFor();
    void stepsWhileUpdatesAreOffAreMadeUpFor();
    void leavesTheTransitionRowsAtRest();
};

void tst_Scrubbing::init()
{
    m_fixture = std::make_unique<HostFixture>(QSize(1000, 620));
    m_scene = std::make_unique<FullScene>(*m_fixture);
    m_fixture->mainWindow.resize(1040, 660);
    Container().GetWndMaxHeight(true);
    Container().resize(1000, 600);
    m_fixture->manager->InvalidateTimeline();
    m_fixture->Settle();
    Show(6.0, 0, 20);
    m_fixture->ForgetCalls();
}

void tst_Scrubbing::cleanup()
{
    m_scene.reset();
    m_fixture.reset();
}

void tst_Scrubbing::paintsOnlyTheColumnsOfBothFrames()
{
    for (const int frame : {21, 22, 20, 60}) {
        const QRegion region = VerifyStep(frame);
        QVERIFY(!region.isEmpty());
        // Two lines over the rows' height and two cells of the ruler.
        QVERIFY2(Area(region) <= 2 * (600 + 8 * 30), qPrintable(QString::number(Area(region))));
    }
}

void tst_Scrubbing::paintsTheSameForAFarStep()
{
    const int near = Area(VerifyStep(30));
    const int far = Area(VerifyStep(110));
    QVERIFY(qAbs(near - far) <= 2 * 30);
}

void tst_Scrubbing::paintsNothingWhenTheFrameStays()
{
    Scrub();
    PaintedRegion painted(Container());
    Step(20);
    Step(20);
    m_fixture->Settle();
    QCOMPARE(painted.paints, 0);
}

void tst_Scrubbing::paintsBeforeItReturns()
{
    PaintedRegion painted(Container());
    Step(25);
    QVERIFY(painted.paints > 0);
    painted.paints = 0;
    Step(26);
    QCOMPARE(painted.paints, 1);
}

void tst_Scrubbing::aHostThatRepaintsEverythingAfterEachStepPaysOnce()
{
    Container().repaint();
    for (int frame = 30; frame < 34; ++frame) {
        PaintedRegion painted(Container());
        Step(frame);
        // After the first, which was worth no pictures.
        QCOMPARE(IsWhole(painted.region), frame > 30);
        Container().repaint();
        QCOMPARE(painted.paints, 2);
    }
    // Two steps in a row bring them back.
    PaintedRegion painted(Container());
    Step(40);
    QVERIFY(IsWhole(painted.region));
    painted.region = QRegion();
    Step(41);
    QVERIFY(!IsWhole(painted.region));
    VerifyPicture();
}

void tst_Scrubbing::theRulersDragPaintsOnlyColumns()
{
    Pointer pointer(&Container());
    CTimelineTrackTick* const ruler = Container().TickTrack();
    const auto at = [&](int frame) { return QPoint(ruler->FrameToPixel(frame) + 3, 20); };
    m_fixture->host.reaction = [this](const QString& line) {
        Step(line.section(' ', 1, 1).toInt()); // as hosts do
    };
    PaintedRegion painted(Container());
    pointer.Press(ruler, at(40));
    for (int frame = 41; frame < 60; ++frame) {
        painted.region = QRegion();
        painted.paints = 0;
        pointer.MoveTo(ruler, at(frame));
        QCOMPARE(painted.paints, 1);
        QVERIFY(Area(painted.region) <= 2 * (600 + 8 * 30));
    }
    pointer.Release();
    VerifyPicture();
}

void tst_Scrubbing::everyRowKindStaysWhole_data()
{
    QTest::addColumn<int>("scrollX");
    QTest::newRow("from the start") << 0;
    QTest::newRow("scrolled") << 37;
}

void tst_Scrubbing::everyRowKindStaysWhole()
{
    QFETCH(int, scrollX);
    // 1 to 10 pixels per frame, and several frames per pixel.
    for (const double scale : {1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10.5, 0.9, 0.4, 0.07}) {
        Show(scale, scrollX, 3);
        for (const int frame : {0, 45, 110}) {
            Step(frame);
            Step(frame + 1);
            QVERIFY(!IsWhole(VerifyStep(frame + 13)));
        }
    }
}

void tst_Scrubbing::bothEndsAndBeyondTheView_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("scrollX");
    QTest::newRow("at the start") << 8.0 << 0;
    QTest::newRow("scrolled half") << 8.0 << 300;
    QTest::newRow("scrolled into a cell") << 8.0 << 403;
    QTest::newRow("the end in view") << 4.0 << 0;
    QTest::newRow("frames per pixel") << 0.3 << 0;
}

void tst_Scrubbing::bothEndsAndBeyondTheView()
{
    QFETCH(double, scale);
    QFETCH(int, scrollX);
    Show(scale, scrollX, 70);
    for (const int frame : {0, 139, 37, 38, 50, 0, 138}) {
        Step(frame);
        VerifyPicture();
    }
    // And without the repaints in between, which bring everything up to date.
    for (const int frame : {0, 139, 36, 37, 38, 50, 51, 139, 0, 1, 138, 0, 139, 50})
        Step(frame);
    VerifyPicture();
}

void tst_Scrubbing::theFrameCountItselfHasALineAndNoCell()
{
    Show(6.0, 300, 139);
    for (const int frame : {140, 139, 140, 141, 140, -1, 140, 138}) {
        Axis().currentFrame = frame; // as the ruler and the rows write it
        Container().ShowCurrentFrame();
        VerifyPicture();
    }
    for (const int frame : {140, 139, 140, 141, 140, -1, 140, -1, 138}) {
        Axis().currentFrame = frame;
        Container().ShowCurrentFrame();
    }
    VerifyPicture();
}

void tst_Scrubbing::aWalkAtRandomKeepsThePicture_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 4; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_Scrubbing::aWalkAtRandomKeepsThePicture()
{
    QFETCH(unsigned, seed);
    QRandomGenerator random(seed);
    const auto upTo = [&random](int bound) { return static_cast<int>(random.bounded(bound)); };
    for (int round = 0; round < 30; ++round) {
        switch (upTo(8)) {
        case 0:
            m_fixture->manager->SetScrollInfo(0.01f * static_cast<float>(upTo(40)),
                                              0.5f + 0.01f * static_cast<float>(upTo(50)));
            break;
        case 1:
            m_fixture->manager->SetTimeMarkFrame(upTo(60), upTo(140));
            break;
        case 2:
            m_fixture->AddKeys(m_scene->joints[0], {upTo(140)});
            break;
        case 3:
            Container().ActivateTrack(m_scene->joints[static_cast<std::size_t>(upTo(10))]);
            break;
        case 4:
            m_fixture->Settle();
            break;
        case 5:
            Container().update(upTo(500), upTo(300), 100, 60);
            break;
        default:
            break;
        }
        for (int step = upTo(5); step >= 0; --step)
            Step(upTo(140));
        if (upTo(3) == 0)
            VerifyPicture();
    }
    VerifyPicture();
}

void tst_Scrubbing::aRowCutOffByTheScrollBarStaysWhole()
{
    Container().resize(1000, 205);
    m_fixture->Settle();
    Show(6.0, 0, 20);
    Scrub();
    for (const int frame : {30, 31, 90})
        Step(frame);
    VerifyPicture();
}

void tst_Scrubbing::aTimelinePartlyOutOfSightStaysWhole()
{
    Scrub();
    for (const QPoint place : {QPoint(0, -120), QPoint(-250, 0), QPoint(-180, -400)}) {
        Container().move(place);
        m_fixture->Settle();
        for (const int frame : {30, 31, 90, 12})
            Step(frame);
        VerifyPicture();
        // What was out of sight has to come right as well.
        Container().move(0, 0);
        m_fixture->Settle();
        VerifyPicture();
    }
}

void tst_Scrubbing::rowsOfDifferentCaptionsStayWhole()
{
    // Rows that do not begin in the same column have their lines in different ones.
    auto* const style = m_scene->joints[2]->StyleAs<TrackStyle>();
    QVERIFY(style);
    QSet<int> widths;
    for (int id = 0; id < 5; ++id) {
        style->caption.bitmapId = id;
        widths << Container().Captions().CaptionPicture(*m_scene->joints[2]).width();
        Container().InvalidateTimeline();
        m_fixture->Settle();
        for (const int frame : {30, 31, 90, 12})
            Step(frame);
        VerifyPicture();
    }
    QVERIFY(widths.size() > 1);
}

void tst_Scrubbing::whatReachesOverTheLineStaysThere()
{
    // Captions that begin inside their rows, and ruler numbers that hang down into the first row,
    // are painted after the line.
    for (CTimelineTrackBase* const joint : m_scene->joints)
        joint->StyleAs<TrackStyle>()->caption.textPos = QPoint(190, 600);
    auto* const ruler = Container().TickTrack()->StyleAs<TickTrackStyle>();
    ruler->textMinSize = 40;
    ruler->textOffset = -25;
    Container().InvalidateTimeline();
    m_fixture->Settle();
    Show(6.0, 0, 20);
    for (int frame = 0; frame < 30; ++frame) {
        Step(frame);
        Step(frame + 40);
        const QImage picture = OnScreen();
        Step(frame);
        QVERIFY(!IsWhole(VerifyStep(frame + 40)));
        QCOMPARE(picture, OnScreen());
    }
}

void tst_Scrubbing::rowsWithoutAGroundStayWhole()
{
    // The host's window is seen through such a row.
    m_scene->joints[3]->StyleAs<TrackStyle>()->backgroundId = 9999;
    Container().InvalidateTimeline();
    m_fixture->Settle();
    for (const int frame : {30, 31, 90, 12})
        Step(frame);
    VerifyPicture();
}

void tst_Scrubbing::aPendingChangeIsPaintedWithTheStep()
{
    Scrub();
    m_fixture->manager->SetTimeMarkFrame(50, 70); // repaints later
    QVERIFY(IsWhole(VerifyStep(30)));
    QVERIFY(!IsWhole(VerifyStep(31)));
}

void tst_Scrubbing::aPendingPartIsPaintedWithTheStep()
{
    Scrub();
    const QRect part(400, 100, 50, 50);
    Container().update(part);
    PaintedRegion painted(Container());
    Step(30);
    QVERIFY((QRegion(part) - painted.region).isEmpty());
    VerifyPicture();
    QVERIFY(!IsWhole(VerifyStep(31)));
}

void tst_Scrubbing::aPendingChangeIsPaintedThoughTheFrameStays()
{
    Scrub();
    PaintedRegion painted(Container());
    Container().update();
    Step(20);
    QVERIFY(IsWhole(painted.region));
}

void tst_Scrubbing::aSilentChangeIsPaintedWithTheStep_data()
{
    QTest::addColumn<std::function<void()>>("change");
    const auto row = [](const char* name, std::function<void()> change) {
        QTest::newRow(name) << std::move(change);
    };
    row("a key", [this] { m_fixture->AddKeys(m_scene->joints[1], {33}); });
    row("a selection",
        [this] { m_scene->joints[1]->Keys().SetSelectionByIndex(0, 0, true, TL_KEY_ANY_KIND); });
    row("another selection of as many", [this] {
        CTimelineKeyArray& keys = m_scene->joints[1]->Keys();
        const int index = keys.SelectedIndexes().front();
        keys.SelectOnly(index + 1);
    });
    row("another key of as many", [this] {
        CTimelineKeyArray& keys = m_scene->joints[1]->Keys();
        keys.RemoveAt(0);
        m_fixture->AddKeys(m_scene->joints[1], {33});
    });
    row("a related key", [this] {
        CTimelineKey key;
        key.frame = 33;
        m_scene->path->Keys().RelatedAdd(&key, false);
    });
    row("a sub-key", [this] { AddSubKeys(*m_scene->motion, 0, {3, 9}); });
    row("a caption button", [this] {
        int state = 1;
        m_fixture->manager->SetTrackCaptionBtnState(m_scene->joints[1], 3, state);
        m_fixture->manager->GetTrackCaptionBtnState(m_scene->joints[1], 3, state);
        QCOMPARE(state, 1);
    });
    row("the relations", [this] {
        m_fixture->manager->SetTrackRelMapTable({{3, {m_scene->motion, m_scene->joints[1]}}});
    });
    row("a key of a hidden source of bars", [this] { m_fixture->AddKeys(m_hiddenSource, {64}); });
    row("the end of a hidden source of bars",
        [this] { m_fixture->manager->DeleteTrack(m_hiddenSource); });
    row("an edit that the host shows from within", [this] {
        m_fixture->host.reaction = [this](const QString&) {
            m_scene->joints[1]->Keys().GetAt(0)->frame += 3;
            Step(24);
            m_scene->joints[1]->Keys().GetAt(0)->frame += 3;
            Step(25);
            VerifyPicture();
        };
        VZ::CArrayList<CTimelineTrackBase*> tracks;
        tracks.Add(m_scene->joints[1]);
        Container().SendEdit(TL_EDIT_MOVE_KEYS, tracks, QVariant(1), QVariant(0));
        m_fixture->host.reaction = nullptr;
    });
    for (const auto& [name, code] :
         {std::pair("a double click", 1307u), std::pair("a switch", 1308u),
          std::pair("a caption button's click", 1309u), std::pair("a menu command", 1311u)}) {
        row(name, [this, code = code] {
            m_fixture->host.reaction = [this](const QString&) {
                m_scene->joints[1]->Keys().GetAt(0)->frame += 3;
            };
            Container().SendToHost(code, m_scene->joints[1], nullptr, QVariant(0), QVariant(0),
                                   QVariant(0));
            m_fixture->host.reaction = nullptr;
        });
    }
    row("a range", [this] { m_scene->joints[1]->SetRange(10, 30); });
    row("a caption", [this] { m_scene->joints[1]->SetCaption("Another"); });
    row("an active row", [this] { m_scene->joints[1]->SetActive(true); });
    row("edit modes", [this] {
        m_scene->joints[1]->SetEditModes(OneMode(TL_EDIT_TIME_RANGE));
        m_scene->joints[1]->SetRange(10, 30);
    });
    row("switches", [this] {
        std::vector<_tmpTLSwitchBtnData> buttons{{"One", 2}, {"Two", 0}};
        m_fixture->manager->SetTrackSwitchBtnList(m_scene->switches, buttons);
    });
    row("the scroll offset", [] { Axis().scrollX += 11; });
    row("the zoom", [] { Axis().info = CFrameInfo(7.0); });
    row("the frame count", [] { Axis().frameCount = 90; });
    row("the line's colour", [] { TimelineLibrary::Instance().currentFrameLine = Qt::magenta; });
    row("the time mark", [this] { Container().TickTrack()->SetTimeMark(5, 9); });
    row("an edit that the host made in place", [this] {
        m_fixture->host.reaction = [this](const QString&) {
            m_scene->joints[1]->Keys().GetAt(0)->frame += 3;
        };
        VZ::CArrayList<CTimelineTrackBase*> tracks;
        tracks.Add(m_scene->joints[1]);
        Container().SendEdit(TL_EDIT_MOVE_KEYS, tracks, QVariant(1), QVariant(0));
        m_fixture->host.reaction = nullptr;
    });
}

void tst_Scrubbing::aSilentChangeIsPaintedWithTheStep()
{
    QFETCH(std::function<void()>, change);
    m_hiddenSource = m_fixture->Root(TL_TRACK_CLIP, "Hidden");
    m_fixture->AddKeys(m_hiddenSource, {60});
    m_hiddenSource->Keys().GetAt(0)->clipLength = 20;
    m_fixture->manager->HideRootTrack(m_hiddenSource, true);
    m_fixture->manager->SetTrackRelMapTable({{3, {m_hiddenSource, m_scene->joints[2]}}});
    m_fixture->Settle();
    Scrub();
    const QColor line = TimelineLibrary::Instance().currentFrameLine;
    change();
    QVERIFY(IsWhole(VerifyStep(30)));
    QVERIFY(!IsWhole(VerifyStep(31)));
    TimelineLibrary::Instance().currentFrameLine = line;
}

void tst_Scrubbing::aFrameThatWasMovedSilentlyIsFound()
{
    Scrub();
    Axis().currentFrame = 60; // another container's ruler, perhaps
    QVERIFY(!IsWhole(VerifyStep(61)));
}

void tst_Scrubbing::aPictureTakenInBetweenDoesNotMislead()
{
    Scrub();
    Axis().currentFrame = 60;
    const QPixmap taken = Container().grab();
    QVERIFY(!taken.isNull());
    VerifyStep(80);
}

void tst_Scrubbing::anExposedPartInBetweenDoesNotMislead()
{
    Scrub();
    Axis().currentFrame = 60;
    Container().repaint(100, 0, 200, 80); // shows part of the old line, and none of the new one
    VerifyStep(80);
}

void tst_Scrubbing::stepsWhileHiddenAreMadeUpFor()
{
    Scrub();
    Container().hide();
    Step(60);
    Step(61);
    Container().show();
    m_fixture->Settle();
    VerifyPicture();
    VerifyStep(62);
}

void tst_Scrubbing::stepsWhileUpdatesAreOffAreMadeUpFor()
{
    Scrub();
    Container().setUpdatesEnabled(false);
    Step(60);
    Step(61);
    Container().setUpdatesEnabled(true);
    VerifyStep(62);
}

void tst_Scrubbing::leavesTheTransitionRowsAtRest()
{
    Scrub();
    PaintedRegion painted(*m_scene->blend);
    for (const int frame : {12, 13, 40, 80})
        Step(frame);
    const int paints = painted.paints;
    m_fixture->Settle();
    QTest::qWait(50);
    QCOMPARE(painted.paints, paints);
    VerifyPicture();
}

QTEST_MAIN(tst_Scrubbing)
#include "tst_Scrubbing.moc"
