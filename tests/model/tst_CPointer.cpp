#include "KeyMakers.h"

#include <QtTest>

#include <type_traits>
#include <utility>
#include <vector>

using KeyPointer = VZ::CPointer<CTimelineKey>;

class tst_CPointer : public QObject
{
    Q_OBJECT

private slots:
    void isNullByDefault();
    void raisesTheCountOfANewObjectToOne();
    void sharesTheObjectWithItsCopy();
    void dropsItsReferenceOnDestruction();
    void deletesTheObjectWithTheLastPointer();
    void assignmentLetsTheOldObjectGo();
    void assigningAPlainPointerHoldsIt();
    void assigningNullLetsGo();
    void assigningItselfLeavesTheCount();
    void assigningThePointerOfTheSameObjectLeavesTheCount();
    void assigningATemporaryOfTheSameObjectLeavesTheCount();
    void takesWhatOnlyTheOldObjectKeptAlive();
    void movingTakesTheReferenceOver();
    void movingOntoAnotherObjectReleasesIt();
    void movingOntoItselfKeepsTheObject();
    void movingOntoAPointerOfTheSameObjectDropsOneReference();
    void comparesWithPointersAndNull();
    void comparingDoesNotFreeAnUnheldObject();
    void givesAccessToTheObject();
    void movesWithoutThrowing();
    void releasingAKeyReleasesItsSubKeys();
};

void tst_CPointer::isNullByDefault()
{
    const KeyPointer pointer;
    QVERIFY(!pointer);
    QVERIFY(pointer.Get() == nullptr);
}

void tst_CPointer::raisesTheCountOfANewObjectToOne()
{
    auto* const key = new CTimelineKey;
    QCOMPARE(key->GetReferences(), 0u);
    const KeyPointer pointer(key);
    QCOMPARE(key->GetReferences(), 1u);
}

void tst_CPointer::sharesTheObjectWithItsCopy()
{
    const KeyPointer first(new CTimelineKey);
    const KeyPointer second(first);
    QCOMPARE(second.Get(), first.Get());
    QCOMPARE(first->GetReferences(), 2u);
}

void tst_CPointer::dropsItsReferenceOnDestruction()
{
    const KeyPointer first(new CTimelineKey);
    {
        const KeyPointer second(first);
        QCOMPARE(first->GetReferences(), 2u);
    }
    QCOMPARE(first->GetReferences(), 1u);
}

void tst_CPointer::deletesTheObjectWithTheLastPointer()
{
    int deletions = 0;
    {
        const KeyPointer first(new WatchedKey(deletions));
        {
            const KeyPointer second(first);
        }
        QCOMPARE(deletions, 0);
    }
    QCOMPARE(deletions, 1);
}

void tst_CPointer::assignmentLetsTheOldObjectGo()
{
    int deletions = 0;
    KeyPointer pointer(new WatchedKey(deletions));
    const KeyPointer other(new CTimelineKey);
    pointer = other;
    QCOMPARE(deletions, 1);
    QCOMPARE(other->GetReferences(), 2u);
}

void tst_CPointer::assigningAPlainPointerHoldsIt()
{
    auto* const key = new CTimelineKey;
    KeyPointer pointer;
    pointer = key;
    QCOMPARE(key->GetReferences(), 1u);
}

void tst_CPointer::assigningNullLetsGo()
{
    int deletions = 0;
    KeyPointer pointer(new WatchedKey(deletions));
    pointer = nullptr;
    QCOMPARE(deletions, 1);
    QVERIFY(!pointer);
}

void tst_CPointer::assigningItselfLeavesTheCount()
{
    int deletions = 0;
    KeyPointer pointer(new WatchedKey(deletions));
    const KeyPointer& itself = pointer;
    pointer = itself;
    QCOMPARE(pointer->GetReferences(), 1u);
    QCOMPARE(deletions, 0);
}

void tst_CPointer::assigningThePointerOfTheSameObjectLeavesTheCount()
{
    KeyPointer first(new CTimelineKey);
    const KeyPointer second(first);
    first = second;
    QCOMPARE(first->GetReferences(), 2u);
    first = second.Get();
    QCOMPARE(first->GetReferences(), 2u);
}

void tst_CPointer::assigningATemporaryOfTheSameObjectLeavesTheCount()
{
    int deletions = 0;
    KeyPointer pointer(new WatchedKey(deletions));
    pointer = KeyPointer(pointer.Get());
    QCOMPARE(deletions, 0);
    QCOMPARE(pointer->GetReferences(), 1u);
}

void tst_CPointer::takesWhatOnlyTheOldObjectKeptAlive()
{
    int deletions = 0;
    KeyPointer pointer(new CTimelineKey);
    pointer->subKeys = new CTimelineKeyArray;
    pointer->subKeys->Add(KeyPointer(new WatchedKey(deletions)), false);

    pointer = pointer->subKeys->Keys().front();

    QCOMPARE(deletions, 0);
    QCOMPARE(pointer->GetReferences(), 1u);
}

void tst_CPointer::movingTakesTheReferenceOver()
{
    KeyPointer first(new CTimelineKey);
    const KeyPointer second(std::move(first));
    QCOMPARE(second->GetReferences(), 1u);
    QVERIFY(first.Get() == nullptr); // a moved-from pointer is null, by promise
}

void tst_CPointer::movingOntoAnotherObjectReleasesIt()
{
    int deletions = 0;
    KeyPointer pointer(new WatchedKey(deletions));
    KeyPointer other(new CTimelineKey);
    CTimelineKey* const key = other.Get();
    pointer = std::move(other);
    QCOMPARE(deletions, 1);
    QCOMPARE(pointer.Get(), key);
    QCOMPARE(key->GetReferences(), 1u);
}

void tst_CPointer::movingOntoItselfKeepsTheObject()
{
    int deletions = 0;
    KeyPointer pointer(new WatchedKey(deletions));
    KeyPointer& itself = pointer;
    pointer = std::move(itself);
    QCOMPARE(deletions, 0);
    QCOMPARE(pointer->GetReferences(), 1u);
}

void tst_CPointer::movingOntoAPointerOfTheSameObjectDropsOneReference()
{
    int deletions = 0;
    KeyPointer pointer(new WatchedKey(deletions));
    CTimelineKey* const key = pointer.Get();
    KeyPointer same(pointer);
    pointer = std::move(same);
    QCOMPARE(deletions, 0);
    QCOMPARE(pointer.Get(), key);
    QCOMPARE(key->GetReferences(), 1u);
    QVERIFY(same.Get() == nullptr); // a moved-from pointer is null, by promise
}

void tst_CPointer::comparesWithPointersAndNull()
{
    const KeyPointer first(new CTimelineKey);
    const KeyPointer same(first);
    const KeyPointer other(new CTimelineKey);
    const KeyPointer none;

    QVERIFY(first == same);
    QVERIFY(first != other);
    QVERIFY(first == first.Get());
    QVERIFY(first.Get() == first);
    QVERIFY(first != other.Get());
    QVERIFY(other.Get() != first);
    QVERIFY(none == nullptr);
    QVERIFY(nullptr == none);
    QVERIFY(first != nullptr);
}

void tst_CPointer::comparingDoesNotFreeAnUnheldObject()
{
    int deletions = 0;
    CTimelineKey* const unheld = new WatchedKey(deletions);
    const KeyPointer none;
    QVERIFY(!(unheld == none));
    QVERIFY(none != unheld);
    QCOMPARE(deletions, 0);
    delete unheld;
}

void tst_CPointer::givesAccessToTheObject()
{
    const KeyPointer pointer(new CTimelineKey);
    pointer->frame = 7;
    QCOMPARE((*pointer).frame, 7);
    QCOMPARE(pointer.Get()->frame, 7);
}

void tst_CPointer::movesWithoutThrowing()
{
    // Only then does a growing vector move its pointers instead of copying them.
    QVERIFY(std::is_nothrow_move_constructible<KeyPointer>::value);
    QVERIFY(std::is_nothrow_move_assignable<KeyPointer>::value);
}

void tst_CPointer::releasingAKeyReleasesItsSubKeys()
{
    int deletions = 0;
    int arrayDeletions = 0;
    {
        const KeyPointer clip(new CTimelineKey);
        clip->subKeys = new WatchedKeyArray(arrayDeletions);
        clip->subKeys->Add(KeyPointer(new WatchedKey(deletions)), false);
    }
    QCOMPARE(arrayDeletions, 1);
    QCOMPARE(deletions, 1);
}

QTEST_MAIN(tst_CPointer)
#include "tst_CPointer.moc"
