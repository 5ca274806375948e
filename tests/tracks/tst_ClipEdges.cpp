#include "tracks/ClipEdges.h"

#include "ClipBuilder.h"
#include "TimelineEnums.h"
#include "axis/FrameAxis.h"
#include "tracks/KeyFacts.h"

#include <QElapsedTimer>
#include <QtTest>

#include <random>

using KestovaTest::MakeClip;

namespace {

constexpr int kRowHeight = 20;
constexpr int kClipHeight = 13; // bar from y 3 to y 15
constexpr int kBarTop = 3;
constexpr int kBarBottom = 15;
constexpr int kMiddle = 9;

FrameAxis MakeAxis(int frameCount, double scale, int scrollX = 0)
{
    FrameAxis axis;
    axis.frameCount = frameCount;
    axis.scrollX = scrollX;
    axis.info = CFrameInfo(scale);
    return axis;
}

struct GatheredFacts
{
    KeyFacts facts;
};

/// The edges of a row that has just looked at its keys.
class RowEdges : private GatheredFacts, public ClipEdges
{
public:
    RowEdges(const FrameAxis& axis, const CTimelineKeyArray& keys, int clipHeight = kClipHeight)
        : GatheredFacts{GatherFacts(keys, TL_TRACK_CLIP, axis.frameCount)},
          ClipEdges(axis, keys, facts, kRowHeight, clipHeight)
    {
    }
};

int NobodyToAsk()
{
    QTest::qFail("asked for loop or speed without need", __FILE__, __LINE__);
    return -1;
}

/// The end edge found by asking every clip, from the last one.
int HitEndEdgePlainly(const FrameAxis& axis, const CTimelineKeyArray& keys, int x)
{
    const int lastX = axis.FrameToPixel(axis.frameCount);
    for (int i = static_cast<int>(keys.GetSize()) - 1; i >= 0; --i) {
        const CTimelineKey& key = *keys.GetAt(i);
        if (key.clipLength < 1)
            continue;
        const int end = std::min(axis.FrameToPixel(key.frame + key.displayLength + 1LL), lastX);
        if (x >= end - 2 && x <= end + 1)
            return i;
    }
    return -1;
}

/// The lead-in found by asking every clip, from the last one.
int HitTrimEdgePlainly(const FrameAxis& axis, const CTimelineKeyArray& keys, int x)
{
    for (int i = static_cast<int>(keys.GetSize()) - 1; i >= 0; --i) {
        const CTimelineKey& key = *keys.GetAt(i);
        const int start = axis.FrameToPixel(key.frame - key.transitionFrames);
        if (key.selected && key.clipLength >= 1 && start >= 0 && x >= start - 2 && x <= start + 1)
            return i;
    }
    return -1;
}

} // namespace

class tst_ClipEdges : public QObject
{
    Q_OBJECT
private:
    /// Clips at frames 10 to 20 (end pixel 105 with 5 pixels a frame) and 40 to 60 (end 305).
    static void FillTwoClips(CTimelineKeyArray& keys)
    {
        keys.Add(MakeClip(10, 10), false);
        keys.Add(MakeClip(40, 20), false);
    }

private slots:
    void findsAnEndFromTwoPixelsLeftToOnePixelRight_data()
    {
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("clip");
        QTest::newRow("3 left") << 102 << -1;
        QTest::newRow("2 left") << 103 << 0;
        QTest::newRow("on it") << 105 << 0;
        QTest::newRow("1 right") << 106 << 0;
        QTest::newRow("2 right") << 107 << -1;
        QTest::newRow("other clip") << 305 << 1;
        QTest::newRow("start of a clip") << 50 << -1;
    }
    void findsAnEndFromTwoPixelsLeftToOnePixelRight()
    {
        QFETCH(int, x);
        const FrameAxis axis = MakeAxis(100, 5);
        CTimelineKeyArray keys;
        FillTwoClips(keys);
        const RowEdges edges(axis, keys);
        QTEST(edges.HitEndEdge(QPoint(x, kMiddle)), "clip");
    }

    void findsAnEndOnlyInTheBarsRows_data()
    {
        QTest::addColumn<int>("y");
        QTest::addColumn<bool>("hit");
        QTest::newRow("above") << kBarTop - 1 << false;
        QTest::newRow("top row") << kBarTop << true;
        QTest::newRow("bottom row") << kBarBottom << true;
        QTest::newRow("below") << kBarBottom + 1 << false;
    }
    void findsAnEndOnlyInTheBarsRows()
    {
        QFETCH(int, y);
        const FrameAxis axis = MakeAxis(100, 5);
        CTimelineKeyArray keys;
        FillTwoClips(keys);
        keys.SetSelectionByIndex(1, 1, true, ~0u);
        const RowEdges edges(axis, keys);
        QTEST(edges.HitEndEdge(QPoint(105, y)) == 0, "hit");
        QTEST(edges.HitTrimEdge(QPoint(200, y)) == 1, "hit");
    }

    void findsNoEdgeOfClipsHigherThanTheirRow()
    {
        const FrameAxis axis = MakeAxis(100, 5);
        CTimelineKeyArray keys;
        FillTwoClips(keys);
        const RowEdges edges(axis, keys, kRowHeight + 1);
        for (int y = -2; y < 2 * kRowHeight; ++y)
            QCOMPARE(edges.HitEndEdge(QPoint(105, y)), -1);
    }

    void endsAClipAtTheLastFrame()
    {
        const FrameAxis axis = MakeAxis(50, 5);
        CTimelineKeyArray keys;
        FillTwoClips(keys);
        const RowEdges edges(axis, keys);
        QCOMPARE(edges.HitEndEdge(QPoint(250, kMiddle)), 1);
        QCOMPARE(edges.HitEndEdge(QPoint(305, kMiddle)), -1);
    }

    void prefersTheLastOfSeveralClipsThatEndThere()
    {
        // Two clips, both beyond a timeline of 5 frames, end where the timeline ends.
        const FrameAxis axis = MakeAxis(5, 5);
        CTimelineKeyArray keys;
        FillTwoClips(keys);
        const RowEdges edges(axis, keys);
        QCOMPARE(edges.HitEndEdge(QPoint(25, kMiddle)), 1);
    }

    void aKeyWithoutLengthHasNoEdges()
    {
        const FrameAxis axis = MakeAxis(100, 5);
        CTimelineKeyArray keys;
        keys.Add(MakeClip(10, 0), false);
        keys.SetSelectionByIndex(0, 0, true, ~0u);
        const RowEdges edges(axis, keys);
        QCOMPARE(edges.HitEndEdge(QPoint(55, kMiddle)), -1);
        QCOMPARE(edges.HitTrimEdge(QPoint(50, kMiddle)), -1);
    }

    void findsTheSameEndsAsAskingEveryClip()
    {
        std::mt19937 random(20);
        const auto below = [&](int n) {
            return static_cast<int>(random() % static_cast<unsigned>(n));
        };
        for (int round = 0; round < 300; ++round) {
            const double scales[] = {10.0, 5.0, 2.0, 1.5, 0.3, 0.04};
            const FrameAxis axis = MakeAxis(below(600), scales[below(6)], below(100));
            CTimelineKeyArray keys;
            const int count = below(30);
            for (int i = 0; i < count; ++i)
                keys.Add(MakeClip(below(500), below(20), 1 + below(3)), below(2) == 0);
            const bool disordered = below(3) == 0;
            for (int i = 0; disordered && i < count / 3; ++i)
                keys.GetAt(below(static_cast<int>(keys.GetSize())))->frame = below(500);
            const RowEdges edges(axis, keys);
            for (int x = -20; x < 400; ++x)
                QCOMPARE(edges.HitEndEdge(QPoint(x, kMiddle)), HitEndEdgePlainly(axis, keys, x));
        }
    }

    void findsTheLeadInOfSelectedClipsOnly()
    {
        const FrameAxis axis = MakeAxis(100, 5);
        CTimelineKeyArray keys;
        FillTwoClips(keys);
        for (int i : {0, 1})
            keys.GetAt(i)->transitionFrames = 4; // start at pixels 30 and 180
        keys.SetSelectionByIndex(1, 1, true, ~0u);
        const RowEdges edges(axis, keys);
        QCOMPARE(edges.HitTrimEdge(QPoint(30, kMiddle)), -1);
        QCOMPARE(edges.HitTrimEdge(QPoint(177, kMiddle)), -1);
        QCOMPARE(edges.HitTrimEdge(QPoint(178, kMiddle)), 1);
        QCOMPARE(edges.HitTrimEdge(QPoint(181, kMiddle)), 1);
        QCOMPARE(edges.HitTrimEdge(QPoint(182, kMiddle)), -1);
    }

    void prefersTheLeadInOfTheLastSelectedClip()
    {
        const FrameAxis axis = MakeAxis(100, 5);
        CTimelineKeyArray keys;
        FillTwoClips(keys);
        keys.GetAt(1)->transitionFrames = 30; // starts where the first clip does
        keys.SetSelectionByIndex(0, 1, true, ~0u);
        const RowEdges edges(axis, keys);
        QCOMPARE(edges.HitTrimEdge(QPoint(50, kMiddle)), 1);
    }

    void findsTheSameLeadInsAsAskingEveryClip()
    {
        std::mt19937 random(21);
        const auto below = [&](int n) {
            return static_cast<int>(random() % static_cast<unsigned>(n));
        };
        for (int round = 0; round < 100; ++round) {
            const FrameAxis axis = MakeAxis(600, round % 2 ? 5.0 : 0.3, below(100));
            CTimelineKeyArray keys;
            for (int i = below(30); i > 0; --i) {
                const auto clip = MakeClip(below(500), below(20));
                clip->transitionFrames = below(10);
                keys.Add(clip, false);
            }
            for (int i = below(20); i > 0 && keys.GetSize() > 0; --i) {
                const int index = below(static_cast<int>(keys.GetSize()));
                const int deed = below(8);
                if (deed == 0)
                    keys.ClearAllSelection();
                else if (deed < 3)
                    keys.RemoveAt(index);
                else
                    keys.SetSelectionByIndex(index, index, deed > 3, ~0u);
            }
            const RowEdges edges(axis, keys);
            for (int x = -20; x < 400; ++x)
                QCOMPARE(edges.HitTrimEdge(QPoint(x, kMiddle)), HitTrimEdgePlainly(axis, keys, x));
        }
    }

    void everySelectedClipHasItsLeadInAfterAKeyInFrontWasRemoved()
    {
        const FrameAxis axis = MakeAxis(100, 5);
        CTimelineKeyArray keys;
        for (const int frame : {10, 30, 60, 80})
            keys.Add(MakeClip(frame, 5), false);
        keys.SetSelectionByIndex(1, 1, true, ~0u);
        keys.RemoveAt(0);
        keys.SetSelectionByIndex(2, 2, true, ~0u);
        QCOMPARE(keys.SelectedIndexes(), (std::vector<int>{1, 2})); // the last entry is right
        const RowEdges edges(axis, keys);
        QCOMPARE(edges.HitTrimEdge(QPoint(150, kMiddle)), 0);
        QCOMPARE(edges.HitTrimEdge(QPoint(300, kMiddle)), -1);
        QCOMPARE(edges.HitTrimEdge(QPoint(400, kMiddle)), 2);
    }

    void aClipThatAClearingMissedStillHasItsLeadIn()
    {
        const FrameAxis axis = MakeAxis(100, 5);
        CTimelineKeyArray keys;
        for (const int frame : {10, 30, 60})
            keys.Add(MakeClip(frame, 5), false);
        keys.SetSelectionByIndex(1, 1, true, ~0u);
        keys.RemoveAt(0);
        keys.ClearAllSelection();
        QCOMPARE(keys.SelectedIndexes(), std::vector<int>());
        QVERIFY(keys.GetAt(0)->selected);
        QCOMPARE(RowEdges(axis, keys).HitTrimEdge(QPoint(150, kMiddle)), 0);
    }

    void theLeadInOfASelectedClipIsFoundAfterAKeyBeforeItWasRemoved()
    {
        const FrameAxis axis = MakeAxis(100, 5);
        CTimelineKeyArray keys;
        FillTwoClips(keys);
        keys.SetSelectionByIndex(1, 1, true, ~0u);
        keys.RemoveAt(0); // unselected: the entry of the other one now lies past the end
        QVERIFY(keys.GetAt(0)->selected);
        const RowEdges edges(axis, keys);
        const int start = ClipTrimPixel(axis, *keys.GetAt(0));
        QCOMPARE(edges.HitTrimEdge(QPoint(start, kMiddle)), 0);
        QCOMPARE(edges.HitTrimEdge(QPoint(start + 10, kMiddle)), -1);
    }

    void anUnselectedClipInAnEntrysPlaceHasNoLeadIn()
    {
        const FrameAxis axis = MakeAxis(100, 5);
        CTimelineKeyArray keys;
        for (const int frame : {10, 30, 60})
            keys.Add(MakeClip(frame, 5), false);
        keys.SetSelectionByIndex(1, 1, true, ~0u);
        keys.RemoveAt(0); // the entry of the second clip is now the third one's index
        const RowEdges edges(axis, keys);
        QCOMPARE(edges.HitTrimEdge(QPoint(axis.FrameToPixel(30), kMiddle)), 0);
        QCOMPARE(edges.HitTrimEdge(QPoint(axis.FrameToPixel(60), kMiddle)), -1);
    }

    void lookingForALeadInAsksOnlyTheClipsAround()
    {
        const FrameAxis axis = MakeAxis(1 << 20, 5);
        CTimelineKeyArray::KeyVector clips;
        for (int i = 0; i < 200000; ++i)
            clips.push_back(MakeClip(i * 3, 1));
        CTimelineKeyArray keys;
        keys.AddKeys(clips, false);
        keys.SetSelection(0, 1 << 20, true, ~0u);
        const RowEdges edges(axis, keys);
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < 5000; ++i)
            QCOMPARE(edges.HitTrimEdge(QPoint(22, kMiddle)), -1);
        QCOMPARE(edges.HitTrimEdge(QPoint(30, kMiddle)), 2);
        // Asking every clip 5000 times takes several seconds, asking those around the pointer a
        // few milliseconds.
        QVERIFY2(timer.elapsed() < 500, qPrintable(QString::number(timer.elapsed())));
    }

    void hasNoTrimEdgeLeftOfTheRow()
    {
        CTimelineKeyArray keys;
        FillTwoClips(keys);
        keys.SetSelectionByIndex(0, 0, true, ~0u);
        const FrameAxis scrolled = MakeAxis(100, 5, 51); // the clip starts at pixel -1
        QCOMPARE(RowEdges(scrolled, keys).HitTrimEdge(QPoint(0, kMiddle)), -1);
        const FrameAxis atEdge = MakeAxis(100, 5, 50);
        QCOMPARE(RowEdges(atEdge, keys).HitTrimEdge(QPoint(0, kMiddle)), 0);
    }

    void editModesDecideTheKindOfEdge_data()
    {
        QTest::addColumn<bool>("loop");
        QTest::addColumn<bool>("speed");
        QTest::addColumn<bool>("trim");
        QTest::addColumn<int>("answer"); // what the owner answers; -2: it must not be asked
        QTest::addColumn<int>("kind");
        QTest::newRow("none") << false << false << false << -2 << -1;
        QTest::newRow("loop") << true << false << false << -2 << 3;
        QTest::newRow("speed") << false << true << false << -2 << 4;
        QTest::newRow("trim alone has no end edge") << false << false << true << -2 << -1;
        QTest::newRow("both, owner says loop") << true << true << false << 3 << 3;
        QTest::newRow("both, owner says speed") << true << true << false << 4 << 4;
        QTest::newRow("both, no owner") << true << true << false << -1 << -1;
    }
    void editModesDecideTheKindOfEdge()
    {
        QFETCH(bool, loop);
        QFETCH(bool, speed);
        QFETCH(bool, trim);
        QFETCH(int, answer);
        QFETCH(int, kind);
        const FrameAxis axis = MakeAxis(100, 5);
        CTimelineKeyArray keys;
        FillTwoClips(keys);
        const RowEdges edges(axis, keys);
        int asked = 0;
        const ClipEdgeHit hit =
            edges.HitTest(QPoint(105, kMiddle), {loop, speed, trim}, [&asked, answer] {
                ++asked;
                return answer;
            });
        QCOMPARE(asked, answer == -2 ? 0 : 1);
        QCOMPARE(hit.kind, kind);
        QCOMPARE(hit.clip, kind < 0 ? -1 : 0);
        QCOMPARE(hit.IsEdge(), kind >= 0);
    }

    void theTrimEdgeComesBeforeTheEndEdge()
    {
        const FrameAxis axis = MakeAxis(100, 5);
        CTimelineKeyArray keys;
        FillTwoClips(keys);
        keys.GetAt(1)->transitionFrames = 19; // starts at pixel 105, where the first clip ends
        keys.SetSelectionByIndex(1, 1, true, ~0u);
        const RowEdges edges(axis, keys);
        const QPoint point(105, kMiddle);
        const ClipEdgeHit withTrim = edges.HitTest(point, {true, true, true}, NobodyToAsk);
        QCOMPARE(withTrim.clip, 1);
        QCOMPARE(withTrim.kind, int(TL_EDIT_CLIP_TRIM));
        const ClipEdgeHit withoutTrim = edges.HitTest(point, {true, false, false}, NobodyToAsk);
        QCOMPARE(withoutTrim.clip, 0);
        QCOMPARE(withoutTrim.kind, int(TL_EDIT_CLIP_LOOP));
    }

    void aPlaceWithoutAnEdgeHasNoKind()
    {
        const FrameAxis axis = MakeAxis(100, 5);
        CTimelineKeyArray keys;
        FillTwoClips(keys);
        const RowEdges edges(axis, keys);
        const ClipEdgeHit hit =
            edges.HitTest(QPoint(70, kMiddle), {true, false, true}, NobodyToAsk);
        QCOMPARE(hit.clip, -1);
        QCOMPARE(hit.kind, -1);
    }

    void aLoopDragRoundsUpToWholePasses_data()
    {
        QTest::addColumn<double>("scale");
        QTest::addColumn<int>("scrollX");
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("passes"); // the clip has 2 passes of 10 frames, from frame 10
        QTest::newRow("first pixel") << 5.0 << 0 << 51 << 1;
        QTest::newRow("end of pass 1") << 5.0 << 0 << 100 << 1;
        QTest::newRow("pass 2 begins") << 5.0 << 0 << 101 << 2;
        QTest::newRow("pass 4") << 5.0 << 0 << 250 << 4;
        QTest::newRow("scrolled") << 5.0 << 30 << 220 << 4;
        // One pass is 3 1/3 pixels; the clip starts at pixel 3.
        QTest::newRow("frames per pixel, 3 of 3.33") << 0.4 << 0 << 6 << 1;
        QTest::newRow("frames per pixel, 4 of 3.33") << 0.4 << 0 << 7 << 2;
        QTest::newRow("frames per pixel, 10 is 3 passes exactly") << 0.4 << 0 << 13 << 3;
        QTest::newRow("frames per pixel, 11 begins the fourth") << 0.4 << 0 << 14 << 4;
        // One pass is a quarter of a pixel (40 frames per pixel): rounded down.
        QTest::newRow("pass below a pixel") << 1.0 / 39.5 << 0 << 3 << 12;
    }
    void aLoopDragRoundsUpToWholePasses()
    {
        QFETCH(double, scale);
        QFETCH(int, scrollX);
        QFETCH(int, x);
        QFETCH(int, passes);
        const FrameAxis axis = MakeAxis(1000, scale, scrollX);
        const auto clip = MakeClip(10, 10, 2);
        const auto amount = LoopDragAmount(axis, *clip, x);
        QCOMPARE(amount.value_or(0), passes - 2);
        QCOMPARE(amount.has_value(), passes != 2);
    }

    void aPassNarrowerThanAPixelCountsOnlyWhenCoveredWhole()
    {
        // 3 frames a pixel, passes of 2 frames: 4 pixels are exactly 6 passes, 5 pixels 7.5.
        const FrameAxis axis = MakeAxis(1000, 0.4);
        const auto clip = MakeClip(0, 2, 1);
        QCOMPARE(LoopDragAmount(axis, *clip, 4).value(), 5);
        QCOMPARE(LoopDragAmount(axis, *clip, 5).value(), 6);
    }

    void aLoopDragOfExtremeNumbersEndsAtTheLargestAmount()
    {
        constexpr int kMost = std::numeric_limits<int>::max();
        constexpr int kLeast = std::numeric_limits<int>::min();
        FrameAxis axis = MakeAxis(kMost, 0.5, kMost);
        axis.info.framesPerPixel = kMost;
        QCOMPARE(LoopDragAmount(axis, *MakeClip(0, 1, 1), kMost).value(), kMost);
        QCOMPARE(LoopDragAmount(axis, *MakeClip(0, 1, kMost), kMost).value(), kMost);
        QCOMPARE(LoopDragAmount(axis, *MakeClip(kLeast, 1, kLeast), kMost).value(), kMost);
        // A pass of exactly one pixel: as many passes as pixels, 2^32 - 2 of them.
        QCOMPARE(LoopDragAmount(axis, *MakeClip(0, kMost, 1), kMost).value(), kMost);
        // And with one pixel scrolled out, 11 of them.
        axis.scrollX = 1;
        QCOMPARE(LoopDragAmount(axis, *MakeClip(0, kMost, 1), 10).value(), 10);
        QCOMPARE(LoopDragAmount(axis, *MakeClip(0, kMost - 1, 1), 10).value(), 11 - 1);
        axis = MakeAxis(kMost, 10.0, kMost);
        QCOMPARE(LoopDragAmount(axis, *MakeClip(0, 1, 1), kMost).value(), 429496730 - 1);
    }

    void aLoopDragAtOrLeftOfTheClipsStartChangesNothing()
    {
        const FrameAxis axis = MakeAxis(100, 5);
        const auto clip = MakeClip(10, 10, 3);
        for (int x : {50, 49, 0, -500})
            QVERIFY(!LoopDragAmount(axis, *clip, x));
        QCOMPARE(LoopDragAmount(axis, *clip, 51).value(), -2);
    }

    void aLoopDragNeverGoesBelowOnePass()
    {
        const FrameAxis axis =
            MakeAxis(1000, 0.02); // 51 frames per pixel, the clip is below a pixel
        QCOMPARE(axis.info.framesPerPixel, 51);
        const auto clip = MakeClip(0, 200, 4);
        QCOMPARE(LoopDragAmount(axis, *clip, 1).value(), 1 - 4);
        for (int x = 1; x < 400; ++x) {
            const auto amount = LoopDragAmount(axis, *clip, x);
            QVERIFY(4 + amount.value_or(0) >= 1);
        }
    }

    void aSpeedDragSharesThePixelsBetweenThePasses_data()
    {
        QTest::addColumn<double>("scale");
        QTest::addColumn<int>("loops");
        QTest::addColumn<int>("pixels"); // from the clip's end
        QTest::addColumn<int>("frames");
        QTest::newRow("longer") << 5.0 << 1 << 15 << 3;
        QTest::newRow("longer by less than a frame") << 5.0 << 1 << 4 << 0;
        QTest::newRow("shorter") << 5.0 << 1 << -15 << -3;
        QTest::newRow("shorter by less than a frame") << 5.0 << 1 << -4 << 0;
        QTest::newRow("three passes") << 5.0 << 3 << 35 << 2;
        QTest::newRow("three passes, toward zero") << 5.0 << 3 << -25 << -1;
        QTest::newRow("frames per pixel") << 0.4 << 1 << 2 << 6;
        QTest::newRow("frames per pixel, two passes") << 0.4 << 2 << 3 << 4;
    }
    void aSpeedDragSharesThePixelsBetweenThePasses()
    {
        QFETCH(double, scale);
        QFETCH(int, loops);
        QFETCH(int, pixels);
        QFETCH(int, frames);
        const FrameAxis axis = MakeAxis(1000, scale);
        CTimelineKeyArray keys;
        keys.Add(MakeClip(12, 10, loops), false);
        const auto clip = keys.GetAt(0);
        clip->hostValue2 = 100;
        clip->hostValue3 = 1;
        const auto amount = SpeedDragAmount(axis, *clip, ClipEndPixel(axis, *clip) + pixels);
        QCOMPARE(amount.value_or(0), frames);
        QCOMPARE(amount.has_value(), frames != 0);
    }

    void aSpeedDragStaysWithinTheShortestAndLongestPass_data()
    {
        QTest::addColumn<int>("loops");
        QTest::addColumn<int>("pixels");
        QTest::addColumn<int>("frames");
        QTest::newRow("longest reached") << 1 << 25 << 5;
        QTest::newRow("longest exceeded") << 1 << 30 << 5;
        QTest::newRow("longest, two passes") << 2 << 500 << 10;
        QTest::newRow("shortest reached") << 1 << -20 << -4;
        QTest::newRow("shortest exceeded") << 1 << -25 << -4;
        QTest::newRow("shortest, two passes") << 2 << -500 << -8;
    }
    void aSpeedDragStaysWithinTheShortestAndLongestPass()
    {
        QFETCH(int, loops);
        QFETCH(int, pixels);
        QFETCH(int, frames);
        const FrameAxis axis = MakeAxis(1000, 5);
        CTimelineKeyArray keys;
        keys.Add(MakeClip(50, 10, loops), false);
        const auto clip = keys.GetAt(0);
        clip->hostValue2 = 15;
        clip->hostValue3 = 6;
        const auto amount = SpeedDragAmount(axis, *clip, ClipEndPixel(axis, *clip) + pixels);
        QCOMPARE(amount.value_or(0), frames);
    }

    void aSpeedDragOfAClipAtItsLongestPassChangesNothing()
    {
        const FrameAxis axis = MakeAxis(1000, 5);
        CTimelineKeyArray keys;
        keys.Add(MakeClip(50, 10), false);
        const auto clip = keys.GetAt(0);
        clip->hostValue2 = 10;
        QVERIFY(!SpeedDragAmount(axis, *clip, 900));
    }

    void aLoopCountBelowOneCountsAsOnePass()
    {
        const FrameAxis axis = MakeAxis(1000, 5);
        CTimelineKeyArray keys;
        keys.Add(MakeClip(50, 10, 0), false);
        const auto clip = keys.GetAt(0);
        clip->hostValue2 = 100;
        QCOMPARE(SpeedDragAmount(axis, *clip, ClipEndPixel(axis, *clip) + 10).value(), 2);
    }

    void draggingLeftLengthensTheLeadIn()
    {
        const FrameAxis axis = MakeAxis(100, 5);
        const auto clip = MakeClip(20, 10);
        clip->transitionFrames = 4; // starts at pixel 80
        QCOMPARE(TrimDragAmount(axis, *clip, 70).value(), 2);
        QCOMPARE(TrimDragAmount(axis, *clip, 90).value(), -2);
        QVERIFY(!TrimDragAmount(axis, *clip, 76));
        QVERIFY(!TrimDragAmount(axis, *clip, 84));
        const FrameAxis zoomedOut = MakeAxis(100, 0.4);
        QCOMPARE(TrimDragAmount(zoomedOut, *clip, 3).value(), 6); // from pixel 5
    }

    void aTrimDragCannotMakeTheLeadInNegative()
    {
        const FrameAxis axis = MakeAxis(100, 5);
        const auto clip = MakeClip(20, 10);
        clip->transitionFrames = 4;
        QCOMPARE(TrimDragAmount(axis, *clip, 100).value(), -4);
        QCOMPARE(TrimDragAmount(axis, *clip, 400).value(), -4);
        clip->transitionFrames = 0;
        QVERIFY(!TrimDragAmount(axis, *clip, 400));
    }

    void theEdgeKindChoosesTheAmount()
    {
        const FrameAxis axis = MakeAxis(100, 5);
        CTimelineKeyArray keys;
        keys.Add(MakeClip(10, 10, 1), false);
        const auto clip = keys.GetAt(0);
        clip->hostValue2 = 100;
        clip->transitionFrames = 50;
        QCOMPARE(EdgeDragAmount(TL_EDIT_CLIP_LOOP, axis, *clip, 200).value(), 2);
        QCOMPARE(EdgeDragAmount(TL_EDIT_CLIP_SPEED, axis, *clip, 200).value(), 19);
        QCOMPARE(EdgeDragAmount(TL_EDIT_CLIP_TRIM, axis, *clip, -180).value(), -4);
        QVERIFY(!EdgeDragAmount(-1, axis, *clip, 200));
    }

    void aDragBeginsWithinTwoPixelsOfItsEdge()
    {
        const FrameAxis axis = MakeAxis(100, 5);
        CTimelineKeyArray keys;
        keys.Add(MakeClip(10, 10, 1), false);
        const auto clip = keys.GetAt(0); // ends at pixel 105
        clip->transitionFrames = 4;      // and its lead-in starts at pixel 30
        for (const int kind : {TL_EDIT_CLIP_LOOP, TL_EDIT_CLIP_SPEED}) {
            QVERIFY(IsNearEdge(kind, axis, *clip, 103) && IsNearEdge(kind, axis, *clip, 107));
            QVERIFY(!IsNearEdge(kind, axis, *clip, 102) && !IsNearEdge(kind, axis, *clip, 108));
        }
        QVERIFY(IsNearEdge(TL_EDIT_CLIP_TRIM, axis, *clip, 28));
        QVERIFY(IsNearEdge(TL_EDIT_CLIP_TRIM, axis, *clip, 32));
        QVERIFY(!IsNearEdge(TL_EDIT_CLIP_TRIM, axis, *clip, 33));
        QVERIFY(!IsNearEdge(TL_EDIT_CLIP_TRIM, axis, *clip, 105));
    }

    void hugeNumbersStayInRange()
    {
        const FrameAxis axis = MakeAxis(INT_MAX, 0.000001, 100);
        const auto clip = MakeClip(INT_MAX - 1, INT_MAX, INT_MAX);
        clip->displayLength = INT_MAX;
        clip->transitionFrames = INT_MAX;
        clip->hostValue2 = INT_MAX;
        for (const int x : {INT_MIN + 200, 0, INT_MAX - 200}) {
            for (const int kind : {TL_EDIT_CLIP_LOOP, TL_EDIT_CLIP_SPEED, TL_EDIT_CLIP_TRIM}) {
                const auto amount = EdgeDragAmount(kind, axis, *clip, x);
                QVERIFY(!amount || *amount != 0);
            }
        }
    }
};

QTEST_MAIN(tst_ClipEdges)
#include "tst_ClipEdges.moc"
