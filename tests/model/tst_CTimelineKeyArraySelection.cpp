#include "KeyMakers.h"

#include <QtTest>

#include <limits>

class tst_CTimelineKeyArraySelection : public QObject
{
    Q_OBJECT

private slots:
    void selectsAFrameRange_data();
    void selectsAFrameRange();
    void selectsTheSameRangeInEitherOrder();
    void anEmptyArrayCannotBeSelected();
    void deselectsAFrameRange();
    void selectsWithinAnExistingSelection();
    void deselectsTheMiddleOfASelection();
    void passesOverKeysOutsideTheMask();
    void theFullMaskTakesKeysWithoutAnyKind();
    void theMaskFiltersDeselectingToo();
    void passesOverLockedKeysInBothDirections();
    void onlyLockStateOneLocks();
    void goesByTheMarkNotByTheList();

    void selectsAnIndexRange();
    void deselectsAnIndexRange();
    void refusesIndexesOutsideTheArray_data();
    void refusesIndexesOutsideTheArray();
    void anIndexRangeThatRunsBackwardsChangesNothing();
    void anIndexRangeIgnoresTheMask();
    void anIndexRangePassesOverLockedKeys();

    void clearsTheWholeSelection();
    void clearingDeselectsLockedKeys();
    void clearingReachesIntoTheSubKeysOfSelectedKeys();
    void clearingLeavesTheSubKeysOfOtherKeys();
    void clearingEndsWhenSubKeysLeadBack();

    void selectsOneKeyAndDeselectsAllOthers();
    void selectingOnlyOneDeselectsLockedKeys();
    void selectingOnlyOneLeavesItAsItIsWhenItIsLocked();
    void selectingOnlyOneClearsTheSubKeysOfAllOthers();
    void selectingOnlyOneKeepsItsSubKeysThoughOthersShareThem();
    void selectingOnlyOneEndsWhenSubKeysLeadBack();
    void selectingOnlyOneForgetsStaleEntries();
    void selectingOnlyAnIndexOutsideLeavesNoneSelected_data();
    void selectingOnlyAnIndexOutsideLeavesNoneSelected();

    void addsAnIndexAtItsSortedPlace();
    void addingAnIndexTwiceKeepsOne();
    void addingAnIndexLeavesTheMark();
    void findsTheInsertPosition_data();
    void findsTheInsertPosition();
    void anEmptySelectionGivesPositionZero();
    void hitsSelectedIndexesOnly();
    void givesTheSelectedKeys();

    void theMoveSetHoldsFreshCopies();
    void theMoveSetIsReplacedEachTime();
    void theMoveSetCanBeCleared();

    void movedKeysReplaceWhatTheyLandOn();
    void movedKeysStandAfterWhatTheyLandOn();
    void movesPastFrameZero();
    void movingKeepsTheMoveSetAtTheOldFrames();
    void movingKeepsTheSelection();
    void movingTakesLockedKeysAlong();
    void movingKeepsTheOrderOfKeysOfOneFrame();
    void movingRecomputesEveryDisplayLength();
    void movingWithoutASelectionStillRecomputes();
    void movingStopsAtTheEndsOfTheNumberRange();
    void aReplacedKeyIsReleased();

    void staleEntriesPointOneKeyFurther();
    void staleEntriesPastTheEndArePassedOver();
    void anEntryFarPastTheEndMeansNoKey();
    void aNegativeEntryMeansNoKey();
};

namespace {

CTimelineKeyArray::KeyVector KeysAt(const QVector<int>& frames)
{
    CTimelineKeyArray::KeyVector keys;
    for (int frame : frames)
        keys.push_back(MakeKey(frame));
    return keys;
}

/// Selects the keys at these indexes.
void Select(CTimelineKeyArray& array, const QVector<int>& indexes)
{
    for (int index : indexes)
        array.SetSelectionByIndex(index, index, true, 0);
}

} // namespace

// --- By frames

void tst_CTimelineKeyArraySelection::selectsAFrameRange_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QVector<int>>("selection");
    QTest::newRow("both ends on keys") << 10 << 30 << QVector<int>{0, 1, 2, 3};
    QTest::newRow("a whole run of one frame") << 20 << 20 << QVector<int>{1, 2};
    QTest::newRow("ends between keys") << 15 << 35 << QVector<int>{1, 2, 3};
    QTest::newRow("between two keys") << 21 << 29 << QVector<int>{};
    QTest::newRow("below the first key") << 0 << 9 << QVector<int>{};
    QTest::newRow("above the last key") << 41 << 50 << QVector<int>{};
    QTest::newRow("from below to the first key") << 0 << 10 << QVector<int>{0};
    QTest::newRow("from the last key upwards") << 40 << 99 << QVector<int>{4};
    QTest::newRow("everything") << -5 << 99 << QVector<int>{0, 1, 2, 3, 4};
}

void tst_CTimelineKeyArraySelection::selectsAFrameRange()
{
    QFETCH(int, from);
    QFETCH(int, to);
    CTimelineKeyArray array;
    AddFrames(array, {10, 20, 20, 30, 40});
    QVERIFY(array.SetSelection(from, to, true, kEveryKind));
    QTEST(SelectionOf(array), "selection");
    QTEST(MarkedOf(array), "selection");
}

void tst_CTimelineKeyArraySelection::selectsTheSameRangeInEitherOrder()
{
    CTimelineKeyArray array;
    AddFrames(array, {5, 10, 20, 30, 40});
    QVERIFY(array.SetSelection(30, 10, true, 0xFFFFFFFFu));
    QCOMPARE(SelectionOf(array), QVector<int>({1, 2, 3}));
}

void tst_CTimelineKeyArraySelection::anEmptyArrayCannotBeSelected()
{
    CTimelineKeyArray array;
    QVERIFY(!array.SetSelection(0, 10, true, kEveryKind));
    QVERIFY(!array.SetSelectionByIndex(0, 0, true, kEveryKind));
}

void tst_CTimelineKeyArraySelection::deselectsAFrameRange()
{
    CTimelineKeyArray array;
    AddFrames(array, {10, 20, 30, 40});
    array.SetSelection(0, 99, true, kEveryKind);
    QVERIFY(array.SetSelection(20, 30, false, kEveryKind));
    QCOMPARE(SelectionOf(array), QVector<int>({0, 3}));
    QCOMPARE(MarkedOf(array), QVector<int>({0, 3}));
}

void tst_CTimelineKeyArraySelection::selectsWithinAnExistingSelection()
{
    CTimelineKeyArray array;
    AddFrames(array, {10, 20, 30, 40, 50, 60});
    Select(array, {0, 2, 5});
    array.SetSelection(20, 50, true, kEveryKind);
    QCOMPARE(SelectionOf(array), QVector<int>({0, 1, 2, 3, 4, 5}));
}

void tst_CTimelineKeyArraySelection::deselectsTheMiddleOfASelection()
{
    CTimelineKeyArray array;
    AddFrames(array, {10, 20, 30, 40, 50, 60});
    Select(array, {0, 2, 3, 5});
    array.SetSelection(20, 50, false, kEveryKind);
    QCOMPARE(SelectionOf(array), QVector<int>({0, 5}));
}

void tst_CTimelineKeyArraySelection::passesOverKeysOutsideTheMask()
{
    CTimelineKeyArray array;
    AddFrames(array, {10, 20});
    array.GetAt(0)->kindMask = 1;
    array.GetAt(1)->kindMask = 3;
    QVERIFY(array.SetSelection(0, 99, true, 2));
    QCOMPARE(SelectionOf(array), QVector<int>({1}));
    QCOMPARE(MarkedOf(array), QVector<int>({1}));
}

void tst_CTimelineKeyArraySelection::theFullMaskTakesKeysWithoutAnyKind()
{
    CTimelineKeyArray array;
    AddFrames(array, {10});
    array.GetAt(0)->kindMask = 0;
    array.SetSelection(0, 99, true, 0x7FFFFFFFu);
    QCOMPARE(SelectionOf(array), QVector<int>());
    array.SetSelection(0, 99, true, 0xFFFFFFFFu);
    QCOMPARE(SelectionOf(array), QVector<int>({0}));
}

void tst_CTimelineKeyArraySelection::theMaskFiltersDeselectingToo()
{
    CTimelineKeyArray array;
    AddFrames(array, {10, 20});
    array.GetAt(1)->kindMask = 4;
    array.SetSelection(0, 99, true, kEveryKind);
    array.SetSelection(0, 99, false, 4);
    QCOMPARE(SelectionOf(array), QVector<int>({0}));
}

void tst_CTimelineKeyArraySelection::passesOverLockedKeysInBothDirections()
{
    CTimelineKeyArray array;
    AddFrames(array, {10, 20, 30});
    Select(array, {1});
    array.GetAt(0)->lockState = 1;
    array.GetAt(1)->lockState = 1;
    array.SetSelection(0, 99, true, kEveryKind);
    QCOMPARE(SelectionOf(array), QVector<int>({1, 2}));
    array.SetSelection(0, 99, false, kEveryKind);
    QCOMPARE(SelectionOf(array), QVector<int>({1}));
    QCOMPARE(MarkedOf(array), QVector<int>({1}));
}

void tst_CTimelineKeyArraySelection::onlyLockStateOneLocks()
{
    CTimelineKeyArray array;
    AddFrames(array, {10});
    array.GetAt(0)->lockState = 2;
    array.SetSelection(0, 99, true, kEveryKind);
    QCOMPARE(SelectionOf(array), QVector<int>({0}));
}

void tst_CTimelineKeyArraySelection::goesByTheMarkNotByTheList()
{
    CTimelineKeyArray array;
    AddFrames(array, {10, 20, 30});
    array.SelAdd(1);                 // listed, not marked
    array.GetAt(2)->selected = true; // marked, not listed
    array.SetSelection(0, 99, true, kEveryKind);
    QCOMPARE(SelectionOf(array), QVector<int>({0, 1}));
    QCOMPARE(MarkedOf(array), QVector<int>({0, 1, 2}));
    array.SetSelection(30, 30, false, kEveryKind);
    QCOMPARE(SelectionOf(array), QVector<int>({0, 1}));
    QCOMPARE(MarkedOf(array), QVector<int>({0, 1}));
}

// --- By indexes

void tst_CTimelineKeyArraySelection::selectsAnIndexRange()
{
    CTimelineKeyArray array;
    AddFrames(array, {10, 10, 20, 30});
    QVERIFY(array.SetSelectionByIndex(1, 2, true, kEveryKind));
    QCOMPARE(SelectionOf(array), QVector<int>({1, 2}));
    QCOMPARE(MarkedOf(array), QVector<int>({1, 2}));
}

void tst_CTimelineKeyArraySelection::deselectsAnIndexRange()
{
    CTimelineKeyArray array;
    AddFrames(array, {10, 10, 20, 30});
    array.SetSelectionByIndex(0, 3, true, kEveryKind);
    QVERIFY(array.SetSelectionByIndex(0, 1, false, kEveryKind));
    QCOMPARE(SelectionOf(array), QVector<int>({2, 3}));
}

void tst_CTimelineKeyArraySelection::refusesIndexesOutsideTheArray_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::newRow("first below") << -1 << 1;
    QTest::newRow("first above") << 3 << 1;
    QTest::newRow("last below") << 1 << -1;
    QTest::newRow("last above") << 1 << 3;
}

void tst_CTimelineKeyArraySelection::refusesIndexesOutsideTheArray()
{
    QFETCH(int, first);
    QFETCH(int, last);
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 3});
    QVERIFY(!array.SetSelectionByIndex(first, last, true, kEveryKind));
    QCOMPARE(SelectionOf(array), QVector<int>());
    QCOMPARE(MarkedOf(array), QVector<int>());
}

void tst_CTimelineKeyArraySelection::anIndexRangeThatRunsBackwardsChangesNothing()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 3});
    QVERIFY(array.SetSelectionByIndex(2, 0, true, kEveryKind));
    QCOMPARE(SelectionOf(array), QVector<int>());
    QCOMPARE(MarkedOf(array), QVector<int>());
}

void tst_CTimelineKeyArraySelection::anIndexRangeIgnoresTheMask()
{
    CTimelineKeyArray array;
    AddFrames(array, {1});
    QVERIFY(array.SetSelectionByIndex(0, 0, true, 0x80u));
    QCOMPARE(SelectionOf(array), QVector<int>({0}));
}

void tst_CTimelineKeyArraySelection::anIndexRangePassesOverLockedKeys()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 3});
    array.GetAt(1)->lockState = 1;
    QVERIFY(array.SetSelectionByIndex(0, 2, true, kEveryKind));
    QCOMPARE(SelectionOf(array), QVector<int>({0, 2}));
}

// --- Clearing

void tst_CTimelineKeyArraySelection::clearsTheWholeSelection()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 3});
    array.SetSelection(0, 99, true, kEveryKind);
    array.ClearAllSelection();
    QCOMPARE(SelectionOf(array), QVector<int>());
    QCOMPARE(MarkedOf(array), QVector<int>());
}

void tst_CTimelineKeyArraySelection::clearingDeselectsLockedKeys()
{
    CTimelineKeyArray array;
    AddFrames(array, {1});
    Select(array, {0});
    array.GetAt(0)->lockState = 1;
    array.ClearAllSelection();
    QCOMPARE(MarkedOf(array), QVector<int>());
}

void tst_CTimelineKeyArraySelection::clearingReachesIntoTheSubKeysOfSelectedKeys()
{
    CTimelineKeyArray array;
    AddFrames(array, {1});
    array.GetAt(0)->subKeys = new CTimelineKeyArray;
    CTimelineKeyArray& inner = *array.GetAt(0)->subKeys;
    AddFrames(inner, {0, 1});
    inner.GetAt(1)->subKeys = new CTimelineKeyArray;
    CTimelineKeyArray& innermost = *inner.GetAt(1)->subKeys;
    AddFrames(innermost, {0});
    Select(array, {0});
    Select(inner, {0, 1});
    Select(innermost, {0});

    array.ClearAllSelection();

    QCOMPARE(SelectionOf(inner), QVector<int>());
    QCOMPARE(MarkedOf(inner), QVector<int>());
    QCOMPARE(MarkedOf(innermost), QVector<int>());
}

void tst_CTimelineKeyArraySelection::clearingLeavesTheSubKeysOfOtherKeys()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2});
    array.GetAt(1)->subKeys = new CTimelineKeyArray;
    AddFrames(*array.GetAt(1)->subKeys, {0});
    Select(*array.GetAt(1)->subKeys, {0});
    Select(array, {0});
    array.ClearAllSelection();
    QCOMPARE(SelectionOf(*array.GetAt(1)->subKeys), QVector<int>({0}));
    QCOMPARE(MarkedOf(*array.GetAt(1)->subKeys), QVector<int>({0}));
}

void tst_CTimelineKeyArraySelection::clearingEndsWhenSubKeysLeadBack()
{
    const VZ::CPointer<CTimelineKeyArray> array(new CTimelineKeyArray);
    AddFrames(*array, {1});
    array->GetAt(0)->subKeys = array;
    Select(*array, {0});
    array->ClearAllSelection();
    QCOMPARE(MarkedOf(*array), QVector<int>());
    array->GetAt(0)->subKeys = nullptr; // opens the ring, which would keep itself alive
}

// --- One only

void tst_CTimelineKeyArraySelection::selectsOneKeyAndDeselectsAllOthers()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 3, 4});
    Select(array, {0, 1, 3});
    array.SelectOnly(2);
    QCOMPARE(SelectionOf(array), QVector<int>({2}));
    QCOMPARE(MarkedOf(array), QVector<int>({2}));
    array.SelectOnly(2);
    QCOMPARE(SelectionOf(array), QVector<int>({2}));
}

void tst_CTimelineKeyArraySelection::selectingOnlyOneDeselectsLockedKeys()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2});
    Select(array, {0});
    array.GetAt(0)->lockState = 1;
    array.SelectOnly(1);
    QCOMPARE(SelectionOf(array), QVector<int>({1}));
    QCOMPARE(MarkedOf(array), QVector<int>({1}));
}

void tst_CTimelineKeyArraySelection::selectingOnlyOneLeavesItAsItIsWhenItIsLocked()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2});
    Select(array, {0});
    array.GetAt(1)->lockState = 1;
    array.SelectOnly(1);
    QCOMPARE(SelectionOf(array), QVector<int>());
    QCOMPARE(MarkedOf(array), QVector<int>());

    Select(array, {0});
    array.GetAt(0)->lockState = 1;
    array.SelectOnly(0);
    QCOMPARE(SelectionOf(array), QVector<int>({0}));
    QCOMPARE(MarkedOf(array), QVector<int>({0}));
}

void tst_CTimelineKeyArraySelection::selectingOnlyOneClearsTheSubKeysOfAllOthers()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 3});
    for (int i = 0; i < 3; ++i) {
        array.GetAt(i)->subKeys = new CTimelineKeyArray;
        AddFrames(*array.GetAt(i)->subKeys, {0, 1});
        Select(*array.GetAt(i)->subKeys, {1});
    }
    Select(array, {0}); // the last one is not selected itself
    array.SelectOnly(1);
    QCOMPARE(SelectionOf(*array.GetAt(0)->subKeys), QVector<int>());
    QCOMPARE(SelectionOf(*array.GetAt(1)->subKeys), QVector<int>({1}));
    QCOMPARE(SelectionOf(*array.GetAt(2)->subKeys), QVector<int>());
    QCOMPARE(MarkedOf(*array.GetAt(2)->subKeys), QVector<int>());
}

void tst_CTimelineKeyArraySelection::selectingOnlyOneKeepsItsSubKeysThoughOthersShareThem()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2});
    const VZ::CPointer<CTimelineKeyArray> shared(new CTimelineKeyArray);
    AddFrames(*shared, {0});
    Select(*shared, {0});
    array.GetAt(0)->subKeys = shared;
    array.GetAt(1)->subKeys = shared;
    array.SelectOnly(1);
    QCOMPARE(SelectionOf(*shared), QVector<int>({0}));
}

void tst_CTimelineKeyArraySelection::selectingOnlyOneEndsWhenSubKeysLeadBack()
{
    const VZ::CPointer<CTimelineKeyArray> array(new CTimelineKeyArray);
    AddFrames(*array, {1, 2});
    array->GetAt(0)->subKeys = array;
    Select(*array, {0});
    array->SelectOnly(1);
    QCOMPARE(SelectionOf(*array), QVector<int>({1}));
    QCOMPARE(MarkedOf(*array), QVector<int>({1}));
    array->GetAt(0)->subKeys = nullptr; // opens the ring, which would keep itself alive
}

void tst_CTimelineKeyArraySelection::selectingOnlyOneForgetsStaleEntries()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 3});
    Select(array, {2});
    array.RemoveAt(0); // unselected: the entry now means no key
    array.SelectOnly(0);
    QCOMPARE(SelectionOf(array), QVector<int>({0}));
    QCOMPARE(MarkedOf(array), QVector<int>({0})); // the marked key had no entry
}

void tst_CTimelineKeyArraySelection::selectingOnlyAnIndexOutsideLeavesNoneSelected_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("no key") << -1;
    QTest::newRow("behind the last key") << 2;
}

void tst_CTimelineKeyArraySelection::selectingOnlyAnIndexOutsideLeavesNoneSelected()
{
    QFETCH(const int, index);
    CTimelineKeyArray array;
    AddFrames(array, {1, 2});
    array.GetAt(1)->subKeys = new CTimelineKeyArray;
    AddFrames(*array.GetAt(1)->subKeys, {0});
    Select(*array.GetAt(1)->subKeys, {0});
    Select(array, {0, 1});
    array.SelectOnly(index);
    QCOMPARE(SelectionOf(array), QVector<int>());
    QCOMPARE(MarkedOf(array), QVector<int>());
    QCOMPARE(MarkedOf(*array.GetAt(1)->subKeys), QVector<int>());
}

// --- The list

void tst_CTimelineKeyArraySelection::addsAnIndexAtItsSortedPlace()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 3, 4});
    QCOMPARE(array.SelAdd(2), 0);
    QCOMPARE(array.SelAdd(0), 0);
    QCOMPARE(array.SelAdd(3), 2);
    QCOMPARE(array.SelAdd(1), 1);
    QCOMPARE(SelectionOf(array), QVector<int>({0, 1, 2, 3}));
}

void tst_CTimelineKeyArraySelection::addingAnIndexTwiceKeepsOne()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 3});
    array.SelAdd(0);
    array.SelAdd(2);
    QCOMPARE(array.SelAdd(2), 1);
    QCOMPARE(SelectionOf(array), QVector<int>({0, 2}));
}

void tst_CTimelineKeyArraySelection::addingAnIndexLeavesTheMark()
{
    CTimelineKeyArray array;
    AddFrames(array, {1});
    array.SelAdd(0);
    QCOMPARE(MarkedOf(array), QVector<int>());
}

void tst_CTimelineKeyArraySelection::findsTheInsertPosition_data()
{
    QTest::addColumn<int>("keyIndex");
    QTest::addColumn<int>("position");
    QTest::addColumn<bool>("found");
    QTest::newRow("below the first") << 1 << 0 << false;
    QTest::newRow("the first") << 2 << 0 << true;
    QTest::newRow("between") << 5 << 2 << false;
    QTest::newRow("in the middle") << 4 << 1 << true;
    QTest::newRow("the last") << 9 << 4 << true;
    QTest::newRow("above the last") << 10 << 5 << false;
}

void tst_CTimelineKeyArraySelection::findsTheInsertPosition()
{
    QFETCH(int, keyIndex);
    CTimelineKeyArray array;
    for (int selected : {2, 4, 6, 8, 9})
        array.SelAdd(selected);
    int position = -5;
    bool found = false;
    array.SelGetInsertIndex(keyIndex, position, found);
    QTEST(position, "position");
    QTEST(found, "found");
}

void tst_CTimelineKeyArraySelection::anEmptySelectionGivesPositionZero()
{
    const CTimelineKeyArray array;
    int position = -5;
    bool found = true;
    array.SelGetInsertIndex(7, position, found);
    QCOMPARE(position, 0);
    QVERIFY(!found);
}

void tst_CTimelineKeyArraySelection::hitsSelectedIndexesOnly()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 3});
    Select(array, {0, 2});
    QCOMPARE(array.SelHitKey(0), 0);
    QCOMPARE(array.SelHitKey(1), -1);
    QCOMPARE(array.SelHitKey(2), 1);
    QCOMPARE(array.SelHitKey(3), -1);
}

void tst_CTimelineKeyArraySelection::givesTheSelectedKeys()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 3});
    Select(array, {0, 2});
    QCOMPARE(array.SelGetSize(), std::size_t{2});
    QCOMPARE(array.SelGetAt(1), 2);
    QVERIFY(array.SelGetKeyAt(1) == array.GetAt(2));
}

// --- Move set

void tst_CTimelineKeyArraySelection::theMoveSetHoldsFreshCopies()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 3});
    const auto key = array.GetAt(2);
    key->group = new GroupToken;
    key->segments.resize(1);
    Select(array, {0, 2});

    array.SetSelToMove();

    QCOMPARE(array.MoveGetSize(), std::size_t{2});
    QCOMPARE(array.MoveGetAt(0)->frame, 1);
    const auto copy = array.MoveGetAt(1);
    QVERIFY(copy != key);
    QCOMPARE(copy->frame, 3);
    QCOMPARE(copy->selected, true);
    QVERIFY(copy->group == key->group);
    QVERIFY(copy->segments.empty());
    QCOMPARE(copy->GetReferences(), 2u); // the move set and this test
}

void tst_CTimelineKeyArraySelection::theMoveSetIsReplacedEachTime()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2});
    Select(array, {0, 1});
    array.SetSelToMove();
    array.SetSelection(1, 1, false, kEveryKind);
    array.SetSelToMove();
    QCOMPARE(array.MoveGetSize(), std::size_t{1});
    QCOMPARE(array.MoveGetAt(0)->frame, 2);
    array.ClearAllSelection();
    array.SetSelToMove();
    QCOMPARE(array.MoveGetSize(), std::size_t{0});
}

void tst_CTimelineKeyArraySelection::theMoveSetCanBeCleared()
{
    CTimelineKeyArray array;
    AddFrames(array, {1});
    Select(array, {0});
    array.SetSelToMove();
    const auto copy = array.MoveGetAt(0);
    array.ClearAllMove();
    QCOMPARE(array.MoveGetSize(), std::size_t{0});
    QCOMPARE(copy->GetReferences(), 1u);
    QCOMPARE(SelectionOf(array), QVector<int>({0}));
}

// --- Moving

void tst_CTimelineKeyArraySelection::movedKeysReplaceWhatTheyLandOn()
{
    const auto keys = KeysAt({10, 12, 14});
    CTimelineKeyArray array;
    array.AddKeys(keys, false);
    Select(array, {0, 1});
    array.MoveKeys(2, true);
    QCOMPARE(FramesOf(array), QVector<int>({12, 14}));
    QVERIFY(array.GetAt(0) == keys[0]);
    QVERIFY(array.GetAt(1) == keys[1]);
    QCOMPARE(SelectionOf(array), QVector<int>({0, 1}));
}

void tst_CTimelineKeyArraySelection::movedKeysStandAfterWhatTheyLandOn()
{
    const auto keys = KeysAt({10, 12, 14});
    CTimelineKeyArray array;
    array.AddKeys(keys, false);
    Select(array, {0, 1});
    array.MoveKeys(2, false);
    QCOMPARE(FramesOf(array), QVector<int>({12, 14, 14}));
    QVERIFY(array.GetAt(0) == keys[0]);
    QVERIFY(array.GetAt(1) == keys[2]);
    QVERIFY(array.GetAt(2) == keys[1]);
    QCOMPARE(SelectionOf(array), QVector<int>({0, 2}));
}

void tst_CTimelineKeyArraySelection::movesPastFrameZero()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 3, 5});
    Select(array, {1, 2});
    array.MoveKeys(-10, false);
    QCOMPARE(FramesOf(array), QVector<int>({-7, -5, 1}));
    QCOMPARE(SelectionOf(array), QVector<int>({0, 1}));
}

void tst_CTimelineKeyArraySelection::movingKeepsTheMoveSetAtTheOldFrames()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 3, 5});
    Select(array, {0, 2});
    array.SetSelToMove();
    array.MoveKeys(4, false);
    QCOMPARE(FramesOf(array), QVector<int>({3, 5, 9}));
    QCOMPARE(array.MoveGetAt(0)->frame, 1);
    QCOMPARE(array.MoveGetAt(1)->frame, 5);
}

void tst_CTimelineKeyArraySelection::movingKeepsTheSelection()
{
    CTimelineKeyArray array;
    AddFrames(array, {0, 10, 20, 30});
    Select(array, {0, 2});
    array.MoveKeys(15, false);
    QCOMPARE(FramesOf(array), QVector<int>({10, 15, 30, 35}));
    QCOMPARE(SelectionOf(array), QVector<int>({1, 3}));
    QCOMPARE(MarkedOf(array), QVector<int>({1, 3}));
}

void tst_CTimelineKeyArraySelection::movingTakesLockedKeysAlong()
{
    CTimelineKeyArray array;
    AddFrames(array, {0, 10});
    Select(array, {0});
    array.GetAt(0)->lockState = 1;
    array.MoveKeys(3, false);
    QCOMPARE(FramesOf(array), QVector<int>({3, 10}));
}

void tst_CTimelineKeyArraySelection::movingKeepsTheOrderOfKeysOfOneFrame()
{
    const auto keys = KeysAt({4, 4, 4});
    CTimelineKeyArray array;
    array.AddKeys(keys, false);
    Select(array, {0, 1, 2});
    array.MoveKeys(1, false);
    for (int index = 0; index < 3; ++index)
        QVERIFY(array.GetAt(index) == keys[static_cast<std::size_t>(index)]);
}

void tst_CTimelineKeyArraySelection::movingRecomputesEveryDisplayLength()
{
    CTimelineKeyArray array;
    array.Add(MakeClip(0, 8, 2), false);
    array.Add(MakeClip(10, 8, 2), false);
    array.Add(MakeClip(40, 3), false);
    array.GetAt(2)->displayLength = 77;
    Select(array, {1});
    array.MoveKeys(-6, false);
    QCOMPARE(FramesOf(array), QVector<int>({0, 4, 40}));
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({3, 16, 3}));
}

void tst_CTimelineKeyArraySelection::movingWithoutASelectionStillRecomputes()
{
    CTimelineKeyArray array;
    array.Add(MakeClip(0, 8), false);
    array.GetAt(0)->displayLength = 77;
    array.GetAt(0)->selected = true; // marked, not listed
    array.MoveKeys(5, false);
    QCOMPARE(FramesOf(array), QVector<int>({0}));
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({8}));
    QCOMPARE(SelectionOf(array), QVector<int>({0}));
}

void tst_CTimelineKeyArraySelection::movingStopsAtTheEndsOfTheNumberRange()
{
    constexpr int last = std::numeric_limits<int>::max();
    constexpr int lowest = std::numeric_limits<int>::min();
    CTimelineKeyArray array;
    AddFrames(array, {lowest + 1, last - 1});
    Select(array, {1});
    array.MoveKeys(10, false);
    array.ClearAllSelection();
    Select(array, {0});
    array.MoveKeys(-10, false);
    QCOMPARE(FramesOf(array), QVector<int>({lowest, last}));
}

void tst_CTimelineKeyArraySelection::aReplacedKeyIsReleased()
{
    int deletions = 0;
    CTimelineKeyArray array;
    AddFrames(array, {-5});
    array.Add(new WatchedKey(deletions), false);
    Select(array, {0});
    array.MoveKeys(5, true);
    QCOMPARE(deletions, 1);
    QCOMPARE(FramesOf(array), QVector<int>({0}));
}

// --- Stale entries

void tst_CTimelineKeyArraySelection::staleEntriesPointOneKeyFurther()
{
    CTimelineKeyArray array;
    AddFrames(array, {0, 10, 20, 30});
    Select(array, {1});
    array.RemoveAt(0);
    array.SetSelToMove();
    QCOMPARE(array.MoveGetAt(0)->frame, 20);
    QCOMPARE(array.SelGetKeyAt(0)->frame, 20);
}

void tst_CTimelineKeyArraySelection::staleEntriesPastTheEndArePassedOver()
{
    CTimelineKeyArray array;
    AddFrames(array, {0, 10, 20});
    Select(array, {1, 2});
    array.RemoveAt(0); // the list still says 1 and 2, and there is no index 2 any more

    QVERIFY(array.SelGetKeyAt(1) == nullptr);
    array.SetSelToMove();
    QCOMPARE(array.MoveGetSize(), std::size_t{1});
    QCOMPARE(SelectionOf(array), QVector<int>({1, 2}));

    CTimelineKeyArray cleared(array);
    array.MoveKeys(3, false);
    QCOMPARE(FramesOf(array), QVector<int>({10, 23}));
    QCOMPARE(SelectionOf(array), QVector<int>({0, 1})); // rebuilt from the marks

    QCOMPARE(SelectionOf(cleared), QVector<int>({1, 2}));
    cleared.ClearAllSelection();
    QCOMPARE(SelectionOf(cleared), QVector<int>());
    QCOMPARE(MarkedOf(cleared), QVector<int>({0})); // the key that no entry meant keeps its mark
}

void tst_CTimelineKeyArraySelection::anEntryFarPastTheEndMeansNoKey()
{
    CTimelineKeyArray array;
    AddFrames(array, {0, 10});
    array.SelAdd(100000);
    QVERIFY(array.SelGetKeyAt(0) == nullptr);
    array.MoveKeys(5, true);
    QCOMPARE(FramesOf(array), QVector<int>({0, 10}));
}

void tst_CTimelineKeyArraySelection::aNegativeEntryMeansNoKey()
{
    CTimelineKeyArray array;
    AddFrames(array, {0, 10, 20});
    Select(array, {1});
    array.SelAdd(-1);
    QCOMPARE(SelectionOf(array), QVector<int>({-1, 1}));
    QVERIFY(array.SelGetKeyAt(0) == nullptr);

    array.SetSelToMove();
    QCOMPARE(array.MoveGetSize(), std::size_t{1});
    QCOMPARE(array.MoveGetAt(0)->frame, 10);

    array.MoveKeys(15, false);
    QCOMPARE(FramesOf(array), QVector<int>({0, 20, 25}));
    QCOMPARE(SelectionOf(array), QVector<int>({2}));

    array.SelAdd(-1);
    array.ClearAllSelection();
    QCOMPARE(SelectionOf(array), QVector<int>());
    QCOMPARE(MarkedOf(array), QVector<int>());
}

QTEST_MAIN(tst_CTimelineKeyArraySelection)
#include "tst_CTimelineKeyArraySelection.moc"
