#include "KeyMakers.h"
#include "RedeclaredKeyArray.h"

#include <QtTest>

#include <limits>
#include <type_traits>
#include <utility>

namespace {

/// What an accessor of the array gives for an int.
template <class Accessor>
using ResultOf = std::invoke_result_t<Accessor, const CTimelineKeyArray&, int>;
using HeldKey = VZ::CPointer<CTimelineKey>;

// By value: the caller's own pointer keeps the key alive whatever becomes of the array.
static_assert(std::is_same_v<ResultOf<decltype(&CTimelineKeyArray::GetAt)>, HeldKey>);
static_assert(std::is_same_v<ResultOf<decltype(&CTimelineKeyArray::SelGetKeyAt)>, HeldKey>);
static_assert(std::is_same_v<ResultOf<decltype(&CTimelineKeyArray::MoveGetAt)>, HeldKey>);
static_assert(std::is_same_v<ResultOf<decltype(&CTimelineKeyArray::RelatedGetAt)>, HeldKey>);

} // namespace

/// Opens the run search for tests.
class OpenKeyArray : public CTimelineKeyArray
{
public:
    using CTimelineKeyArray::GetSameFrameID;
};

class tst_CTimelineKeyArray : public QObject
{
    Q_OBJECT

private slots:
    void isEmptyAtFirst();
    void theLastReleaseRunsTheVirtualDestructor();
    void aCountOfZeroWrapsAndDeletesNothing();
    void onlyItsDestructorIsVirtual();
    void aCopySharesTheKeysAndCopiesTheCount();
    void anAssignmentSharesTheKeysAndCopiesTheCount();
    void canBeAssignedAnArrayInsideOneOfItsKeys();

    void findsTheInsertIndex_data();
    void findsTheInsertIndex();
    void anEmptyArrayGivesInsertIndexZero();
    void aFrameAboveEveryKeyGivesTheSize();
    void searchesTheMainListByDefault();
    void searchesAnyListThatIsHandedIn();
    void theSearchAgreesWithALinearOne();
    void theSearchEndsOnAListOutOfOrder();
    void findsTheEndsOfARunOfOneFrame();
    void aRunOutsideTheListIsNone();

    void keepsKeysOfOneFrameInTheOrderOfAddition();
    void addsBelowTheFirstAndAboveTheLastKey();
    void replacesTheLastKeyOfTheFrame();
    void replacingReleasesTheFormerKey();
    void replacingOnAFreeFrameInserts();
    void refusesANullKey();
    void holdsTheKeysItWasGiven();
    void aKeyThatArrivesSelectedJoinsTheSelection();
    void addingShiftsTheSelectionAlong();
    void addingTakesTheSelectionFromTheMarks();
    void addingUpdatesTheClipBeforeTheKey();

    void hitsTheFirstAndTheLastKeyOfAFrame();
    void hitsNothingOnAnEmptyArray();
    void hitsClipRangeIncludingItsEnds_data();
    void hitsClipRangeIncludingItsEnds();
    void clipRangeOfAPlainKeyIsNeverHit();
    void clipRangeOfANegativeClipLengthIsNeverHit();
    void clipRangeLooksOnlyAtTheNearestKeyBefore();
    void clipRangeChoosesAmongKeysOfOneFrame();
    void clipRangeUsesTheTrimmedLength();
    void clipRangeReachesTheLastFrameThereIs();

    void removingReleasesTheKey();
    void removingASelectedKeyCorrectsTheSelection();
    void removingAnUnselectedKeyLeavesTheSelectionAsItIs();
    void removingUpdatesTheDisplayLengthsBefore();
    void removingTheFirstKeyUpdatesNothing();
    void removesAKeyByIdentity();
    void removesTheFirstOfTwoPlacesOfOneKey();
    void removingAKeyThatIsNotThereDoesNothing();
    void removeAllEmptiesEveryList();
    void givesItsKeysCounted();
};

void tst_CTimelineKeyArray::isEmptyAtFirst()
{
    const CTimelineKeyArray array;
    QCOMPARE(array.GetReferences(), 0u);
    QCOMPARE(array.GetSize(), std::size_t{0});
    QCOMPARE(array.SelGetSize(), std::size_t{0});
    QCOMPARE(array.MoveGetSize(), std::size_t{0});
    QCOMPARE(array.RelatedGetSize(), std::size_t{0});
}

void tst_CTimelineKeyArray::theLastReleaseRunsTheVirtualDestructor()
{
    int deletions = 0;
    VZ::CPointer<CTimelineKeyArray> first(new WatchedKeyArray(deletions));
    VZ::CPointer<CTimelineKeyArray> second(first);
    QCOMPARE(first->GetReferences(), 2u);
    first = nullptr;
    QCOMPARE(deletions, 0);
    second = nullptr;
    QCOMPARE(deletions, 1);
}

void tst_CTimelineKeyArray::aCountOfZeroWrapsAndDeletesNothing()
{
    int deletions = 0;
    CTimelineKeyArray* const array = new WatchedKeyArray(deletions);
    array->DecrementReferences();
    QCOMPARE(array->GetReferences(), 0xFFFFFFFFu);
    QCOMPARE(deletions, 0);
    delete array;
}

void tst_CTimelineKeyArray::onlyItsDestructorIsVirtual()
{
    QVERIFY(std::has_virtual_destructor<CTimelineKeyArray>::value);
    RedeclaredKeyArray redeclared;
    RedeclaredKeyArray::CallEveryOperationOfTheBase(redeclared);
    QCOMPARE(redeclared.calls, 0);
}

namespace {

/// One key in each of the four lists, and a count of 1.
void FillEveryList(CTimelineKeyArray& array)
{
    array.Add(MakeKey(4), false);
    array.SetSelection(4, 4, true, kEveryKind);
    array.SetSelToMove();
    array.RelatedAdd(MakeKey(9).Get(), false);
    array.IncrementReferences();
}

void CompareSharedLists(const CTimelineKeyArray& copy, const CTimelineKeyArray& array)
{
    QCOMPARE(copy.GetReferences(), 1u);
    QCOMPARE(copy.GetSize(), std::size_t{1});
    QVERIFY(copy.GetAt(0) == array.GetAt(0));
    QCOMPARE(array.Keys().front()->GetReferences(), 2u);
    QCOMPARE(SelectionOf(copy), QVector<int>({0}));
    QCOMPARE(copy.MoveGetSize(), std::size_t{1});
    QVERIFY(copy.MoveGetAt(0) == array.MoveGetAt(0));
    QCOMPARE(copy.RelatedGetSize(), std::size_t{1});
    QVERIFY(copy.RelatedGetAt(0) == array.RelatedGetAt(0));
}

} // namespace

void tst_CTimelineKeyArray::aCopySharesTheKeysAndCopiesTheCount()
{
    CTimelineKeyArray array;
    FillEveryList(array);
    const CTimelineKeyArray copy(array);
    CompareSharedLists(copy, array);
}

void tst_CTimelineKeyArray::anAssignmentSharesTheKeysAndCopiesTheCount()
{
    int deletions = 0;
    CTimelineKeyArray array;
    FillEveryList(array);
    CTimelineKeyArray target;
    target.Add(new WatchedKey(deletions), false);
    CTimelineKeyArray& result = (target = array);
    QCOMPARE(deletions, 1);
    QCOMPARE(&result, &target);
    CompareSharedLists(target, array);
}

void tst_CTimelineKeyArray::canBeAssignedAnArrayInsideOneOfItsKeys()
{
    CTimelineKeyArray array;
    const CTimelineKeyArray* inner = nullptr;
    {
        const auto clip = MakeClip(0, 10);
        clip->subKeys = new CTimelineKeyArray;
        AddFrames(*clip->subKeys, {1, 2, 3});
        inner = clip->subKeys.Get();
        array.Add(clip, false);
    }
    array = *inner;
    QCOMPARE(FramesOf(array), QVector<int>({1, 2, 3}));
}

// --- Search

void tst_CTimelineKeyArray::findsTheInsertIndex_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<bool>("first");
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("found");

    QTest::newRow("below the first") << 4 << true << 0 << false;
    QTest::newRow("at the first") << 5 << true << 0 << true;
    QTest::newRow("between two") << 6 << false << 1 << false;
    QTest::newRow("first of a run") << 10 << true << 2 << true;
    QTest::newRow("last of a run") << 10 << false << 4 << true;
    QTest::newRow("after a run") << 11 << true << 5 << false;
    QTest::newRow("at the last") << 20 << false << 6 << true;
    QTest::newRow("above the last") << 21 << false << 7 << false;
}

void tst_CTimelineKeyArray::findsTheInsertIndex()
{
    QFETCH(int, frame);
    QFETCH(bool, first);
    CTimelineKeyArray array;
    AddFrames(array, {5, 7, 10, 10, 10, 15, 20});

    int index = -5;
    bool found = false;
    array.GetInsertIndex(frame, first, index, found);
    QTEST(index, "index");
    QTEST(found, "found");
}

void tst_CTimelineKeyArray::anEmptyArrayGivesInsertIndexZero()
{
    const CTimelineKeyArray array;
    int index = -5;
    bool found = true;
    array.GetInsertIndex(3, true, index, found);
    QCOMPARE(index, 0);
    QVERIFY(!found);
}

void tst_CTimelineKeyArray::aFrameAboveEveryKeyGivesTheSize()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 3});
    int index = -5;
    bool found = true;
    array.GetInsertIndex(4, false, index, found);
    QCOMPARE(index, 3);
    QVERIFY(!found);
}

void tst_CTimelineKeyArray::searchesTheMainListByDefault()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2});
    array.RelatedAdd(MakeKey(9).Get(), false);
    int index = -5;
    bool found = true;
    array.GetInsertIndex(9, false, index, found);
    QCOMPARE(index, 2);
    QVERIFY(!found);
}

void tst_CTimelineKeyArray::searchesAnyListThatIsHandedIn()
{
    const CTimelineKeyArray array;
    const CTimelineKeyArray::KeyVector keys{MakeKey(3), MakeKey(3), MakeKey(8)};
    int index = -5;
    bool found = false;
    array.GetInsertIndex(keys, 3, false, index, found);
    QCOMPARE(index, 1);
    QVERIFY(found);
}

void tst_CTimelineKeyArray::theSearchAgreesWithALinearOne()
{
    for (int size = 0; size <= 12; ++size) {
        CTimelineKeyArray array;
        for (int i = 0; i < size; ++i)
            array.Add(MakeKey(2 * (i - i % 2)), false); // pairs: 0 0 4 4 8 8
        for (int frame = -1; frame <= 2 * size + 2; ++frame) {
            const QVector<int> frames = FramesOf(array);
            const auto below = std::lower_bound(frames.begin(), frames.end(), frame);
            const auto above = std::upper_bound(frames.begin(), frames.end(), frame);
            int index = -5;
            bool found = false;
            array.GetInsertIndex(frame, true, index, found);
            QCOMPARE(found, below != above);
            QCOMPARE(index, static_cast<int>(below - frames.begin()));
            array.GetInsertIndex(frame, false, index, found);
            QCOMPARE(index, static_cast<int>((found ? above - 1 : above) - frames.begin()));
        }
    }
}

void tst_CTimelineKeyArray::theSearchEndsOnAListOutOfOrder()
{
    const CTimelineKeyArray array;
    const CTimelineKeyArray::KeyVector keys{MakeKey(3),  MakeKey(40), MakeKey(1), MakeKey(0),
                                            MakeKey(30), MakeKey(2),  MakeKey(50)};
    for (int frame = -2; frame <= 52; ++frame) {
        int index = -5;
        bool found = false;
        array.GetInsertIndex(keys, frame, true, index, found);
        QVERIFY(index >= 0);
        QVERIFY(index <= static_cast<int>(keys.size()));
    }
}

void tst_CTimelineKeyArray::findsTheEndsOfARunOfOneFrame()
{
    OpenKeyArray array;
    AddFrames(array, {1, 4, 4, 4, 6});
    QCOMPARE(array.GetSameFrameID(array.Keys(), 2, true), 1);
    QCOMPARE(array.GetSameFrameID(array.Keys(), 2, false), 3);
    QCOMPARE(array.GetSameFrameID(array.Keys(), 0, true), 0);
    QCOMPARE(array.GetSameFrameID(array.Keys(), 4, false), 4);
}

void tst_CTimelineKeyArray::aRunOutsideTheListIsNone()
{
    OpenKeyArray array;
    AddFrames(array, {1, 4});
    QCOMPARE(array.GetSameFrameID(array.Keys(), -1, true), -1);
    QCOMPARE(array.GetSameFrameID(array.Keys(), 2, false), -1);
    QCOMPARE(array.GetSameFrameID({}, 0, true), -1);
}

// --- Adding

void tst_CTimelineKeyArray::keepsKeysOfOneFrameInTheOrderOfAddition()
{
    CTimelineKeyArray array;
    QCOMPARE(array.Add(MakeKey(10, "first"), false), 0);
    QCOMPARE(array.Add(MakeKey(5), false), 0);
    QCOMPARE(array.Add(MakeKey(10, "second"), false), 2);
    QCOMPARE(array.Add(MakeKey(7), false), 1);
    QCOMPARE(FramesOf(array), QVector<int>({5, 7, 10, 10}));
    QCOMPARE(array.GetAt(2)->name, QStringLiteral("first"));
    QCOMPARE(array.GetAt(3)->name, QStringLiteral("second"));
}

void tst_CTimelineKeyArray::addsBelowTheFirstAndAboveTheLastKey()
{
    CTimelineKeyArray array;
    AddFrames(array, {5});
    QCOMPARE(array.Add(MakeKey(-3), true), 0);
    QCOMPARE(array.Add(MakeKey(9), true), 2);
    QCOMPARE(FramesOf(array), QVector<int>({-3, 5, 9}));
}

void tst_CTimelineKeyArray::replacesTheLastKeyOfTheFrame()
{
    CTimelineKeyArray array;
    array.Add(MakeKey(5), false);
    array.Add(MakeKey(10, "first"), false);
    array.Add(MakeKey(10, "second"), false);
    QCOMPARE(array.Add(MakeKey(10, "third"), true), 2);
    QCOMPARE(FramesOf(array), QVector<int>({5, 10, 10}));
    QCOMPARE(array.GetAt(1)->name, QStringLiteral("first"));
    QCOMPARE(array.GetAt(2)->name, QStringLiteral("third"));
}

void tst_CTimelineKeyArray::replacingReleasesTheFormerKey()
{
    int deletions = 0;
    CTimelineKeyArray array;
    array.Add(new WatchedKey(deletions), false);
    array.Add(MakeKey(0), true);
    QCOMPARE(deletions, 1);
    QCOMPARE(array.GetSize(), std::size_t{1});
}

void tst_CTimelineKeyArray::replacingOnAFreeFrameInserts()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 9});
    QCOMPARE(array.Add(MakeKey(5), true), 1);
    QCOMPARE(FramesOf(array), QVector<int>({1, 5, 9}));
}

void tst_CTimelineKeyArray::refusesANullKey()
{
    CTimelineKeyArray array;
    AddFrames(array, {1});
    array.SelAdd(0); // not marked: an addition would drop this entry
    QCOMPARE(array.Add(nullptr, false), -1);
    QCOMPARE(array.Add(nullptr, true), -1);
    QCOMPARE(array.GetSize(), std::size_t{1});
    QCOMPARE(SelectionOf(array), QVector<int>({0}));
}

void tst_CTimelineKeyArray::holdsTheKeysItWasGiven()
{
    const auto key = MakeKey(1);
    {
        CTimelineKeyArray array;
        array.Add(key, false);
        QCOMPARE(key->GetReferences(), 2u);
    }
    QCOMPARE(key->GetReferences(), 1u);
}

void tst_CTimelineKeyArray::aKeyThatArrivesSelectedJoinsTheSelection()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 9});
    const auto key = MakeKey(5);
    key->selected = true;
    array.Add(key, false);
    QCOMPARE(SelectionOf(array), QVector<int>({1}));
}

void tst_CTimelineKeyArray::addingShiftsTheSelectionAlong()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 5, 9});
    array.SetSelection(5, 9, true, kEveryKind);
    array.Add(MakeKey(3), false);
    QCOMPARE(SelectionOf(array), QVector<int>({2, 3}));
    QCOMPARE(MarkedOf(array), QVector<int>({2, 3}));
}

void tst_CTimelineKeyArray::addingTakesTheSelectionFromTheMarks()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 5, 9});
    array.SelAdd(0);
    array.GetAt(2)->selected = true;
    array.Add(MakeKey(20), false);
    QCOMPARE(SelectionOf(array), QVector<int>({2}));
}

void tst_CTimelineKeyArray::addingUpdatesTheClipBeforeTheKey()
{
    CTimelineKeyArray array;
    array.Add(MakeClip(0, 8, 2), false);
    array.Add(MakeClip(10, 8, 2), false);
    array.Add(MakeKey(5), false);
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({4, 0, 16}));
}

// --- Hit tests

void tst_CTimelineKeyArray::hitsTheFirstAndTheLastKeyOfAFrame()
{
    CTimelineKeyArray array;
    AddFrames(array, {5, 7, 10, 10});
    QCOMPARE(array.HitKey(10, true), 2);
    QCOMPARE(array.HitKey(10, false), 3);
    QCOMPARE(array.HitKey(11, true), -1);
    QCOMPARE(array.HitKey(11, false), -1);
    QCOMPARE(array.HitKey(6, true), -1);
}

void tst_CTimelineKeyArray::hitsNothingOnAnEmptyArray()
{
    const CTimelineKeyArray array;
    QCOMPARE(array.HitKey(0, true), -1);
    QCOMPARE(array.HitClipRange(0, true, false), -1);
}

void tst_CTimelineKeyArray::hitsClipRangeIncludingItsEnds_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<int>("inclusive");
    QTest::addColumn<int>("exclusive");
    QTest::newRow("before the clip") << 19 << -1 << -1;
    QTest::newRow("its first frame") << 20 << 0 << -1;
    QTest::newRow("inside") << 21 << 0 << 0;
    QTest::newRow("last inside") << 24 << 0 << 0;
    QTest::newRow("its end") << 25 << 0 << -1;
    QTest::newRow("behind its end") << 26 << -1 << -1;
}

void tst_CTimelineKeyArray::hitsClipRangeIncludingItsEnds()
{
    QFETCH(int, frame);
    CTimelineKeyArray array;
    array.Add(MakeClip(20, 5), false);
    QCOMPARE(array.GetAt(0)->displayLength, 5);
    for (bool first : {true, false}) {
        QTEST(array.HitClipRange(frame, first, false), "inclusive");
        QTEST(array.HitClipRange(frame, first, true), "exclusive");
    }
}

void tst_CTimelineKeyArray::clipRangeOfAPlainKeyIsNeverHit()
{
    CTimelineKeyArray array;
    AddFrames(array, {20});
    QCOMPARE(array.HitClipRange(20, true, false), -1);
    QCOMPARE(array.HitClipRange(20, false, false), -1);
}

void tst_CTimelineKeyArray::clipRangeOfANegativeClipLengthIsNeverHit()
{
    CTimelineKeyArray array;
    array.Add(MakeClip(20, -5, -1), false);
    QCOMPARE(array.GetAt(0)->displayLength, 5); // as of a clip, but below 1 frame a pass it is none
    for (int frame : {20, 22, 25}) {
        QCOMPARE(array.HitClipRange(frame, true, false), -1);
        QCOMPARE(array.HitClipRange(frame, true, true), -1);
    }
}

void tst_CTimelineKeyArray::clipRangeLooksOnlyAtTheNearestKeyBefore()
{
    CTimelineKeyArray array;
    array.Add(MakeClip(0, 50), false);
    array.Add(MakeKey(10), false);
    QCOMPARE(array.HitClipRange(5, true, false), 0);
    QCOMPARE(array.HitClipRange(12, true, false), -1);
}

void tst_CTimelineKeyArray::clipRangeChoosesAmongKeysOfOneFrame()
{
    CTimelineKeyArray array;
    array.Add(MakeKey(10), false);
    array.Add(MakeClip(10, 4), false);
    QCOMPARE(array.HitClipRange(10, true, false), -1);
    QCOMPARE(array.HitClipRange(10, false, false), 1);
    QCOMPARE(array.HitClipRange(12, true, false), 1);
}

void tst_CTimelineKeyArray::clipRangeUsesTheTrimmedLength()
{
    CTimelineKeyArray array;
    array.Add(MakeClip(0, 8, 2), false);
    array.Add(MakeClip(10, 8), false);
    QCOMPARE(array.HitClipRange(9, true, false), 0);
    QCOMPARE(array.HitClipRange(9, true, true), -1);
    QCOMPARE(array.HitClipRange(10, true, false), 1);
}

void tst_CTimelineKeyArray::clipRangeReachesTheLastFrameThereIs()
{
    constexpr int last = std::numeric_limits<int>::max();
    CTimelineKeyArray array;
    array.Add(MakeClip(last - 2, 100), false);
    QCOMPARE(array.HitClipRange(last, true, false), 0);
    QCOMPARE(array.HitClipRange(last, true, true), 0);
}

// --- Removing

void tst_CTimelineKeyArray::removingReleasesTheKey()
{
    int deletions = 0;
    CTimelineKeyArray array;
    array.Add(new WatchedKey(deletions), false);
    AddFrames(array, {3, 4});
    array.RemoveAt(0);
    QCOMPARE(deletions, 1);
    QCOMPARE(FramesOf(array), QVector<int>({3, 4}));
}

void tst_CTimelineKeyArray::removingASelectedKeyCorrectsTheSelection()
{
    CTimelineKeyArray array;
    AddFrames(array, {0, 10, 20, 30, 40});
    array.SetSelectionByIndex(2, 2, true, 0);
    array.SetSelectionByIndex(4, 4, true, 0);
    array.RemoveAt(2);
    QCOMPARE(SelectionOf(array), QVector<int>({3}));
    QCOMPARE(MarkedOf(array), QVector<int>({3}));
}

void tst_CTimelineKeyArray::removingAnUnselectedKeyLeavesTheSelectionAsItIs()
{
    CTimelineKeyArray array;
    AddFrames(array, {0, 10, 20});
    array.SetSelectionByIndex(1, 2, true, 0);
    array.RemoveAt(0);
    QCOMPARE(SelectionOf(array), QVector<int>({1, 2}));
    QCOMPARE(MarkedOf(array), QVector<int>({0, 1}));
}

void tst_CTimelineKeyArray::removingUpdatesTheDisplayLengthsBefore()
{
    CTimelineKeyArray array;
    array.Add(MakeClip(0, 20), false);
    array.Add(MakeClip(5, 20), false);
    array.Add(MakeKey(10), false);
    array.Add(MakeKey(12), false);
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({4, 4, 0, 0}));

    array.GetAt(0)->displayLength = 77;
    array.GetAt(3)->displayLength = 88;
    array.RemoveAt(2);
    // Every key before the gap is computed anew, none behind it.
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({4, 6, 88}));
}

void tst_CTimelineKeyArray::removingTheFirstKeyUpdatesNothing()
{
    CTimelineKeyArray array;
    AddFrames(array, {0, 10, 20});
    for (int index = 0; index < 3; ++index)
        array.GetAt(index)->displayLength = 70 + index;
    array.RemoveAt(0);
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({71, 72}));
}

void tst_CTimelineKeyArray::removesAKeyByIdentity()
{
    CTimelineKeyArray array;
    const auto key = MakeKey(10, "second");
    array.Add(MakeKey(10, "first"), false);
    array.Add(key, false);
    array.Add(MakeKey(10, "third"), false);
    array.SetSelectionByIndex(1, 2, true, 0);
    array.RemoveAt(key.Get());
    QCOMPARE(array.GetSize(), std::size_t{2});
    QCOMPARE(array.GetAt(0)->name, QStringLiteral("first"));
    QCOMPARE(array.GetAt(1)->name, QStringLiteral("third"));
    QCOMPARE(SelectionOf(array), QVector<int>({1}));
}

void tst_CTimelineKeyArray::removesTheFirstOfTwoPlacesOfOneKey()
{
    CTimelineKeyArray array;
    const auto twice = MakeKey(10);
    array.Add(twice, false);
    array.Add(MakeKey(10, "between"), false);
    array.Add(twice, false);
    array.RemoveAt(twice.Get());
    QCOMPARE(array.GetSize(), std::size_t{2});
    QCOMPARE(array.GetAt(0)->name, QStringLiteral("between"));
    QVERIFY(array.GetAt(1) == twice);
}

void tst_CTimelineKeyArray::removingAKeyThatIsNotThereDoesNothing()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2});
    const auto stranger = MakeKey(1);
    array.RemoveAt(stranger.Get());
    array.RemoveAt(static_cast<CTimelineKey*>(nullptr));
    QCOMPARE(FramesOf(array), QVector<int>({1, 2}));
}

void tst_CTimelineKeyArray::removeAllEmptiesEveryList()
{
    int deletions = 0;
    CTimelineKeyArray array;
    array.Add(new WatchedKey(deletions), false);
    array.SetSelection(0, 0, true, kEveryKind);
    array.SetSelToMove();
    array.RelatedAdd(MakeKey(3).Get(), false);
    array.RemoveAll();
    QCOMPARE(deletions, 1);
    QCOMPARE(array.GetSize(), std::size_t{0});
    QCOMPARE(array.SelGetSize(), std::size_t{0});
    QCOMPARE(array.MoveGetSize(), std::size_t{0});
    QCOMPARE(array.RelatedGetSize(), std::size_t{0});
}

void tst_CTimelineKeyArray::givesItsKeysCounted()
{
    int deletions = 0;
    VZ::CPointer<CTimelineKey> held;
    {
        CTimelineKeyArray array;
        array.Add(new WatchedKey(deletions), false);
        held = array.GetAt(0);
        QCOMPARE(held->GetReferences(), 2u);
    }
    QCOMPARE(deletions, 0);
    QCOMPARE(held->GetReferences(), 1u);
}

QTEST_MAIN(tst_CTimelineKeyArray)
#include "tst_CTimelineKeyArray.moc"
