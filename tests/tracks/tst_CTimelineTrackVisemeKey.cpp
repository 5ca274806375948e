#include "support/PictureCheck.h"
#include "tracks/RowScenes.h"

#include <QtTest>

using namespace KestovaTest;

namespace {

const QSize kSize(400, 27);

const QPixmap& Shape(int index)
{
    return TimelineLibrary::Instance().images.Glyph(kVisemeGlyphs, index);
}

QImage EmptyRowWith(const QPixmap& glyph, QPoint corner)
{
    QImage image = ShowRow(*MakeTrack(TL_TRACK_VISEME_KEY), kSize);
    QPainter(&image).drawPixmap(corner, glyph);
    return image;
}

} // namespace

class tst_CTimelineTrackVisemeKey : public QObject
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
    void looksLikeItsPicture() { CompareScene(TL_TRACK_VISEME_KEY, "viseme"); }

    void looksLikeItsPictureWithAllShapes()
    {
        ResetAxis(100, 10.0);
        const auto row = MakeTrack(TL_TRACK_VISEME_KEY);
        for (int shape = 0; shape < 17; ++shape) {
            AddKey(*row, 1 + 3 * shape, [=](CTimelineKey& key) {
                key.hostValue6 = shape;
                key.selected = shape % 2 == 1;
            });
        }
        KESTOVA_COMPARE_PICTURE(ShowRow(*row, QSize(530, 27)), "tracks/viseme/all-shapes");
    }

    void looksLikeItsPictureWithClips()
    {
        const auto row = MakeTrack(TL_TRACK_VISEME_KEY);
        AddClip(*row, 2, 15, 2, {1, 6, 11}, [](CTimelineKey& clip) {
            clip.hostSwitch = true;
            clip.subKeys->GetAt(1)->hostValue6 = 7;
        });
        KESTOVA_COMPARE_PICTURE(ShowRow(*row, kSize), "tracks/viseme/clip");
    }

    void initMakesAVisemeRowOfTenPixels()
    {
        CTimelineTrackVisemeKey track;
        QVERIFY(track.Init(nullptr));
        QCOMPARE(track.GetTrackType(), int(TL_TRACK_VISEME_KEY));
        QCOMPARE(track.size(), QSize(10, 20));
        QCOMPARE(track.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed));
    }

    void glyphIsTheMouthShapeThatHostValue6Names_data()
    {
        QTest::addColumn<int>("shape");
        QTest::addColumn<bool>("selected");
        QTest::addColumn<int>("index");
        QTest::newRow("first") << 0 << false << 0;
        QTest::newRow("first, selected") << 0 << true << 1;
        QTest::newRow("fifth") << 4 << false << 8;
        QTest::newRow("last, selected") << 16 << true << 33;
    }
    void glyphIsTheMouthShapeThatHostValue6Names()
    {
        QFETCH(int, shape);
        QFETCH(bool, selected);
        QFETCH(int, index);
        const auto row = MakeTrack(TL_TRACK_VISEME_KEY);
        AddKey(*row, 10, [=](CTimelineKey& key) {
            key.hostValue6 = shape;
            key.selected = selected;
        });
        // 2 + trunc(100 + (10 - 25) / 2) = 2 + 92
        QCOMPARE(ShowRow(*row, kSize), EmptyRowWith(Shape(index), QPoint(94, 6)));
    }

    void shapeOutsideTheTableShowsNothing_data()
    {
        QTest::addColumn<int>("shape");
        QTest::newRow("one too many") << 17;
        QTest::newRow("negative") << -1;
        QTest::newRow("largest") << std::numeric_limits<int>::max();
        QTest::newRow("smallest") << std::numeric_limits<int>::min();
    }
    void shapeOutsideTheTableShowsNothing()
    {
        QFETCH(int, shape);
        const auto row = MakeTrack(TL_TRACK_VISEME_KEY);
        const QImage empty = ShowRow(*row, kSize);
        AddKey(*row, 10, [=](CTimelineKey& key) { key.hostValue6 = shape; });
        QVERIFY(ShowRow(*row, kSize) == empty);
    }

    void clipShowsItsSubKeysInsteadOfItself()
    {
        const auto row = MakeTrack(TL_TRACK_VISEME_KEY);
        AddClip(*row, 4, 10, 1, {6}, [](CTimelineKey& clip) {
            clip.hostValue6 = 3;
            clip.subKeys->GetAt(0)->hostValue6 = 5;
        });
        QCOMPARE(ShowRow(*row, kSize), EmptyRowWith(Shape(10), QPoint(94, 6)));
    }

    void subKeyBeyondTheDisplayLengthIsNeverDrawnEvenWithALargerLoopCount()
    {
        const auto row = MakeTrack(TL_TRACK_VISEME_KEY);
        AddClip(*row, 0, 8, 5, {2});
        AddKey(*row, 17, [](CTimelineKey& key) { key.hostValue6 = 40; }); // trims to frame 16
        QImage wanted = EmptyRowWith(Shape(0), QPoint(2 + 12, 6));
        QPainter(&wanted).drawPixmap(2 + 92, 6, Shape(0)); // frame 10; 18 and on are trimmed
        QCOMPARE(ShowRow(*row, kSize), wanted);
    }

    void subKeysOfASelectedClipAreSelectedOnlyWhereSubKeysAreEdited()
    {
        const auto row = MakeTrack(TL_TRACK_VISEME_KEY);
        AddClip(*row, 4, 10, 1, {6}, Select);
        QCOMPARE(ShowRow(*row, kSize), EmptyRowWith(Shape(0), QPoint(94, 6)));
        SetModes(*row, {TL_EDIT_SUB_KEYS});
        QCOMPARE(ShowRow(*row, kSize), EmptyRowWith(Shape(1), QPoint(94, 6)));
    }

    void barOfAClipLiesOverItsShapes()
    {
        const auto row = MakeTrack(TL_TRACK_VISEME_KEY);
        AddClip(*row, 9, 10, 1, {0}, [](CTimelineKey& clip) { clip.hostSwitch = true; });
        const QImage image = ShowRow(*row, kSize);
        // The shape covers the columns 84 to 108; the bar's left line stands at 90.
        QCOMPARE(image.pixel(90, 12), BarBorder(*row));
    }
};

QTEST_MAIN(tst_CTimelineTrackVisemeKey)
#include "tst_CTimelineTrackVisemeKey.moc"
