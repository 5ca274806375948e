#include "tracks/KeyHitTest.h"
#include "tracks/RowFixture.h"

#include <QEnterEvent>
#include <QScopedValueRollback>
#include <QTemporaryFile>
#include <QtTest>

#include <map>

using namespace KestovaTest;

namespace {

const QSize kSize(400, 20);

FrameAxis& TheAxis()
{
    return TimelineLibrary::Instance().axis;
}

/// A track whose protected handlers a test can call.
class OpenTrack : public CTimelineTrackKey
{
public:
    using CTimelineTrackKey::enterEvent;
    using CTimelineTrackKey::leaveEvent;
    using CTimelineTrackKey::Send;
};

/// The base itself, which is no kind.
class PlainTrack : public CTimelineTrackBase
{
};

CTimelineKeyArray::KeyVector Collected(CTimelineTrackBase& track)
{
    CTimelineKeyArray::KeyVector keys;
    track.CollectDisplayKeys(keys);
    return keys;
}

std::vector<int> FramesOf(const CTimelineKeyArray::KeyVector& keys)
{
    std::vector<int> frames;
    for (const auto& key : keys)
        frames.push_back(key->frame);
    return frames;
}

using Frames = std::vector<int>;

} // namespace

class tst_CTimelineTrackBase : public QObject
{
    Q_OBJECT

    /// One track of each type, whose styles are read once; keys, modes and range start empty.
    CTimelineTrackBase& Row(int type)
    {
        auto& row = m_rows[type];
        if (!row)
            row = MakeTrack(type);
        row->Keys().RemoveAll();
        SetModes(*row, {});
        row->SetRange(-1, -1);
        row->SetRowHeight(kSize.height());
        row->resize(kSize);
        return *row;
    }
    std::map<int, std::unique_ptr<CTimelineTrackBase>> m_rows;

private slots:
    void initTestCase() { QVERIFY(PrepareTimeline()); }
    void cleanupTestCase() { m_rows.clear(); }
    void init()
    {
        ResetAxis(40, 10.0);
        UnrelateTracks();
    }

    // --- Data

    void aNewTrackIsEmptyInactiveAndTwentyPixelsHigh()
    {
        PlainTrack track;
        QCOMPARE(track.Keys().GetSize(), std::size_t(0));
        QVERIFY(!track.Clipboard().HasData());
        QVERIFY(!track.GetStyle());
        QVERIFY(!track.GetParentTrack());
        QCOMPARE(track.GetTrackType(), -1);
        QCOMPARE(track.GetRowHeight(), 20);
        QVERIFY(!track.GetTrackId());
        QCOMPARE(track.GetCaption(), QString(""));
        QVERIFY(!track.IsActive());
        QCOMPARE(track.RangeStart(), -1);
        QCOMPARE(track.RangeEnd(), -1);
        QCOMPARE(track.GetEditModes().GetSize(), 0);
        QVERIFY(!track.GetOwner());
        QCOMPARE(track.focusPolicy(), Qt::ClickFocus);
        QVERIFY(track.acceptDrops());
    }

    void baseIsNoKindAndDrawsNothing()
    {
        PlainTrack track;
        QWidget parent;
        QVERIFY(!track.Init(&parent));
        QVERIFY(!track.parentWidget());
        QCOMPARE(ShowRow(track, QSize(30, 10)).pixel(5, 5), QColor(Qt::magenta).rgb());
        QCOMPARE(track.HitTestKey(QPoint(1, 1)), -1);
    }

    void initialWidthIsThatOfTheKind_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("width");
        QTest::newRow("key") << int(TL_TRACK_KEY) << 10;
        QTest::newRow("transition key") << int(TL_TRACK_TRANSITION_KEY) << 10;
        QTest::newRow("link key") << int(TL_TRACK_LINK_KEY) << 10;
        QTest::newRow("viseme key") << int(TL_TRACK_VISEME_KEY) << 10;
        QTest::newRow("clip") << int(TL_TRACK_CLIP) << 20;
    }
    void initialWidthIsThatOfTheKind()
    {
        QFETCH(int, type);
        QFETCH(int, width);
        const auto track = MakeTrack(type);
        QCOMPARE(track->size(), QSize(width, 20));
        QCOMPARE(track->GetTrackType(), type);
    }

    void initTakesTheHeightThatTheTrackHasThen()
    {
        CTimelineTrackKey track;
        track.SetRowHeight(33);
        track.Init(nullptr);
        QCOMPARE(track.height(), 33);
    }

    void trackIsAliveFromItsConstructionToItsDestruction()
    {
        auto track = std::make_unique<CTimelineTrackKey>();
        const CTimelineTrackBase* const pointer = track.get();
        QVERIFY(CTimelineTrackBase::IsAlive(pointer));
        track.reset();
        QVERIFY(!CTimelineTrackBase::IsAlive(pointer));
        QVERIFY(!CTimelineTrackBase::IsAlive(nullptr));
    }

    void keyArraySurvivesAHostsPointerThatComesAndGoes()
    {
        CTimelineTrackKey track;
        {
            const VZ::CPointer<CTimelineKeyArray> host(&track.Keys());
        }
        AddKey(track, 3);
        QCOMPARE(track.Keys().GetSize(), std::size_t(1));
    }

    void laterTracksLeaveTheColourOfTheCurrentFrameLineAlone()
    {
        QCOMPARE(TimelineLibrary::Instance().currentFrameLine, QColor(60, 90, 59));
        TimelineLibrary::Instance().currentFrameLine = QColor(1, 2, 3);
        const CTimelineTrackKey track;
        QCOMPARE(TimelineLibrary::Instance().currentFrameLine, QColor(1, 2, 3));
        TimelineLibrary::Instance().currentFrameLine = QColor(60, 90, 59);
    }

    void loadStyleOfASkinThatIsNotThereFails()
    {
        CTimelineTrackKey track;
        track.Init(nullptr);
        QVERIFY(track.LoadStyle(1));
        QVERIFY(track.StyleAs<KeyTrackStyle>());
        QVERIFY(!track.LoadStyle(987));
    }

    void aStyleThatFailsTakesThePlaceOfTheStyleBefore()
    {
        TimelineLibrary& library = TimelineLibrary::Instance();
        CTimelineTrackKey track;
        track.Init(nullptr);
        QVERIFY(track.LoadStyle(1));
        QVERIFY(!track.StyleAs<TrackStyle>()->captionButtons.empty());

        QTemporaryFile skin;
        QVERIFY(skin.open());
        skin.write("[KeyTrack1]\nTrackBgType=77\nTrackBgID=88\n"); // and no more
        skin.close();
        const QScopedValueRollback<std::wstring> path(library.skinPath,
                                                      skin.fileName().toStdWString());
        QVERIFY(!track.LoadStyle(1));
        const auto* style = track.StyleAs<KeyTrackStyle>();
        QVERIFY(style);
        QCOMPARE(style->backgroundType, 77);
        QCOMPARE(style->backgroundId, 88);
        QVERIFY(style->captionButtons.empty());
        QCOMPARE(style->caption.textPos, QPoint());
        QCOMPARE(style->clipHeight, 0);
    }

    void framesBecomePixelsThroughTheSharedAxis()
    {
        const CTimelineTrackKey track;
        ResetAxis(100, 7.0, 5);
        QCOMPARE(track.FrameToPixel(10), 65);
        QCOMPARE(track.FrameToPixel(0), -5);
        QCOMPARE(track.PixelToFrame(65), 10);
        QCOMPARE(track.PixelToFrame(64), 9);
        QCOMPARE(track.PixelToFrame(-5), 0);
    }

    void rangeFramesAreOrdered()
    {
        CTimelineTrackKey track;
        int lo = 0;
        int hi = 0;
        track.SetRange(9, 4);
        track.GetRangeFrames(lo, hi);
        QCOMPARE(lo, 4);
        QCOMPARE(hi, 9);
        QCOMPARE(track.RangeStart(), 9);
        track.SetRange(-1, 4);
        track.GetRangeFrames(lo, hi);
        QCOMPARE(lo, -1);
    }

    // --- SetActive, ClearRangeOrSubSelection

    void setActiveClearsTheSelectionWhereSubKeysAreEdited_data()
    {
        QTest::addColumn<bool>("before");
        QTest::addColumn<bool>("after");
        QTest::addColumn<bool>("mode");
        QTest::addColumn<bool>("cleared");
        QTest::newRow("on") << false << true << true << true;
        QTest::newRow("off") << true << false << true << true;
        QTest::newRow("no change, on") << true << true << true << false;
        QTest::newRow("no change, off") << false << false << true << false;
        QTest::newRow("other modes") << false << true << false << false;
    }
    void setActiveClearsTheSelectionWhereSubKeysAreEdited()
    {
        QFETCH(bool, before);
        QFETCH(bool, after);
        QFETCH(bool, mode);
        QFETCH(bool, cleared);
        CTimelineTrackKey track;
        track.SetActive(before);
        SetModes(track, {mode ? TL_EDIT_SUB_KEYS : TL_EDIT_MOVE_KEYS});
        AddKey(track, 3, Select);
        track.SetActive(after);
        QCOMPARE(track.Keys().SelGetSize(), std::size_t(cleared ? 0 : 1));
        QCOMPARE(track.IsActive(), after);
    }

    void setActiveFalseClearsTheStartOfTheRange_data()
    {
        QTest::addColumn<bool>("before");
        QTest::addColumn<bool>("after");
        QTest::addColumn<bool>("mode");
        QTest::addColumn<int>("start");
        QTest::newRow("off") << true << false << true << -1;
        QTest::newRow("off again") << false << false << true << -1;
        QTest::newRow("on") << false << true << true << 4;
        QTest::newRow("other modes") << true << false << false << 4;
    }
    void setActiveFalseClearsTheStartOfTheRange()
    {
        QFETCH(bool, before);
        QFETCH(bool, after);
        QFETCH(bool, mode);
        QFETCH(int, start);
        CTimelineTrackKey track;
        track.SetActive(before);
        SetModes(track, {mode ? TL_EDIT_TIME_RANGE : TL_EDIT_MOVE_KEYS});
        track.SetRange(4, 9);
        track.SetActive(after);
        QCOMPARE(track.RangeStart(), start);
        QCOMPARE(track.RangeEnd(), 9);
    }

    void clearRangeDeselectsTheKeysOfTheTimelineAndReportsIt()
    {
        OwnerSpy owner;
        CTimelineTrackKey track;
        track.MarkAsOwnTrack();
        track.SetOwner(&owner);
        SetModes(track, {TL_EDIT_MOVE_KEYS});
        track.SetRange(4, 9);
        AddKey(track, -1, Select);
        AddKey(track, 0, Select);
        AddKey(track, 40, Select);
        AddKey(track, 41, Select);
        track.ClearRangeOrSubSelection();
        QCOMPARE(track.RangeStart(), -1);
        QCOMPARE(track.RangeEnd(), 9);
        QCOMPARE(track.Keys().SelectedIndexes(), (std::vector<int>{0, 3}));
        QCOMPARE(owner.messages.size(), std::size_t(1));
        QCOMPARE(owner.messages[0].code, 1102);
        QCOMPARE(owner.messages[0].track, &track);
        QCOMPARE(owner.messages[0].number, 0);
        for (const QVariant& value : owner.messages[0].values)
            QCOMPARE(value, QVariant(0));
    }

    void clearRangeWithoutAnOwnerOnlyClears()
    {
        CTimelineTrackKey track;
        SetModes(track, {TL_EDIT_MOVE_KEYS});
        AddKey(track, 3, Select);
        track.ClearRangeOrSubSelection();
        QCOMPARE(track.Keys().SelGetSize(), std::size_t(0));
    }

    void clearSubSelectionClearsTheSubKeysOfSelectedClips_data()
    {
        QTest::addColumn<bool>("modes");
        QTest::newRow("sub-keys are edited") << true;
        QTest::newRow("no edit modes at all") << false;
    }
    void clearSubSelectionClearsTheSubKeysOfSelectedClips()
    {
        QFETCH(bool, modes);
        OwnerSpy owner;
        CTimelineTrackKey track;
        track.SetOwner(&owner);
        if (modes)
            SetModes(track, {TL_EDIT_MOVE_KEYS, TL_EDIT_SUB_KEYS});
        track.SetRange(4, 9);
        const auto selectSubKeys = [](CTimelineKey& clip) {
            clip.subKeys->SetSelection(-100, 100, true, 0xFFFFFFFFu);
        };
        CTimelineKey& selected = AddClip(track, 3, 50, 1, {-1, 0, 40, 41}, [&](CTimelineKey& clip) {
            selectSubKeys(clip);
            clip.selected = true;
        });
        CTimelineKey& other = AddClip(track, 5, 50, 1, {0}, selectSubKeys);
        AddKey(track, 8, Select); // selected, without sub-keys
        track.ClearRangeOrSubSelection();
        QCOMPARE(selected.subKeys->SelectedIndexes(), (std::vector<int>{0, 3}));
        QCOMPARE(other.subKeys->SelGetSize(), std::size_t(1));
        QCOMPARE(track.Keys().SelGetSize(), std::size_t(2));
        QCOMPARE(track.RangeStart(), 4);
        QVERIFY(owner.messages.empty());
    }

    void clearSubSelectionSkipsSelectionEntriesPastTheEnd()
    {
        CTimelineTrackKey track;
        AddKey(track, 3);
        CTimelineKey& clip = AddClip(track, 5, 10, 1, {2}, Select);
        AddKey(track, 30, Select);
        clip.subKeys->SetSelection(0, 10, true, TL_KEY_ANY_KIND);
        track.Keys().RemoveAt(0); // leaves the selection pointing one key further on
        QCOMPARE(track.Keys().SelectedIndexes(), (std::vector<int>{1, 2}));
        track.ClearRangeOrSubSelection();
        QCOMPARE(track.Keys().SelectedIndexes(), (std::vector<int>{1, 2}));
        QCOMPARE(clip.subKeys->SelGetSize(), std::size_t(1));
    }

    void sendWithoutAnOwnerAnswersMinusOne()
    {
        OpenTrack track;
        QCOMPARE(track.Send(1102), -1);
    }

    void mouseTrackingIsOnWhileThePointerIsOverTheRow()
    {
        OpenTrack track;
        QVERIFY(!track.hasMouseTracking());
        QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
        track.enterEvent(&enter);
        QVERIFY(track.hasMouseTracking());
        track.enterEvent(&enter);
        QVERIFY(track.hasMouseTracking());
        QEvent leave(QEvent::Leave);
        track.leaveEvent(&leave);
        QVERIFY(!track.hasMouseTracking());
        track.leaveEvent(&leave);
        QVERIFY(!track.hasMouseTracking());
    }

    // --- CollectDisplayKeys

    void plainKeysAreSharedInOrder()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        AddKey(row, 9);
        const CTimelineKey& first = AddKey(row, 3);
        const auto keys = Collected(row);
        QCOMPARE(FramesOf(keys), (Frames{3, 9}));
        QCOMPARE(keys[0].Get(), &first);
        QCOMPARE(first.GetReferences(), 2u);
    }

    void plainKeysOutOfViewAreCollectedToo()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        for (const int frame : {-5, 5, 500})
            AddKey(row, frame);
        QCOMPARE(FramesOf(Collected(row)), (Frames{-5, 5, 500}));
    }

    void whatTheListHeldBeforeIsLetGo()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        AddKey(row, 3);
        auto keys = Collected(row);
        row.CollectDisplayKeys(keys);
        QCOMPARE(FramesOf(keys), (Frames{3}));
    }

    void clipIsExpandedIntoItsSubKeysPassByPass()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        AddClip(row, 3, 10, 2, {1, 6});
        QCOMPARE(FramesOf(Collected(row)), (Frames{4, 9, 14, 19}));
    }

    void expandedSubKeyIsACopyThatBelongsToItsClip()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        CTimelineKey& clip = AddClip(row, 3, 10, 1, {4}, [](CTimelineKey& each) {
            Join(each);
            each.keyType = 4;
            each.priority = 7;
            each.hostValue6 = 9;
            each.selected = true;
            each.subKeys->GetAt(0)->hostValue6 = 5;
            each.subKeys->GetAt(0)->priority = 111;
            each.subKeys->GetAt(0)->hostValue1 = 77;
            each.subKeys->GetAt(0)->segments.push_back({});
        });
        const auto keys = Collected(row);
        QCOMPARE(keys.size(), std::size_t(1));
        const CTimelineKey& copy = *keys[0];
        QVERIFY(&copy != clip.subKeys->GetAt(0).Get());
        QCOMPARE(copy.GetReferences(), 1u);
        QCOMPARE(copy.frame, 7);
        QCOMPARE(copy.group.Get(), clip.group.Get());
        QCOMPARE(copy.keyType, 4);
        QCOMPARE(copy.clipLength, 10);
        QCOMPARE(copy.hostValue1, 3);
        QCOMPARE(copy.hostValue6, 5);
        QCOMPARE(copy.priority, 111);
        QVERIFY(!copy.selected);
        QVERIFY(copy.segments.empty());
        QCOMPARE(clip.subKeys->GetAt(0)->frame, 4);
        QCOMPARE(clip.subKeys->GetAt(0)->hostValue1, 77);
    }

    void expandedSubKeyTakesItsClipsSelectionOnlyWhereSubKeysAreEdited_data()
    {
        QTest::addColumn<bool>("mode");
        QTest::addColumn<bool>("clipSelected");
        QTest::addColumn<bool>("subSelected");
        QTest::addColumn<bool>("selected");
        QTest::newRow("mode, clip") << true << true << false << true;
        QTest::newRow("mode, sub-key") << true << false << true << false;
        QTest::newRow("no mode, clip") << false << true << false << false;
        QTest::newRow("no mode, sub-key") << false << false << true << true;
    }
    void expandedSubKeyTakesItsClipsSelectionOnlyWhereSubKeysAreEdited()
    {
        QFETCH(bool, mode);
        QFETCH(bool, clipSelected);
        QFETCH(bool, subSelected);
        QFETCH(bool, selected);
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        if (mode)
            SetModes(row, {TL_EDIT_SUB_KEYS});
        AddClip(row, 3, 10, 1, {4}, [=](CTimelineKey& clip) {
            clip.selected = clipSelected;
            clip.subKeys->GetAt(0)->selected = subSelected;
        });
        QCOMPARE(Collected(row)[0]->selected, selected);
    }

    void subKeysBeyondTheDisplayLengthAreNotCollectedEvenWithALargerLoopCount()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        AddClip(row, 3, 10, 2000000000, {0, 6, 9});
        AddKey(row, 20); // trims the clip to frame 19, offset 16
        QCOMPARE(FramesOf(Collected(row)), (Frames{3, 9, 12, 13, 19, 20}));
    }

    void subKeyAtTheDisplayLengthIsCollected()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        AddClip(row, 3, 10, 1, {10, 11});
        QCOMPARE(FramesOf(Collected(row)), (Frames{13}));
    }

    void aSkippedSubKeyDoesNotEndThePass()
    {
        // The first pass is too long for the clip; sub-keys of the second still are inside it.
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        AddClip(row, 0, 10, 2, {2, 25});
        QCOMPARE(FramesOf(Collected(row)), (Frames{2, 12}));
    }

    void subKeysBeforeTheViewOrTheClipAreSkippedUnlessTheirTypeIs2Or4_data()
    {
        QTest::addColumn<int>("keyType");
        QTest::addColumn<int>("scrollX");
        QTest::addColumn<Frames>("frames");
        const Frames all = {8, 10, 15};
        QTest::newRow("type 1") << 1 << 0 << Frames{10, 15};
        QTest::newRow("type 2") << 2 << 0 << all;
        QTest::newRow("type 3") << 3 << 0 << Frames{10, 15};
        QTest::newRow("type 4") << 4 << 0 << all;
        QTest::newRow("type 6") << 6 << 0 << Frames{10, 15};
        QTest::newRow("type 1, scrolled") << 1 << 110 << Frames{15};
        QTest::newRow("type 2, scrolled") << 2 << 110 << all;
        QTest::newRow("type 4, scrolled") << 4 << 110 << all;
        QTest::newRow("type 1, at the first visible frame") << 1 << 100 << Frames{10, 15};
    }
    void subKeysBeforeTheViewOrTheClipAreSkippedUnlessTheirTypeIs2Or4()
    {
        QFETCH(int, keyType);
        QFETCH(int, scrollX);
        QFETCH(Frames, frames);
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        TheAxis().scrollX = scrollX;
        AddClip(row, 10, 20, 1, {-2, 0, 5}, [=](CTimelineKey& clip) { clip.keyType = keyType; });
        QCOMPARE(FramesOf(Collected(row)), frames);
    }

    void firstSubKeyBeyondTheLastVisibleFrameEndsTheExpansion()
    {
        // 400 pixels show the frames up to 40: offset 35 is visible, 36 and on are not.
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        TheAxis().frameCount = 500;
        AddClip(row, 5, 10, 20, {5, 6});
        const Frames frames = FramesOf(Collected(row));
        QCOMPARE(frames, (Frames{10, 11, 20, 21, 30, 31, 40}));
        // A pass that begins in view again comes after the end of the expansion.
        row.Keys().RemoveAll();
        AddClip(row, 5, 10, 2, {5, 38});
        row.Keys().GetAt(0)->displayLength = 100;
        QCOMPARE(FramesOf(Collected(row)), (Frames{10}));
    }

    void firstSubKeyBeyondTheLastFrameEndsTheExpansion()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        TheAxis().frameCount = 20;
        AddClip(row, 5, 10, 20, {5, 6});
        QCOMPARE(FramesOf(Collected(row)), (Frames{10, 11, 20}));
    }

    void clipWithoutPassesShowsNothing()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        AddClip(row, 5, 10, 0, {0});
        QVERIFY(Collected(row).empty());
    }

    void clipWithoutAnySubKeysInItsArrayShowsNothing()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        AddClip(row, 5, 10, 1, {});
        QVERIFY(Collected(row).empty());
    }

    void relatedKeysArePlacedByTheirFrame()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        AddKey(row, 10);
        AddKey(row, 20);
        for (const int frame : {5, 15, 25})
            AddRelated(row, frame);
        const auto keys = Collected(row);
        QCOMPARE(FramesOf(keys), (Frames{5, 10, 15, 20, 25}));
        QCOMPARE(keys[2].Get(), row.Keys().RelatedGetAt(1).Get());
    }

    void relatedKeyReplacesAKeyOfItsFrameOnlyWithAHigherPriority_data()
    {
        QTest::addColumn<int>("priority");
        QTest::addColumn<bool>("replaces");
        QTest::newRow("lower") << 99 << false;
        QTest::newRow("equal") << 100 << false;
        QTest::newRow("higher") << 101 << true;
    }
    void relatedKeyReplacesAKeyOfItsFrameOnlyWithAHigherPriority()
    {
        QFETCH(int, priority);
        QFETCH(bool, replaces);
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        AddKey(row, 10);
        AddKey(row, 10);
        AddRelated(row, 10, [=](CTimelineKey& key) { key.priority = priority; });
        const auto keys = Collected(row);
        QCOMPARE(FramesOf(keys), (Frames{10, 10}));
        QCOMPARE(keys[0]->relatedCopy, 0);
        QCOMPARE(keys[1]->relatedCopy, replaces ? 1 : 0);
        QCOMPARE(row.Keys().GetSize(), std::size_t(2));
    }

    void relatedKeysOfOneFrameCompeteInTheirOrder()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        for (const int priority : {50, 60, 55})
            AddRelated(row, 10, [=](CTimelineKey& key) { key.priority = priority; });
        const auto keys = Collected(row);
        QCOMPARE(keys.size(), std::size_t(1));
        QCOMPARE(keys[0]->priority, 60);
    }

    void relatedKeyCompetesWithAnExpandedSubKey()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        AddClip(row, 3, 10, 1, {4});
        AddRelated(row, 7);
        AddRelated(row, 8);
        QCOMPARE(FramesOf(Collected(row)), (Frames{7, 8}));
        QCOMPARE(Collected(row)[0]->relatedCopy, 0);
    }

    void relatedKeysFindAPlaceInListsOutOfOrder()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        TheAxis().frameCount = 500;
        AddClip(row, 0, 4, 3, {0, 3, 9}); // expands to 0, 3, 9, 4, 7, ...
        AddRelated(row, 5);
        AddRelated(row, 30);
        const Frames frames = FramesOf(Collected(row));
        QVERIFY(!std::is_sorted(frames.begin(), frames.end()));
        QCOMPARE(std::count(frames.begin(), frames.end(), 5), 1);
        QCOMPARE(frames.back(), 30);
    }

    // --- Hit tests

    void glyphBoxHasNoShiftAndIncludesItsEdges_data()
    {
        QTest::addColumn<QPoint>("point");
        QTest::addColumn<bool>("hit");
        // The glyph is 6 x 10 at (102, 5); the pointer's box ends at (108, 15).
        QTest::newRow("top left") << QPoint(102, 5) << true;
        QTest::newRow("left of it") << QPoint(101, 5) << false;
        QTest::newRow("above it") << QPoint(102, 4) << false;
        QTest::newRow("bottom right") << QPoint(108, 15) << true;
        QTest::newRow("right of it") << QPoint(109, 15) << false;
        QTest::newRow("below it") << QPoint(108, 16) << false;
    }
    void glyphBoxHasNoShiftAndIncludesItsEdges()
    {
        QFETCH(QPoint, point);
        QFETCH(bool, hit);
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        AddKey(row, 10);
        QCOMPARE(row.HitTestKey(point), hit ? 0 : -1);
    }

    void glyphBoxFollowsTheAlignment_data()
    {
        QTest::addColumn<int>("align");
        QTest::addColumn<int>("y");
        QTest::newRow("top") << 1 << 0;
        QTest::newRow("bottom") << 2 << 20;
    }
    void glyphBoxFollowsTheAlignment()
    {
        QFETCH(int, align);
        QFETCH(int, y);
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        AddKey(row, 10);
        row.StyleAs<KeyTrackStyle>()->keyAlign = align;
        QCOMPARE(row.HitTestKey(QPoint(104, y)), 0);
        row.StyleAs<KeyTrackStyle>()->keyAlign = 0;
        QCOMPARE(row.HitTestKey(QPoint(104, y)), -1);
    }

    void barBoxHasAMarginAndReachesTheBottomOfTheRow_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("barHeight");
        QTest::newRow("key") << int(TL_TRACK_KEY) << 14;
        QTest::newRow("transition key") << int(TL_TRACK_TRANSITION_KEY) << 14;
        QTest::newRow("link key, the line part's height") << int(TL_TRACK_LINK_KEY) << 18;
        QTest::newRow("viseme key") << int(TL_TRACK_VISEME_KEY) << 21;
        QTest::newRow("clip") << int(TL_TRACK_CLIP) << -1;
        QTest::newRow("wave, two pixels less than the row") << int(TL_TRACK_WAVE) << -2;
    }
    void barBoxHasAMarginAndReachesTheBottomOfTheRow()
    {
        QFETCH(int, type);
        QFETCH(int, barHeight);
        CTimelineTrackBase& row = Row(type);
        row.SetRowHeight(40);
        if (type == TL_TRACK_CLIP)
            barHeight = row.StyleAs<ClipTrackStyle>()->height;
        if (type == TL_TRACK_WAVE)
            barHeight = 38;
        AddKey(row, 10, [](CTimelineKey& key) { key.clipLength = 5; });
        const int top = (40 - barHeight) / 2;
        const int bottom = 2 * top - 1 + barHeight;
        // Left: 100 - 6; right: 6 - 1 + the start of the frame after the display length.
        QCOMPARE(row.HitTestKey(QPoint(94, top)), 0);
        QCOMPARE(row.HitTestKey(QPoint(93, top)), -1);
        QCOMPARE(row.HitTestKey(QPoint(155, top)), 0);
        QCOMPARE(row.HitTestKey(QPoint(156, top)), -1);
        QCOMPARE(row.HitTestKey(QPoint(120, top - 1)), -1);
        QCOMPARE(row.HitTestKey(QPoint(120, bottom)), 0);
        QCOMPARE(row.HitTestKey(QPoint(120, bottom + 1)), -1);
    }

    void barBoxWithoutAMarginIsTheBar()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        const CTimelineKey& key = AddKey(row, 10, [](CTimelineKey& each) { each.clipLength = 5; });
        const KeyHitTest hitTest(TheAxis(), TL_TRACK_KEY, row.GetStyle(), 20);
        QVERIFY(hitTest.Hits(key, 10, QPoint(100, 10), 0));
        QVERIFY(!hitTest.Hits(key, 10, QPoint(99, 10), 0));
        QVERIFY(hitTest.Hits(key, 10, QPoint(159, 10), 0));
        QVERIFY(!hitTest.Hits(key, 10, QPoint(160, 10), 0));
    }

    void keysWithoutALengthOnALinkRowAreHitAsBars()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_LINK_KEY);
        AddKey(row, 10);
        QCOMPARE(row.HitTestKey(QPoint(94, 10)), 0);
        QCOMPARE(row.HitTestKey(QPoint(105, 10)), 0);
        QCOMPARE(row.HitTestKey(QPoint(106, 10)), -1);
    }

    void keysWithoutALengthOnClipAndWaveRowsAreHitAsBars_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("clip") << int(TL_TRACK_CLIP);
        QTest::newRow("wave") << int(TL_TRACK_WAVE);
    }
    void keysWithoutALengthOnClipAndWaveRowsAreHitAsBars()
    {
        QFETCH(int, type);
        CTimelineTrackBase& row = Row(type);
        AddKey(row, 10);
        QCOMPARE(row.HitTestKey(QPoint(93, 10)), -1);
        QCOMPARE(row.HitTestKey(QPoint(94, 10)), 0);
        QCOMPARE(row.HitTestKey(QPoint(105, 10)), 0);
        QCOMPARE(row.HitTestKey(QPoint(106, 10)), -1);
    }

    void keysOnATransitionRowAreHitOnTheirOwnGlyph()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_TRANSITION_KEY);
        AddKey(row, 10);
        const int group = row.StyleAs<KeyTrackStyle>()->keyBmpType + kTransitionGlyphs;
        const QSize size = TimelineLibrary::Instance().images.Glyph(group, 0).size();
        const int left = 100 + (10 - size.width()) / 2;
        const int top = (row.GetRowHeight() - size.height()) / 2;
        QCOMPARE(row.HitTestKey(QPoint(left, top)), 0);
        QCOMPARE(row.HitTestKey(QPoint(left, top - 1)), -1);
        QCOMPARE(row.HitTestKey(QPoint(left + size.width(), top + size.height())), 0);
        QCOMPARE(row.HitTestKey(QPoint(left + size.width() + 1, top)), -1);
    }

    void keyInAGroupIsHitOnTheGroupsGlyph()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        // The glyphs of the transition row are wider and lower than those of the key row.
        auto* style = row.StyleAs<KeyTrackStyle>();
        const int related = style->relatedKeyBmpType;
        style->relatedKeyBmpType = style->keyBmpType + kTransitionGlyphs;
        CTimelineKey& key = AddKey(row, 10);
        const QPoint aboveTheGroupsGlyph(104, 5);
        QCOMPARE(row.HitTestKey(aboveTheGroupsGlyph), 0);
        Join(key);
        QCOMPARE(row.HitTestKey(aboveTheGroupsGlyph), -1);
        QCOMPARE(row.HitTestKey(QPoint(104, 10)), 0);
        style->relatedKeyBmpType = related;
    }

    void barHigherThanItsRowIsNotHit()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        AddKey(row, 10, [](CTimelineKey& key) { key.clipLength = 5; });
        row.SetRowHeight(13);
        for (int y = -20; y < 40; ++y)
            QCOMPARE(row.HitTestKey(QPoint(120, y)), -1);
        row.SetRowHeight(14);
        QCOMPARE(row.HitTestKey(QPoint(120, 5)), 0);
    }

    void lastKeyUnderThePointerWinsAndLockedOnesAreSkipped()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        AddKey(row, 10);
        AddKey(row, 10);
        CTimelineKey& last = AddKey(row, 10);
        QCOMPARE(row.HitTestKey(QPoint(104, 10)), 2);
        last.lockState = 1;
        QCOMPARE(row.HitTestKey(QPoint(104, 10)), 1);
        last.lockState = 2;
        QCOMPARE(row.HitTestKey(QPoint(104, 10)), 2);
    }

    void pointLeftOfTheRowStillHitsABarThere()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        AddKey(row, 0, [](CTimelineKey& key) { key.clipLength = 5; });
        QCOMPARE(row.HitTestKey(QPoint(-6, 10)), 0);
        QCOMPARE(row.HitTestKey(QPoint(-7, 10)), -1);
    }

    void noKeyIsHitWithoutAStyle()
    {
        CTimelineTrackKey track;
        track.Init(nullptr);
        AddKey(track, 10);
        QCOMPARE(track.HitTestKey(QPoint(104, 10)), -1);
    }

    void subKeysAreFoundFromTheLastOn()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_VISEME_KEY);
        AddClip(row, 5, 10, 1, {3, 3, 7});
        // Mouth shapes are 25 pixels wide: frame 8 is hit from 72 to 97.
        QCOMPARE(row.HitTestSubKey(QPoint(80, 10), 0), 1);
        QCOMPARE(row.HitTestSubKey(QPoint(130, 10), 0), 2);
        QCOMPARE(row.HitTestSubKey(QPoint(71, 10), 0), -1);
    }

    void subKeysBeyondTheDisplayLengthAreNotHit()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_VISEME_KEY);
        CTimelineKey& clip = AddClip(row, 5, 10, 1, {7});
        clip.displayLength = 7;
        QCOMPARE(row.HitTestSubKey(QPoint(125, 10), 0), 0);
        clip.displayLength = 6;
        QCOMPARE(row.HitTestSubKey(QPoint(125, 10), 0), -1);
    }

    void subKeysOfTheLaterPassesAreNotHit()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_VISEME_KEY);
        AddClip(row, 5, 10, 2, {3});
        QCOMPARE(row.HitTestSubKey(QPoint(184, 10), 0), -1);
    }

    void hitTestSubKeyOfNoClipIsMinusOne_data()
    {
        QTest::addColumn<int>("index");
        QTest::newRow("none") << -1;
        QTest::newRow("key without sub-keys") << 0;
        QTest::newRow("past the end") << 1;
    }
    void hitTestSubKeyOfNoClipIsMinusOne()
    {
        QFETCH(int, index);
        CTimelineTrackBase& row = Row(TL_TRACK_VISEME_KEY);
        AddKey(row, 10);
        QCOMPARE(row.HitTestSubKey(QPoint(104, 10), index), -1);
    }

    void rangeMarkersAreHitInTheirBoxes_data()
    {
        QTest::addColumn<QPoint>("point");
        QTest::addColumn<int>("marker");
        // The markers are 7 x 26 pixels: the start at 40 to 46, the end at 93 to 99.
        QTest::newRow("start, first column") << QPoint(40, 0) << 0;
        QTest::newRow("start, last column and row") << QPoint(46, 25) << 0;
        QTest::newRow("left of start") << QPoint(39, 0) << -1;
        QTest::newRow("right of start") << QPoint(47, 0) << -1;
        QTest::newRow("end, first column") << QPoint(93, 0) << 1;
        QTest::newRow("end, last column and row") << QPoint(99, 25) << 1;
        QTest::newRow("left of end") << QPoint(92, 0) << -1;
        QTest::newRow("right of end") << QPoint(100, 0) << -1;
        QTest::newRow("above") << QPoint(95, -1) << -1;
        QTest::newRow("below") << QPoint(95, 26) << -1;
    }
    void rangeMarkersAreHitInTheirBoxes()
    {
        QFETCH(QPoint, point);
        QFETCH(int, marker);
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        SetModes(row, {TL_EDIT_TIME_RANGE});
        row.SetRange(9, 4);
        QCOMPARE(row.HitTestRangeMarker(point), marker);
    }

    void endMarkerWinsWhereBothStand()
    {
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        SetModes(row, {TL_EDIT_TIME_RANGE});
        row.SetRange(4, 4);
        QCOMPARE(row.HitTestRangeMarker(QPoint(45, 3)), 1);
        QCOMPARE(row.HitTestRangeMarker(QPoint(42, 3)), 0);
    }

    void markersAreNotHitWithoutTheModeOrARange_data()
    {
        QTest::addColumn<bool>("mode");
        QTest::addColumn<int>("start");
        QTest::newRow("no mode") << false << 4;
        QTest::newRow("half a range") << true << -1;
    }
    void markersAreNotHitWithoutTheModeOrARange()
    {
        QFETCH(bool, mode);
        QFETCH(int, start);
        CTimelineTrackBase& row = Row(TL_TRACK_KEY);
        if (mode)
            SetModes(row, {TL_EDIT_TIME_RANGE});
        row.SetRange(start, 9);
        QCOMPARE(row.HitTestRangeMarker(QPoint(95, 3)), -1);
    }
};

QTEST_MAIN(tst_CTimelineTrackBase)
#include "tst_CTimelineTrackBase.moc"
