#include "KeyMakers.h"

#include <QtTest>

#include <limits>
#include <random>

class tst_CTimelineKeyArrayRelated : public QObject
{
    Q_OBJECT

private slots:
    void refusesANullKey();
    void holdsAMarkedCopyOfTheKey();
    void leavesAnUnheldKeyAlone();
    void placesRelatedKeysByFrame();
    void addingTheSameKeyTwiceGivesTwoCopies();
    void addingTheSameKeyTwiceWithReplaceKeepsOne();
    void replacesTheLastRelatedKeyOfTheFrame();
    void touchesNeitherDisplayLengthNorSelection();
    void hitsTheFirstAndTheLastRelatedKeyOfAFrame();
    void removesOneRelatedKey();
    void removingAllLeavesKeysAndSelection();

    void drawsAClipUpToTheFrameBeforeTheNextKey();
    void aKeyBetweenTwoClipsTrimsTheFirst();
    void aClipThatEndsBeforeTheNextKeyIsNotTrimmed_data();
    void aClipThatEndsBeforeTheNextKeyIsNotTrimmed();
    void aPlainKeyHasDisplayLengthZero();
    void aPlainKeyBeforeOneOfItsFrameHasMinusOne();
    void updatesTheKeyAndTheOneBeforeOnly();
    void hugeLoopsStayWithinTheNumberRange();
    void trimsAcrossTheWholeNumberRange();

    void collectsKeysAndRelatedKeysInFrameOrder();
    void collectsRelatedKeysAtBothExtremes();
    void anOwnKeyWinsAtEqualPriority();
    void aRelatedKeyWinsWithGreaterPriority();
    void aRelatedKeyOnlyTakesTheLastPlaceOfARun();
    void relatedKeysOfOneFrameCompeteInTheirOrder();
    void collectingLeavesTheArrayUnchanged();
    void collectsOnlyRelatedKeysForAnEmptyArray();
    void collectingAppendsToWhatIsThereAlready();
    void collectsAsPlacingOneRelatedKeyAfterAnotherDoes_data();
    void collectsAsPlacingOneRelatedKeyAfterAnotherDoes();
};

namespace {

CTimelineKeyArray::KeyVector Collect(const CTimelineKeyArray& array)
{
    CTimelineKeyArray::KeyVector keys;
    array.CollectDisplayKeys(keys);
    return keys;
}

/// The same, one related key after the other.
CTimelineKeyArray::KeyVector CollectPlainly(const CTimelineKeyArray& array)
{
    CTimelineKeyArray::KeyVector keys = array.Keys();
    for (const auto& related : array.RelatedKeys()) {
        int index = 0;
        bool found = false;
        array.GetInsertIndex(keys, related->frame, false, index, found);
        if (!found)
            keys.insert(keys.begin() + index, related);
        else if (keys[static_cast<std::size_t>(index)]->priority < related->priority)
            keys[static_cast<std::size_t>(index)] = related;
    }
    return keys;
}

VZ::CPointer<CTimelineKey> MakeKeyOfPriority(int frame, int priority)
{
    const auto key = MakeKey(frame);
    key->priority = priority;
    return key;
}

} // namespace

// --- Related list

void tst_CTimelineKeyArrayRelated::refusesANullKey()
{
    CTimelineKeyArray array;
    QCOMPARE(array.RelatedAdd(nullptr, false), -1);
    QCOMPARE(array.RelatedAdd(nullptr, true), -1);
    QCOMPARE(array.RelatedGetSize(), std::size_t{0});
}

void tst_CTimelineKeyArrayRelated::holdsAMarkedCopyOfTheKey()
{
    const auto key = MakeKey(8, "smile");
    CTimelineKeyArray array;
    QCOMPARE(array.RelatedAdd(key.Get(), false), 0);
    QVERIFY(array.RelatedGetAt(0) != key);
    QCOMPARE(array.RelatedGetAt(0)->name, QStringLiteral("smile"));
    QCOMPARE(array.RelatedGetAt(0)->relatedCopy, 1);
    QCOMPARE(array.RelatedKeys().front()->GetReferences(), 1u);
    QCOMPARE(key->relatedCopy, 0);
    QCOMPARE(key->GetReferences(), 1u);
}

void tst_CTimelineKeyArrayRelated::leavesAnUnheldKeyAlone()
{
    int deletions = 0;
    CTimelineKey* const key = new WatchedKey(deletions);
    CTimelineKeyArray array;
    array.RelatedAdd(key, false);
    QCOMPARE(deletions, 0);
    QCOMPARE(key->GetReferences(), 0u);
    delete key;
}

void tst_CTimelineKeyArrayRelated::placesRelatedKeysByFrame()
{
    CTimelineKeyArray array;
    QCOMPARE(array.RelatedAdd(MakeKey(10).Get(), false), 0);
    QCOMPARE(array.RelatedAdd(MakeKey(30).Get(), false), 1);
    QCOMPARE(array.RelatedAdd(MakeKey(5).Get(), false), 0);
    QCOMPARE(array.RelatedAdd(MakeKey(20).Get(), true), 2);
    QCOMPARE(FramesOf(array.RelatedKeys()), QVector<int>({5, 10, 20, 30}));
}

void tst_CTimelineKeyArrayRelated::addingTheSameKeyTwiceGivesTwoCopies()
{
    const auto key = MakeKey(10);
    CTimelineKeyArray array;
    QCOMPARE(array.RelatedAdd(key.Get(), false), 0);
    QCOMPARE(array.RelatedAdd(key.Get(), false), 1);
    QCOMPARE(array.RelatedGetSize(), std::size_t{2});
    QVERIFY(array.RelatedGetAt(0) != array.RelatedGetAt(1));
}

void tst_CTimelineKeyArrayRelated::addingTheSameKeyTwiceWithReplaceKeepsOne()
{
    const auto key = MakeKey(10);
    CTimelineKeyArray array;
    array.RelatedAdd(key.Get(), true);
    const auto former = array.RelatedGetAt(0);
    QCOMPARE(array.RelatedAdd(key.Get(), true), 0);
    QCOMPARE(array.RelatedGetSize(), std::size_t{1});
    QVERIFY(array.RelatedGetAt(0) != former);
}

void tst_CTimelineKeyArrayRelated::replacesTheLastRelatedKeyOfTheFrame()
{
    CTimelineKeyArray array;
    array.RelatedAdd(MakeKey(10, "first").Get(), false);
    array.RelatedAdd(MakeKey(10, "second").Get(), false);
    QCOMPARE(array.RelatedAdd(MakeKey(10, "third").Get(), true), 1);
    QCOMPARE(array.RelatedGetAt(0)->name, QStringLiteral("first"));
    QCOMPARE(array.RelatedGetAt(1)->name, QStringLiteral("third"));
}

void tst_CTimelineKeyArrayRelated::touchesNeitherDisplayLengthNorSelection()
{
    CTimelineKeyArray array;
    array.Add(MakeClip(0, 20), false);
    array.SelAdd(0); // not marked: a rebuilt selection would drop it
    const auto key = MakeClip(5, 9);
    key->displayLength = 44;
    key->selected = true;
    array.RelatedAdd(key.Get(), false);
    array.RelatedAdd(key.Get(), false);
    QCOMPARE(array.RelatedGetAt(0)->displayLength, 44);
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({20}));
    QCOMPARE(SelectionOf(array), QVector<int>({0}));
}

void tst_CTimelineKeyArrayRelated::hitsTheFirstAndTheLastRelatedKeyOfAFrame()
{
    CTimelineKeyArray array;
    AddFrames(array, {7});
    for (int frame : {5, 10, 10})
        array.RelatedAdd(MakeKey(frame).Get(), false);
    QCOMPARE(array.RelatedHitKey(10, true), 1);
    QCOMPARE(array.RelatedHitKey(10, false), 2);
    QCOMPARE(array.RelatedHitKey(7, true), -1);
}

void tst_CTimelineKeyArrayRelated::removesOneRelatedKey()
{
    CTimelineKeyArray array;
    for (int frame : {5, 10, 15})
        array.RelatedAdd(MakeKey(frame).Get(), false);
    array.RelatedRemoveAt(1);
    QCOMPARE(FramesOf(array.RelatedKeys()), QVector<int>({5, 15}));
}

void tst_CTimelineKeyArrayRelated::removingAllLeavesKeysAndSelection()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2});
    array.SetSelection(2, 2, true, kEveryKind);
    array.RelatedAdd(MakeKey(2).Get(), false);
    array.RelatedRemoveAll();
    QCOMPARE(array.RelatedGetSize(), std::size_t{0});
    QCOMPARE(FramesOf(array), QVector<int>({1, 2}));
    QCOMPARE(SelectionOf(array), QVector<int>({1}));
    QCOMPARE(MarkedOf(array), QVector<int>({1}));
}

// --- Display lengths

void tst_CTimelineKeyArrayRelated::drawsAClipUpToTheFrameBeforeTheNextKey()
{
    CTimelineKeyArray array;
    array.Add(MakeClip(0, 8, 2), false);
    array.Add(MakeClip(10, 8, 2), false);
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({9, 16}));
}

void tst_CTimelineKeyArrayRelated::aKeyBetweenTwoClipsTrimsTheFirst()
{
    CTimelineKeyArray array;
    array.Add(MakeClip(0, 8, 2), false);
    array.Add(MakeClip(10, 8, 2), false);
    array.Add(MakeKey(5), false);
    QCOMPARE(array.GetAt(0)->displayLength, 4);
}

void tst_CTimelineKeyArrayRelated::aClipThatEndsBeforeTheNextKeyIsNotTrimmed_data()
{
    QTest::addColumn<int>("clipLength");
    QTest::addColumn<int>("displayLength");
    QTest::newRow("ends two frames before") << 8 << 8;
    QTest::newRow("ends one frame before") << 9 << 9;
    QTest::newRow("ends on the next key") << 10 << 9;
    QTest::newRow("ends behind the next key") << 11 << 9;
}

void tst_CTimelineKeyArrayRelated::aClipThatEndsBeforeTheNextKeyIsNotTrimmed()
{
    QFETCH(int, clipLength);
    QFETCH(int, displayLength);
    // Added in both orders, so that either key is once the new and once the previous one.
    CTimelineKeyArray array;
    array.Add(MakeClip(0, clipLength), false);
    array.Add(MakeKey(10), false);
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({displayLength, 0}));

    CTimelineKeyArray other;
    other.Add(MakeKey(10), false);
    other.Add(MakeClip(0, clipLength), false);
    QCOMPARE(DisplayLengthsOf(other), QVector<int>({displayLength, 0}));
}

void tst_CTimelineKeyArrayRelated::aPlainKeyHasDisplayLengthZero()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 9});
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({0, 0, 0}));
}

void tst_CTimelineKeyArrayRelated::aPlainKeyBeforeOneOfItsFrameHasMinusOne()
{
    CTimelineKeyArray array;
    AddFrames(array, {4, 4});
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({-1, 0}));
}

void tst_CTimelineKeyArrayRelated::updatesTheKeyAndTheOneBeforeOnly()
{
    CTimelineKeyArray array;
    for (int frame : {0, 10, 20, 30})
        array.Add(MakeClip(frame, 3), false);
    for (int index = 0; index < 4; ++index) {
        array.GetAt(index)->clipLength = 5;
        array.GetAt(index)->displayLength = 77;
    }
    array.UpdateClipDisplayLength(2);
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({77, 5, 5, 77}));
    array.UpdateClipDisplayLength(0);
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({5, 5, 5, 77}));
    array.UpdateClipDisplayLength(3);
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({5, 5, 5, 5}));
}

void tst_CTimelineKeyArrayRelated::hugeLoopsStayWithinTheNumberRange()
{
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    CTimelineKeyArray array;
    array.Add(MakeClip(0, most, most), false);
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({most}));
    array.Add(MakeClip(100, most, least), false);
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({99, least}));
}

void tst_CTimelineKeyArrayRelated::trimsAcrossTheWholeNumberRange()
{
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    CTimelineKeyArray array;
    array.Add(MakeClip(least, most, most), false);
    array.Add(MakeKey(most), false);
    QCOMPARE(DisplayLengthsOf(array), QVector<int>({most, 0}));
}

// --- Display collection

void tst_CTimelineKeyArrayRelated::collectsKeysAndRelatedKeysInFrameOrder()
{
    CTimelineKeyArray array;
    AddFrames(array, {10, 20, 30});
    for (int frame : {15, 25})
        array.RelatedAdd(MakeKey(frame).Get(), false);
    QCOMPARE(FramesOf(Collect(array)), QVector<int>({10, 15, 20, 25, 30}));
}

void tst_CTimelineKeyArrayRelated::collectsRelatedKeysAtBothExtremes()
{
    CTimelineKeyArray array;
    AddFrames(array, {10});
    for (int frame : {5, 15})
        array.RelatedAdd(MakeKey(frame).Get(), false);
    QCOMPARE(FramesOf(Collect(array)), QVector<int>({5, 10, 15}));
}

void tst_CTimelineKeyArrayRelated::anOwnKeyWinsAtEqualPriority()
{
    CTimelineKeyArray array;
    array.Add(MakeKeyOfPriority(10, 100), false);
    array.RelatedAdd(MakeKeyOfPriority(10, 100).Get(), false);
    const auto shown = Collect(array);
    QCOMPARE(shown.size(), std::size_t{1});
    QVERIFY(shown[0] == array.GetAt(0));
}

void tst_CTimelineKeyArrayRelated::aRelatedKeyWinsWithGreaterPriority()
{
    CTimelineKeyArray array;
    array.Add(MakeKeyOfPriority(10, 100), false);
    array.RelatedAdd(MakeKeyOfPriority(10, 101).Get(), false);
    const auto shown = Collect(array);
    QCOMPARE(shown.size(), std::size_t{1});
    QVERIFY(shown[0] == array.RelatedGetAt(0));
    QCOMPARE(array.GetAt(0)->priority, 100);
}

void tst_CTimelineKeyArrayRelated::aRelatedKeyOnlyTakesTheLastPlaceOfARun()
{
    CTimelineKeyArray array;
    array.Add(MakeKeyOfPriority(10, 1), false);
    array.Add(MakeKeyOfPriority(10, 2), false);
    array.RelatedAdd(MakeKeyOfPriority(10, 3).Get(), false);
    const auto shown = Collect(array);
    QCOMPARE(shown.size(), std::size_t{2});
    QVERIFY(shown[0] == array.GetAt(0));
    QVERIFY(shown[1] == array.RelatedGetAt(0));
}

void tst_CTimelineKeyArrayRelated::relatedKeysOfOneFrameCompeteInTheirOrder()
{
    CTimelineKeyArray array;
    for (int priority : {50, 70, 60})
        array.RelatedAdd(MakeKeyOfPriority(10, priority).Get(), false);
    const auto shown = Collect(array);
    QCOMPARE(shown.size(), std::size_t{1});
    QCOMPARE(shown[0]->priority, 70);
}

void tst_CTimelineKeyArrayRelated::collectingLeavesTheArrayUnchanged()
{
    CTimelineKeyArray array;
    const auto own = MakeKeyOfPriority(10, 1);
    array.Add(own, false);
    array.RelatedAdd(MakeKeyOfPriority(10, 2).Get(), false);
    array.RelatedAdd(MakeKey(12).Get(), false);
    Collect(array);
    QCOMPARE(array.GetSize(), std::size_t{1});
    QVERIFY(array.GetAt(0) == own);
    QCOMPARE(array.RelatedGetSize(), std::size_t{2});
}

void tst_CTimelineKeyArrayRelated::collectsOnlyRelatedKeysForAnEmptyArray()
{
    CTimelineKeyArray array;
    QVERIFY(Collect(array).empty());
    for (int frame : {5, 15})
        array.RelatedAdd(MakeKey(frame).Get(), false);
    QCOMPARE(FramesOf(Collect(array)), QVector<int>({5, 15}));
}

void tst_CTimelineKeyArrayRelated::collectingAppendsToWhatIsThereAlready()
{
    CTimelineKeyArray array;
    AddFrames(array, {10, 20});
    array.RelatedAdd(MakeKey(5).Get(), false);
    array.RelatedAdd(MakeKeyOfPriority(20, 101).Get(), false);
    const auto there = MakeKey(1);
    CTimelineKeyArray::KeyVector keys = {there};
    array.CollectDisplayKeys(keys);
    QCOMPARE(FramesOf(keys), QVector<int>({1, 5, 10, 20}));
    QVERIFY(keys[0] == there);
    QVERIFY(keys[3] == array.RelatedGetAt(1));
}

void tst_CTimelineKeyArrayRelated::collectsAsPlacingOneRelatedKeyAfterAnotherDoes_data()
{
    QTest::addColumn<int>("writtenFrames");
    QTest::newRow("lists in frame order") << 0;
    QTest::newRow("frames written by the host") << 3;
}

void tst_CTimelineKeyArrayRelated::collectsAsPlacingOneRelatedKeyAfterAnotherDoes()
{
    QFETCH(int, writtenFrames);
    std::mt19937 random(11);
    const auto below = [&random](int end) {
        return static_cast<int>(random() % static_cast<unsigned int>(end));
    };
    for (int round = 0; round < 300; ++round) {
        CTimelineKeyArray array;
        for (int count = below(12); count > 0; --count)
            array.Add(MakeKeyOfPriority(below(15), below(3)), false);
        for (int count = below(12); count > 0; --count)
            array.RelatedAdd(MakeKeyOfPriority(below(15), below(3)).Get(), false);
        for (int count = writtenFrames; count > 0; --count) {
            const auto& keys = below(2) ? array.Keys() : array.RelatedKeys();
            if (!keys.empty())
                keys[static_cast<std::size_t>(below(static_cast<int>(keys.size())))]->frame =
                    below(15);
        }
        QVERIFY(Collect(array) == CollectPlainly(array));
    }
}

QTEST_MAIN(tst_CTimelineKeyArrayRelated)
#include "tst_CTimelineKeyArrayRelated.moc"
