#include "support/PictureCheck.h"
#include "tracks/CellGeometry.h"
#include "tracks/LinkThinning.h"
#include "tracks/RowScenes.h"

#include <QtTest>

using namespace KestovaTest;

namespace {

constexpr int kHeight = 27;
const QSize kSize(400, kHeight);
constexpr int kLineTop = (kHeight - 21) / 2;

const QPixmap& Glyph(int group, int index)
{
    return TimelineLibrary::Instance().images.Glyph(group, index);
}

const LineKeyTrackStyle::Line& LineOf(CTimelineTrackBase& row)
{
    return row.StyleAs<LineKeyTrackStyle>()->line;
}

void LinkStart(CTimelineKey& key)
{
    key.keyType = TL_KEY_LINK_START;
}

/// The row without keys.
QImage EmptyRow()
{
    return ShowRow(*MakeTrack(TL_TRACK_LINK_KEY), kSize);
}

/// A bar from column @p left to @p right as Qt draws the rectangle.
void PaintBar(QImage& image, int left, int right, const QPen& pen, const QBrush& brush)
{
    QPainter painter(&image);
    painter.setPen(pen);
    painter.setBrush(brush);
    painter.drawRect(QRect(QPoint(left, kLineTop), QPoint(right, kLineTop + 21 - 1)));
}

void PaintGlyph(QImage& image, int frame, int group, int index)
{
    QPainter(&image).drawPixmap(frame * 10 + 2, (kHeight - 24) / 2, Glyph(group, index));
}

std::vector<int> FramesOf(const DisplayKeyList& list)
{
    std::vector<int> frames;
    for (const DisplayKey& key : list)
        frames.push_back(key.frame);
    return frames;
}

} // namespace

class tst_CTimelineTrackLinkKey : public QObject
{
    Q_OBJECT

    /// The frames that are left of a row's keys once it is thinned.
    static std::vector<int> Thinned(CTimelineTrackBase& row)
    {
        DisplayKeyList list = CollectAll(row.Keys(), {0, 1000, 1000, false});
        ThinLinkKeys(list);
        return FramesOf(list);
    }

private slots:
    void initTestCase() { QVERIFY(PrepareTimeline()); }
    void init()
    {
        ResetAxis(40, 10.0);
        UnrelateTracks();
    }

    void looksLikeItsPicture_data() { AddScenes(); }
    void looksLikeItsPicture() { CompareScene(TL_TRACK_LINK_KEY, "link"); }

    void looksLikeItsPictureWithASlimLine()
    {
        KESTOVA_COMPARE_PICTURE(PaintScene(TL_TRACK_LINK_KEY, kKeyRowScenes[0], 2),
                                "tracks/link/slim");
    }

    void initMakesALinkRowOfTenPixels()
    {
        CTimelineTrackLinkKey track;
        QVERIFY(track.Init(nullptr));
        QCOMPARE(track.GetTrackType(), int(TL_TRACK_LINK_KEY));
        QCOMPARE(track.size(), QSize(10, 20));
        QCOMPARE(track.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed));
    }

    void drawKeysGivesTheWidgetTheRowsSize()
    {
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        ShowRow(*row, QSize(321, 19));
        QCOMPARE(row->size(), QSize(321, 19));
    }

    void barRunsFromTheCentreOfACellToTheCentreOfTheNextKeysCell()
    {
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddKey(*row, 5, LinkStart);
        AddKey(*row, 12);
        QImage wanted = EmptyRow();
        PaintBar(wanted, 55, 125, LineOf(*row).border[0], LineOf(*row).fill[0]);
        PaintGlyph(wanted, 5, 4, 0);
        PaintGlyph(wanted, 12, 4, 0);
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void lastLinkStartDrawsItsBarToTheLastFrameClippedToTheRow()
    {
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddKey(*row, 5, LinkStart);
        QImage wanted = EmptyRow();
        PaintBar(wanted, 55, 399, LineOf(*row).border[0], LineOf(*row).fill[0]);
        PaintGlyph(wanted, 5, 4, 0);
        QCOMPARE(ShowRow(*row, kSize), wanted);

        SceneAxis().frameCount = 30;
        wanted = EmptyRow();
        PaintBar(wanted, 55, 300, LineOf(*row).border[0], LineOf(*row).fill[0]);
        PaintGlyph(wanted, 5, 4, 0);
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void barNeedsBit2OfTheKeyType_data()
    {
        QTest::addColumn<int>("keyType");
        QTest::addColumn<bool>("drawn");
        QTest::newRow("1") << 1 << false;
        QTest::newRow("2") << 2 << true;
        QTest::newRow("3") << 3 << true;
        QTest::newRow("4") << 4 << false;
        QTest::newRow("6") << 6 << true;
    }
    void barNeedsBit2OfTheKeyType()
    {
        QFETCH(int, keyType);
        QFETCH(bool, drawn);
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddKey(*row, 5, [=](CTimelineKey& key) { key.keyType = keyType; });
        AddKey(*row, 12);
        const bool isBar =
            ShowRow(*row, kSize).pixel(80, kLineTop + 10) == LineOf(*row).fill[0].color().rgb();
        QCOMPARE(isBar, drawn);
    }

    void barOfAKeyAtTheFrameCountIsNotDrawn()
    {
        SceneAxis().frameCount = 20;
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddKey(*row, 20, LinkStart);
        AddKey(*row, 30);
        QVERIFY(ShowRow(*row, kSize) == EmptyRow());
    }

    void barReachesANextKeyBeyondTheEnd()
    {
        SceneAxis().frameCount = 20;
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddKey(*row, 15, LinkStart);
        AddKey(*row, 30);
        const QImage image = ShowRow(*row, kSize);
        QCOMPARE(image.pixel(250, kLineTop + 10), LineOf(*row).fill[0].color().rgb());
        QCOMPARE(image.pixel(306, kLineTop + 10), LineOf(*row).border[0].color().rgb());
    }

    void barThatStartsFarLeftReachesThroughTheView()
    {
        SceneAxis().frameCount = 4000;
        SceneAxis().scrollX = 10000;
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddKey(*row, 5, LinkStart);
        AddKey(*row, 3900);
        QImage wanted = EmptyRow();
        const QColor border = LineOf(*row).border[0].color();
        QPainter painter(&wanted);
        painter.fillRect(0, kLineTop, 400, 22, border);
        painter.fillRect(0, kLineTop + 1, 400, 20, LineOf(*row).fill[0]);
        painter.end();
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void barThatEndsLeftOfTheRowIsSkipped()
    {
        SceneAxis().scrollX = 200;
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddKey(*row, 2, LinkStart);
        AddKey(*row, 19);
        const auto other = MakeTrack(TL_TRACK_LINK_KEY);
        AddKey(*other, 19);
        QCOMPARE(ShowRow(*row, kSize), ShowRow(*other, kSize));
    }

    void barFollowsTheAlignment_data()
    {
        QTest::addColumn<int>("align");
        QTest::addColumn<int>("top");
        QTest::newRow("centred") << 0 << 3;
        QTest::newRow("top") << 1 << 0;
        QTest::newRow("bottom") << 2 << 6;
    }
    void barFollowsTheAlignment()
    {
        QFETCH(int, align);
        QFETCH(int, top);
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        SetAlign(*row, align);
        AddKey(*row, 5, LinkStart);
        AddKey(*row, 25);
        const QImage image = ShowRow(*row, kSize);
        const QRgb border = LineOf(*row).border[0].color().rgb();
        const QRgb fill = LineOf(*row).fill[0].color().rgb();
        QCOMPARE(image.pixel(100, top), border);
        QCOMPARE(image.pixel(100, top + 1), fill);
        QCOMPARE(image.pixel(100, top + 20), fill);
        if (top + 21 < kHeight)
            QCOMPARE(image.pixel(100, top + 21), border);
    }

    void barTakesTheSetOfItsKey_data()
    {
        QTest::addColumn<bool>("selected");
        QTest::addColumn<bool>("alternate");
        QTest::addColumn<bool>("copy");
        QTest::addColumn<bool>("group");
        for (const bool selected : {false, true}) {
            for (const bool alternate : {false, true}) {
                for (const bool copy : {false, true}) {
                    for (const bool group : {false, true}) {
                        QTest::addRow("%s%s%s%s", selected ? "selected" : "normal",
                                      alternate ? ", alternate" : "", copy ? ", copy" : "",
                                      group ? ", in a group" : "")
                            << selected << alternate << copy << group;
                    }
                }
            }
        }
    }
    void barTakesTheSetOfItsKey()
    {
        QFETCH(bool, selected);
        QFETCH(bool, alternate);
        QFETCH(bool, copy);
        QFETCH(bool, group);
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        const Change change = [=](CTimelineKey& key) {
            key.keyType = TL_KEY_LINK_START;
            key.selected = selected;
            key.alternateStyle = alternate;
            if (group)
                Join(key);
        };
        if (copy)
            AddRelated(*row, 5, change);
        else
            AddKey(*row, 5, change);
        const auto& line = LineOf(*row);
        const StylePenPair& pens = copy        ? line.relatedBorder
                                   : alternate ? line.border1
                                               : line.border;
        const StyleBrushPair& brushes = copy        ? line.relatedFill
                                        : alternate ? line.fill1
                                                    : line.fill;
        const QImage image = ShowRow(*row, kSize);
        QCOMPARE(image.pixel(200, kLineTop), pens[selected].color().rgb());
        QCOMPARE(image.pixel(200, kLineTop + 10), brushes[selected].color().rgb());
    }

    void glyphShowsTheKey_data()
    {
        QTest::addColumn<bool>("copy");
        QTest::addColumn<int>("mask");
        QTest::addColumn<bool>("alternate");
        QTest::addColumn<bool>("selected");
        QTest::addColumn<int>("index");
        for (const bool copy : {false, true}) {
            const char* origin = copy ? "copy" : "own";
            QTest::addRow("%s", origin) << copy << 1 << false << false << 0;
            QTest::addRow("%s, selected", origin) << copy << 1 << false << true << 1;
            QTest::addRow("%s, bit 4", origin) << copy << 4 << false << false << 2;
            QTest::addRow("%s, bit 4, selected", origin) << copy << 4 << false << true << 3;
            QTest::addRow("%s, alternate", origin) << copy << 1 << true << false << 4;
            QTest::addRow("%s, alternate, selected", origin) << copy << 1 << true << true << 5;
            QTest::addRow("%s, bit 4 and alternate", origin) << copy << 4 << true << false << 2;
        }
    }
    void glyphShowsTheKey()
    {
        QFETCH(bool, copy);
        QFETCH(int, mask);
        QFETCH(bool, alternate);
        QFETCH(bool, selected);
        QFETCH(int, index);
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        const Change change = [=](CTimelineKey& key) {
            key.kindMask = mask;
            key.alternateStyle = alternate;
            key.selected = selected;
        };
        if (copy)
            AddRelated(*row, 10, change);
        else
            AddKey(*row, 10, change);
        QImage wanted = EmptyRow();
        // The related glyphs have no alternate pair: such a key shows none.
        PaintGlyph(wanted, 10, copy ? 5 : 4, index);
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void glyphOfAGroupIsTheOrdinaryOne()
    {
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddKey(*row, 10, Join);
        QImage wanted = EmptyRow();
        PaintGlyph(wanted, 10, 4, 0);
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void glyphsAreCentredWhateverTheAlignment()
    {
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        SetAlign(*row, 2);
        AddKey(*row, 10);
        QImage wanted = EmptyRow();
        PaintGlyph(wanted, 10, 4, 0);
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void selectedKeyAndUnselectedKeyAtTheSameFrameShowTheSelectedGlyph()
    {
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddKey(*row, 10, Select);
        AddKey(*row, 10);
        QImage wanted = EmptyRow();
        PaintGlyph(wanted, 10, 4, 0);
        PaintGlyph(wanted, 10, 4, 1);
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void glyphAtTheFrameCountIsNotDrawn()
    {
        SceneAxis().frameCount = 10;
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddKey(*row, 10);
        QVERIFY(ShowRow(*row, kSize) == EmptyRow());
    }

    void glyphsLessThanAQuarterWidthApartAreDrawnAsTheLaterOne()
    {
        // Four frames a pixel; the glyph is 5 pixels wide, a quarter of it is 1 pixel.
        SceneAxis().frameCount = 1000;
        SceneAxis().info = CFrameInfo(0.3);
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddKey(*row, 400); // x 97
        AddKey(*row, 404,
               [](CTimelineKey& key) { key.kindMask = TL_KEY_MARKED_LINK; }); // x 98: with 400
        AddKey(*row, 408);                                                    // x 99: not
        QImage wanted = EmptyRow();
        QPainter painter(&wanted);
        const auto at = [](int frame) { return CentredOnFrame(SceneAxis(), frame, 5); };
        QCOMPARE(at(400), 97);
        QCOMPARE(at(404), 98);
        const int h = Glyph(4, 0).height();
        painter.drawPixmap(98, (kHeight - h) / 2, Glyph(4, 2));
        painter.drawPixmap(99, (kHeight - h) / 2, Glyph(4, 0));
        painter.end();
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void selectedGlyphsAreMergedAmongThemselves()
    {
        SceneAxis().frameCount = 1000;
        SceneAxis().info = CFrameInfo(0.3);
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddKey(*row, 400, Select);
        AddKey(*row, 401);
        AddKey(*row, 404, Select);
        AddKey(*row, 405);
        QImage wanted = EmptyRow();
        QPainter painter(&wanted);
        const int y = (kHeight - Glyph(4, 0).height()) / 2;
        painter.drawPixmap(98, y, Glyph(4, 0));
        painter.drawPixmap(98, y, Glyph(4, 1));
        painter.end();
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void keyLeftOfTheRowStartsNoRun()
    {
        // With four frames a pixel the keys stand at -6 (out of the row), -5, -4 and -3, and each
        // joins the run of the one before it: the runs are -5 with -4, and -3.
        SceneAxis().frameCount = 10000;
        SceneAxis().info = CFrameInfo(0.3);
        SceneAxis().scrollX = 105;
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        for (const int frame : {404, 408, 416})
            AddKey(*row, frame);
        AddKey(*row, 412, [](CTimelineKey& key) { key.kindMask = TL_KEY_MARKED_LINK; });
        QCOMPARE(CentredOnFrame(SceneAxis(), 404, 5), -6);
        QCOMPARE(CentredOnFrame(SceneAxis(), 412, 5), -4);
        QImage wanted = EmptyRow();
        QPainter painter(&wanted);
        painter.drawPixmap(-4, (kHeight - 24) / 2, Glyph(4, 2));
        painter.drawPixmap(-3, (kHeight - 24) / 2, Glyph(4, 0));
        painter.end();
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void keyBarTakesHeightAndBorderOfTheLinePart()
    {
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        auto* style = row->StyleAs<LineKeyTrackStyle>();
        style->clipHeight = 3;
        style->line.clipHeight = 9;
        style->line.clipBorder.entries[0].pen.setColor(Qt::red);
        AddKey(*row, 5, Bar(10));
        const QImage image = ShowRow(*row, kSize);
        QCOMPARE(QColor(image.pixel(100, 9)), QColor(Qt::red));
        QCOMPARE(QColor(image.pixel(100, 17)), QColor(Qt::red));
    }

    // --- Thinning

    void keyBehindAHigherRankedKeyOfTheOtherOriginIsTakenOut()
    {
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddRelated(*row, 5, [](CTimelineKey& key) { key.priority = 101; });
        AddKey(*row, 10);
        AddKey(*row, 20);
        QCOMPARE(Thinned(*row), (std::vector<int>{5}));
    }

    void keyBehindAnEqualRankStays()
    {
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddRelated(*row, 5);
        AddKey(*row, 10);
        QCOMPARE(Thinned(*row), (std::vector<int>{5, 10}));
    }

    void keyBehindAKeyOfType4Stays()
    {
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddRelated(*row, 5, [](CTimelineKey& key) {
            key.priority = 101;
            key.keyType = 4;
        });
        AddKey(*row, 10);
        QCOMPARE(Thinned(*row), (std::vector<int>{5, 10}));
    }

    void onlyTheNearestKeyOfTheOtherOriginCounts()
    {
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddRelated(*row, 3, [](CTimelineKey& key) { key.priority = 200; });
        AddRelated(*row, 5, [](CTimelineKey& key) { key.priority = 50; });
        AddKey(*row, 10);
        QCOMPARE(Thinned(*row), (std::vector<int>{3, 5, 10}));
    }

    void aKeyThatIsTakenOutStillCountsForTheKeysAfterIt()
    {
        // The own key at 10 is outranked by the copy at 5 and yet outranks the copy at 15.
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddRelated(*row, 5, [](CTimelineKey& key) { key.priority = 300; });
        AddKey(*row, 10, [](CTimelineKey& key) { key.priority = 200; });
        AddRelated(*row, 15);
        QCOMPARE(Thinned(*row), (std::vector<int>{5}));
    }

    void firstKeyIsNeverTakenOut()
    {
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddKey(*row, 5, [](CTimelineKey& key) { key.priority = -100; });
        QCOMPARE(Thinned(*row), (std::vector<int>{5}));
    }

    void thinnedKeysEndNoBar()
    {
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddRelated(*row, 5, [](CTimelineKey& key) {
            key.priority = 101;
            key.keyType = TL_KEY_LINK_START;
        });
        AddKey(*row, 10);
        QImage wanted = EmptyRow();
        PaintBar(wanted, 55, 399, LineOf(*row).relatedBorder[0], LineOf(*row).relatedFill[0]);
        PaintGlyph(wanted, 5, 5, 0);
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void thinningLooksAnyDistanceBack()
    {
        SceneAxis().frameCount = 100000;
        const auto row = MakeTrack(TL_TRACK_LINK_KEY);
        AddRelated(*row, 1, [](CTimelineKey& key) {
            key.priority = 101;
            key.keyType = TL_KEY_LINK_START;
        });
        CTimelineKeyArray::KeyVector keys;
        for (int frame = 2; frame < 90000; ++frame)
            keys.push_back(NewKey(frame));
        row->Keys().AddKeys(keys, false);
        SceneAxis().scrollX = 500000;
        QImage wanted = EmptyRow();
        QPainter painter(&wanted);
        painter.fillRect(0, kLineTop, 400, 22, LineOf(*row).relatedBorder[0].color());
        painter.fillRect(0, kLineTop + 1, 400, 20, LineOf(*row).relatedFill[0]);
        painter.end();
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }
};

QTEST_MAIN(tst_CTimelineTrackLinkKey)
#include "tst_CTimelineTrackLinkKey.moc"
