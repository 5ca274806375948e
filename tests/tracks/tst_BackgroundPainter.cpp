#include "support/PictureCheck.h"
#include "tracks/BackgroundPainter.h"
#include "tracks/RangeMarkers.h"
#include "tracks/RowScenes.h"

#include <QtTest>

#include <random>

using namespace KestovaTest;

namespace {

constexpr int kWidth = 300;
constexpr int kHeight = 24;
const QSize kSize(kWidth, kHeight);

const QBrush& Brush(BrushGroup group, int index)
{
    return TimelineLibrary::Instance().images.Brush(group, index);
}

/// A picture to be built from plain fills, each from one column to another, both included.
class Wanted
{
public:
    Wanted() : m_image(kSize, QImage::Format_RGB32) { m_image.fill(Qt::magenta); }

    Wanted& Fill(int from, int to, const QBrush& brush, int top = 0, int bottom = kHeight - 1)
    {
        QPainter(&m_image).fillRect(QRect(QPoint(from, top), QPoint(to, bottom)), brush);
        return *this;
    }
    operator QImage() const { return m_image; }

private:
    QImage m_image;
};

template <class Draw>
QImage Painted(Draw draw, const QRect& clip = QRect())
{
    QImage image(kSize, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    if (!clip.isNull())
        painter.setClipRect(clip);
    draw(painter, RowView(painter, image.rect(), SceneAxis()));
    painter.end();
    return image;
}

QImage Banded(const TimeRange& range = {}, int id = 0)
{
    return Painted([&](QPainter& painter, const RowView& view) {
        DrawBandedBackground(painter, view, id, range);
    });
}

QImage Grid(const TimeRange& range = {}, const QRect& clip = QRect())
{
    return Painted([&](QPainter& painter,
                       const RowView& view) { DrawGridBackground(painter, view, 0, range); },
                   clip);
}

/// The grid painted the plain way, frame by frame, without leaving anything out.
QImage GridStepByStep(const TimeRange& range)
{
    const FrameAxis& axis = SceneAxis();
    Wanted wanted;
    const int right = kWidth - 1;
    const int endX = axis.FrameToPixel(axis.frameCount);
    const auto brush = [](int index) { return Brush(kGridBrushes, index); };
    const auto fill = [&](long long from, long long to, int index) {
        from = std::max<long long>(from, 0);
        to = std::min<long long>(to, right);
        if (from <= to)
            wanted.Fill(static_cast<int>(from), static_cast<int>(to), brush(index));
    };
    long long first = 1;
    long long last = 0;
    if (range.lo >= 0 || range.hi >= 0) {
        first = axis.FrameToPixel(range.lo);
        last = axis.FrameToPixel(range.hi + 1LL);
    }
    fill(0, endX, 0);
    fill(first, last, 1);
    const long long label = axis.info.step1;
    const long long advance = axis.info.step3;
    const long long perBand = advance * axis.info.step4;
    const int width = axis.SpanToPixel(perBand);
    for (long long f = axis.PixelToFrame(0); f <= axis.frameCount; f += advance) {
        const long long x = axis.FrameToPixel(f);
        if (x >= kWidth + 1)
            break;
        if (f % label != 0)
            continue;
        if ((f - 9 * perBand) % (10 * label) == 0) {
            fill(x, x + width, 3);
            fill(std::max(x, first), std::min(x + width, last), 4);
        }
        fill(x, x, x >= first && x <= last ? 6 : 5);
    }
    if (right > endX)
        fill(endX, right, 2);
    return wanted;
}

} // namespace

class tst_BackgroundPainter : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(PrepareTimeline()); }
    void init()
    {
        ResetAxis(20, 10.0);
        UnrelateTracks();
    }

    // --- Banded

    void bandedRowIsNormalUpToTheLastFrameAndThenBeyondTheEnd()
    {
        QCOMPARE(Banded(), QImage(Wanted()
                                      .Fill(0, 200, Brush(kBandedBrushes, 0))
                                      .Fill(200, 299, Brush(kBandedBrushes, 2))));
    }

    void bandedRowOfALongTimelineHasNoEnd()
    {
        ResetAxis(2000, 10.0);
        QCOMPARE(Banded(), QImage(Wanted().Fill(0, 299, Brush(kBandedBrushes, 0))));
    }

    void scrollPositionPastTheLastFrameFillsTheWholeBandedRowWithTheBeyondEndBrush()
    {
        ResetAxis(20, 10.0, 900);
        QCOMPARE(Banded(), QImage(Wanted().Fill(0, 299, Brush(kBandedBrushes, 2))));
    }

    void styleIndexSelectsThreeBrushes()
    {
        QCOMPARE(Banded({4, 9}, 2), QImage(Wanted()
                                               .Fill(0, 200, Brush(kBandedBrushes, 6))
                                               .Fill(40, 100, Brush(kBandedBrushes, 7))
                                               .Fill(200, 299, Brush(kBandedBrushes, 8))));
    }

    void styleIndexOutsideTheTableFillsNothing_data()
    {
        QTest::addColumn<int>("id");
        QTest::newRow("one too many") << 3;
        QTest::newRow("negative") << -1;
        QTest::newRow("largest") << std::numeric_limits<int>::max();
    }
    void styleIndexOutsideTheTableFillsNothing()
    {
        QFETCH(int, id);
        QCOMPARE(Banded({}, id), QImage(Wanted()));
    }

    void rangeIsFilledFromItsFirstFrameToTheFrameAfterItsLast_data()
    {
        QTest::addColumn<int>("lo");
        QTest::addColumn<int>("hi");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::newRow("several frames") << 4 << 9 << 40 << 100;
        QTest::newRow("one frame") << 4 << 4 << 40 << 50;
        QTest::newRow("from the first frame") << 0 << 2 << 0 << 30;
        QTest::newRow("half a range starts left of the row") << -1 << 2 << 0 << 30;
        QTest::newRow("into the beyond-end part, which covers it") << 18 << 25 << 180 << 199;
        QTest::newRow("no range") << -1 << -1 << 0 << -1;
    }
    void rangeIsFilledFromItsFirstFrameToTheFrameAfterItsLast()
    {
        QFETCH(int, lo);
        QFETCH(int, hi);
        QFETCH(int, from);
        QFETCH(int, to);
        Wanted wanted;
        wanted.Fill(0, 200, Brush(kBandedBrushes, 0));
        if (from <= to)
            wanted.Fill(from, to, Brush(kBandedBrushes, 1));
        wanted.Fill(200, 299, Brush(kBandedBrushes, 2));
        QCOMPARE(Banded({lo, hi}), QImage(wanted));
    }

    void rangeOfOneFrameShowsInFramesPerPixelMode()
    {
        ResetAxis(2000, 0.3);
        QCOMPARE(Banded({401, 401}), QImage(Wanted()
                                                .Fill(0, 299, Brush(kBandedBrushes, 0))
                                                .Fill(100, 100, Brush(kBandedBrushes, 1))));
    }

    // --- Wave

    void waveRowHasItsColoursAndThreeLines()
    {
        const auto row = MakeTrack(TL_TRACK_WAVE);
        QVERIFY(row);
        const auto& style = *row->StyleAs<WaveTrackStyle>();
        const QImage got = Painted([&](QPainter& painter, const RowView& view) {
            DrawWaveBackground(painter, view, style, {4, 9});
        });
        const int bottom = kHeight - 1;
        Wanted wanted;
        wanted.Fill(0, 200, style.background.ToColor());
        wanted.Fill(0, 299, style.backgroundTopLine.ToColor(), 0, 0);
        wanted.Fill(0, 299, style.backgroundBottomUpper.ToColor(), bottom - 1, bottom - 1);
        wanted.Fill(0, 299, style.backgroundBottom.ToColor(), bottom, bottom);
        wanted.Fill(40, 100, QColor(100, 100, 100));
        wanted.Fill(200, 299, QColor(150, 150, 150), 1, bottom - 1);
        QCOMPARE(got, QImage(wanted));
    }

    void waveRowLooksLikeItsPicture()
    {
        const auto row = MakeTrack(TL_TRACK_WAVE);
        QVERIFY(row);
        SceneAxis().frameCount = 26;
        SceneAxis().currentFrame = 14;
        SetModes(*row, {TL_EDIT_TIME_RANGE});
        row->SetRange(16, 18);
        AddKey(*row, 2, Bar(5, 2));
        AddKey(*row, 19, [](CTimelineKey& key) {
            Bar(20)(key);
            key.selected = true;
        });
        KESTOVA_COMPARE_PICTURE(ShowRow(*row, QSize(kWidth, 54)), "tracks/wave/row");
    }

    void waveBarsAreOnePixelLowerThanTheRow()
    {
        const auto row = MakeTrack(TL_TRACK_WAVE);
        QVERIFY(row);
        AddKey(*row, 2, Bar(5));
        const QImage image = ShowRow(*row, QSize(kWidth, 54));
        const QRgb border = row->StyleAs<WaveTrackStyle>()->clipBorder[0].color().rgb();
        QCOMPARE(image.pixel(40, 0), border);
        QCOMPARE(image.pixel(40, 52), border);
        QVERIFY(image.pixel(40, 53) != border);
        QCOMPARE(image.pixel(20, 26), border);
        QCOMPARE(image.pixel(79, 26), border);
    }

    // --- Grid

    void gridHasATickAtEveryFrameAndABandOnceInTen()
    {
        Wanted wanted;
        wanted.Fill(0, 200, Brush(kGridBrushes, 0));
        for (int frame = 0; frame <= 20; ++frame) {
            if (frame == 9 || frame == 19)
                wanted.Fill(frame * 10, frame * 10 + 10, Brush(kGridBrushes, 3));
            wanted.Fill(frame * 10, frame * 10, Brush(kGridBrushes, 5));
        }
        wanted.Fill(200, 299, Brush(kGridBrushes, 2));
        QCOMPARE(Grid(), QImage(wanted));
    }

    void gridShowsTheRangeInItsGroundItsBandsAndItsTicks()
    {
        Wanted wanted;
        wanted.Fill(0, 200, Brush(kGridBrushes, 0)).Fill(50, 100, Brush(kGridBrushes, 1));
        for (int frame = 0; frame <= 20; ++frame) {
            const int x = frame * 10;
            if (frame == 9 || frame == 19) {
                wanted.Fill(x, x + 10, Brush(kGridBrushes, 3));
                if (frame == 9)
                    wanted.Fill(x, x + 10, Brush(kGridBrushes, 4));
            }
            wanted.Fill(x, x, Brush(kGridBrushes, x >= 50 && x <= 100 ? 6 : 5));
        }
        wanted.Fill(200, 299, Brush(kGridBrushes, 2));
        QCOMPARE(Grid({5, 9}), QImage(wanted));
    }

    void gridOfFramesPerPixelHasATickEveryTenPixelsAndABandOnceInTenTicks()
    {
        ResetAxis(4000, 0.3); // four frames a pixel
        Wanted wanted;
        wanted.Fill(0, 299, Brush(kGridBrushes, 0));
        for (int x = 0; x < kWidth; x += 10) {
            if (x % 100 == 90)
                wanted.Fill(x, x + 10, Brush(kGridBrushes, 3));
            wanted.Fill(x, x, Brush(kGridBrushes, 5));
        }
        QCOMPARE(Grid(), QImage(wanted));
    }

    void bandThatStartsLeftOfTheFirstVisibleFrameIsNotDrawn()
    {
        ResetAxis(4000, 0.3, 95);
        const QImage got = Grid();
        Wanted wanted;
        wanted.Fill(0, 299, Brush(kGridBrushes, 0));
        for (int x = 5; x < kWidth; x += 10) {
            if ((x + 95) % 100 == 90)
                wanted.Fill(x, x + 10, Brush(kGridBrushes, 3));
            wanted.Fill(x, x, Brush(kGridBrushes, 5));
        }
        QCOMPARE(got, QImage(wanted));
    }

    void scrollPositionPastTheLastFrameFillsTheWholeGridRowWithTheBeyondEndBrush()
    {
        ResetAxis(20, 10.0, 900);
        QCOMPARE(Grid(), QImage(Wanted().Fill(0, 299, Brush(kGridBrushes, 2))));
    }

    void gridIsTheSameAsWalkedFrameByFrame()
    {
        std::mt19937 random(7);
        const auto below = [&](int n) { return static_cast<int>(random() % unsigned(n)); };
        for (int round = 0; round < 200; ++round) {
            const double scales[] = {10, 7, 5, 3, 2, 1.5, 1.0, 0.6, 0.3, 0.11, 0.01};
            ResetAxis(below(3000), scales[below(11)], below(1500));
            const TimeRange range =
                below(3) ? TimeRange{below(200) - 1, 200 + below(900)} : TimeRange{};
            const QImage wanted = GridStepByStep(range);
            QCOMPARE(Grid(range), wanted);
            // In parts as well.
            const QRect clip(below(kWidth), 0, 1 + below(40), kHeight);
            QImage part(kSize, QImage::Format_RGB32);
            part.fill(Qt::magenta);
            QPainter painter(&part);
            painter.drawImage(clip.topLeft(), wanted, clip);
            painter.end();
            QCOMPARE(Grid(range, clip), part);
        }
    }

    // --- Whose range, and which background

    void backgroundTypeChoosesGridOrBands()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        row->StyleAs<TrackStyle>()->backgroundType = 0;
        QCOMPARE(ShowRow(*row, kSize), Grid());
        row->StyleAs<TrackStyle>()->backgroundType = 1;
        QCOMPARE(ShowRow(*row, kSize), Banded());
        row->StyleAs<TrackStyle>()->backgroundType = -3;
        QCOMPARE(ShowRow(*row, kSize), Banded());
    }

    void targetShowsTheRangeOfItsActiveSource_data()
    {
        QTest::addColumn<bool>("sourceActive");
        QTest::addColumn<bool>("hasParent");
        QTest::addColumn<bool>("parentActive");
        QTest::addColumn<bool>("shared");
        QTest::newRow("all active") << true << true << true << true;
        QTest::newRow("source not active") << false << true << true << false;
        QTest::newRow("no parent") << true << false << false << false;
        QTest::newRow("parent not active") << true << true << false << false;
    }
    void targetShowsTheRangeOfItsActiveSource()
    {
        QFETCH(bool, sourceActive);
        QFETCH(bool, hasParent);
        QFETCH(bool, parentActive);
        QFETCH(bool, shared);
        const auto row = MakeTrack(TL_TRACK_KEY, 2);
        const auto source = MakeTrack(TL_TRACK_KEY);
        const auto parent = MakeTrack(TL_TRACK_KEY);
        row->SetRange(12, 14);
        source->SetRange(9, 4);
        source->SetActive(sourceActive);
        parent->SetActive(parentActive);
        if (hasParent)
            source->SetParentTrack(parent.get());
        RelateTracks(RelationTable::kSharedTimeRange, {source.get(), row.get()});
        QCOMPARE(ShowRow(*row, kSize), shared ? Banded({4, 9}) : Banded({12, 14}));
    }

    void firstActiveSourceWins()
    {
        const auto row = MakeTrack(TL_TRACK_KEY, 2);
        std::vector<std::unique_ptr<CTimelineTrackBase>> sources;
        std::vector<_tmpTLRelatedMap> relations;
        for (int i = 0; i < 3; ++i) {
            sources.push_back(MakeTrack(TL_TRACK_KEY));
            sources.back()->SetParentTrack(sources.back().get());
            sources.back()->SetActive(i > 0);
            sources.back()->SetRange(4 * i, 4 * i + 1);
            relations.push_back(
                {RelationTable::kSharedTimeRange, {sources.back().get(), row.get()}});
        }
        TimelineLibrary::Instance().relations.Set(relations);
        QCOMPARE(ShowRow(*row, kSize), Banded({4, 5}));
    }

    void markersStayAtTheTracksOwnRange()
    {
        const auto row = MakeTrack(TL_TRACK_KEY, 2);
        const auto source = MakeTrack(TL_TRACK_KEY);
        SetModes(*row, {TL_EDIT_TIME_RANGE});
        row->SetRange(12, 14);
        source->SetRange(4, 9);
        source->SetParentTrack(source.get());
        source->SetActive(true);
        RelateTracks(RelationTable::kSharedTimeRange, {source.get(), row.get()});
        QImage wanted = Banded({4, 9});
        QPainter painter(&wanted);
        const ImageTables& images = TimelineLibrary::Instance().images;
        painter.drawPixmap(120, 0, images.Picture(kRangeMarkerPictures, 0));
        painter.drawPixmap(150 - 7, 0, images.Picture(kRangeMarkerPictures, 1));
        painter.end();
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void deadSourceSharesNothing()
    {
        const auto row = MakeTrack(TL_TRACK_KEY, 2);
        auto source = MakeTrack(TL_TRACK_KEY);
        source->SetRange(4, 9);
        source->SetParentTrack(source.get());
        source->SetActive(true);
        RelateTracks(RelationTable::kSharedTimeRange, {source.get(), row.get()});
        QCOMPARE(ShowRow(*row, kSize), Banded({4, 9}));
        source.reset();
        QCOMPARE(ShowRow(*row, kSize), Banded());
    }

    // --- Range markers

    void markersStandInsideTheirRange()
    {
        const QImage got = Painted([](QPainter& painter, const RowView& view) {
            DrawRangeMarkers(painter, view, {4, 9});
        });
        QImage wanted = Wanted();
        QPainter painter(&wanted);
        const ImageTables& images = TimelineLibrary::Instance().images;
        painter.drawPixmap(40, 0, images.Picture(kRangeMarkerPictures, 0));
        painter.drawPixmap(100 - 7, 0, images.Picture(kRangeMarkerPictures, 1));
        painter.end();
        QCOMPARE(got, wanted);
    }

    void rangeWithoutBothEndsHasNoMarkers_data()
    {
        QTest::addColumn<int>("lo");
        QTest::addColumn<int>("hi");
        QTest::newRow("none") << -1 << -1;
        QTest::newRow("half") << -1 << 7;
    }
    void rangeWithoutBothEndsHasNoMarkers()
    {
        QFETCH(int, lo);
        QFETCH(int, hi);
        QCOMPARE(Painted([=](QPainter& painter, const RowView& view) {
                     DrawRangeMarkers(painter, view, {lo, hi});
                 }),
                 QImage(Wanted()));
        QCOMPARE(int(HitRangeMarker(SceneAxis(), {lo, hi}, QPoint(1, 1))), -1);
    }
};

QTEST_MAIN(tst_BackgroundPainter)
#include "tst_BackgroundPainter.moc"
