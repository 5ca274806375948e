#include "support/PictureCheck.h"
#include "tracks/BarPainter.h"
#include "tracks/CellGeometry.h"
#include "tracks/GlyphPainter.h"

#include <QtTest>

#include "tracks/RowScenes.h"

using namespace KestovaTest;

namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 27;
const QSize kSize(kWidth, kHeight);

const QPixmap& Glyph(int group, int index)
{
    return TimelineLibrary::Instance().images.Glyph(group, index);
}

/// The row's picture without any key, with @p glyph over it at @p corner.
QImage EmptyRowWith(int type, const QPixmap& glyph, QPoint corner)
{
    QImage image = ShowRow(*MakeTrack(type), kSize);
    QPainter(&image).drawPixmap(corner, glyph);
    return image;
}

QImage EmptyRow(int type)
{
    return ShowRow(*MakeTrack(type), kSize);
}

/// The columns in which two pictures differ.
QList<int> DifferingColumns(const QImage& a, const QImage& b)
{
    QList<int> columns;
    for (int x = 0; x < a.width(); ++x) {
        for (int y = 0; y < a.height(); ++y) {
            if (a.pixel(x, y) != b.pixel(x, y)) {
                columns << x;
                break;
            }
        }
    }
    return columns;
}

} // namespace

class tst_CTimelineTrackKey : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(PrepareTimeline()); }
    void init()
    {
        ResetAxis(40, 10.0);
        UnrelateTracks();
    }

    void looksLikeItsPicture_data() { AddScenes(); }
    void looksLikeItsPicture() { CompareScene(TL_TRACK_KEY, "key"); }

    void looksLikeItsPictureOnBands()
    {
        KESTOVA_COMPARE_PICTURE(PaintScene(TL_TRACK_KEY,
                                           {"banded",
                                            [](CTimelineTrackBase& row) {
                                                SceneAxis().frameCount = 34;
                                                SetModes(row, {TL_EDIT_TIME_RANGE});
                                                row.SetRange(8, 17);
                                                AddThree(row);
                                            }},
                                           2),
                                "tracks/key/banded");
    }

    void initMakesAKeyRowOfTenPixels()
    {
        CTimelineTrackKey track;
        QWidget parent;
        QVERIFY(track.Init(&parent));
        QCOMPARE(track.parentWidget(), &parent);
        QCOMPARE(track.GetTrackType(), int(TL_TRACK_KEY));
        QCOMPARE(track.size(), QSize(10, 20));
        QCOMPARE(track.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed));
        QCOMPARE(track.accessibleName(), QString("CTimelineTrackKey"));
        track.setParent(nullptr);
    }

    void drawKeysGivesTheWidgetTheRowsSize()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        ShowRow(*row, QSize(321, 19));
        QCOMPARE(row->size(), QSize(321, 19));
    }

    void glyphStandsInTheMiddleOfItsCellTwoPixelsToTheRight()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 10);
        const QPixmap& glyph = Glyph(0, 0); // 6 x 10 pixels, the cell is 10 wide
        QCOMPARE(ShowRow(*row, kSize),
                 EmptyRowWith(TL_TRACK_KEY, glyph, QPoint(2 + 100 + 2, (kHeight - 10) / 2)));
    }

    void glyphPositionIsTruncatedTowardZero()
    {
        // Three pixels a frame: trunc(30 + (3 - 6) / 2) = trunc(28.5).
        SceneAxis().info = CFrameInfo(3.0);
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 10);
        QCOMPARE(ShowRow(*row, kSize),
                 EmptyRowWith(TL_TRACK_KEY, Glyph(0, 0), QPoint(2 + 28, (kHeight - 10) / 2)));
    }

    void selectedKeyHasItsOwnGlyph()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 10, Select);
        QCOMPARE(ShowRow(*row, kSize),
                 EmptyRowWith(TL_TRACK_KEY, Glyph(0, 1), QPoint(104, (kHeight - 10) / 2)));
    }

    void keyOfAGroupTakesTheRelatedGlyph()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 10, Join);
        const QPixmap& glyph = Glyph(1, 0); // 7 x 7
        QCOMPARE(ShowRow(*row, kSize),
                 EmptyRowWith(TL_TRACK_KEY, glyph, QPoint(2 + 101, (kHeight - 7) / 2)));
    }

    void relatedCopyWithoutAGroupTakesTheOrdinaryGlyph()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddRelated(*row, 10);
        QCOMPARE(ShowRow(*row, kSize),
                 EmptyRowWith(TL_TRACK_KEY, Glyph(0, 0), QPoint(104, (kHeight - 10) / 2)));
    }

    void alignmentPutsTheGlyphAtTheTopOrBottom_data()
    {
        QTest::addColumn<int>("align");
        QTest::addColumn<int>("top");
        QTest::newRow("centred") << 0 << 8;
        QTest::newRow("top") << 1 << 0;
        QTest::newRow("bottom") << 2 << 17;
        QTest::newRow("an unknown alignment centres") << 7 << 8;
    }
    void alignmentPutsTheGlyphAtTheTopOrBottom()
    {
        QFETCH(int, align);
        QFETCH(int, top);
        const auto row = MakeTrack(TL_TRACK_KEY);
        SetAlign(*row, align);
        AddKey(*row, 10);
        QCOMPARE(ShowRow(*row, kSize), EmptyRowWith(TL_TRACK_KEY, Glyph(0, 0), QPoint(104, top)));
    }

    void glyphIsDrawnAsLongAsItTouchesTheRow()
    {
        // x = 2 + trunc(-scrollX + 2): the last scroll at which x + 6 reaches 0 is 10.
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 0, [](CTimelineKey& key) {
            key.kindMask |= TL_KEY_SEGMENTS;
            key.segments.push_back({1, 0, 0, 1, {{20, 0, 20, 0}}});
        });
        SceneAxis().scrollX = 10;
        QCOMPARE(QColor(ShowRow(*row, kSize).pixel(-6 + 20, 8)), QColor(Qt::red));
        SceneAxis().scrollX = 11;
        QVERIFY(ShowRow(*row, kSize) == EmptyRow(TL_TRACK_KEY));
    }

    void glyphThatStartsAtTheLastFrameIsNotDrawn()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 20);
        SceneAxis().frameCount = 21;
        QVERIFY(ShowRow(*row, kSize) != EmptyRow(TL_TRACK_KEY));
        SceneAxis().frameCount = 20;
        QVERIFY(ShowRow(*row, kSize) == EmptyRow(TL_TRACK_KEY));
    }

    void segmentsAreFilledSolidAroundTheGlyph()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 10, [](CTimelineKey& key) {
            key.kindMask = TL_KEY_SEGMENTS;
            key.segments.push_back({0.5f, 0.0f, 1.0f, 1.0f, {{-4, -2, -3, 1}}});
        });
        QImage wanted = EmptyRowWith(TL_TRACK_KEY, Glyph(0, 0), QPoint(104, 8));
        // Left, top, right and bottom are included.
        QPainter(&wanted).fillRect(QRect(QPoint(100, 6), QPoint(101, 9)), QColor(127, 0, 255));
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void segmentsNeedBit64OfTheKindMask()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 10, [](CTimelineKey& key) {
            key.kindMask = 1 | 32 | 128;
            key.segments.push_back({1, 0, 0, 1, {{0, 0, 5, 5}}});
        });
        QCOMPARE(ShowRow(*row, kSize), EmptyRowWith(TL_TRACK_KEY, Glyph(0, 0), QPoint(104, 8)));
    }

    void segmentColoursStayInsideTheirRange()
    {
        QCOMPARE(SegmentColour({2.0f, -1.0f, static_cast<float>(qQNaN()), 1.0f, {}}),
                 QColor(255, 0, 0, 255));
        QCOMPARE(SegmentColour({0.999f, 0.5f, 0.004f, 0.5f, {}}), QColor(254, 127, 1, 127));
    }

    void segmentsOfAKeyOutOfViewReachIntoIt()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        SceneAxis().frameCount = 400;
        AddKey(*row, 90, [](CTimelineKey& key) {
            key.kindMask = TL_KEY_SEGMENTS;
            key.segments.push_back({1, 0, 0, 1, {{-800, 0, -700, 5}}});
        });
        QCOMPARE(QColor(ShowRow(*row, kSize).pixel(904 - 700, 8)), QColor(Qt::red));
    }

    void selectedGlyphsLieOnTop()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 10, Select);
        AddKey(*row, 10);
        QImage wanted = EmptyRowWith(TL_TRACK_KEY, Glyph(0, 0), QPoint(104, 8));
        QPainter(&wanted).drawPixmap(104, 8, Glyph(0, 1));
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void barRunsFromItsFrameToTheEndOfItsDisplayLength()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 10, Bar(6));
        AddKey(*row, 14); // trims the bar to frames 10 to 13: the display length is 3
        const QImage image = ShowRow(*row, kSize);
        const QRgb border = BarBorder(*row);
        const int top = (kHeight - 14) / 2;
        for (const int x : {100, 120, 139}) {
            QCOMPARE(image.pixel(x, top), border);
            QCOMPARE(image.pixel(x, top + 13), border);
        }
        for (int y = top; y < top + 14; ++y) {
            QCOMPARE(image.pixel(100, y), border);
            QCOMPARE(image.pixel(139, y), border);
        }
        QVERIFY(image.pixel(140, top) != border);
        QVERIFY(image.pixel(120, top - 1) != border);
        QVERIFY(image.pixel(120, top + 14) != border);
        QVERIFY(image.pixel(120, top + 1) != border);
    }

    void selectedBarHasTheSelectedBorder()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 10, [](CTimelineKey& key) {
            Bar(6)(key);
            key.selected = true;
        });
        QCOMPARE(ShowRow(*row, kSize).pixel(100, 7), BarBorder(*row, 1));
    }

    void barNeedsTheHostSwitchAndALengthAndAFrameBeforeTheEnd_data()
    {
        QTest::addColumn<bool>("hostSwitch");
        QTest::addColumn<int>("clipLength");
        QTest::addColumn<int>("frame");
        QTest::addColumn<bool>("drawn");
        QTest::newRow("drawn") << true << 6 << 10 << true;
        QTest::newRow("switched off") << false << 6 << 10 << false;
        QTest::newRow("no length") << true << 0 << 10 << false;
        QTest::newRow("last valid frame") << true << 6 << 39 << true;
        QTest::newRow("at the frame count") << true << 6 << 40 << false;
    }
    void barNeedsTheHostSwitchAndALengthAndAFrameBeforeTheEnd()
    {
        QFETCH(bool, hostSwitch);
        QFETCH(int, clipLength);
        QFETCH(int, frame);
        QFETCH(bool, drawn);
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, frame, [&](CTimelineKey& key) {
            key.hostSwitch = hostSwitch;
            key.clipLength = clipLength;
        });
        const QRgb pixel = ShowRow(*row, QSize(500, kHeight)).pixel(frame * 10, 7);
        QCOMPARE(pixel == BarBorder(*row), drawn);
    }

    void barEndsAtTheLastFrame()
    {
        SceneAxis().frameCount = 24;
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 18, Bar(12));
        const QImage image = ShowRow(*row, kSize);
        QCOMPARE(image.pixel(239, 13), BarBorder(*row));
        QVERIFY(image.pixel(240, 7) != BarBorder(*row));
    }

    void barThatStartsAndEndsOnTheSamePixelIsOnePixelWide()
    {
        SceneAxis().frameCount = 4000;
        SceneAxis().info = CFrameInfo(0.1); // 11 frames a pixel
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 1100, Bar(3));
        const auto bare = MakeTrack(TL_TRACK_KEY);
        AddKey(*bare, 1100);
        QCOMPARE(DifferingColumns(ShowRow(*row, kSize), ShowRow(*bare, kSize)), QList<int>{100});
    }

    void barLeftOfTheRowIsNotDrawn()
    {
        SceneAxis().scrollX = 200;
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 1, Bar(5));
        QVERIFY(ShowRow(*row, kSize) == EmptyRow(TL_TRACK_KEY));
    }

    void loopedBarHasADividerAfterEachPassButTheLast()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 3, Bar(5, 4));
        const QImage image = ShowRow(*row, kSize);
        QList<int> lines;
        for (int x = 0; x < kWidth; ++x) {
            if (image.pixel(x, 10) == BarBorder(*row))
                lines << x;
        }
        // Passes end at the frames 9, 14 and 19; the bar covers the frames 3 to 23.
        QCOMPARE(lines, (QList<int>{30, 90, 140, 190, 239}));
    }

    void dividersStopAtTheEndOfTheBar()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 3, Bar(5, 4));
        AddKey(*row, 14); // the bar ends before frame 14, where a divider would stand
        const QImage image = ShowRow(*row, kSize);
        QVERIFY(image.pixel(90, 10) == BarBorder(*row));
        QVERIFY(image.pixel(140, 10) != BarBorder(*row));
    }

    void dividersOfManyPassesAreDrawnAtOnce()
    {
        SceneAxis().frameCount = 2000000000;
        SceneAxis().info = CFrameInfo(0.000001);
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddKey(*row, 0, Bar(1, 1900000000));
        QElapsedTimer timer;
        timer.start();
        const QImage image = ShowRow(*row, kSize);
        QVERIFY2(timer.elapsed() < 1000, "painting walked every pass");
        QCOMPARE(image.pixel(200, 10), BarBorder(*row));
    }

    void currentFrameLineIsDrawnUpToTheFrameCount_data()
    {
        QTest::addColumn<int>("current");
        QTest::addColumn<bool>("drawn");
        QTest::newRow("below 0") << -1 << false;
        QTest::newRow("first") << 0 << true;
        QTest::newRow("middle") << 17 << true;
        QTest::newRow("last valid") << 29 << true;
        QTest::newRow("the frame count") << 30 << true;
        QTest::newRow("beyond the last frame") << 31 << false;
    }
    void currentFrameLineIsDrawnUpToTheFrameCount()
    {
        QFETCH(int, current);
        QFETCH(bool, drawn);
        SceneAxis().frameCount = 30;
        const QImage without = EmptyRow(TL_TRACK_KEY);
        SceneAxis().currentFrame = current;
        const QImage with = EmptyRow(TL_TRACK_KEY);
        QCOMPARE(DifferingColumns(with, without), drawn ? QList<int>{current * 10} : QList<int>{});
        if (!drawn)
            return;
        const QRgb colour = TimelineLibrary::Instance().currentFrameLine.rgb();
        for (int y = 0; y < kHeight; ++y)
            QCOMPARE(with.pixel(current * 10, y), colour);
    }

    void currentFrameLineIsRoundedInFramesPerPixelMode_data()
    {
        QTest::addColumn<double>("scale");
        QTest::addColumn<int>("current");
        QTest::addColumn<int>("column");
        // trunc(f / k + 0.5 / k + 0.5)
        QTest::newRow("four frames a pixel, first half") << 0.3 << 401 << 100;
        QTest::newRow("four frames a pixel, second half") << 0.3 << 402 << 101;
        QTest::newRow("one frame a pixel") << 1.5 << 20 << 21;
    }
    void currentFrameLineIsRoundedInFramesPerPixelMode()
    {
        QFETCH(double, scale);
        QFETCH(int, current);
        QFETCH(int, column);
        SceneAxis().frameCount = 1000;
        SceneAxis().info = CFrameInfo(scale);
        const QImage without = EmptyRow(TL_TRACK_KEY);
        SceneAxis().currentFrame = current;
        QCOMPARE(DifferingColumns(EmptyRow(TL_TRACK_KEY), without), QList<int>{column});
    }

    void relatedBarsShowTheClipsOfTheSource()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        const auto source = MakeTrack(TL_TRACK_CLIP);
        AddKey(*source, 5, [](CTimelineKey& key) { key.clipLength = 3; }); // frames 5 to 8
        AddKey(*source, 15);                                               // no clip
        AddKey(*source, 20, [](CTimelineKey& key) {
            key.clipLength = 3;
            key.alternateStyle = true;
        });
        AddKey(*source, 38, [](CTimelineKey& key) { key.clipLength = 9; }); // up to the last frame
        const QImage without = ShowRow(*row, kSize);
        RelateTracks(RelationTable::kClipBars, {source.get(), row.get()});
        QImage wanted = without;
        QPainter painter(&wanted);
        const int top = (kHeight - 14) / 2;
        const QColor colour = row->StyleAs<TrackStyle>()->disabled.ToColor();
        painter.fillRect(50, top, 40, 14, colour);
        painter.fillRect(380, top, 20, 14, colour);
        painter.end();
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void relatedBarsOfAnActiveSourceShowItsSelection_data()
    {
        QTest::addColumn<bool>("active");
        QTest::addColumn<bool>("selected");
        QTest::newRow("neither") << false << false;
        QTest::newRow("active") << true << false;
        QTest::newRow("selected") << false << true;
        QTest::newRow("both") << true << true;
    }
    void relatedBarsOfAnActiveSourceShowItsSelection()
    {
        QFETCH(bool, active);
        QFETCH(bool, selected);
        const auto row = MakeTrack(TL_TRACK_KEY);
        const auto& style = *row->StyleAs<TrackStyle>();
        const QColor colour =
            (active && selected ? style.disabledSelected : style.disabled).ToColor();
        QVERIFY(style.disabled.ToColor() != style.disabledSelected.ToColor());
        const auto source = MakeTrack(TL_TRACK_CLIP);
        source->SetActive(active);
        AddKey(*source, 5, [=](CTimelineKey& key) {
            key.clipLength = 3;
            key.selected = selected;
        });
        QImage wanted = ShowRow(*row, kSize);
        QPainter(&wanted).fillRect(50, (kHeight - 14) / 2, 40, 14, colour);
        RelateTracks(RelationTable::kClipBars, {source.get(), row.get()});
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void relatedBarIsAtLeastOnePixelWide()
    {
        SceneAxis().frameCount = 4000;
        SceneAxis().info = CFrameInfo(0.1);
        const auto row = MakeTrack(TL_TRACK_KEY);
        const auto source = MakeTrack(TL_TRACK_CLIP);
        AddKey(*source, 1100, [](CTimelineKey& key) { key.clipLength = 2; });
        const QImage without = ShowRow(*row, kSize);
        RelateTracks(RelationTable::kClipBars, {source.get(), row.get()});
        QCOMPARE(DifferingColumns(ShowRow(*row, kSize), without), QList<int>{100});
    }

    void relatedBarsIncludeAKeyAtTheLastFrame()
    {
        SceneAxis().frameCount = 20;
        const auto row = MakeTrack(TL_TRACK_KEY);
        const auto source = MakeTrack(TL_TRACK_CLIP);
        AddKey(*source, 20, [](CTimelineKey& key) { key.clipLength = 2; });
        const QImage without = ShowRow(*row, kSize);
        RelateTracks(RelationTable::kClipBars, {source.get(), row.get()});
        QCOMPARE(DifferingColumns(ShowRow(*row, kSize), without), QList<int>{200});
    }

    void relationsOfOtherKindsAndDeadSourcesShowNoBars()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        auto source = MakeTrack(TL_TRACK_CLIP);
        AddKey(*source, 5, [](CTimelineKey& key) { key.clipLength = 3; });
        const QImage without = ShowRow(*row, kSize);
        RelateTracks(RelationTable::kSharedSelection, {source.get(), row.get()});
        QVERIFY(ShowRow(*row, kSize) == without);
        RelateTracks(RelationTable::kClipBars, {source.get(), nullptr, row.get()});
        QVERIFY(ShowRow(*row, kSize) != without);
        source.reset();
        QVERIFY(ShowRow(*row, kSize) == without);
    }

    void rowWithoutAStyleShowsOnlyTheCurrentFrame()
    {
        SceneAxis().currentFrame = 3;
        CTimelineTrackKey track;
        track.Init(nullptr);
        AddKey(track, 10);
        const QImage image = ShowRow(track, kSize);
        QCOMPARE(QColor(image.pixel(29, 5)), QColor(Qt::magenta));
        QCOMPARE(QColor(image.pixel(104, 10)), QColor(Qt::magenta));
        QCOMPARE(image.pixel(30, 5), TimelineLibrary::Instance().currentFrameLine.rgb());
    }

    void drawTrackGivesBackPenBrushAndFont()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        AddThree(*row);
        QImage image(kSize, QImage::Format_RGB32);
        QPainter painter(&image);
        const QPen pen(Qt::red, 3);
        const QBrush brush(Qt::green, Qt::Dense4Pattern);
        QFont font;
        font.setPointSize(31);
        painter.setPen(pen);
        painter.setBrush(brush);
        painter.setFont(font);
        row->DrawTrack(&painter, QRect(20, 3, 300, 20));
        QCOMPARE(painter.pen(), pen);
        QCOMPARE(painter.brush(), brush);
        QCOMPARE(painter.font(), font);
        QCOMPARE(painter.brushOrigin(), QPoint(20, 3));
    }

    void rowIsPaintedWhereItsRectangleIs()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        SceneAxis().currentFrame = 15;
        SetModes(*row, {TL_EDIT_TIME_RANGE});
        row->SetRange(4, 9);
        AddThree(*row, AddSegments);
        AddKey(*row, 25, Bar(4, 2));
        const QSize size(300, 20);
        const QImage alone = ShowRow(*row, size);
        QImage image(400, 60, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        row->DrawTrack(&painter, QRect(QPoint(70, 30), size));
        painter.end();
        QCOMPARE(image.copy(QRect(QPoint(70, 30), size)), alone);
    }
};

QTEST_MAIN(tst_CTimelineTrackKey)
#include "tst_CTimelineTrackKey.moc"
