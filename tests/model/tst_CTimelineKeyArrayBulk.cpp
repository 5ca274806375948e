// Operations that change many keys at once, held against the same steps taken one at a time: adding
// in bulk against single additions, and everything against a plain rendering of the steps. Each
// case is random but the same on every run; a failure names its number.

#include "KeyMakers.h"
#include "PlainKeyArray.h"
#include "RandomKeys.h"

#include <QtTest>

#include <map>

namespace {

constexpr int kAddCases = 6000;
constexpr int kStepCases = 1500;
constexpr int kStepsPerCase = 25;

/// Every key that stands in the array is held once for each of its places there.
bool HoldsItsKeysOnce(const CTimelineKeyArray& array, unsigned int otherHolders)
{
    std::map<const CTimelineKey*, unsigned int> places;
    for (const auto& key : array.Keys())
        ++places[key.Get()];
    for (const auto& [key, count] : places) {
        if (key->GetReferences() != count + otherHolders)
            return false;
    }
    return true;
}

} // namespace

class tst_CTimelineKeyArrayBulk : public QObject
{
    Q_OBJECT

private slots:
    void addsNothingFromAnEmptyList();
    void addingOnlyNullKeysChangesNothing();
    void addsIntoAnEmptyArrayInFrameOrder();
    void addsAfterStandingKeysOfTheSameFrame();
    void replacesAsOftenAsSingleAdditionsWould();
    void releasesReplacedKeys();
    void displayLengthsKeepWhatLaterAdditionsDoNotTouch();
    void aReplacedKeyKeepsTheLengthOfItsTime();
    void addsItsOwnKeysAgain();
    void addsItsOwnKeysAgainWhenTheHostWroteFrames();
    void addsToAnArrayWhoseFramesTheHostWrote();
    void addingInBulkIsAddingOneByOne();
    void everyOperationLeavesWhatItsPlainStepsLeave();
};

void tst_CTimelineKeyArrayBulk::addsNothingFromAnEmptyList()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2});
    array.AddKeys({}, false);
    array.AddKeys({}, true);
    QCOMPARE(FramesOf(array), QVector<int>({1, 2}));
}

void tst_CTimelineKeyArrayBulk::addingOnlyNullKeysChangesNothing()
{
    CTimelineKeyArray array;
    AddFrames(array, {1});
    array.SelAdd(0); // not marked: an addition would drop this entry
    array.AddKeys({nullptr, nullptr}, true);
    QCOMPARE(FramesOf(array), QVector<int>({1}));
    QCOMPARE(SelectionOf(array), QVector<int>({0}));
}

void tst_CTimelineKeyArrayBulk::addsIntoAnEmptyArrayInFrameOrder()
{
    CTimelineKeyArray array;
    array.AddKeys({MakeKey(10, "first"), nullptr, MakeKey(5), MakeKey(10, "second"), MakeKey(7)},
                  false);
    QCOMPARE(FramesOf(array), QVector<int>({5, 7, 10, 10}));
    QCOMPARE(array.GetAt(2)->name, QStringLiteral("first"));
    QCOMPARE(array.GetAt(3)->name, QStringLiteral("second"));
}

void tst_CTimelineKeyArrayBulk::addsAfterStandingKeysOfTheSameFrame()
{
    CTimelineKeyArray array;
    array.Add(MakeKey(10, "standing"), false);
    array.AddKeys({MakeKey(10, "new"), MakeKey(3)}, false);
    QCOMPARE(FramesOf(array), QVector<int>({3, 10, 10}));
    QCOMPARE(array.GetAt(1)->name, QStringLiteral("standing"));
    QCOMPARE(array.GetAt(2)->name, QStringLiteral("new"));
}

void tst_CTimelineKeyArrayBulk::replacesAsOftenAsSingleAdditionsWould()
{
    CTimelineKeyArray array;
    array.Add(MakeKey(10, "first"), false);
    array.Add(MakeKey(10, "second"), false);
    array.AddKeys(
        {MakeKey(10, "third"), MakeKey(4, "fourth"), MakeKey(10, "fifth"), MakeKey(4, "sixth")},
        true);
    QCOMPARE(FramesOf(array), QVector<int>({4, 10, 10}));
    QCOMPARE(array.GetAt(0)->name, QStringLiteral("sixth"));
    QCOMPARE(array.GetAt(1)->name, QStringLiteral("first"));
    QCOMPARE(array.GetAt(2)->name, QStringLiteral("fifth"));
}

void tst_CTimelineKeyArrayBulk::releasesReplacedKeys()
{
    int deletions = 0;
    CTimelineKeyArray array;
    array.Add(new WatchedKey(deletions), false);
    array.AddKeys({new WatchedKey(deletions), new WatchedKey(deletions)}, true);
    QCOMPARE(deletions, 2);
    QCOMPARE(array.Keys().front()->GetReferences(), 1u);
}

void tst_CTimelineKeyArrayBulk::displayLengthsKeepWhatLaterAdditionsDoNotTouch()
{
    // The clip is trimmed by the first key and never looked at again, although its length changed.
    CTimelineKeyArray array;
    const auto clip = MakeClip(0, 20);
    array.Add(clip, false);
    array.Add(MakeKey(10), false);
    clip->clipLength = 4;
    array.AddKeys({MakeKey(15), MakeKey(12)}, false);
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({9, 0, 0, 0}));
    array.AddKeys({MakeKey(8)}, false);
    QCOMPARE(array.GetAt(0)->displayLength, 4);
}

void tst_CTimelineKeyArrayBulk::aReplacedKeyKeepsTheLengthOfItsTime()
{
    const auto replaced = MakeClip(10, 50);
    CTimelineKeyArray array;
    array.AddKeys({replaced, MakeKey(30), MakeClip(10, 5), MakeKey(20)}, true);
    QCOMPARE(FramesOf(array), QVector<int>({10, 20, 30}));
    QCOMPARE(replaced->displayLength, 19); // up to the key at 30; that at 20 came after its time
    QCOMPARE(array.GetAt(0)->displayLength, 5);
}

void tst_CTimelineKeyArrayBulk::addsItsOwnKeysAgain()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 3});
    array.AddKeys(array.Keys(), false);
    QCOMPARE(FramesOf(array), QVector<int>({1, 1, 2, 2, 3, 3}));
    QVERIFY(HoldsItsKeysOnce(array, 0));
}

void tst_CTimelineKeyArrayBulk::addsItsOwnKeysAgainWhenTheHostWroteFrames()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 3, 4, 5});
    array.GetAt(0)->frame = 9;
    array.AddKeys(array.Keys(), false);
    QCOMPARE(array.GetSize(), std::size_t{10});
    QVERIFY(HoldsItsKeysOnce(array, 0));
}

void tst_CTimelineKeyArrayBulk::addsToAnArrayWhoseFramesTheHostWrote()
{
    for (int number = 1; number <= 500; ++number) {
        Dice dice(number);
        TwinKeys keys;
        keys.Make(dice, 24, 20);
        std::vector<int> standing(12);
        for (int i = 0; i < 12; ++i)
            standing[static_cast<std::size_t>(i)] = i;
        const std::vector<int> arriving = keys.RandomPick(dice, 12);
        const bool replace = dice.OneIn(2);

        CTimelineKeyArray bulk;
        CTimelineKeyArray single;
        bulk.AddKeys(keys.First(standing), false);
        single.AddKeys(keys.Second(standing), false);
        for (int i = 0; i < 4; ++i) {
            const int index = dice.Between(0, 11);
            const int frame = dice.Between(-3, 20);
            bulk.GetAt(index)->frame = frame;
            single.GetAt(index)->frame = frame;
        }
        bulk.AddKeys(keys.First(arriving), replace);
        for (const auto& key : keys.Second(arriving))
            single.Add(key, replace);

        const QByteArray label = "case " + QByteArray::number(number);
        QVERIFY2(NumbersOf(bulk.Keys()) == NumbersOf(single.Keys()), label);
        QVERIFY2(SelectionOf(bulk) == SelectionOf(single), label);
        QVERIFY2(keys.AreEqual(), label);
    }
}

void tst_CTimelineKeyArrayBulk::addingInBulkIsAddingOneByOne()
{
    for (int number = 1; number <= kAddCases; ++number) {
        Dice dice(number);
        const int highestFrame = dice.Between(0, 60); // few frames make many equal ones
        TwinKeys keys;
        keys.Make(dice, dice.Between(1, 40), highestFrame);
        CTimelineKeyArray bulk;
        CTimelineKeyArray single;

        const bool startReplacing = dice.OneIn(2);
        const std::vector<int> standing = keys.RandomPick(dice, dice.Between(0, 30));
        for (const auto& key : keys.First(standing))
            bulk.Add(key, startReplacing);
        for (const auto& key : keys.Second(standing))
            single.Add(key, startReplacing);

        const bool replace = dice.OneIn(2);
        const std::vector<int> arriving = keys.RandomPick(dice, dice.Between(0, 40));
        bulk.AddKeys(keys.First(arriving), replace);
        for (const auto& key : keys.Second(arriving))
            single.Add(key, replace);

        const QByteArray label = "case " + QByteArray::number(number);
        QVERIFY2(NumbersOf(bulk.Keys()) == NumbersOf(single.Keys()), label);
        QVERIFY2(SelectionOf(bulk) == SelectionOf(single), label);
        QVERIFY2(keys.AreEqual(), label);
        QVERIFY2(HoldsItsKeysOnce(bulk, 1), label);
    }
}

namespace {

/// Writes a frame into a key that stands in both arrays, which may put them out of order.
void WriteFrame(Dice& dice, CTimelineKeyArray& array, PlainKeyArray& plain)
{
    if (plain.keys.empty())
        return;
    const int index = dice.Between(0, static_cast<int>(plain.keys.size()) - 1);
    const int frame = dice.Between(-5, 45);
    array.GetAt(index)->frame = frame;
    plain.keys[static_cast<std::size_t>(index)]->frame = frame;
}

/// Takes one random step in both arrays. @return its name and arguments.
QByteArray TakeStep(Dice& dice, const TwinKeys& keys, CTimelineKeyArray& array,
                    PlainKeyArray& plain)
{
    const int size = static_cast<int>(plain.keys.size());
    const bool yes = dice.OneIn(2);
    const int a = dice.Between(-5, 45);
    const int b = dice.Between(-5, 45);
    switch (dice.Between(0, 7)) {
    case 0: {
        const std::vector<int> number = keys.RandomPick(dice, 1);
        if (array.Add(keys.First(number).front(), yes) !=
            plain.Add(keys.Second(number).front(), yes))
            return "add: another result";
        return "add";
    }
    case 1: {
        const std::vector<int> numbers = keys.RandomPick(dice, dice.Between(0, 10));
        array.AddKeys(keys.First(numbers), yes);
        for (const auto& key : keys.Second(numbers))
            plain.Add(key, yes);
        return "add many";
    }
    case 2: {
        if (size == 0)
            return "remove nothing";
        const int index = dice.Between(0, size - 1);
        array.RemoveAt(index);
        plain.RemoveAt(index);
        return "remove " + QByteArray::number(index);
    }
    case 3: {
        const unsigned int mask =
            dice.OneIn(2) ? kEveryKind : static_cast<unsigned int>(dice.Between(0, 7));
        if (array.SetSelection(a, b, yes, mask) != plain.SetSelection(a, b, yes, mask))
            return "select: another result";
        return "select";
    }
    case 4: {
        const int first = dice.Between(-1, size);
        const int last = dice.Between(-1, size);
        if (array.SetSelectionByIndex(first, last, yes, 0) !=
            plain.SetSelectionByIndex(first, last, yes))
            return "select by index: another result";
        return "select by index";
    }
    case 5:
        if (dice.OneIn(3)) {
            array.ClearAllSelection();
            plain.ClearAllSelection();
            return "clear selection";
        }
        [[fallthrough]];
    case 6:
        if (dice.OneIn(3)) {
            const int index = dice.Between(0, size + 2);
            if (array.SelAdd(index) != plain.SelAdd(index))
                return "list an index: another result";
            return "list an index";
        }
        [[fallthrough]];
    default: {
        const int delta = dice.Between(-12, 12);
        array.MoveKeys(delta, yes);
        plain.MoveKeys(delta, yes);
        return "move by " + QByteArray::number(delta);
    }
    }
}

} // namespace

void tst_CTimelineKeyArrayBulk::everyOperationLeavesWhatItsPlainStepsLeave()
{
    for (int number = 1; number <= kStepCases; ++number) {
        Dice dice(number);
        TwinKeys keys;
        keys.Make(dice, dice.Between(4, 30), dice.Between(2, 40));
        CTimelineKeyArray array;
        PlainKeyArray plain;
        QByteArray label = "case " + QByteArray::number(number) + ":";
        const bool hostWritesFrames = number % 4 == 0;
        for (int step = 0; step < kStepsPerCase; ++step) {
            if (hostWritesFrames && dice.OneIn(4))
                WriteFrame(dice, array, plain);
            label += ' ' + TakeStep(dice, keys, array, plain) + ',';
            QVERIFY2(!label.contains("another result"), label);
            QVERIFY2(NumbersOf(array.Keys()) == NumbersOf(plain.keys), label);
            QVERIFY2(array.SelectedIndexes() == plain.selection, label);
            QVERIFY2(keys.AreEqual(), label);
            QVERIFY2(HoldsItsKeysOnce(array, 1), label);
        }
    }
}

QTEST_MAIN(tst_CTimelineKeyArrayBulk)
#include "tst_CTimelineKeyArrayBulk.moc"
