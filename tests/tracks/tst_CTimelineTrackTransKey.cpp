#include "support/PaintCounter.h"
#include "support/PictureCheck.h"
#include "tracks/RowScenes.h"
#include "tracks/TransitionPainter.h"

#include <QtTest>

using namespace KestovaTest;

namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 27;
const QSize kSize(kWidth, kHeight);
constexpr int kSpanTop = (kHeight - 4 + 1) / 2;

const QPixmap& Glyph(int index)
{
    return TimelineLibrary::Instance().images.Glyph(kTransitionGlyphs, index);
}

Change Transition(int mask, int frames)
{
    return [=](CTimelineKey& key) {
        key.kindMask = mask;
        key.transitionFrames = frames;
    };
}

QImage EmptyRow()
{
    return ShowRow(*MakeTrack(TL_TRACK_TRANSITION_KEY), kSize);
}

/// Fills and outlines the columns @p left to @p right.
void PaintSpan(QImage& image, const LineKeyTrackStyle& style, int left, int right, bool selected,
               int top = kSpanTop)
{
    QPainter painter(&image);
    painter.setPen(style.line.border[selected]);
    painter.setBrush(style.line.fill[selected]);
    painter.drawRect(left, top, right - left, style.line.lineHeight);
}

void PaintGlyph(QImage& image, int x, int index)
{
    QPainter(&image).drawPixmap(x, (kHeight - 7) / 2, Glyph(index));
}

constexpr RowScene kTransitionScenes[] = {
    {"into",
     [](CTimelineTrackBase& row) {
         AddKey(row, 8, Transition(TL_KEY_TRANSITION_IN, 5));
         AddKey(row, 20, [](CTimelineKey& key) {
             Transition(TL_KEY_TRANSITION_IN, 5)(key);
             key.selected = true;
         });
     }},
    {"out-of",
     [](CTimelineTrackBase& row) {
         AddKey(row, 8, Transition(TL_KEY_TRANSITION_OUT, 5));
         AddKey(row, 20, [](CTimelineKey& key) {
             Transition(TL_KEY_TRANSITION_OUT, 5)(key);
             key.selected = true;
         });
     }},
    {"both-bits",
     [](CTimelineTrackBase& row) {
         AddKey(row, 20, Transition(TL_KEY_TRANSITION_IN | TL_KEY_TRANSITION_OUT, 5));
     }},
    {"no-bits", [](CTimelineTrackBase& row) { AddKey(row, 20, Transition(1, 5)); }},
    {"no-frames",
     [](CTimelineTrackBase& row) { AddKey(row, 20, Transition(TL_KEY_TRANSITION_IN, 0)); }},
    {"from-left-of-the-row",
     [](CTimelineTrackBase& row) {
         SceneAxis().scrollX = 33;
         AddKey(row, 8, Transition(TL_KEY_TRANSITION_IN, 30));
     }},
    {"beyond-the-row",
     [](CTimelineTrackBase& row) {
         SceneAxis().frameCount = 60;
         AddKey(row, 32, Transition(TL_KEY_TRANSITION_OUT, 30));
     }},
    {"beyond-the-last-frame",
     [](CTimelineTrackBase& row) {
         SceneAxis().frameCount = 25;
         AddKey(row, 20, Transition(TL_KEY_TRANSITION_OUT, 10));
     }},
    {"overlapping",
     [](CTimelineTrackBase& row) {
         AddKey(row, 8, [](CTimelineKey& key) {
             Transition(TL_KEY_TRANSITION_OUT, 8)(key);
             key.selected = true;
         });
         AddKey(row, 18, Transition(TL_KEY_TRANSITION_IN, 12));
     }},
};

/// A widget that paints one row as a container does.
class RowHost : public QWidget
{
public:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        QPainter painter(this);
        painter.setClipRegion(event->region());
        row->DrawTrack(&painter, rowRect);
    }
    CTimelineTrackBase* row = nullptr;
    QRect rowRect;
    int paints = 0;
};

} // namespace

class tst_CTimelineTrackTransKey : public QObject
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
    void looksLikeItsPicture() { CompareScene(TL_TRACK_TRANSITION_KEY, "transition"); }

    void showsItsTransitions_data()
    {
        QTest::addColumn<int>("scene");
        int index = 0;
        for (const RowScene& scene : kTransitionScenes)
            QTest::newRow(scene.name) << index++;
    }
    void showsItsTransitions()
    {
        QFETCH(int, scene);
        const RowScene& shown = kTransitionScenes[scene];
        KESTOVA_COMPARE_PICTURE(PaintScene(TL_TRACK_TRANSITION_KEY, shown),
                                QStringLiteral("tracks/transition/%1").arg(shown.name));
    }

    void initMakesATransitionRowOfTenPixels()
    {
        CTimelineTrackTransKey track;
        QVERIFY(track.Init(nullptr));
        QCOMPARE(track.GetTrackType(), int(TL_TRACK_TRANSITION_KEY));
        QCOMPARE(track.size(), QSize(10, 20));
        QCOMPARE(track.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed));
    }

    // --- Spans, glyphs and handles

    void transitionIntoTheKeyEndsInItsCell()
    {
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        AddKey(*row, 20, Transition(TL_KEY_TRANSITION_IN, 5));
        QImage wanted = EmptyRow();
        PaintSpan(wanted, *row->StyleAs<LineKeyTrackStyle>(), 155, 205, false);
        PaintGlyph(wanted, 200 + 1 + 2, 0); // the glyph is 7 pixels wide: trunc(1.5) = 1
        PaintGlyph(wanted, 150 + 1, 2);
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void transitionOutOfTheKeyStartsInItsCell()
    {
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        AddKey(*row, 20, [](CTimelineKey& key) {
            Transition(TL_KEY_TRANSITION_OUT, 5)(key);
            key.selected = true;
        });
        QImage wanted = EmptyRow();
        PaintSpan(wanted, *row->StyleAs<LineKeyTrackStyle>(), 205, 255, true);
        PaintGlyph(wanted, 203, 5);
        PaintGlyph(wanted, 251, 7);
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void bit32WinsWhenBothBitsAreSet()
    {
        const auto both = MakeTrack(TL_TRACK_TRANSITION_KEY);
        AddKey(*both, 20, Transition(TL_KEY_TRANSITION_IN | TL_KEY_TRANSITION_OUT, 5));
        const auto out = MakeTrack(TL_TRACK_TRANSITION_KEY);
        AddKey(*out, 20, Transition(TL_KEY_TRANSITION_OUT, 5));
        QCOMPARE(ShowRow(*both, kSize), ShowRow(*out, kSize));
    }

    void keyWithoutATransitionHasNoSpanAndItsHandleAtTheLeftEdge()
    {
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        AddKey(*row, 20, Transition(1, 5));
        QImage wanted = EmptyRow();
        PaintGlyph(wanted, 203, 0);
        PaintGlyph(wanted, 1, 2);
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void handlesInOnePlaceAreDrawnOnce()
    {
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        for (const int frame : {20, 25, 30})
            AddKey(*row, frame, Transition(1, 5));
        QImage wanted = EmptyRow();
        for (const int frame : {20, 25, 30})
            PaintGlyph(wanted, frame * 10 + 3, 0);
        PaintGlyph(wanted, 1, 2);
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void spanThatStartsLeftOfTheRowIsClampedToTheRowsLeftEdge()
    {
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        SceneAxis().scrollX = 100;
        AddKey(*row, 20, Transition(TL_KEY_TRANSITION_IN, 19));
        QImage wanted = EmptyRow();
        // The clamped end is moved to the centre of a cell like any other.
        PaintSpan(wanted, *row->StyleAs<LineKeyTrackStyle>(), 5, 105, false);
        PaintGlyph(wanted, 103, 0);
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void spanThatEndsRightOfTheRowIsClampedToItsWidth()
    {
        SceneAxis().frameCount = 400;
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        AddKey(*row, 20, Transition(TL_KEY_TRANSITION_OUT, 300));
        QImage wanted = EmptyRow();
        PaintSpan(wanted, *row->StyleAs<LineKeyTrackStyle>(), 205, 400, false);
        PaintGlyph(wanted, 203, 4);
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void spanOfAKeyLeftOfTheRowIsSkippedOnlyWhenItRunsIntoTheKey()
    {
        SceneAxis().scrollX = 100;
        const auto into = MakeTrack(TL_TRACK_TRANSITION_KEY);
        AddKey(*into, 5, Transition(TL_KEY_TRANSITION_IN, 3));
        QVERIFY(ShowRow(*into, kSize) == EmptyRow());

        const auto out = MakeTrack(TL_TRACK_TRANSITION_KEY);
        AddKey(*out, 5, Transition(TL_KEY_TRANSITION_OUT, 20));
        QImage wanted = EmptyRow();
        PaintSpan(wanted, *out->StyleAs<LineKeyTrackStyle>(), -45, 155, false);
        PaintGlyph(wanted, 151, 6);
        QCOMPARE(ShowRow(*out, kSize), wanted);
    }

    void spanThatEndsLeftOfTheRowLeavesNothingThere()
    {
        SceneAxis().scrollX = 200;
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        AddKey(*row, 5, Transition(TL_KEY_TRANSITION_OUT, 10));
        QVERIFY(ShowRow(*row, kSize) == EmptyRow());
    }

    void longTransitionsReachIntoTheViewFromAnywhere()
    {
        ResetAxis(1000000, 10.0, 5000000);
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        AddKey(*row, 3, Transition(TL_KEY_TRANSITION_OUT, 500010));
        AddKey(*row, 900000, Transition(TL_KEY_TRANSITION_IN, 400005));
        const QImage image = ShowRow(*row, kSize);
        const QRgb fill = row->StyleAs<LineKeyTrackStyle>()->line.fill[0].color().rgb();
        QCOMPARE(image.pixel(50, kSpanTop + 2), fill);
        QCOMPARE(image.pixel(300, kSpanTop + 2), fill);
    }

    void keyAtTheFrameCountIsSkipped()
    {
        SceneAxis().frameCount = 20;
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        AddKey(*row, 20, Transition(TL_KEY_TRANSITION_IN, 5));
        QVERIFY(ShowRow(*row, kSize) == EmptyRow());
    }

    void handleAtTheLastFrameIsNotDrawn()
    {
        SceneAxis().frameCount = 25;
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        AddKey(*row, 20, Transition(TL_KEY_TRANSITION_OUT, 5));
        QImage wanted = EmptyRow();
        PaintSpan(wanted, *row->StyleAs<LineKeyTrackStyle>(), 205, 255, false);
        PaintGlyph(wanted, 203, 4);
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void spanFollowsTheAlignment_data()
    {
        QTest::addColumn<int>("align");
        QTest::addColumn<int>("top");
        QTest::newRow("centred") << 0 << 12;
        QTest::newRow("top") << 1 << 0;
        QTest::newRow("bottom") << 2 << 24;
    }
    void spanFollowsTheAlignment()
    {
        QFETCH(int, align);
        QFETCH(int, top);
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        SetAlign(*row, align);
        AddKey(*row, 20, Transition(TL_KEY_TRANSITION_IN, 10));
        const QImage image = ShowRow(*row, kSize);
        QImage wanted = EmptyRow();
        PaintSpan(wanted, *row->StyleAs<LineKeyTrackStyle>(), 105, 205, false, top);
        QCOMPARE(image.copy(120, 0, 60, kHeight), wanted.copy(120, 0, 60, kHeight));
    }

    void groupTakesTheRelatedGlyphsAndTheOrdinarySpan()
    {
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        row->StyleAs<LineKeyTrackStyle>()->relatedKeyBmpType = -1; // glyph group 2: 7 x 7
        AddKey(*row, 20, [](CTimelineKey& key) {
            Transition(TL_KEY_TRANSITION_IN, 5)(key);
            Join(key);
        });
        const ImageTables& images = TimelineLibrary::Instance().images;
        QImage wanted = EmptyRow();
        PaintSpan(wanted, *row->StyleAs<LineKeyTrackStyle>(), 155, 205, false);
        QPainter painter(&wanted);
        const QPixmap& glyph = images.Glyph(2, 0);
        painter.drawPixmap(203, (kHeight - glyph.height()) / 2, glyph);
        painter.end();
        QCOMPARE(ShowRow(*row, kSize), wanted); // group 2 has no handle pictures
    }

    void selectedKeysArePaintedOverUnselectedOnes()
    {
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        AddKey(*row, 10, [](CTimelineKey& key) {
            Transition(TL_KEY_TRANSITION_OUT, 10)(key);
            key.selected = true;
        });
        AddKey(*row, 25, Transition(TL_KEY_TRANSITION_IN, 10));
        const auto* style = row->StyleAs<LineKeyTrackStyle>();
        QImage wanted = EmptyRow();
        PaintSpan(wanted, *style, 155, 255, false);
        PaintGlyph(wanted, 253, 0);
        PaintGlyph(wanted, 151, 2);
        PaintSpan(wanted, *style, 105, 205, true);
        PaintGlyph(wanted, 103, 5);
        PaintGlyph(wanted, 201, 7);
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    // --- Handle hit test

    void handleIsHitWithItsRightAndBottomEdge_data()
    {
        QTest::addColumn<QPoint>("point");
        QTest::addColumn<bool>("hit");
        const int top = (20 - 7) / 2;
        QTest::newRow("top left") << QPoint(151, top) << true;
        QTest::newRow("left of it") << QPoint(150, top) << false;
        QTest::newRow("above it") << QPoint(151, top - 1) << false;
        QTest::newRow("bottom right") << QPoint(158, top + 7) << true;
        QTest::newRow("right of it") << QPoint(159, top) << false;
        QTest::newRow("below it") << QPoint(151, top + 8) << false;
        QTest::newRow("on the key's glyph") << QPoint(203, top) << false;
    }
    void handleIsHitWithItsRightAndBottomEdge()
    {
        QFETCH(QPoint, point);
        QFETCH(bool, hit);
        CTimelineTrackTransKey track;
        track.Init(nullptr);
        QVERIFY(track.LoadStyle(1));
        AddKey(track, 20, Transition(TL_KEY_TRANSITION_IN, 5));
        QCOMPARE(track.HitTestHandle(point), hit ? 0 : -1);
    }

    void handlesOfSelectedKeysWinOverThoseOfUnselectedOnes()
    {
        CTimelineTrackTransKey track;
        track.Init(nullptr);
        QVERIFY(track.LoadStyle(1));
        AddKey(track, 10, [](CTimelineKey& key) {
            Transition(TL_KEY_TRANSITION_OUT, 5)(key);
            key.selected = true;
        });
        AddKey(track, 20, Transition(TL_KEY_TRANSITION_IN, 5));
        QCOMPARE(track.HitTestHandle(QPoint(154, 10)), 0);
        track.Keys().ClearAllSelection();
        QCOMPARE(track.HitTestHandle(QPoint(154, 10)), 1);
    }

    void handlesAreFoundAnyDistanceFromTheirKey()
    {
        ResetAxis(1000000, 10.0, 5000000);
        CTimelineTrackTransKey track;
        track.Init(nullptr);
        QVERIFY(track.LoadStyle(1));
        AddKey(track, 3, Transition(TL_KEY_TRANSITION_OUT, 500010));
        AddKey(track, 900000, Transition(TL_KEY_TRANSITION_IN, 399980));
        QCOMPARE(track.HitTestHandle(QPoint(134, 10)), 0);
        QCOMPARE(track.HitTestHandle(QPoint(204, 10)), 1);
        QCOMPARE(track.HitTestHandle(QPoint(170, 10)), -1);
    }

    void handleOfAKeyWithoutATransitionIsHitAtTheLeftEdge()
    {
        CTimelineTrackTransKey track;
        track.Init(nullptr);
        QVERIFY(track.LoadStyle(1));
        AddKey(track, 30, Transition(1, 5));
        QCOMPARE(track.HitTestHandle(QPoint(3, 10)), 0);
    }

    void rowWithoutAStyleHasNoHandles()
    {
        CTimelineTrackTransKey track;
        track.Init(nullptr);
        AddKey(track, 30, Transition(1, 5));
        QCOMPARE(track.HitTestHandle(QPoint(3, 10)), -1);
        const QImage image = ShowRow(track, kSize);
        QImage untouched(kSize, QImage::Format_RGB32);
        untouched.fill(Qt::magenta);
        QCOMPARE(image, untouched);
    }

    void handleIsHitWhereTheAlignmentPutsIt_data()
    {
        QTest::addColumn<int>("align");
        QTest::addColumn<int>("top");
        QTest::newRow("centred") << 0 << (20 - 7) / 2;
        QTest::newRow("top") << 1 << 0;
        QTest::newRow("bottom") << 2 << 20 - 7;
    }
    void handleIsHitWhereTheAlignmentPutsIt()
    {
        QFETCH(int, align);
        QFETCH(int, top);
        CTimelineTrackTransKey track;
        track.Init(nullptr);
        QVERIFY(track.LoadStyle(1));
        track.StyleAs<LineKeyTrackStyle>()->keyAlign = align;
        AddKey(track, 20, Transition(TL_KEY_TRANSITION_IN, 5));
        for (int y = 0; y < 30; ++y)
            QCOMPARE(track.HitTestHandle(QPoint(154, y)), top <= y && y <= top + 7 ? 0 : -1);
    }

    void handleOfAKeyInAGroupHasTheSizeOfTheGroupsGlyph()
    {
        CTimelineTrackTransKey track;
        track.Init(nullptr);
        QVERIFY(track.LoadStyle(1));
        // The glyphs of the key row, which have another size than those of the transition row.
        auto* style = track.StyleAs<LineKeyTrackStyle>();
        style->relatedKeyBmpType = style->keyBmpType - kTransitionGlyphs + kKeyGlyphs;
        const QSize grouped =
            TimelineLibrary::Instance().images.Glyph(style->keyBmpType + kKeyGlyphs, 0).size();
        const QSize single = TimelineLibrary::Instance()
                                 .images.Glyph(style->keyBmpType + kTransitionGlyphs, 0)
                                 .size();
        QVERIFY(grouped.height() > single.height());
        CTimelineKey& key = AddKey(track, 20, Transition(TL_KEY_TRANSITION_IN, 5));
        const QPoint above(154, (20 - grouped.height()) / 2);
        QCOMPARE(track.HitTestHandle(above), -1);
        Join(key);
        QCOMPARE(track.HitTestHandle(above), 0);
    }

    // --- Repaints

    void drawKeysResizesAndPaintsNothingItself()
    {
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        AddKey(*row, 20, Transition(TL_KEY_TRANSITION_IN, 5));
        QImage image(kSize, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        row->DrawKeys(&painter, image.rect());
        painter.end();
        QCOMPARE(row->size(), kSize);
        for (int x = 0; x < kWidth; ++x)
            QCOMPARE(QColor(image.pixel(x, 13)), QColor(Qt::magenta));
    }

    void paintsEndByThemselves_data()
    {
        QTest::addColumn<QRect>("hostRect");
        QTest::addColumn<QRect>("dirty");
        QTest::newRow("whole row") << QRect(0, 0, 500, 60) << QRect(0, 0, 500, 60);
        QTest::newRow("part of the row") << QRect(0, 0, 500, 60) << QRect(200, 20, 30, 20);
        QTest::newRow("row partly outside its parent")
            << QRect(0, 0, 300, 40) << QRect(100, 20, 30, 20);
    }
    void paintsEndByThemselves()
    {
        QFETCH(QRect, hostRect);
        QFETCH(QRect, dirty);
        RowHost host;
        CTimelineTrackTransKey track;
        track.Init(&host);
        QVERIFY(track.LoadStyle(1));
        AddKey(track, 20, Transition(TL_KEY_TRANSITION_IN, 5));
        host.row = &track;
        host.rowRect = QRect(60, 20, 440, 27);
        host.setGeometry(hostRect);
        track.setGeometry(host.rowRect);
        host.show();
        track.show();
        QVERIFY(QTest::qWaitForWindowExposed(&host));
        QTest::qWait(100);
        PaintCounter counter(track);
        host.paints = 0;
        host.update(dirty);
        QTest::qWait(200);
        QVERIFY2(host.paints >= 1 && host.paints <= 2, qPrintable(QString::number(host.paints)));
        QVERIFY(counter.paints >= 1);
        const int settled = host.paints;
        QTest::qWait(200);
        QCOMPARE(host.paints, settled);
        track.setParent(nullptr);
    }

    void partialPaintAsksForTheRestOfTheRowOnce()
    {
        RowHost host;
        CTimelineTrackTransKey track;
        track.Init(&host);
        QVERIFY(track.LoadStyle(1));
        host.row = &track;
        host.rowRect = QRect(0, 0, 440, 27);
        host.resize(500, 60);
        track.setGeometry(host.rowRect);
        host.show();
        track.show();
        QVERIFY(QTest::qWaitForWindowExposed(&host));
        QTest::qWait(100);
        host.paints = 0;
        host.update(QRect(10, 0, 5, 27));
        QTest::qWait(200);
        QCOMPARE(host.paints, 2);
        host.paints = 0;
        host.update();
        QTest::qWait(200);
        QCOMPARE(host.paints, 1);
        track.setParent(nullptr);
    }

    void resizedRowAsksForAPaint()
    {
        RowHost host;
        CTimelineTrackTransKey track;
        track.Init(&host);
        QVERIFY(track.LoadStyle(1));
        host.row = &track;
        host.rowRect = QRect(0, 0, 440, 27);
        host.resize(500, 60);
        track.setGeometry(QRect(0, 0, 100, 27));
        host.show();
        track.show();
        QVERIFY(QTest::qWaitForWindowExposed(&host));
        QTest::qWait(200);
        QCOMPARE(track.size(), QSize(440, 27));
        host.paints = 0;
        QTest::qWait(200);
        QCOMPARE(host.paints, 0);
        track.setParent(nullptr);
    }
};

QTEST_MAIN(tst_CTimelineTrackTransKey)
#include "tst_CTimelineTrackTransKey.moc"
