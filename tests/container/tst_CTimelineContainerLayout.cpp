#include "TestTracks.h"
#include "container/CTimelineContainer.h"
#include "container/QTimelineCaptionArea.h"
#include "support/HostFixture.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

using namespace KestovaTest;

namespace {

// Of the default pictures.
constexpr int kCaptionWidth = 171;
constexpr int kTickHeight = 27;
constexpr int kScrollHeight = 17;
constexpr int kFixed = kTickHeight + kScrollHeight;
constexpr int kLowRow = 20;  // key and transition rows
constexpr int kTallRow = 26; // switch, link, viseme and clip rows, and a wave row's picture

// Pictures of a switch row's right arrow.
constexpr int kMoreToTheRight = 4;
constexpr int kNothingToTheRight = 7;

} // namespace

class tst_CTimelineContainerLayout : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;

    CTimelineContainer& Container() const { return *m_fixture->Container(); }
    QTimelineCaptionArea* CaptionArea() const
    {
        return Container().findChild<QTimelineCaptionArea*>();
    }

    CTimelineTrackBase* Root(const QString& name, TL_TRACK_TYPE type = TL_TRACK_KEY)
    {
        return m_fixture->Root(type, name);
    }

    CTimelineTrackBase* Child(CTimelineTrackBase* root, const QString& name,
                              TL_TRACK_TYPE type = TL_TRACK_KEY)
    {
        return m_fixture->Child(root, type, name);
    }

    CTimelineTrackBase* WaveChild(CTimelineTrackBase* root)
    {
        CTimelineTrackBase* const wave = MakeTrack(TL_TRACK_WAVE, "wave", 1, &Container());
        Container().ShowChildTrack(root, wave, 0xFFFFu, false);
        return wave;
    }

    int RefreshedCalls() const
    {
        return static_cast<int>(m_fixture->Window().calls.count("refreshed"));
    }

private slots:
    void init() { m_fixture = std::make_unique<HostFixture>(); }
    void cleanup()
    {
        m_fixture->host.reaction = nullptr;
        if (m_fixture->factory.window)
            m_fixture->factory.window->reaction = nullptr;
        m_fixture.reset();
    }

    // ---- Layout ----

    void aContainerWithoutTracksIsTheRulerTheScrollBarAndOnePixelMore()
    {
        const int width = Container().width();
        QCOMPARE(Container().TickTrack()->geometry(),
                 QRect(kCaptionWidth, 0, width - kCaptionWidth, kTickHeight));
        QCOMPARE(Container().ScrollTrack()->geometry(),
                 QRect(kCaptionWidth, kTickHeight, width - kCaptionWidth, kScrollHeight));
        QCOMPARE(CaptionArea()->geometry(), QRect(0, 0, kCaptionWidth, kFixed));
        QCOMPARE(Container().height(), kFixed + 1);
        QCOMPARE(Container().TickTrack()->GetRowHeight(), kTickHeight);
        QCOMPARE(Container().ScrollTrack()->GetRowHeight(), kScrollHeight);
        QVERIFY(Container().TickTrack()->isVisible());
        QVERIFY(Container().ScrollTrack()->isVisible());
    }

    void theCaptionAreaIsShownAndTakesDragsInOrderToRefuseThem()
    {
        QVERIFY(CaptionArea()->isVisible());
        QVERIFY(CaptionArea()->acceptDrops());
        QVERIFY(CaptionArea()->hasMouseTracking());
    }

    void theCaptionAreaIsMadeOnce()
    {
        Root("a");
        Container().Layout(false);
        QCOMPARE(Container().findChildren<QTimelineCaptionArea*>().size(), 1);
    }

    void aRootWithTwoChildrenYieldsTwoRowsAndKeepsItsOwnGeometry()
    {
        CTimelineTrackBase* const root = Root("a", TL_TRACK_CLIP);
        const QRect before = root->geometry();
        CTimelineTrackBase* const a1 = Child(root, "a1");
        CTimelineTrackBase* const a2 = Child(root, "a2", TL_TRACK_LINK_KEY);
        const int width = Container().width();
        QCOMPARE(a1->geometry(), QRect(kCaptionWidth, kTickHeight, width - kCaptionWidth, kLowRow));
        QCOMPARE(a2->geometry(),
                 QRect(kCaptionWidth, kTickHeight + kLowRow, width - kCaptionWidth, kTallRow));
        QCOMPARE(a1->GetRowHeight(), kLowRow);
        QCOMPARE(a2->GetRowHeight(), kTallRow);
        QCOMPARE(root->geometry(), before);
        QVERIFY(root->isVisible());
        QCOMPARE(Container().height(), kFixed + kLowRow + kTallRow + 1);
        QCOMPARE(Container().ScrollTrack()->y(), kTickHeight + kLowRow + kTallRow);
        QCOMPARE(CaptionArea()->height(), kFixed + kLowRow + kTallRow);
    }

    void aLayoutKeepsTheWidthAndEndsByTellingTheWindow()
    {
        Root("a");
        const int width = Container().width();
        m_fixture->ForgetCalls();
        Container().Layout(false);
        QCOMPARE(Container().width(), width);
        QCOMPARE(m_fixture->Window().calls, QStringList{"refreshed"});
    }

    void aLayoutThatResizesTellsTheWindowOnceMore()
    {
        CTimelineTrackBase* const a = Root("a");
        m_fixture->ForgetCalls();
        Child(a, "a1");
        Child(a, "a2");
        // Once for each layout of the two, and once for the resize of the second.
        QCOMPARE(RefreshedCalls(), 3);
    }

    void theBarsStandAboveTheRows()
    {
        Root("a");
        Container().Layout(false);
        const QObjectList children = Container().children();
        const auto place = [&children](QObject* object) { return children.indexOf(object); };
        for (const CTimelineTrackBase* row : Container().Tree().Rows()) {
            QVERIFY(place(Container().TickTrack()) > place(const_cast<CTimelineTrackBase*>(row)));
            QVERIFY(place(Container().TickTrack()) > place(Container().ScrollTrack()));
        }
    }

    void rowsStartAtTheirOwnCaptionsWidth()
    {
        CTimelineTrackBase* const a = Root("a");
        a->StyleAs<TrackStyle>()->caption.bitmapId = 4; // 155 x 27
        Container().Layout(false);
        QCOMPARE(a->geometry(), QRect(155, kTickHeight, Container().width() - 155, 27));
    }

    void aHostThatAsksForALayoutFromTheLayoutsNoticeComesToAnEnd()
    {
        Root("a");
        m_fixture->Window().reaction = [this](const QString& call) {
            if (call == "refreshed")
                m_fixture->manager->InvalidateTimeline();
        };
        m_fixture->ForgetCalls();
        m_fixture->manager->InvalidateTimeline();
        QVERIFY(RefreshedCalls() >= 1);
        QVERIFY(RefreshedCalls() <= 4);
    }

    void aHostThatResizesTheTimelineFromTheLayoutsNoticeComesToAnEnd()
    {
        Root("a");
        int resizes = 0;
        m_fixture->Window().reaction = [&](const QString& call) {
            if (call == "refreshed" && ++resizes < 1000)
                Container().resize(Container().width(), 50 + resizes % 7);
        };
        Container().Layout(false);
        QVERIFY(resizes < 100);
    }

    // ---- Fitting ----

    void aResizeFitsTheRowsIntoTheContainer_data()
    {
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("layoutHeight");
        QTest::addColumn<int>("rowsShown");
        const int total = kFixed + 3 * kLowRow;
        QTest::newRow("higher than the rows") << total + 100 << total << 3;
        QTest::newRow("one pixel more than the rows") << total + 1 << total << 3;
        QTest::newRow("as high as the rows") << total << total - 1 << 3;
        QTest::newRow("a row's top on the layout's bottom is still shown")
            << kTickHeight + 2 * kLowRow + 1 << kTickHeight + 2 * kLowRow << 3;
        QTest::newRow("a row's top below the layout's bottom is hidden")
            << kTickHeight + 2 * kLowRow << kTickHeight + 2 * kLowRow - 1 << 2;
        QTest::newRow("two rows hidden") << kTickHeight + 10 << kTickHeight + 9 << 1;
    }
    void aResizeFitsTheRowsIntoTheContainer()
    {
        QFETCH(int, height);
        QFETCH(int, layoutHeight);
        QFETCH(int, rowsShown);
        CTimelineTrackBase* const rows[] = {Root("a"), Root("b"), Root("c")};
        Container().resize(600, height);
        QCOMPARE(Container().size(), QSize(600, layoutHeight + 1));
        QCOMPARE(
            Container().ScrollTrack()->geometry(),
            QRect(kCaptionWidth, layoutHeight - kScrollHeight, 600 - kCaptionWidth, kScrollHeight));
        QCOMPARE(CaptionArea()->height(), layoutHeight);
        int y = kTickHeight;
        for (int i = 0; i < 3; ++i, y += kLowRow) {
            QCOMPARE(rows[i]->isVisible(), i < rowsShown);
            QCOMPARE(rows[i]->geometry(), QRect(kCaptionWidth, y, 600 - kCaptionWidth, kLowRow));
        }
    }

    void rowsThatWereHiddenAreShownAgainWhenThereIsRoom()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const b = Root("b");
        Container().resize(600, kTickHeight + 5);
        QVERIFY(a->isVisible());
        QVERIFY(!b->isVisible());
        Container().resize(600, 300);
        QVERIFY(b->isVisible());
    }

    void fittingRefreshesTheButtonsOfRootSwitchRows()
    {
        auto* const s = static_cast<CTimelineTrackSwitch*>(Root("s", TL_TRACK_SWITCH));
        CTimelineTrackBase* const r = Root("r");
        auto* const child = static_cast<CTimelineTrackSwitch*>(Child(r, "c", TL_TRACK_SWITCH));
        const int childsArrow = child->ArrowImages().right;
        Container().Layout(true);
        QCOMPARE(s->ArrowImages().right, kNothingToTheRight);
        s->SetButtons(std::vector<_tmpTLSwitchBtnData>(20));
        child->SetButtons(std::vector<_tmpTLSwitchBtnData>(20));
        Container().Layout(false);
        QCOMPARE(s->ArrowImages().right, kNothingToTheRight);
        Container().Layout(true);
        // More buttons than fit: there is something to the right. A child's are left as they are.
        QCOMPARE(s->ArrowImages().right, kMoreToTheRight);
        QCOMPARE(child->ArrowImages().right, childsArrow);
    }

    // ---- Sizes ----

    void sizeQueries()
    {
        Root("s", TL_TRACK_SWITCH);
        CTimelineTrackBase* const a = Root("a");
        Child(a, "a1");
        WaveChild(a);
        QCOMPARE(Container().GetTrackHeight(), kLowRow);
        QCOMPARE(Container().GetWndMinRestraint(), kFixed);
        QCOMPARE(Container().GetWndMinHeight(), kFixed + kTallRow);
        QCOMPARE(Container().GetWndMaxHeight(false), kFixed + 2 * kTallRow + kLowRow);
        QCOMPARE(Container().GetWndMaxHeight(true), kFixed + kTallRow + kLowRow + 3 * kTallRow);
        QCOMPARE(Container().GetWndNeedHeight(), kFixed + 2 * kTallRow + kLowRow);
        int width = 0;
        int height = 0;
        Container().GetWndCurrSize(width, height);
        QCOMPARE(QSize(width, height), Container().size());
    }

    void theMinimumHeightCountsARootSwitchRowOnlyWhileItIsVisibleAndBindsTheContainer()
    {
        CTimelineTrackBase* const s = Root("s", TL_TRACK_SWITCH);
        QCOMPARE(Container().GetWndMinHeight(), kFixed + kTallRow);
        QCOMPARE(Container().minimumHeight(), kFixed + kTallRow);
        s->hide();
        QCOMPARE(Container().GetWndMinHeight(), kFixed);
        QCOMPARE(Container().minimumHeight(), kFixed);
        s->show();
        m_fixture->mainWindow.hide();
        QCOMPARE(Container().GetWndMinHeight(), kFixed);
    }

    void theWindowsSizeDecidesTheWaveRowsHeight_data()
    {
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("waveHeight");
        // Below: 44 pixels of bars and one row of 20; a wave picture of 26, so at most 78.
        QTest::newRow("42 does not touch it") << 42 << 0;
        QTest::newRow("43 does") << 43 << 54;
        QTest::newRow("raised to 54") << 64 + 30 << 54;
        QTest::newRow("what the others leave") << 64 + 60 << 60;
        QTest::newRow("at most three pictures") << 64 + 100 << 78;
    }
    void theWindowsSizeDecidesTheWaveRowsHeight()
    {
        QFETCH(int, height);
        QFETCH(int, waveHeight);
        CTimelineTrackBase* const a = Root("a");
        // Nothing is resized while it is hidden, which would fit the wave row once more.
        Container().hide();
        Child(a, "a1");
        CTimelineTrackBase* const wave = WaveChild(a);
        Container().GetWndMaxHeight(true);
        QCOMPARE(Container().Rows().VariableRowHeight(), 0);
        m_fixture->ForgetCalls();
        QVERIFY(Container().WndSizeChanged(12345, height));
        QCOMPARE(Container().Rows().VariableRowHeight(), waveHeight);
        QCOMPARE(wave->GetRowHeight(), waveHeight);
        QCOMPARE(Container().height(), kFixed + kLowRow + waveHeight + 1);
        QVERIFY(Container().width() != 12345); // the width is not used
        QCOMPARE(RefreshedCalls(), 1);         // it lays out in any case
    }

    void aResizeDecidesTheWaveRowsHeightToo()
    {
        CTimelineTrackBase* const a = Root("a");
        Child(a, "a1");
        CTimelineTrackBase* const wave = WaveChild(a);
        Container().GetWndMaxHeight(true);
        Container().resize(600, kFixed + kLowRow + 70);
        QCOMPARE(Container().Rows().VariableRowHeight(), 70);
        QCOMPARE(wave->height(), 70);
        // The rows fill the container, so the layout is one pixel lower than they.
        QCOMPARE(Container().height(), kFixed + kLowRow + 70);
    }

    void theNextLayoutWithAWaveRowGrowsItByTheOnePixelOfTheContainer()
    {
        CTimelineTrackBase* const a = Root("a");
        Child(a, "a1");
        CTimelineTrackBase* const wave = WaveChild(a);
        Container().GetWndMaxHeight(true);
        Container().resize(600, kFixed + kLowRow + 70);
        Container().Layout(false);
        QCOMPARE(Container().Rows().VariableRowHeight(), 71);
        QCOMPARE(wave->height(), 71);
    }

    void theGrowthOfAWaveRowEndsAtItsMaximum()
    {
        CTimelineTrackBase* const a = Root("a");
        Child(a, "a1");
        WaveChild(a);
        Container().GetWndMaxHeight(true);
        Container().resize(600, kFixed + kLowRow + 60);
        for (int i = 0; i < 30; ++i)
            Container().Layout(false);
        QCOMPARE(Container().Rows().VariableRowHeight(), 78);
        QCOMPARE(Container().height(), kFixed + kLowRow + 78 + 1);
    }

    void negativeSizesAreRefusedAndLayNothingOut()
    {
        Root("a");
        m_fixture->ForgetCalls();
        QVERIFY(!Container().WndSizeChanged(-1, 100));
        QVERIFY(!Container().WndSizeChanged(100, -1));
        QCOMPARE(m_fixture->Window().calls, QStringList());
        QVERIFY(Container().WndSizeChanged(0, 0));
        QCOMPARE(m_fixture->Window().calls, QStringList{"refreshed"});
    }

    // ---- Re-placing rows ----

    void replacedRowsEndBeforeTheRightEdgeByTheScrollPicturesWidth()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const b = Root("b");
        const QSize size = Container().size();
        Container().RefreshRows();
        // Width less 1, less picture 0 (15 pixels), is the first pixel that is not covered.
        const int right = size.width() - 1 - 15;
        QCOMPARE(a->geometry(), QRect(QPoint(kCaptionWidth, kTickHeight),
                                      QPoint(right - 1, kTickHeight + kLowRow - 1)));
        QCOMPARE(b->y(), kTickHeight + kLowRow);
        QCOMPARE(Container().size(), size);
    }

    void childrenAreReplacedInsteadOfTheirRootAndWaveRowsInTheirHeight()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const first = Child(a, "a1");
        CTimelineTrackBase* const wave = WaveChild(a);
        CTimelineTrackBase* const last = Child(a, "a2");
        const QRect rootPlace = a->geometry();
        const int rowHeight = first->GetRowHeight();
        const int waveHeight = Container().Rows().VariableRowHeight();
        for (CTimelineTrackBase* const row : {first, wave, last}) {
            row->SetRowHeight(7);
            row->setGeometry(0, 0, 10, 10);
        }
        Container().RefreshRows();
        QCOMPARE(a->geometry(), rootPlace);
        QCOMPARE(first->y(), kTickHeight);
        QCOMPARE(first->height(), rowHeight);
        QCOMPARE(wave->y(), kTickHeight + rowHeight);
        QCOMPARE(wave->height(), waveHeight);
        QCOMPARE(last->y(), kTickHeight + rowHeight + waveHeight);
        // The heights that the tracks know are left to a layout.
        for (const CTimelineTrackBase* const row : {first, wave, last})
            QCOMPARE(row->GetRowHeight(), 7);
    }

    void replacedRowsBelowTheContainerAreHiddenAndNoLongerAttached()
    {
        CTimelineTrackBase* const rows[] = {Root("a"), Root("b"), Root("c")};
        Container().hide(); // a hidden widget is resized without a layout
        Container().resize(600, kTickHeight + 2 * kLowRow);
        Container().RefreshRows();
        QVERIFY(rows[1]->IsAttached());
        // Its top is one pixel below the last.
        QVERIFY(!rows[2]->IsAttached());
        QVERIFY(rows[2]->isHidden());
        Container().resize(600, kTickHeight + 2 * kLowRow + 1);
        Container().RefreshRows();
        QVERIFY(rows[2]->IsAttached());
        QVERIFY(!rows[2]->isHidden());
    }
};

QTEST_MAIN(tst_CTimelineContainerLayout)
#include "tst_CTimelineContainerLayout.moc"
