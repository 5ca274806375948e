#include "tracks/BarPainter.h"

#include <QtTest>

#include "tracks/RowScenes.h"

using namespace KestovaTest;

// What lies over what in a row, and which of its keys get a bar.

namespace {

constexpr int kHeight = 27;
const QSize kSize(400, kHeight);

QColor BorderOf(const CTimelineTrackBase& row)
{
    return (*BarStyleOf(row.GetTrackType(), row.GetStyle(), kHeight)->border)[0].color();
}

/// The pixels of the outline's left and right lines of a one-frame bar at frame 12.
QVector<QPoint> SideLines(const CTimelineTrackBase& row)
{
    const int height = BarStyleOf(row.GetTrackType(), row.GetStyle(), kHeight)->height;
    const int top = (kHeight - height) / 2;
    QVector<QPoint> points;
    for (int y = top; y < top + height; ++y)
        points << QPoint(120, y) << QPoint(129, y);
    return points;
}

void OneFrame(CTimelineKey& key)
{
    Bar(1)(key);
    key.displayLength = 0;
}

void AddKinds()
{
    QTest::addColumn<int>("type");
    QTest::newRow("key") << int(TL_TRACK_KEY);
    QTest::newRow("viseme") << int(TL_TRACK_VISEME_KEY);
    QTest::newRow("link") << int(TL_TRACK_LINK_KEY);
    QTest::newRow("transition") << int(TL_TRACK_TRANSITION_KEY);
}

const QPixmap& StartMarker()
{
    return TimelineLibrary::Instance().images.Picture(kRangeMarkerPictures, 0);
}

} // namespace

class tst_RowLayers : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(PrepareTimeline()); }
    void init()
    {
        ResetAxis(40, 10.0);
        UnrelateTracks();
    }

    void barsLieOverTheGlyphs_data() { AddKinds(); }
    void barsLieOverTheGlyphs()
    {
        QFETCH(int, type);
        const auto row = MakeTrack(type);
        const QImage empty = ShowRow(*row, kSize);
        // Both keys' glyphs reach over the sides of the bar.
        AddKey(*row, 11, Typical(*row));
        CTimelineKey& key = AddKey(*row, 12, Typical(*row, OneFrame));
        key.displayLength = 0;
        AddKey(*row, 13, Typical(*row));
        const QImage image = ShowRow(*row, kSize);
        key.hostSwitch = false;
        const QImage withoutBar = ShowRow(*row, kSize);

        int overGlyphs = 0;
        for (const QPoint point : SideLines(*row)) {
            QCOMPARE(QColor(image.pixel(point)), BorderOf(*row));
            if (withoutBar.pixel(point) != empty.pixel(point))
                ++overGlyphs;
        }
        QVERIFY(overGlyphs > 0);
    }

    void ownKeyWhosePlaceARelatedKeyTookStillHasItsBar_data() { AddKinds(); }
    void ownKeyWhosePlaceARelatedKeyTookStillHasItsBar()
    {
        QFETCH(int, type);
        const auto row = MakeTrack(type);
        AddKey(*row, 12, OneFrame).displayLength = 0;
        AddRelated(*row, 12, [](CTimelineKey& key) { key.priority = 1000; });
        const QImage image = ShowRow(*row, kSize);
        for (const QPoint point : SideLines(*row))
            QCOMPARE(QColor(image.pixel(point)), BorderOf(*row));
    }

    void relatedKeyWithALengthHasNoBar_data() { AddKinds(); }
    void relatedKeyWithALengthHasNoBar()
    {
        QFETCH(int, type);
        const auto row = MakeTrack(type);
        AddRelated(*row, 12);
        const QImage image = ShowRow(*row, kSize);
        row->Keys().RelatedRemoveAll();
        AddRelated(*row, 12, OneFrame);
        row->InvalidateCaches();
        QCOMPARE(ShowRow(*row, kSize), image);
        row->Keys().RelatedRemoveAll();
        AddKey(*row, 12, OneFrame).displayLength = 0;
        QVERIFY(ShowRow(*row, kSize) != image);
    }

    void relatedBarsLieOverTheKeysAndMarkersOverThem()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        row->StyleAs<TrackStyle>()->disabled = {1.0f, 0.0f, 1.0f, 1.0f};
        AddKey(*row, 10);
        AddKey(*row, 12);
        SetModes(*row, {TL_EDIT_TIME_RANGE});
        row->SetRange(10, 20);
        const QImage marked = ShowRow(*row, kSize);
        const auto source = MakeTrack(TL_TRACK_KEY);
        AddKey(*source, 5, Bar(20));
        RelateTracks(RelationTable::kClipBars, {source.get(), row.get()});
        const QImage image = ShowRow(*row, kSize);

        const QColor bar(255, 0, 255);
        QCOMPARE(QColor(image.pixel(125, kHeight / 2)), bar); // on the second key's glyph
        const QImage marker = StartMarker().toImage();
        int opaque = 0;
        for (int y = 0; y < std::min(marker.height(), kHeight); ++y) {
            for (int x = 0; x < marker.width(); ++x) {
                if (marker.pixelColor(x, y).alpha() != 255)
                    continue;
                QCOMPARE(image.pixel(100 + x, y), marked.pixel(100 + x, y));
                if (y > 7 && y < 20)
                    ++opaque;
            }
        }
        QVERIFY(opaque > 0);
    }

    void relatedBarsAreAsHighAsTheRowsKeyBars_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("barHeight");
        QTest::newRow("key") << int(TL_TRACK_KEY) << 7;
        QTest::newRow("transition") << int(TL_TRACK_TRANSITION_KEY) << 7;
        QTest::newRow("link") << int(TL_TRACK_LINK_KEY) << 9;
        QTest::newRow("viseme") << int(TL_TRACK_VISEME_KEY) << 7;
        QTest::newRow("clip") << int(TL_TRACK_CLIP) << 11;
        QTest::newRow("wave") << int(TL_TRACK_WAVE) << kHeight - 1;
    }
    void relatedBarsAreAsHighAsTheRowsKeyBars()
    {
        QFETCH(int, type);
        QFETCH(int, barHeight);
        const auto row = MakeTrack(type);
        if (auto* const key = row->StyleAs<KeyTrackStyle>())
            key->clipHeight = 7;
        if (auto* const link = row->StyleAs<LineKeyTrackStyle>())
            link->line.clipHeight = 9;
        if (auto* const clip = row->StyleAs<ClipTrackStyle>())
            clip->height = 11;
        row->StyleAs<TrackStyle>()->disabled = {1.0f, 0.0f, 1.0f, 1.0f};
        const auto source = MakeTrack(TL_TRACK_KEY);
        AddKey(*source, 5, Bar(20));
        RelateTracks(RelationTable::kClipBars, {source.get(), row.get()});
        const QImage image = ShowRow(*row, kSize);

        const int top = (kHeight - barHeight) / 2;
        for (int y = 0; y < kHeight; ++y) {
            const bool isInBar = y >= top && y < top + barHeight;
            QCOMPARE(QColor(image.pixel(125, y)) == QColor(255, 0, 255), isInBar);
        }
    }

    void currentFrameLineLiesOverTheMarkers()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        SetModes(*row, {TL_EDIT_TIME_RANGE});
        row->SetRange(10, 20);
        QVERIFY(StartMarker().toImage().pixelColor(0, 0).alpha() > 0);
        SceneAxis().currentFrame = 10;
        const QImage image = ShowRow(*row, kSize);
        const QColor line = TimelineLibrary::Instance().currentFrameLine;
        for (int y = 0; y < kHeight; ++y)
            QCOMPARE(QColor(image.pixel(100, y)), line);
    }

    void sharedRangeComesOnlyFromARelationOfItsKindAndOnlyToATarget()
    {
        const auto parent = MakeTrack(TL_TRACK_KEY);
        const auto source = MakeTrack(TL_TRACK_KEY);
        const auto target = MakeTrack(TL_TRACK_KEY);
        source->SetParentTrack(parent.get());
        target->SetParentTrack(parent.get());
        for (CTimelineTrackBase* track : {parent.get(), source.get(), target.get()})
            track->SetActive(true);
        const QImage empty = ShowRow(*target, kSize);
        source->SetRange(5, 9);
        for (const int kind : {1, 2, 3, 4}) {
            RelateTracks(kind, {source.get(), target.get()});
            QCOMPARE(ShowRow(*target, kSize), empty);
        }
        RelateTracks(0, {source.get(), target.get()});
        QVERIFY(ShowRow(*target, kSize) != empty);
        source->SetRange(-1, -1);
        target->SetRange(5, 9);
        QCOMPARE(ShowRow(*source, kSize), empty);
    }
};

QTEST_MAIN(tst_RowLayers)
#include "tst_RowLayers.moc"
