// What a drag of copies does to an array, many keys at once, held against the same steps taken one
// key at a time. Each random case is the same on every run; a failure names its number.

#include "KeyMakers.h"
#include "PlainKeyArray.h"
#include "RandomKeys.h"

#include <QtTest>

#include <algorithm>
#include <functional>
#include <numeric>

namespace {

constexpr int kCases = 4000;

using Kinds = CTimelineKeyArray::Kinds;
using KeyVector = CTimelineKeyArray::KeyVector;

// --- The plain steps

void PlainAddSelected(PlainKeyArray& array, const KeyVector& keys)
{
    for (const auto& key : keys) {
        const int index = array.Add(key, false);
        array.SetSelectionByIndex(index, index, true);
    }
}

void PlainRemove(PlainKeyArray& array, const KeyVector& keys)
{
    for (const auto& key : keys) {
        const auto place = std::find(array.keys.begin(), array.keys.end(), key);
        if (place != array.keys.end())
            array.RemoveAt(static_cast<int>(place - array.keys.begin()));
    }
}

void PlainSelectFrames(PlainKeyArray& array, const KeyVector& keys, Kinds kinds)
{
    for (const auto& key : keys) {
        if (!key)
            continue;
        const unsigned int mask =
            kinds == Kinds::Any ? kEveryKind : static_cast<unsigned int>(key->kindMask);
        array.SetSelection(key->frame, key->frame, true, mask);
    }
}

/// The same keys in a real and in a plain array, each with its own copy of them.
class Twins
{
public:
    /// Keys of which half stand in the arrays, each once, with a random selection. In one case of
    /// four some are in the selection list without being marked or the other way round, the list
    /// has entries that mean other keys or none, and frames were written in place.
    explicit Twins(int number) : dice(number)
    {
        const int count = dice.Between(2, 40);
        m_keys.Make(dice, count, dice.Between(0, 60));
        std::vector<int> standing(static_cast<std::size_t>(count / 2));
        std::iota(standing.begin(), standing.end(), 0);
        array.AddKeys(First(standing), false);
        plain.keys = Second(standing);
        std::stable_sort(plain.keys.begin(), plain.keys.end(),
                         [](const auto& a, const auto& b) { return a->frame < b->frame; });
        SelectSome();
        if (number % 4 == 0)
            MessUp();
    }

    KeyVector First(const std::vector<int>& numbers) const { return m_keys.First(numbers); }
    KeyVector Second(const std::vector<int>& numbers) const { return m_keys.Second(numbers); }
    std::vector<int> RandomPick(int count) { return m_keys.RandomPick(dice, count); }

    /// Some of the keys that do not stand in the arrays, each once, in any order.
    std::vector<int> Arriving()
    {
        std::vector<int> numbers;
        for (int number = 0; number < m_keys.Count(); ++number) {
            if (!Stands(number) && !dice.OneIn(4))
                numbers.push_back(number);
        }
        if (dice.OneIn(2))
            std::reverse(numbers.begin(), numbers.end());
        return numbers;
    }

    bool AreEqual() const
    {
        return NumbersOf(array.Keys()) == NumbersOf(plain.keys) &&
               array.SelectedIndexes() == plain.selection && m_keys.AreEqual();
    }

    Dice dice;
    CTimelineKeyArray array;
    PlainKeyArray plain;

private:
    bool Stands(int number) const
    {
        return std::any_of(array.Keys().begin(), array.Keys().end(),
                           [number](const auto& key) { return key->hostValue1 == number; });
    }

    void SelectSome()
    {
        plain.selection = array.SelectedIndexes();
        for (int round = 0; round < 4; ++round) {
            const int a = dice.Between(-3, 60);
            const int b = dice.Between(-3, 60);
            const bool select = dice.OneIn(2);
            array.SetSelection(a, b, select, kEveryKind);
            plain.SetSelection(a, b, select, kEveryKind);
        }
        // The lengths of a filling in one go are those of the real array only.
        for (std::size_t i = 0; i < plain.keys.size(); ++i)
            plain.keys[i]->displayLength = array.Keys()[i]->displayLength;
    }

    void MessUp()
    {
        const auto size = [this] { return static_cast<int>(plain.keys.size()); };
        for (int round = 0; round < 3 && size() > 0; ++round) {
            const int index = dice.Between(0, size() - 1);
            const int frame = dice.Between(-5, 60);
            if (dice.OneIn(2)) {
                array.GetAt(index)->frame = frame;
                plain.keys[static_cast<std::size_t>(index)]->frame = frame;
            }
            if (dice.OneIn(2)) {
                array.SelAdd(index + 2);
                plain.SelAdd(index + 2);
            }
            if (dice.OneIn(2)) {
                array.GetAt(index)->selected = true;
                plain.keys[static_cast<std::size_t>(index)]->selected = true;
            }
            if (dice.OneIn(2)) {
                array.RemoveAt(index);
                plain.RemoveAt(index);
            }
        }
    }

    TwinKeys m_keys;
};

QByteArray Label(int number)
{
    return "case " + QByteArray::number(number);
}

} // namespace

class tst_CTimelineKeyArrayDrag : public QObject
{
    Q_OBJECT

private slots:
    void copiesOfTheSelectionAreFreshAndInOrder()
    {
        CTimelineKeyArray array;
        AddFrames(array, {3, 5, 9});
        array.SetSelection(5, 9, true, kEveryKind);
        array.SelAdd(7); // means no key
        const KeyVector copies = array.CopySelected();
        QCOMPARE(FramesOf(copies), QVector<int>({5, 9}));
        QVERIFY(copies[0] != array.GetAt(1));
        QCOMPARE(copies[0]->GetReferences(), 1u);
    }

    void theMoveSetCanBeReadAsAList()
    {
        CTimelineKeyArray array;
        AddFrames(array, {3, 5});
        array.SetSelection(5, 5, true, kEveryKind);
        array.SetSelToMove();
        QCOMPARE(FramesOf(array.MoveSet()), QVector<int>({5}));
    }

    // --- Adding what is to be selected

    void addsCopiesBehindTheirOriginalsAndSelectsThem()
    {
        CTimelineKeyArray array;
        AddFrames(array, {3, 5, 9});
        array.AddSelected({MakeKey(9, "b"), nullptr, MakeKey(3, "a")});
        QCOMPARE(FramesOf(array), QVector<int>({3, 3, 5, 9, 9}));
        QCOMPARE(SelectionOf(array), QVector<int>({1, 4}));
        QCOMPARE(MarkedOf(array), QVector<int>({1, 4}));
        QCOMPARE(array.GetAt(1)->name, QStringLiteral("a"));
    }

    void addsALockedKeyWithoutSelectingIt()
    {
        CTimelineKeyArray array;
        const auto locked = MakeKey(4);
        locked->lockState = 1;
        array.AddSelected({MakeKey(2), locked});
        QCOMPARE(SelectionOf(array), QVector<int>({0}));
    }

    void addingNothingSelectedLeavesTheSelectionList()
    {
        CTimelineKeyArray array;
        AddFrames(array, {1});
        array.SelAdd(0); // not marked: an addition would drop this entry
        array.AddSelected({nullptr});
        QCOMPARE(SelectionOf(array), QVector<int>({0}));
    }

    void addsItsOwnKeysAgainAndSelectsTheLastOneOnlyWhereItNowStands()
    {
        CTimelineKeyArray array;
        AddFrames(array, {1, 2});
        array.AddSelected(array.Keys());
        QCOMPARE(FramesOf(array), QVector<int>({1, 1, 2, 2}));
        QCOMPARE(SelectionOf(array), QVector<int>({0, 1, 3}));
    }

    void addingSelectedIsAddingAndSelectingOneByOne()
    {
        for (int number = 1; number <= kCases; ++number) {
            Twins twins(number);
            const std::vector<int> arriving = twins.dice.OneIn(3)
                                                  ? twins.RandomPick(twins.dice.Between(0, 12))
                                                  : twins.Arriving();
            twins.array.AddSelected(twins.First(arriving));
            PlainAddSelected(twins.plain, twins.Second(arriving));
            QVERIFY2(twins.AreEqual(), Label(number));
        }
    }

    // --- Removing

    void removesWhatIsThereAndPassesOverTheRest()
    {
        CTimelineKeyArray array;
        AddFrames(array, {3, 5, 9});
        array.RemoveKeys({array.GetAt(2), nullptr, MakeKey(5), array.GetAt(0)});
        QCOMPARE(FramesOf(array), QVector<int>({5}));
    }

    void removingSelectedKeysCorrectsTheSelection()
    {
        CTimelineKeyArray array;
        AddFrames(array, {1, 2, 3, 4, 5});
        array.SetSelection(2, 5, true, kEveryKind);
        array.RemoveKeys({array.GetAt(3), array.GetAt(1)});
        QCOMPARE(SelectionOf(array), QVector<int>({1, 2}));
        QCOMPARE(MarkedOf(array), QVector<int>({1, 2}));
    }

    void removingUnselectedKeysLeavesTheSelectionList()
    {
        CTimelineKeyArray array;
        AddFrames(array, {1, 2, 3, 4});
        array.SetSelection(4, 4, true, kEveryKind);
        array.RemoveKeys({array.GetAt(0), array.GetAt(1)});
        QCOMPARE(SelectionOf(array), QVector<int>({3}));
    }

    void theDisplayLengthsBeforeARemovedKeyAreComputedAnew()
    {
        CTimelineKeyArray array;
        array.AddKeys({MakeClip(0, 20), MakeKey(5), MakeKey(10), MakeClip(30, 5)}, false);
        array.GetAt(3)->displayLength = 77; // behind all that is removed: never looked at
        array.RemoveKeys({array.GetAt(1), array.GetAt(2)});
        QCOMPARE(DisplayLengthsOf(array), QVector<int>({20, 77}));
    }

    void aKeyThatLeavesLaterGetsTheLengthOfItsTime()
    {
        CTimelineKeyArray array;
        array.AddKeys({MakeClip(0, 20), MakeKey(5), MakeKey(10)}, false);
        const auto clip = array.GetAt(0);
        array.RemoveKeys({array.GetAt(1), clip, array.GetAt(2)});
        QCOMPARE(clip->displayLength, 9);
    }

    void removesAKeyThatStandsTwiceOncePerMention()
    {
        CTimelineKeyArray array;
        const auto key = MakeKey(4);
        array.AddKeys({key, MakeKey(2), key}, false);
        array.RemoveKeys({key});
        QCOMPARE(FramesOf(array), QVector<int>({2, 4}));
        array.RemoveKeys({key, key});
        QCOMPARE(FramesOf(array), QVector<int>({2}));
    }

    void removesAllOfItsOwnKeys()
    {
        CTimelineKeyArray array;
        AddFrames(array, {1, 2, 3});
        array.SetSelection(2, 3, true, kEveryKind);
        array.RemoveKeys(array.Keys());
        QCOMPARE(array.GetSize(), std::size_t{0});
    }

    void releasesWhatItRemoves()
    {
        int deletions = 0;
        CTimelineKeyArray array;
        array.Add(new WatchedKey(deletions), false);
        array.RemoveKeys(array.CopySelected());
        QCOMPARE(deletions, 0);
        array.RemoveKeys(KeyVector(array.Keys()));
        QCOMPARE(deletions, 1);
    }

    void removingInBulkIsRemovingOneByOne()
    {
        for (int number = 1; number <= kCases; ++number) {
            Twins twins(number);
            // Of some arrays few keys go, of others nearly all.
            const std::vector<int> leaving = twins.RandomPick(twins.dice.Between(0, 60));
            twins.array.RemoveKeys(twins.First(leaving));
            PlainRemove(twins.plain, twins.Second(leaving));
            QVERIFY2(twins.AreEqual(), Label(number));
        }
    }

    // --- Selecting what stands at given frames

    void selectsAllKeysOfTheFrames()
    {
        CTimelineKeyArray array;
        AddFrames(array, {1, 3, 3, 5});
        array.SelectFramesOf({MakeKey(3), nullptr, MakeKey(4), MakeKey(1)}, Kinds::Any);
        QCOMPARE(SelectionOf(array), QVector<int>({0, 1, 2}));
        QCOMPARE(MarkedOf(array), QVector<int>({0, 1, 2}));
    }

    void selectsOnlyKeysOfTheSameKinds()
    {
        CTimelineKeyArray array;
        for (const int kind : {1, 2, 4, 3}) {
            const auto key = MakeKey(3);
            key->kindMask = kind;
            array.Add(key, false);
        }
        const auto wanted = MakeKey(3);
        wanted->kindMask = 2;
        array.SelectFramesOf({wanted}, Kinds::Theirs);
        QCOMPARE(SelectionOf(array), QVector<int>({1, 3}));
    }

    void twoKindMasksThatTogetherHaveAllBitsAreNotEveryKind()
    {
        CTimelineKeyArray array;
        const auto withoutKind = MakeKey(3);
        withoutKind->kindMask = 0;
        array.Add(withoutKind, false);
        const auto low = MakeKey(3);
        low->kindMask = 0x0000FFFF;
        const auto high = MakeKey(3);
        high->kindMask = ~0x0000FFFF;
        array.SelectFramesOf({low, high}, Kinds::Theirs);
        QCOMPARE(SelectionOf(array), QVector<int>());
        const auto all = MakeKey(3);
        all->kindMask = -1;
        array.SelectFramesOf({low, all}, Kinds::Theirs);
        QCOMPARE(SelectionOf(array), QVector<int>({0}));
    }

    void passesOverLockedKeys()
    {
        CTimelineKeyArray array;
        AddFrames(array, {3, 3});
        array.GetAt(0)->lockState = 1;
        array.SelectFramesOf({MakeKey(3)}, Kinds::Any);
        QCOMPARE(SelectionOf(array), QVector<int>({1}));
    }

    void selectingFramesIsSelectingThemOneByOne()
    {
        for (int number = 1; number <= kCases; ++number) {
            Twins twins(number);
            const std::vector<int> wanted = twins.RandomPick(twins.dice.Between(0, 15));
            const Kinds kinds = twins.dice.OneIn(2) ? Kinds::Any : Kinds::Theirs;
            if (twins.dice.OneIn(2)) {
                twins.array.ClearAllSelection();
                twins.plain.ClearAllSelection();
            }
            twins.array.SelectFramesOf(twins.First(wanted), kinds);
            PlainSelectFrames(twins.plain, twins.Second(wanted), kinds);
            QVERIFY2(twins.AreEqual(), Label(number));
        }
    }

    // --- All together

    void aWholeDragOfCopiesLeavesWhatItsPlainStepsLeave()
    {
        for (int number = 1; number <= kCases; ++number) {
            Twins twins(number);
            CTimelineKeyArray& array = twins.array;
            PlainKeyArray& plain = twins.plain;

            KeyVector copies = array.CopySelected();
            KeyVector plainCopies;
            for (const int index : plain.selection) {
                if (index < static_cast<int>(plain.keys.size()))
                    plainCopies.push_back(
                        new CTimelineKey(*plain.keys[static_cast<std::size_t>(index)]));
            }
            for (const KeyVector* const made : {&copies, &plainCopies}) {
                for (const auto& copy : *made)
                    copy->selected = false;
            }
            array.ClearAllSelection();
            plain.ClearAllSelection();
            array.AddSelected(copies);
            PlainAddSelected(plain, plainCopies);
            array.SetSelToMove();
            const KeyVector moveSet = array.MoveSet();
            for (int step = 0; step < 3; ++step) {
                const int delta = twins.dice.Between(-9, 9);
                array.MoveKeys(delta, false);
                plain.MoveKeys(delta, false);
            }
            QVERIFY2(twins.AreEqual(), Label(number));

            array.RemoveKeys(copies);
            PlainRemove(plain, plainCopies);
            QVERIFY2(twins.AreEqual(), Label(number));
            array.ClearAllSelection();
            plain.ClearAllSelection();
            array.SelectFramesOf(moveSet, Kinds::Theirs);
            PlainSelectFrames(plain, moveSet, Kinds::Theirs);
            QVERIFY2(twins.AreEqual(), Label(number));
            QCOMPARE(FramesOf(copies), FramesOf(plainCopies));
        }
    }
};

QTEST_MAIN(tst_CTimelineKeyArrayDrag)
#include "tst_CTimelineKeyArrayDrag.moc"
