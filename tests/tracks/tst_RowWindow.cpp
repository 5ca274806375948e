#include "tracks/KeyHitTest.h"
#include "tracks/LinkPainter.h"
#include "tracks/LinkThinning.h"
#include "tracks/LinkWindow.h"
#include "tracks/RowScenes.h"
#include "tracks/TransitionPainter.h"
#include "tracks/TransitionWindow.h"

#include <QtTest>

#include <map>
#include <random>

using namespace KestovaTest;

// Rows are painted from the keys in view, found by searching. These tests paint thousands of random
// rows from all of their keys as well, and in parts, and want the same pixels.

namespace {

constexpr int kHeight = 27;
const QSize kSize(240, kHeight);

class Random
{
public:
    explicit Random(unsigned int seed) : m_engine(seed) {}
    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_engine); }
    int From(int lowest, int highest)
    {
        return std::uniform_int_distribution<int>(lowest, highest)(m_engine);
    }
    bool OneIn(int n) { return Below(n) == 0; }

private:
    std::mt19937 m_engine;
};

void FillKey(Random& random, CTimelineKey& key)
{
    key.selected = random.OneIn(4);
    key.keyType = random.From(1, 4);
    const int masks[] = {1, 1 | 4, 16, 32, 16 | 32, 16, 32, 1 | 8};
    key.kindMask = masks[random.Below(8)];
    key.transitionFrames = random.OneIn(10) ? random.Below(2000) : random.Below(30);
    key.alternateStyle = random.OneIn(5);
    key.priority = 100 + random.Below(4);
    key.hostSwitch = !random.OneIn(4);
    key.hostValue6 = random.Below(17);
    if (random.OneIn(5))
        key.group = new GroupToken;
    if (random.OneIn(12)) {
        key.kindMask |= TL_KEY_SEGMENTS;
        const int left = random.From(-60, 60);
        key.segments.push_back(
            {0.9f, 0.1f, 0.4f, random.OneIn(2) ? 1.0f : 0.5f, {{left, 0, left + 9, 3}}});
    }
}

using RowsByType = std::map<int, std::unique_ptr<CTimelineTrackBase>>;

RowsByType& Rows()
{
    static RowsByType rows;
    return rows;
}

/// A row with random keys, bars, clips with sub-keys and related keys, on a random axis.
/// The tracks are made once for each kind, since reading the skin takes long.
CTimelineTrackBase* RandomRow(Random& random, int type)
{
    std::unique_ptr<CTimelineTrackBase>& made = Rows()[type];
    if (!made)
        made = MakeTrack(type);
    CTimelineTrackBase* const row = made.get();
    row->Keys().RemoveAll();
    SetModes(*row, {});
    row->SetRange(-1, -1);
    FrameAxis& axis = ResetAxis(random.OneIn(3) ? random.Below(600) : 1500);
    const double scales[] = {10, 7, 5, 3, 2, 1.5, 0.6, 0.3, 0.11};
    axis.info = CFrameInfo(scales[random.Below(9)]);
    const int span = axis.SpanToPixel(axis.frameCount);
    axis.scrollX = random.Below(std::max(span - 100, 0) + 150);

    const int density = random.OneIn(2) ? 1500 : 400;
    const int count = random.Below(300);
    const bool clips = random.OneIn(3);
    // Sub-keys inside their pass, of keys that show them only in view.
    const bool tidy = random.OneIn(2);
    CTimelineKeyArray::KeyVector keys;
    for (int i = 0; i < count; ++i) {
        keys.push_back(NewKey(random.Below(density), [&](CTimelineKey& key) {
            FillKey(random, key);
            if (random.OneIn(5)) {
                key.clipLength = random.From(1, 40);
                key.loopCount = random.From(0, 4);
            }
            if (clips && random.OneIn(6)) {
                if (tidy)
                    key.keyType = random.OneIn(2) ? 1 : 3;
                key.subKeys = new CTimelineKeyArray;
                const int subKeys = random.Below(6);
                for (int sub = 0; sub < subKeys; ++sub) {
                    key.subKeys->Add(NewKey(!tidy && random.OneIn(8)
                                                ? random.From(-5, 60)
                                                : random.Below(std::max(key.clipLength, 1)),
                                            [&](CTimelineKey& each) { FillKey(random, each); }),
                                     false);
                }
            }
        }));
    }
    row->Keys().AddKeys(keys, false);
    if (random.OneIn(2)) {
        const int related = random.Below(120);
        for (int i = 0; i < related; ++i) {
            AddRelated(*row, random.Below(density),
                       [&](CTimelineKey& key) { FillKey(random, key); });
        }
    }
    if (random.OneIn(3))
        SetModes(*row, {TL_EDIT_SUB_KEYS, TL_EDIT_TIME_RANGE});
    if (random.OneIn(2))
        row->SetRange(random.From(-1, 500), random.From(-1, 500));
    axis.currentFrame = random.From(-1, 1500);
    if (random.OneIn(20) && row->Keys().GetSize() > 0) {
        // A host wrote a frame in place: the keys are out of order.
        row->Keys().GetAt(random.Below(static_cast<int>(row->Keys().GetSize())))->frame = 77;
    }
    row->resize(kSize);
    row->InvalidateCaches();
    row->Facts();
    // Which keys are selected changes without the track being told.
    if (random.OneIn(2)) {
        const int first = random.Below(density);
        row->Keys().SetSelection(first, first + random.Below(400), random.OneIn(2),
                                 TL_KEY_ANY_KIND);
    }
    return row;
}

/// The keys of a row painted from the list of all of them, as CollectDisplayKeys gives it.
void PaintAllKeys(CTimelineTrackBase& row, QPainter& painter)
{
    const FrameAxis& axis = SceneAxis();
    const RowView view(QRect(QPoint(), kSize), axis, 0, kSize.width() - 1);
    CTimelineKeyArray::KeyVector counted;
    row.CollectDisplayKeys(counted);
    DisplayKeyList list;
    for (const auto& key : counted)
        list.emplace_back(key.Get());

    const auto glyphs = GlyphStyleOf(row.GetTrackType(), row.GetStyle());
    switch (row.GetTrackType()) {
    case TL_TRACK_LINK_KEY:
        ThinLinkKeys(list);
        LinkPainter(painter, view, *row.StyleAs<LineKeyTrackStyle>()).Draw(list);
        break;
    case TL_TRACK_TRANSITION_KEY:
        TransitionPainter(painter, view, *row.StyleAs<LineKeyTrackStyle>()).Draw(list);
        break;
    default:
        GlyphPainter(painter, view, *glyphs).DrawList(list);
    }
    KeyFacts walkAll; // not searchable: every key is looked at
    DrawKeyBars(painter, view, *BarStyleOf(row.GetTrackType(), row.GetStyle(), kHeight), row.Keys(),
                walkAll);
}

/// The keys of a row painted as rows paint them.
void PaintKeysInView(CTimelineTrackBase& row, QPainter& painter)
{
    if (row.GetTrackType() == TL_TRACK_TRANSITION_KEY)
        row.render(&painter, QPoint(), QRegion(), QWidget::RenderFlags());
    else
        row.DrawKeys(&painter, QRect(QPoint(), kSize));
}

template <class Paint>
QImage KeysPicture(CTimelineTrackBase& row, Paint paint)
{
    QImage image(kSize, QImage::Format_RGB32);
    image.fill(QColor(40, 44, 50));
    QPainter painter(&image);
    paint(row, painter);
    painter.end();
    return image;
}

/// The keys that a row takes into its painting, as wide as the pictures.
DisplayKeyList CollectInView(CTimelineTrackBase& row)
{
    const FrameAxis& axis = SceneAxis();
    const RowView view(QRect(QPoint(), kSize), axis, 0, kSize.width() - 1);
    const DisplayScope scope{axis.PixelToFrame(0), axis.PixelToFrame(kSize.width()),
                             axis.frameCount, false};
    const KeyFacts& facts = row.Facts();
    const auto* lines = row.StyleAs<LineKeyTrackStyle>();
    if (row.GetTrackType() == TL_TRACK_LINK_KEY)
        return CollectLinkWindow(row.Keys(), facts, scope, view, *lines);
    if (row.GetTrackType() == TL_TRACK_TRANSITION_KEY)
        return CollectTransitionWindow(row.Keys(), facts, scope, view, *lines);
    const auto style = GlyphStyleOf(row.GetTrackType(), row.GetStyle());
    return CollectWindow(row.Keys(), facts, scope, GlyphPainter::Window(view, *style, facts));
}

void AddKinds()
{
    QTest::addColumn<int>("type");
    QTest::newRow("key") << int(TL_TRACK_KEY);
    QTest::newRow("viseme") << int(TL_TRACK_VISEME_KEY);
    QTest::newRow("link") << int(TL_TRACK_LINK_KEY);
    QTest::newRow("transition") << int(TL_TRACK_TRANSITION_KEY);
}

/// Empty when the pictures are the same; else writes both and says where they lie.
QByteArray Difference(const QImage& got, const QImage& wanted, unsigned int seed)
{
    if (got == wanted)
        return {};
    const QString stem = QStringLiteral(KESTOVA_BINARY_DIR "/pictures/row-window-");
    QDir().mkpath(KESTOVA_BINARY_DIR "/pictures");
    got.save(stem + "got.png");
    wanted.save(stem + "wanted.png");
    return QStringLiteral("seed %1, see %2got.png and %2wanted.png").arg(seed).arg(stem).toUtf8();
}

/// The index of the last sub-key in the clip's drawn length that is hit; -1 without one.
int LastSubKeyHit(const KeyHitTest& hitTest, const CTimelineKey& clip, QPoint point)
{
    int last = -1;
    int index = 0;
    for (const auto& subKey : clip.subKeys->Keys()) {
        const long long frame = 1LL * clip.frame + subKey->frame;
        if (subKey->frame <= clip.displayLength &&
            hitTest.Hits(*subKey, frame, point, KeyHitTest::kMargin))
            last = index;
        ++index;
    }
    return last;
}

} // namespace

class tst_RowWindow : public QObject
{
    Q_OBJECT

    static constexpr unsigned int kRows = 100;

private slots:
    void initTestCase() { QVERIFY(PrepareTimeline()); }
    void init() { UnrelateTracks(); }
    void cleanupTestCase() { Rows().clear(); }

    void rowPaintedFromTheKeysInViewLooksAsPaintedFromAllKeys_data() { AddKinds(); }
    void rowPaintedFromTheKeysInViewLooksAsPaintedFromAllKeys()
    {
        QFETCH(int, type);
        for (unsigned int seed = 1; seed <= kRows; ++seed) {
            Random random(seed);
            CTimelineTrackBase* const row = RandomRow(random, type);
            for (int view = 0; view < 8; ++view) {
                const QImage wanted = KeysPicture(*row, PaintAllKeys);
                const QImage got = KeysPicture(*row, PaintKeysInView);
                const QByteArray difference = Difference(got, wanted, seed);
                QVERIFY2(difference.isEmpty(), difference);
                SceneAxis().scrollX = random.Below(SceneAxis().SpanToPixel(1500));
            }
        }
    }

    void repaintOfAFewColumnsGivesThePixelsOfAWholePaint_data() { AddKinds(); }
    void repaintOfAFewColumnsGivesThePixelsOfAWholePaint()
    {
        QFETCH(int, type);
        for (unsigned int seed = 1001; seed <= 1000 + kRows; ++seed) {
            Random random(seed);
            CTimelineTrackBase* const row = RandomRow(random, type);
            const QImage whole = ShowRow(*row, kSize);
            for (int part = 0; part < 10; ++part) {
                const int left = random.Below(kSize.width());
                const QRect columns(left, 0, random.From(1, 30), kHeight);
                QImage wanted(kSize, QImage::Format_RGB32);
                wanted.fill(Qt::magenta);
                QPainter painter(&wanted);
                painter.drawImage(columns.topLeft(), whole, columns);
                painter.end();
                const QImage got = ShowRow(*row, kSize, columns);
                const QByteArray difference = Difference(got, wanted, seed);
                QVERIFY2(difference.isEmpty(), difference);
            }
        }
    }

    void wildestValuesLookTheSameFromTheKeysInView_data() { AddKinds(); }
    void wildestValuesLookTheSameFromTheKeysInView()
    {
        QFETCH(int, type);
        const int lowest = std::numeric_limits<int>::min();
        const int highest = std::numeric_limits<int>::max();
        const int wild[] = {lowest, lowest + 1, -1, 0, 1, highest - 1, highest};
        for (unsigned int seed = 1; seed <= kRows; ++seed) {
            Random random(seed);
            CTimelineTrackBase* const row = RandomRow(random, type);
            const auto any = [&] { return wild[random.Below(7)]; };
            for (int i = 0; i < 5; ++i) {
                AddKey(*row, any(), [&](CTimelineKey& key) {
                    FillKey(random, key);
                    key.clipLength = any();
                    key.loopCount = random.Below(3);
                    key.transitionFrames = any();
                    key.hostValue6 = any();
                    key.priority = any();
                    key.kindMask |= TL_KEY_SEGMENTS;
                    key.segments.push_back({1, 0, 0, 1, {{any(), any(), any(), any()}}});
                    if (random.OneIn(3)) {
                        key.subKeys = new CTimelineKeyArray;
                        key.subKeys->Add(NewKey(any()), false);
                    }
                }).displayLength = any();
            }
            row->InvalidateCaches();
            const QImage wanted = KeysPicture(*row, PaintAllKeys);
            const QImage got = KeysPicture(*row, PaintKeysInView);
            const QByteArray difference = Difference(got, wanted, seed);
            QVERIFY2(difference.isEmpty(), difference);
            const QPoint point(random.Below(kSize.width()), random.Below(kHeight));
            row->HitTestKey(point);
            row->HitTestSubKey(point, 0);
        }
    }

    void wildestHeightsOfASkinPaint()
    {
        CTimelineTrackLinkKey link;
        CTimelineTrackTransKey transition;
        for (CTimelineTrackBase* row : {static_cast<CTimelineTrackBase*>(&link),
                                        static_cast<CTimelineTrackBase*>(&transition)}) {
            row->Init(nullptr);
            QVERIFY(row->LoadStyle(1));
            ResetAxis(100, 10.0);
            AddKey(*row, 5, [](CTimelineKey& key) {
                key.keyType = TL_KEY_LINK_START;
                key.kindMask = TL_KEY_TRANSITION_OUT;
                key.transitionFrames = 10;
                Bar(5)(key);
            });
            auto& style = *row->StyleAs<LineKeyTrackStyle>();
            style.line.lineHeight = style.line.clipHeight = style.clipHeight =
                std::numeric_limits<int>::max();
            const QImage image = ShowRow(*row, kSize);
            QCOMPARE(image.pixel(90, 13), style.line.fill[0].color().rgb());
        }
    }

    void relatedBarsInViewLookAsAllOfThem()
    {
        for (unsigned int seed = 1; seed <= kRows; ++seed) {
            Random random(seed);
            CTimelineTrackBase* const source = RandomRow(random, TL_TRACK_KEY);
            const RowView view(QRect(QPoint(), kSize), SceneAxis(), 0, kSize.width() - 1);
            const RelatedBarColours colours{QColor(90, 90, 200, 90), QColor(200, 90, 90, 90)};
            const auto paintWith = [&](const KeyFacts& facts) {
                QImage image(kSize, QImage::Format_RGB32);
                image.fill(Qt::black);
                QPainter painter(&image);
                DrawRelatedBars(painter, view, 14, colours, source->Keys(), facts);
                painter.end();
                return image;
            };
            QVERIFY2(paintWith(source->Facts()) == paintWith(KeyFacts()), QByteArray::number(seed));
        }
    }

    void keysUnderThePointerAreTheSameWhenSearched_data() { AddKinds(); }
    void keysUnderThePointerAreTheSameWhenSearched()
    {
        QFETCH(int, type);
        for (unsigned int seed = 1; seed <= kRows; ++seed) {
            Random random(seed);
            CTimelineTrackBase* const row = RandomRow(random, type);
            const KeyHitTest hitTest(SceneAxis(), type, row->GetStyle(), row->GetRowHeight());
            for (int x = -20; x < kSize.width() + 20; x += 3) {
                const QPoint point(x, random.Below(kHeight));
                QCOMPARE(hitTest.FindKey(row->Keys(), row->Facts(), point),
                         hitTest.FindKey(row->Keys(), KeyFacts(), point));
            }
        }
    }

    void subKeysUnderThePointerAreTheLastThatAreHit_data() { AddKinds(); }
    void subKeysUnderThePointerAreTheLastThatAreHit()
    {
        QFETCH(int, type);
        int found = 0;
        for (unsigned int seed = 1; seed <= kRows; ++seed) {
            Random random(seed);
            CTimelineTrackBase* const row = RandomRow(random, type);
            const KeyHitTest hitTest(SceneAxis(), type, row->GetStyle(), row->GetRowHeight());
            for (const auto& clip : row->Keys().Keys()) {
                if (!clip->subKeys)
                    continue;
                for (int x = -20; x < kSize.width() + 20; x += 3) {
                    const QPoint point(x, random.Below(kHeight));
                    const int hit = hitTest.FindSubKey(*clip, point);
                    QCOMPARE(hit, LastSubKeyHit(hitTest, *clip, point));
                    found += hit >= 0 ? 1 : 0;
                }
            }
        }
        QVERIFY(found > 0);
    }

    void handlesUnderThePointerAreTheSameWhenSearched()
    {
        for (unsigned int seed = 1; seed <= kRows; ++seed) {
            Random random(seed);
            CTimelineTrackBase* const row = RandomRow(random, TL_TRACK_TRANSITION_KEY);
            const auto style = GlyphStyleOf(TL_TRACK_TRANSITION_KEY, row->GetStyle());
            const TransitionHandles handles(SceneAxis(), *style, kHeight);
            for (int x = -20; x < kSize.width() + 20; x += 3) {
                const QPoint point(x, random.Below(kHeight));
                QCOMPARE(handles.Find(row->Keys(), row->Facts(), point),
                         handles.Find(row->Keys(), KeyFacts(), point));
            }
        }
    }

    void onlyTheKeysInViewAreCollected_data() { AddKinds(); }
    void onlyTheKeysInViewAreCollected()
    {
        QFETCH(int, type);
        const auto row = MakeTrack(type);
        ResetAxis(1000000, 10.0, 4000000);
        std::vector<std::size_t> sizes;
        for (const int count : {2000, 200000}) {
            row->Keys().RemoveAll();
            CTimelineKeyArray::KeyVector keys;
            // The same keys in view, many more out of it.
            const int first = 400000 - count / 4;
            for (int i = 0; i < count; ++i)
                keys.push_back(NewKey(first + i / 2, [](CTimelineKey& key) {
                    key.kindMask = 16;
                    key.transitionFrames = 3;
                }));
            row->Keys().AddKeys(keys, false);
            AddRelated(*row, 300000);
            AddRelated(*row, 400005);
            QVERIFY(row->Facts().searchable);
            sizes.push_back(CollectInView(*row).size());
        }
        QCOMPARE(sizes[0], sizes[1]);
        QVERIFY(sizes[0] < 150);
    }

    void oneClipWithSubKeysLeavesOnlyTheKeysInViewToCollect_data() { AddKinds(); }
    void oneClipWithSubKeysLeavesOnlyTheKeysInViewToCollect()
    {
        QFETCH(int, type);
        const auto row = MakeTrack(type);
        ResetAxis(1000000, 10.0, 4000000);
        CTimelineKeyArray::KeyVector keys;
        for (int i = 0; i < 20000; ++i)
            keys.push_back(NewKey(390000 + i));
        row->Keys().AddKeys(keys, false);
        AddClip(*row, 10, 40, 2, {3, 20});
        row->InvalidateCaches();
        QVERIFY(CollectInView(*row).size() < 100);
    }

    void oneSubKeyOutOfItsPassLeavesOnlyTheKeysInViewToCollect_data()
    {
        QTest::addColumn<int>("frame");
        QTest::newRow("in front of its clip") << -1;
        QTest::newRow("at the end of its pass") << 40;
        QTest::newRow("beyond its pass") << 55;
    }
    void oneSubKeyOutOfItsPassLeavesOnlyTheKeysInViewToCollect()
    {
        QFETCH(int, frame);
        const auto row = MakeTrack(TL_TRACK_KEY);
        ResetAxis(1000000, 10.0, 4000000);
        CTimelineKeyArray::KeyVector keys;
        for (int i = 0; i < 20000; ++i)
            keys.push_back(NewKey(390000 + i));
        row->Keys().AddKeys(keys, false);
        AddClip(*row, 10, 40, 2, {3, frame});
        row->InvalidateCaches();
        QVERIFY(CollectInView(*row).size() < 100);
    }

    void handlesAtTheLeftEdgeFollowTheSelection_data()
    {
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("last");
        QTest::addColumn<bool>("selected");
        QTest::addColumn<bool>("unselected");
        QTest::newRow("none selected") << 0 << 0 << false << true;
        QTest::newRow("one out of view selected") << 500 << 500 << true << true;
        QTest::newRow("the last one selected") << 900 << 900 << true << true;
        QTest::newRow("all selected") << 0 << 900 << true << false;
    }
    void handlesAtTheLeftEdgeFollowTheSelection()
    {
        QFETCH(int, first);
        QFETCH(int, last);
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        ResetAxis(1000, 10.0);
        row->resize(kSize);
        for (const int frame : {20, 500, 900})
            AddKey(*row, frame);
        CollectInView(*row);
        // The number of keys stays, and nobody tells the track.
        row->Keys().SetSelection(first, last, true, TL_KEY_ANY_KIND);
        const DisplayKeyList list = CollectInView(*row);
        const auto holds = [&list](bool selected) {
            return std::any_of(list.begin(), list.end(), [selected](const DisplayKey& key) {
                return key.selected == selected;
            });
        };
        QTEST(holds(true), "selected");
        QTEST(holds(false), "unselected");
        QCOMPARE(KeysPicture(*row, PaintKeysInView), KeysPicture(*row, PaintAllKeys));
    }

    void handlesAtTheLeftEdgeAreFoundWhenTheSelectionListIsOutOfStep()
    {
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        ResetAxis(1000, 10.0);
        row->resize(kSize);
        for (const int frame : {20, 400, 500, 900})
            AddKey(*row, frame);
        row->Keys().SetSelection(500, 500, true, TL_KEY_ANY_KIND);
        row->Keys().RemoveAt(1);
        QCOMPARE(row->Keys().SelGetAt(0), 2);
        const QImage picture = KeysPicture(*row, PaintKeysInView);
        QCOMPARE(picture, KeysPicture(*row, PaintAllKeys));
        row->Keys().ClearAllSelection();
        row->Keys().GetAt(1)->selected = false;
        QVERIFY(picture != KeysPicture(*row, PaintAllKeys));
    }

    void handlesAtTheLeftEdgeFollowASelectionThatTheListMisses_data()
    {
        QTest::addColumn<bool>("clears");
        QTest::newRow("another key is selected afterwards") << false;
        QTest::newRow("all selection is cleared afterwards") << true;
    }
    void handlesAtTheLeftEdgeFollowASelectionThatTheListMisses()
    {
        QFETCH(const bool, clears);
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        ResetAxis(1000, 10.0);
        row->resize(kSize);
        for (const int frame : {20, 400, 500})
            AddKey(*row, frame);
        AddKey(*row, 900, [](CTimelineKey& key) { key.kindMask = TL_KEY_TRANSITION_IN; });
        row->Keys().SetSelectionByIndex(1, 1, true, TL_KEY_ANY_KIND);
        const QImage before = KeysPicture(*row, PaintKeysInView);
        row->Keys().RemoveAt(0);
        if (clears)
            row->Keys().ClearAllSelection();
        else
            row->Keys().SetSelectionByIndex(2, 2, true, TL_KEY_ANY_KIND);
        QVERIFY(row->Keys().GetAt(0)->selected);
        QCOMPARE(KeysPicture(*row, PaintKeysInView), KeysPicture(*row, PaintAllKeys));
        // Without a change of their number the keys are looked at again, too.
        row->Keys().SetSelection(0, 1000, false, TL_KEY_ANY_KIND);
        QVERIFY(before != KeysPicture(*row, PaintKeysInView));
        QCOMPARE(KeysPicture(*row, PaintKeysInView), KeysPicture(*row, PaintAllKeys));
    }

    void handlesAtTheLeftEdgeAreThoseOfRelatedKeysThatAreDrawn()
    {
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        ResetAxis(1000, 10.0);
        row->resize(kSize);
        AddKey(*row, 500);
        AddKey(*row, 700, [](CTimelineKey& key) { key.kindMask = TL_KEY_TRANSITION_IN; });
        AddRelated(*row, 500, [](CTimelineKey& key) {
            key.priority = 1000;
            key.selected = true;
        });
        AddRelated(*row, 700, [](CTimelineKey& key) {
            key.priority = -1;
            key.selected = true;
        });
        const DisplayKeyList list = CollectInView(*row);
        QCOMPARE(list.size(), std::size_t(1));
        QCOMPARE(list.front().frame, 500);
        QVERIFY(list.front().selected);
        QCOMPARE(KeysPicture(*row, PaintKeysInView), KeysPicture(*row, PaintAllKeys));
    }

    void repaintOfTheLeftEdgeShowsTheHandlesOfSubKeysInView()
    {
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        ResetAxis(1000, 10.0);
        AddClip(*row, 10, 10, 1, {8});
        const QRect edge(0, 0, 8, kHeight);
        QCOMPARE(ShowRow(*row, kSize, edge).copy(edge), ShowRow(*row, kSize).copy(edge));
        const QImage with = ShowRow(*row, kSize);
        row->Keys().RemoveAll();
        QVERIFY(with.copy(edge) != ShowRow(*row, kSize).copy(edge));
    }

    void subKeyInFrontOfItsClipShowsWhereverTheClipIs()
    {
        const auto row = MakeTrack(TL_TRACK_KEY);
        ResetAxis(1000, 10.0);
        AddClip(*row, 500, 20, 1, {-490, 3}, [](CTimelineKey& clip) { clip.keyType = 2; });
        row->resize(kSize);
        const QImage picture = KeysPicture(*row, PaintKeysInView);
        QCOMPARE(picture, KeysPicture(*row, PaintAllKeys));
        row->Keys().RemoveAll();
        QVERIFY(picture != KeysPicture(*row, PaintKeysInView));
    }

    void clipWithoutALengthRepeatsItsSubKeysAsOftenAsItLoops_data()
    {
        QTest::addColumn<int>("loopCount");
        QTest::addColumn<int>("copies");
        QTest::newRow("no pass") << 0 << 0;
        QTest::newRow("one") << 1 << 1;
        QTest::newRow("three") << 3 << 3;
        QTest::newRow("endless") << std::numeric_limits<int>::max() << 1000;
    }
    void clipWithoutALengthRepeatsItsSubKeysAsOftenAsItLoops()
    {
        QFETCH(int, loopCount);
        const auto row = MakeTrack(TL_TRACK_KEY);
        ResetAxis(1000, 10.0);
        row->resize(kSize);
        AddClip(*row, 5, 0, loopCount, {0});
        CTimelineKeyArray::KeyVector list;
        row->CollectDisplayKeys(list);
        QTEST(static_cast<int>(list.size()), "copies");
        QCOMPARE(KeysPicture(*row, PaintKeysInView), KeysPicture(*row, PaintAllKeys));
    }

    void factsAreGatheredOnceUntilKeysComeOrGoOrTheTrackIsTold()
    {
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        ResetAxis(1000, 10.0);
        CTimelineKey& key = AddKey(*row, 5, [](CTimelineKey& each) {
            each.kindMask = 16;
            each.transitionFrames = 7;
        });
        QCOMPARE(row->Facts().longestTransition, 7LL);
        key.transitionFrames = 30;
        QCOMPARE(row->Facts().longestTransition, 7LL);
        row->InvalidateCaches();
        QCOMPARE(row->Facts().longestTransition, 30LL);
        key.transitionFrames = 40;
        AddKey(*row, 6);
        QCOMPARE(row->Facts().longestTransition, 40LL);
        row->Keys().RemoveAt(0);
        QCOMPARE(row->Facts().longestTransition, 0LL);
    }

    void longestTransitionGrowsWithWhatPaintingSees()
    {
        const auto row = MakeTrack(TL_TRACK_TRANSITION_KEY);
        ResetAxis(1000, 10.0);
        CTimelineKey& key = AddKey(*row, 5, [](CTimelineKey& each) {
            each.kindMask = 32;
            each.transitionFrames = 7;
        });
        ShowRow(*row, kSize);
        key.transitionFrames = 400;
        ShowRow(*row, kSize);
        QCOMPARE(row->Facts().longestTransition, 400LL);
    }

    void keysOutOfOrderAreAllWalked_data()
    {
        QTest::addColumn<int>("which");
        QTest::addColumn<bool>("searchable");
        QTest::addColumn<bool>("subKeysInOrder");
        QTest::newRow("in order") << 0 << true << true;
        QTest::newRow("own keys out of order") << 1 << false << true;
        QTest::newRow("related keys out of order") << 2 << false << true;
        QTest::newRow("clip beyond the next key") << 3 << false << true;
        QTest::newRow("sub-keys out of order") << 4 << true << false;
        QTest::newRow("sub-key in front of its clip") << 5 << true << true;
        QTest::newRow("sub-key at the end of its pass") << 6 << true << true;
        QTest::newRow("passes that overlap") << 7 << true << false;
        QTest::newRow("sub-key drawn in front of an earlier key") << 8 << true << false;
        QTest::newRow("clip that lost its length in place") << 9 << false << true;
    }
    void keysOutOfOrderAreAllWalked()
    {
        QFETCH(int, which);
        CTimelineKeyArray keys;
        keys.IncrementReferences();
        const auto clip = NewKey(10, [](CTimelineKey& key) {
            key.clipLength = 10;
            key.loopCount = 2;
            key.subKeys = new CTimelineKeyArray;
        });
        clip->subKeys->Add(NewKey(2), false);
        clip->subKeys->Add(NewKey(5), false);
        keys.Add(clip, false);
        keys.Add(NewKey(50), false);
        keys.Add(NewKey(60), false);
        keys.RelatedAdd(NewKey(20).Get(), false);
        keys.RelatedAdd(NewKey(30).Get(), false);
        switch (which) {
        case 1:
            keys.GetAt(2)->frame = 40;
            break;
        case 2:
            keys.RelatedGetAt(0)->frame = 31;
            break;
        case 3:
            keys.GetAt(1)->frame = 30;
            break;
        case 4:
            clip->subKeys->GetAt(0)->frame = 6;
            break;
        case 5:
            clip->subKeys->GetAt(0)->frame = -1;
            break;
        case 6:
            clip->subKeys->GetAt(1)->frame = 10;
            break;
        case 7:
            clip->subKeys->GetAt(1)->frame = 13;
            break;
        case 8:
            keys.Add(NewKey(8), false);
            clip->keyType = 2;
            clip->subKeys->GetAt(0)->frame = -3;
            break;
        case 9:
            keys.GetAt(1)->frame = 30;
            clip->clipLength = 0;
            clip->loopCount = 1;
            break;
        default:
            break;
        }
        const KeyFacts facts = GatherFacts(keys, TL_TRACK_KEY, 100);
        QTEST(facts.searchable, "searchable");
        QTEST(facts.subKeysInOrder, "subKeysInOrder");
    }
};

QTEST_MAIN(tst_RowWindow)
#include "tst_RowWindow.moc"
