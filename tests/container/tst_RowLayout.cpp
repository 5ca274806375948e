#include "TestTracks.h"
#include "container/RowLayout.h"
#include "container/TrackTree.h"
#include "skin/ImageTables.h"
#include "support/TimelineFixture.h"

#include <QTemporaryDir>

using namespace KestovaTest;

namespace {

// Caption pictures of sizes that cannot be mistaken for each other. Rows with BitmapID b have
// picture 4 + b.
constexpr QSize kScrollCaption(90, 20);
constexpr QSize kTickCaption(120, 30);
constexpr int kFixed = 50;
constexpr QSize kRowCaptions[] = {{120, 50}, {110, 50}, {100, 16}, {80, 24}};
constexpr int kTall = 0;      // 50 pixels
constexpr int kOtherTall = 1; // 50 pixels, starts further left
constexpr int kLow = 2;       // 16 pixels
constexpr int kMiddle = 3;    // 24 pixels

constexpr std::size_t kLast = 0xFFFFFFFFu;

/// All images of the default set, but for the caption pictures above, without a suffix.
bool WriteImages(const QTemporaryDir& dir)
{
    const QDir images(QStringLiteral(KESTOVA_SOURCE_DIR "/timeline/skin/images"));
    for (const QString& name : images.entryList({"*.png"}, QDir::Files)) {
        if (!QFile::copy(images.filePath(name), dir.filePath(name.chopped(4))))
            return false;
    }
    const auto write = [&dir](int number, QSize size) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::gray);
        const QString path = dir.filePath(QString::number(number));
        return QFile::remove(path) && image.save(path, "PNG");
    };
    bool ok = write(1, kScrollCaption) && write(3, kTickCaption);
    for (int i = 0; i < 4; ++i)
        ok = ok && write(4 + i, kRowCaptions[i]);
    return ok;
}

} // namespace

class tst_RowLayout : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    ImageTables m_images;
    std::vector<std::unique_ptr<CTimelineTrackBase>> m_tracks;
    std::unique_ptr<TrackTree> m_tree;
    std::unique_ptr<RowLayout> m_layout;

    CTimelineTrackBase* Track(TL_TRACK_TYPE type, int bitmapId)
    {
        m_tracks.emplace_back(MakeTrack(type, QStringLiteral("row")));
        CTimelineTrackBase* const track = m_tracks.back().get();
        track->StyleAs<TrackStyle>()->caption.bitmapId = bitmapId;
        track->StyleAs<TrackStyle>()->caption.bitmapFocusId = bitmapId;
        return track;
    }

    CTimelineTrackBase* Root(int bitmapId, TL_TRACK_TYPE type = TL_TRACK_KEY)
    {
        CTimelineTrackBase* const root = Track(type, bitmapId);
        m_tree->InsertRoot(root, kLast);
        return root;
    }

    CTimelineTrackBase* Child(CTimelineTrackBase* root, int bitmapId,
                              TL_TRACK_TYPE type = TL_TRACK_KEY)
    {
        CTimelineTrackBase* const child = Track(type, bitmapId);
        m_tree->InsertChild(*m_tree->FindRoot(root), child, kLast);
        return child;
    }

    RowLayout::Plan Compute(int width, int height, bool fit) const
    {
        return m_layout->Compute(*m_tree, QSize(width, height), fit);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(PrepareTimeline());
        QVERIFY(WriteImages(m_dir));
        QVERIFY(m_images.Load(m_dir.path() + QLatin1Char('/')));
    }

    void init()
    {
        m_tree = std::make_unique<TrackTree>();
        m_layout = std::make_unique<RowLayout>(m_images);
    }

    void cleanup()
    {
        m_layout.reset();
        m_tree.reset();
        m_tracks.clear();
    }

    // ---- Sizes ----

    void theTrackHeightIsThatOfPictureFour() { QCOMPARE(m_layout->TrackHeight(), 50); }

    void theFixedHeightIsTheRulersAndTheScrollBars() { QCOMPARE(m_layout->FixedHeight(), kFixed); }

    void aRowIsAsHighAsItsCaptionPicture()
    {
        QCOMPARE(m_layout->RowHeight(*Root(kTall)), 50);
        QCOMPARE(m_layout->RowHeight(*Root(kLow)), 16);
        QCOMPARE(m_layout->RowHeight(*Root(kMiddle)), 24);
    }

    void theLayoutDoesNotLookAtTheFocusedPicture()
    {
        CTimelineTrackBase* const root = Root(kLow);
        root->StyleAs<TrackStyle>()->caption.bitmapFocusId = kTall;
        root->SetActive(true);
        QCOMPARE(m_layout->RowHeight(*root), 16);
    }

    void theMinimumHeightCountsARootSwitchRowOnlyWhileItIsVisible()
    {
        CTimelineTrackBase* const root = Root(kMiddle, TL_TRACK_SWITCH);
        QCOMPARE(m_layout->MinimumHeight(*m_tree), kFixed);
        root->show();
        QCOMPARE(m_layout->MinimumHeight(*m_tree), kFixed + 24);
        root->hide();
        QCOMPARE(m_layout->MinimumHeight(*m_tree), kFixed);
    }

    void theMinimumHeightCountsNoChildAndNoOtherKind()
    {
        CTimelineTrackBase* const keyRoot = Root(kTall);
        keyRoot->show();
        Child(keyRoot, kTall, TL_TRACK_SWITCH)->show();
        QCOMPARE(m_layout->MinimumHeight(*m_tree), kFixed);
        // A root counts even though its children are the rows.
        CTimelineTrackBase* const switchRoot = Root(kLow, TL_TRACK_SWITCH);
        switchRoot->show();
        Child(switchRoot, kTall)->show();
        QCOMPARE(m_layout->MinimumHeight(*m_tree), kFixed + 16);
    }

    void theMaximumHeightCountsEveryRow()
    {
        CTimelineTrackBase* const root = Root(kTall);
        Child(root, kLow);
        Child(root, kMiddle, TL_TRACK_WAVE);
        Root(kTall);
        QCOMPARE(m_layout->MaximumHeight(*m_tree, false), kFixed + 16 + 24 + 50);
        QCOMPARE(m_layout->VariableRowMaximum(), 0);
    }

    void withWaveTheMaximumHeightCountsAWaveRowThreeTimesAndSetsItsMaximum()
    {
        CTimelineTrackBase* const root = Root(kTall);
        Child(root, kLow);
        Child(root, kMiddle, TL_TRACK_WAVE);
        QCOMPARE(m_layout->MaximumHeight(*m_tree, true), kFixed + 16 + 72);
        QCOMPARE(m_layout->VariableRowMaximum(), 72);
    }

    void withoutAWaveRowTheMaximumOfTheVariableRowStays()
    {
        Root(kLow);
        QCOMPARE(m_layout->MaximumHeight(*m_tree, true), kFixed + 16);
        QCOMPARE(m_layout->VariableRowMaximum(), 0);
    }

    void theNeededHeightTakesTheLargerOfAWaveRowsPictureAndItsPresentHeight_data()
    {
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("variable");
        QTest::addColumn<int>("needed");
        QTest::newRow("below its picture") << 0 << 0 << kFixed + 16 + 50;
        QTest::newRow("above its picture") << 200 << 134 << kFixed + 16 + 134;
        QTest::newRow("raised to the floor") << 100 << 54 << kFixed + 16 + 54;
    }
    void theNeededHeightTakesTheLargerOfAWaveRowsPictureAndItsPresentHeight()
    {
        QFETCH(int, height);
        Root(kLow);
        Root(kTall, TL_TRACK_WAVE);
        m_layout->MaximumHeight(*m_tree, true);
        m_layout->FitVariableRow(*m_tree, height);
        QTEST(m_layout->VariableRowHeight(), "variable");
        QTEST(m_layout->NeededHeight(*m_tree), "needed");
    }

    void theNeededHeightOfOtherRowsIsTheirPictures()
    {
        CTimelineTrackBase* const root = Root(kTall);
        Child(root, kLow);
        Child(root, kMiddle);
        QCOMPARE(m_layout->NeededHeight(*m_tree), kFixed + 40);
    }

    // ---- The variable row ----

    void theVariableRowStartsAtNothing()
    {
        QCOMPARE(m_layout->VariableRowHeight(), 0);
        QCOMPARE(m_layout->VariableRowMaximum(), 0);
        QCOMPARE(m_layout->RowHeight(*Root(kTall, TL_TRACK_WAVE)), 0);
    }

    void withMaximum150AndFixedRows100_data()
    {
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("variable");
        QTest::newRow("120 is raised to 54") << 120 << 54;
        QTest::newRow("153 is raised to 54") << 153 << 54;
        QTest::newRow("154 gives 54") << 154 << 54;
        QTest::newRow("155 gives 55") << 155 << 55;
        QTest::newRow("200 gives 100") << 200 << 100;
        QTest::newRow("250 gives 150") << 250 << 150;
        QTest::newRow("400 is bounded to 150") << 400 << 150;
        QTest::newRow("60, less than the fixed rows, is raised to 54") << 60 << 54;
        QTest::newRow("43 is the first height that counts") << 43 << 54;
        QTest::newRow("42 changes nothing") << 42 << 0;
        QTest::newRow("0 changes nothing") << 0 << 0;
    }
    void withMaximum150AndFixedRows100()
    {
        QFETCH(int, height);
        Root(kOtherTall);
        Root(kTall, TL_TRACK_WAVE);
        m_layout->MaximumHeight(*m_tree, true);
        QCOMPARE(m_layout->VariableRowMaximum(), 150);
        m_layout->FitVariableRow(*m_tree, height);
        QTEST(m_layout->VariableRowHeight(), "variable");
    }

    void aHeightOf42KeepsWhatALargerOneSet()
    {
        Root(kOtherTall);
        Root(kTall, TL_TRACK_WAVE);
        m_layout->MaximumHeight(*m_tree, true);
        m_layout->FitVariableRow(*m_tree, 200);
        m_layout->FitVariableRow(*m_tree, 42);
        QCOMPARE(m_layout->VariableRowHeight(), 100);
    }

    void beforeTheMaximumIsSetTheVariableRowIsBoundedToNothing()
    {
        Root(kOtherTall);
        Root(kTall, TL_TRACK_WAVE);
        m_layout->FitVariableRow(*m_tree, 300);
        QCOMPARE(m_layout->VariableRowHeight(), 0);
    }

    void theFloorMayExceedTheMaximum()
    {
        Root(kOtherTall);
        Root(kLow, TL_TRACK_WAVE); // maximum 48
        m_layout->MaximumHeight(*m_tree, true);
        QCOMPARE(m_layout->VariableRowMaximum(), 48);
        m_layout->FitVariableRow(*m_tree, 120);
        QCOMPARE(m_layout->VariableRowHeight(), 54);
        m_layout->FitVariableRow(*m_tree, 149);
        QCOMPARE(m_layout->VariableRowHeight(), 48);
    }

    // ---- The plan ----

    void aTimelineWithoutTracksHasTheRulerAtTheTopAndTheScrollBarDirectlyBelow()
    {
        const RowLayout::Plan plan = Compute(400, 300, false);
        QCOMPARE(plan.height, kFixed);
        QCOMPARE(plan.tickRect, QRect(120, 0, 280, 30));
        QCOMPARE(plan.scrollRect, QRect(90, 30, 310, 20));
        QCOMPARE(plan.captionRect, QRect(0, 0, 120, kFixed));
        QVERIFY(plan.rows.empty());
    }

    void theLayoutHeightIsTheTotalUnlessFittingCutsIt_data()
    {
        QTest::addColumn<int>("height");
        QTest::addColumn<bool>("fit");
        QTest::addColumn<int>("layoutHeight");
        QTest::newRow("not fitting, higher") << 200 << false << 90;
        QTest::newRow("not fitting, lower") << 60 << false << 90;
        QTest::newRow("fitting, higher than the rows") << 200 << true << 90;
        QTest::newRow("fitting, one more than the rows") << 91 << true << 90;
        QTest::newRow("fitting, just as high as the rows") << 90 << true << 89;
        QTest::newRow("fitting, lower than the rows") << 60 << true << 59;
    }
    void theLayoutHeightIsTheTotalUnlessFittingCutsIt()
    {
        QFETCH(int, height);
        QFETCH(bool, fit);
        Root(kLow);
        Root(kMiddle);
        const RowLayout::Plan plan = Compute(400, height, fit);
        QTEST(plan.height, "layoutHeight");
        // The scroll bar stands at the bottom of what can be seen, the captions beside all of it.
        QCOMPARE(plan.scrollRect, QRect(90, plan.height - 20, 310, 20));
        QCOMPARE(plan.captionRect, QRect(0, 0, 120, plan.height));
    }

    void rowsFollowEachOtherBelowTheRulerEachFromItsOwnCaptionsWidth()
    {
        CTimelineTrackBase* const a = Root(kTall);
        CTimelineTrackBase* const a1 = Child(a, kLow);
        CTimelineTrackBase* const a2 = Child(a, kOtherTall);
        CTimelineTrackBase* const b = Root(kMiddle);
        const RowLayout::Plan plan = Compute(400, 300, false);
        QCOMPARE(plan.rows.size(), std::size_t(3));
        QCOMPARE(plan.rows[0].track, a1);
        QCOMPARE(plan.rows[0].rect, QRect(100, 30, 300, 16));
        QCOMPARE(plan.rows[1].track, a2);
        QCOMPARE(plan.rows[1].rect, QRect(110, 46, 290, 50));
        QCOMPARE(plan.rows[2].track, b);
        QCOMPARE(plan.rows[2].rect, QRect(80, 96, 320, 24));
        QCOMPARE(plan.height, kFixed + 16 + 50 + 24);
        for (const RowLayout::Row& row : plan.rows)
            QVERIFY(row.shown);
    }

    void aWaveRowStandsInTheVariableHeight()
    {
        Root(kLow);
        Root(kTall, TL_TRACK_WAVE);
        Root(kMiddle);
        m_layout->MaximumHeight(*m_tree, true);
        m_layout->FitVariableRow(*m_tree, kFixed + 16 + 24 + 77);
        const RowLayout::Plan plan = Compute(400, 300, false);
        QCOMPARE(plan.rows[1].rect, QRect(120, 46, 280, 77));
        QCOMPARE(plan.rows[2].rect, QRect(80, 123, 320, 24));
        QCOMPARE(plan.height, kFixed + 16 + 24 + 77);
        QCOMPARE(m_layout->TotalHeight(*m_tree), plan.height);
    }

    void rowsWhoseTopLiesBelowTheLayoutAreHidden_data()
    {
        QTest::addColumn<int>("height");
        QTest::addColumn<QVector<bool>>("shown");
        QTest::newRow("all in view") << 300 << QVector<bool>{true, true, true};
        // Tops lie at 30, 46 and 96.
        QTest::newRow("a top on the layout's bottom is shown")
            << 97 << QVector<bool>{true, true, true};
        QTest::newRow("a top below it is hidden") << 96 << QVector<bool>{true, true, false};
        QTest::newRow("only the first") << 40 << QVector<bool>{true, false, false};
        QTest::newRow("none") << 30 << QVector<bool>{false, false, false};
    }
    void rowsWhoseTopLiesBelowTheLayoutAreHidden()
    {
        QFETCH(int, height);
        Root(kLow);
        Root(kTall);
        Root(kMiddle);
        const RowLayout::Plan plan = Compute(400, height, true);
        QVector<bool> shown;
        for (const RowLayout::Row& row : plan.rows)
            shown << row.shown;
        QTEST(shown, "shown");
    }
};

QTEST_MAIN(tst_RowLayout)
#include "tst_RowLayout.moc"
