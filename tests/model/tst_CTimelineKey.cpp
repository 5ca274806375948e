#include "FreeWatch.h"
#include "KeyMakers.h"

#include <QtTest>

#include <algorithm>
#include <iterator>
#include <new>
#include <type_traits>

class tst_CTimelineKey : public QObject
{
    Q_OBJECT

private slots:
    void hasItsDefaults();
    void aCopyIsAFreshObject();
    void aCopyTakesEveryPlainMember();
    void aCopySharesSubKeysAndGroup();
    void aCopyHasNoSegments();
    void anAssignmentTakesEveryPlainMember();
    void anAssignmentCopiesTheSegments();
    void anAssignmentCopiesTheReferenceCount();
    void anAssignmentReleasesTheFormerSubKeys();
    void anAssignmentFromItselfChangesNothing();
    void canBeAssignedOneOfItsOwnSubKeys();
    void theLastReleaseRunsTheVirtualDestructor();
    void aCountOfZeroWrapsAndDeletesNothing();
    void theLastKeyOfAGroupFreesTheGroup();
    void aGroupHeldByOtherKeysSurvives();
    void onlyItsDestructorIsVirtual();
};

namespace {

constexpr int kFirstValue = 11;

/// Gives every plain member a value of its own, none of them a default.
void FillWithDistinctValues(CTimelineKey& key)
{
    int value = kFirstValue;
    key.name = QStringLiteral("walk");
    key.hostFlag = true;
    key.selected = true;
    key.hostSwitch = true;
    key.alternateStyle = true;
    for (int* member :
         {&key.keyType, &key.frame, &key.kindMask, &key.transitionFrames, &key.hostValue1,
          &key.clipLength, &key.hostValue2, &key.hostValue3, &key.hostValue4, &key.displayLength,
          &key.loopCount, &key.hostValue5, &key.hostValue6, &key.hostValue7, &key.lockState,
          &key.priority, &key.relatedCopy})
        *member = value++;
}

void CompareDistinctValues(const CTimelineKey& key)
{
    int value = kFirstValue;
    QCOMPARE(key.name, QStringLiteral("walk"));
    QVERIFY(key.hostFlag);
    QVERIFY(key.selected);
    QVERIFY(key.hostSwitch);
    QVERIFY(key.alternateStyle);
    QCOMPARE(key.keyType, value++);
    QCOMPARE(key.frame, value++);
    QCOMPARE(key.kindMask, value++);
    QCOMPARE(key.transitionFrames, value++);
    QCOMPARE(key.hostValue1, value++);
    QCOMPARE(key.clipLength, value++);
    QCOMPARE(key.hostValue2, value++);
    QCOMPARE(key.hostValue3, value++);
    QCOMPARE(key.hostValue4, value++);
    QCOMPARE(key.displayLength, value++);
    QCOMPARE(key.loopCount, value++);
    QCOMPARE(key.hostValue5, value++);
    QCOMPARE(key.hostValue6, value++);
    QCOMPARE(key.hostValue7, value++);
    QCOMPARE(key.lockState, value++);
    QCOMPARE(key.priority, value++);
    QCOMPARE(key.relatedCopy, value++);
}

/// Declares every operation of a key again: a call through the base would end up here if the
/// operation were virtual.
class RedeclaredKey : public CTimelineKey
{
public:
    mutable int calls = 0;

    void IncrementReferences() { ++calls; }
    void DecrementReferences() { ++calls; }
    unsigned int GetReferences() const { return static_cast<unsigned int>(++calls); }
    CTimelineKey& operator=(const CTimelineKey&)
    {
        ++calls;
        return *this;
    }
};

std::vector<TimelineKeySegment> TwoSegments()
{
    TimelineKeySegment first;
    first.red = 0.25f;
    first.rects.push_back(TimelineKeyRect{1, 2, 3, 4});
    TimelineKeySegment second;
    second.alpha = 0.5f;
    return {first, second};
}

} // namespace

void tst_CTimelineKey::hasItsDefaults()
{
    // Made in soiled memory, so that a member that is left out shows.
    alignas(CTimelineKey) unsigned char memory[sizeof(CTimelineKey)];
    std::fill(std::begin(memory), std::end(memory), static_cast<unsigned char>(0xA5));
    CTimelineKey* const key = new (memory) CTimelineKey;

    QCOMPARE(key->GetReferences(), 0u);
    QVERIFY(key->name.isEmpty());
    QCOMPARE(key->hostFlag, false);
    QCOMPARE(key->keyType, 1);
    QCOMPARE(key->frame, 0);
    QCOMPARE(key->selected, false);
    QCOMPARE(key->kindMask, 1);
    QCOMPARE(key->transitionFrames, 0);
    QCOMPARE(key->hostValue1, 0);
    QCOMPARE(key->hostSwitch, false);
    QCOMPARE(key->clipLength, 0);
    QCOMPARE(key->hostValue2, 0);
    QCOMPARE(key->hostValue3, 0);
    QCOMPARE(key->hostValue4, 0);
    QCOMPARE(key->displayLength, 0);
    QCOMPARE(key->loopCount, 1);
    QCOMPARE(key->hostValue5, 0);
    QCOMPARE(key->hostValue6, 0);
    QCOMPARE(key->hostValue7, 0);
    QCOMPARE(key->lockState, 0);
    QCOMPARE(key->alternateStyle, false);
    QCOMPARE(key->priority, 100);
    QCOMPARE(key->relatedCopy, 0);
    QVERIFY(key->subKeys == nullptr);
    QVERIFY(key->group == nullptr);
    QVERIFY(key->segments.empty());
    key->~CTimelineKey();
}

void tst_CTimelineKey::aCopyIsAFreshObject()
{
    const VZ::CPointer<CTimelineKey> key = MakeKey(3);
    const CTimelineKey copy(*key);
    QCOMPARE(copy.GetReferences(), 0u);
    QCOMPARE(key->GetReferences(), 1u);
}

void tst_CTimelineKey::aCopyTakesEveryPlainMember()
{
    CTimelineKey key;
    FillWithDistinctValues(key);
    CompareDistinctValues(CTimelineKey(key));
}

void tst_CTimelineKey::aCopySharesSubKeysAndGroup()
{
    CTimelineKey key;
    key.subKeys = new CTimelineKeyArray;
    key.group = new GroupToken;
    const CTimelineKey copy(key);
    QVERIFY(copy.subKeys == key.subKeys);
    QVERIFY(copy.group == key.group);
    QCOMPARE(key.subKeys->GetReferences(), 2u);
    QCOMPARE(key.group->GetReferences(), 2u);
}

void tst_CTimelineKey::aCopyHasNoSegments()
{
    CTimelineKey key;
    key.segments = TwoSegments();
    QVERIFY(CTimelineKey(key).segments.empty());
    QCOMPARE(key.segments.size(), std::size_t{2});
}

void tst_CTimelineKey::anAssignmentTakesEveryPlainMember()
{
    CTimelineKey key;
    FillWithDistinctValues(key);
    key.subKeys = new CTimelineKeyArray;
    key.group = new GroupToken;
    CTimelineKey target;
    CTimelineKey& result = (target = key);
    CompareDistinctValues(target);
    QVERIFY(target.subKeys == key.subKeys);
    QVERIFY(target.group == key.group);
    QCOMPARE(&result, &target);
}

void tst_CTimelineKey::anAssignmentCopiesTheSegments()
{
    CTimelineKey key;
    key.segments = TwoSegments();
    CTimelineKey target;
    target = key;
    QCOMPARE(target.segments.size(), std::size_t{2});
    QCOMPARE(target.segments[0].red, 0.25f);
    QCOMPARE(target.segments[0].rects.size(), std::size_t{1});
    QCOMPARE(target.segments[0].rects[0].bottom, 4);
    QCOMPARE(target.segments[1].alpha, 0.5f);
}

void tst_CTimelineKey::anAssignmentCopiesTheReferenceCount()
{
    CTimelineKey key;
    for (int i = 0; i < 3; ++i)
        key.IncrementReferences();
    CTimelineKey target;
    target = key;
    QCOMPARE(target.GetReferences(), 3u);
}

void tst_CTimelineKey::anAssignmentReleasesTheFormerSubKeys()
{
    int deletions = 0;
    CTimelineKey target;
    target.subKeys = new WatchedKeyArray(deletions);
    target = CTimelineKey();
    QCOMPARE(deletions, 1);
}

void tst_CTimelineKey::anAssignmentFromItselfChangesNothing()
{
    CTimelineKey key;
    FillWithDistinctValues(key);
    key.segments = TwoSegments();
    key.subKeys = new CTimelineKeyArray;
    const CTimelineKey& itself = key;
    key = itself;
    CompareDistinctValues(key);
    QCOMPARE(key.segments.size(), std::size_t{2});
    QCOMPARE(key.subKeys->GetReferences(), 1u);
}

void tst_CTimelineKey::canBeAssignedOneOfItsOwnSubKeys()
{
    CTimelineKey clip;
    clip.subKeys = new CTimelineKeyArray;
    clip.subKeys->Add(MakeKey(5, "inner"), false);
    clip.subKeys->Keys().front()->segments = TwoSegments();

    clip = *clip.subKeys->Keys().front();

    QCOMPARE(clip.name, QStringLiteral("inner"));
    QCOMPARE(clip.segments.size(), std::size_t{2});
    QVERIFY(clip.subKeys == nullptr);
}

void tst_CTimelineKey::theLastReleaseRunsTheVirtualDestructor()
{
    int deletions = 0;
    CTimelineKey* const key = new WatchedKey(deletions);
    key->IncrementReferences();
    key->IncrementReferences();
    key->DecrementReferences();
    QCOMPARE(deletions, 0);
    key->DecrementReferences();
    QCOMPARE(deletions, 1);
}

void tst_CTimelineKey::aCountOfZeroWrapsAndDeletesNothing()
{
    int deletions = 0;
    CTimelineKey* const key = new WatchedKey(deletions);
    key->DecrementReferences();
    QCOMPARE(deletions, 0);
    QCOMPARE(key->GetReferences(), 0xFFFFFFFFu);
    delete key;
}

void tst_CTimelineKey::theLastKeyOfAGroupFreesTheGroup()
{
    VZ::CPointer<CTimelineKey> key = MakeKey(0);
    key->group = new GroupToken;
    FreeWatch::Watch(key->group.Get());
    key = nullptr;
    QCOMPARE(FreeWatch::freedCount, 1);
}

void tst_CTimelineKey::aGroupHeldByOtherKeysSurvives()
{
    VZ::CPointer<CTimelineKey> key = MakeKey(0);
    const VZ::CPointer<CTimelineKey> other = MakeKey(1);
    key->group = new GroupToken;
    other->group = key->group;
    FreeWatch::Watch(key->group.Get());
    key = nullptr;
    QCOMPARE(FreeWatch::freedCount, 0);
    QCOMPARE(other->group->GetReferences(), 1u);
}

void tst_CTimelineKey::onlyItsDestructorIsVirtual()
{
    QVERIFY(std::has_virtual_destructor<CTimelineKey>::value);
    QVERIFY(!std::is_polymorphic<CReltedGroupBase>::value);

    RedeclaredKey redeclared;
    CTimelineKey& key = redeclared;
    key.IncrementReferences();
    key.IncrementReferences();
    key.DecrementReferences();
    QCOMPARE(key.GetReferences(), 1u);
    key = CTimelineKey();
    QCOMPARE(redeclared.calls, 0);
}

QTEST_MAIN(tst_CTimelineKey)
#include "tst_CTimelineKey.moc"
