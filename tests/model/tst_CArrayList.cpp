#include "CArrayList.h"
#include "TimelineEnums.h"

#include <QtTest>

#include <cstdlib>
#include <new>

namespace {

/// What the program's allocation functions, replaced below, count and do.
int allocations = 0;
bool memoryHasRunOut = false;

/// Cannot be copied while `refuses` is set, as when memory has run out.
struct Reluctant
{
    explicit Reluctant(int number) : value(number) {}
    Reluctant(const Reluctant& other) : value(other.value)
    {
        if (refuses)
            throw std::bad_alloc();
    }
    Reluctant& operator=(const Reluctant&) = default;

    int value;
    static bool refuses;
};
bool Reluctant::refuses = false;

} // namespace

void* operator new(std::size_t size)
{
    ++allocations;
    void* const block = memoryHasRunOut ? nullptr : std::malloc(size);
    if (!block)
        throw std::bad_alloc();
    return block;
}

void operator delete(void* block) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

class tst_CArrayList : public QObject
{
    Q_OBJECT

private slots:
    void isEmptyAtFirst();
    void appendsInOrder();
    void addReportsSuccessAsZero();
    void addReportsAFailedCopyAndLeavesTheListUnchanged();
    void addReportsThatTheStorageCannotGrow();
    void addsAgainAfterAFailure();
    void removeAllEmptiesTheListAndReportsZero();
    void removeAllKeepsTheStorage();
    void findsWhatItContains();
    void canBeIterated();
    void addsAnItemOfItsOwn();
};

void tst_CArrayList::isEmptyAtFirst()
{
    const VZ::CArrayList<TLEditType> list;
    QCOMPARE(list.GetSize(), 0);
}

void tst_CArrayList::appendsInOrder()
{
    VZ::CArrayList<TLEditType> list;
    list.Add(TL_EDIT_CUT);
    list.Add(TL_EDIT_PASTE);
    QCOMPARE(list.GetSize(), 2);
    QCOMPARE(list[0], TL_EDIT_CUT);
    QCOMPARE(list[1], TL_EDIT_PASTE);
}

void tst_CArrayList::addReportsSuccessAsZero()
{
    VZ::CArrayList<int> list;
    QCOMPARE(list.Add(5), 0u);
}

void tst_CArrayList::addReportsAFailedCopyAndLeavesTheListUnchanged()
{
    VZ::CArrayList<Reluctant> list;
    for (int value : {1, 2, 3})
        QCOMPARE(list.Add(Reluctant(value)), 0u);

    // Often enough to meet both a free place and a storage that has to grow.
    Reluctant::refuses = true;
    unsigned int result = list.Add(Reluctant(4));
    Reluctant::refuses = false;
    QCOMPARE(result, 0x80000002u);
    QCOMPARE(list.Add(Reluctant(4)), 0u);
    Reluctant::refuses = true;
    result = list.Add(Reluctant(5));
    Reluctant::refuses = false;

    QCOMPARE(result, 0x80000002u);
    QCOMPARE(list.GetSize(), 4);
    for (int index = 0; index < 4; ++index)
        QCOMPARE(list[index].value, index + 1);
}

void tst_CArrayList::addReportsThatTheStorageCannotGrow()
{
    VZ::CArrayList<int> list;
    memoryHasRunOut = true;
    const unsigned int onEmpty = list.Add(7);
    memoryHasRunOut = false;
    QCOMPARE(onEmpty, 0x80000002u);
    QCOMPARE(list.GetSize(), 0);

    // With memory gone, the free places of the storage are still taken; then it would have to grow.
    QCOMPARE(list.Add(0), 0u);
    const int* const storage = &list[0];
    unsigned int result = 0;
    memoryHasRunOut = true;
    while (result == 0 && list.GetSize() < 1000)
        result = list.Add(list.GetSize());
    memoryHasRunOut = false;

    QCOMPARE(result, 0x80000002u);
    QVERIFY(list.GetSize() >= 1);
    QCOMPARE(&list[0], storage);
    for (int index = 0; index < list.GetSize(); ++index)
        QCOMPARE(list[index], index);
    QCOMPARE(list.Add(list.GetSize()), 0u);
}

void tst_CArrayList::addsAgainAfterAFailure()
{
    VZ::CArrayList<Reluctant> list;
    Reluctant::refuses = true;
    QCOMPARE(list.Add(Reluctant(1)), 0x80000002u);
    Reluctant::refuses = false;
    QCOMPARE(list.Add(Reluctant(2)), 0u);
    QCOMPARE(list.GetSize(), 1);
    QCOMPARE(list[0].value, 2);
}

void tst_CArrayList::removeAllEmptiesTheListAndReportsZero()
{
    VZ::CArrayList<int> list;
    list.Add(1);
    QCOMPARE(list.RemoveAll(), 0u);
    QCOMPARE(list.GetSize(), 0);
    QCOMPARE(list.RemoveAll(), 0u);
}

void tst_CArrayList::removeAllKeepsTheStorage()
{
    VZ::CArrayList<int> list;
    for (int value = 0; value < 100; ++value)
        list.Add(value);
    const int* const storage = &list[0];
    list.RemoveAll();

    const int allocationsBefore = allocations;
    list.Add(0);
    const int* const storageOfTheFirst = &list[0];
    for (int value = 1; value < 100; ++value)
        list.Add(value);
    const int allocationsOfAdding = allocations - allocationsBefore;
    QCOMPARE(storageOfTheFirst, storage);
    QCOMPARE(allocationsOfAdding, 0);
}

void tst_CArrayList::findsWhatItContains()
{
    VZ::CArrayList<int> list;
    list.Add(3);
    QVERIFY(list.Contains(3));
    QVERIFY(!list.Contains(4));
}

void tst_CArrayList::canBeIterated()
{
    VZ::CArrayList<int> list;
    list.Add(3);
    list.Add(4);
    QVector<int> seen;
    for (int value : list)
        seen.append(value);
    QCOMPARE(seen, QVector<int>({3, 4}));
}

void tst_CArrayList::addsAnItemOfItsOwn()
{
    VZ::CArrayList<int> list;
    list.Add(9);
    for (int i = 0; i < 20; ++i)
        QCOMPARE(list.Add(list[0]), 0u);
    QCOMPARE(list.GetSize(), 21);
    QCOMPARE(list[20], 9);
}

QTEST_MAIN(tst_CArrayList)
#include "tst_CArrayList.moc"
