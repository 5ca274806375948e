// Hosts are compiled against the exported classes and records: their sizes, the place of every
// member and the numbers of the enumerators are fixed for 64-bit builds.

#include "CArrayList.h"
#include "CTimelineClipboard.h"
#include "KestovaExport.h"
#include "KeyMakers.h"
#include "TimelineBoundaryRecords.h"
#include "TimelineEnums.h"
#include "TimelineKeyValues.h"

#include <QtTest>

#include <cstdint>
#include <cstring>
#include <type_traits>

namespace {

template <class Object, class Holder, class Member>
int OffsetOf(const Object& object, Member Holder::*member)
{
    const auto base = reinterpret_cast<const char*>(&object);
    return static_cast<int>(reinterpret_cast<const char*>(&(object.*member)) - base);
}

/// What lies @p offset bytes behind the start of an object.
template <class Value, class Object>
Value Peek(const Object& object, std::size_t offset)
{
    static_assert(std::is_trivially_copyable<Value>::value);
    Value value;
    std::memcpy(&value, reinterpret_cast<const char*>(&object) + offset, sizeof(Value));
    return value;
}

/// The pointers a vector is made of.
struct VectorImage
{
    const char* begin;
    const char* end;
    const char* capacity;
};

template <class Object>
std::size_t BytesOfVectorAt(const Object& object, std::size_t offset)
{
    const auto image = Peek<VectorImage>(object, offset);
    return static_cast<std::size_t>(image.end - image.begin);
}

constexpr std::size_t kPointerSize = 8;

/// Derived only to have a virtual table of its own.
class OtherKey : public CTimelineKey
{
public:
    ~OtherKey() override = default;
};

class OtherKeyArray : public CTimelineKeyArray
{
public:
    ~OtherKeyArray() override = default;
};

class OtherClipboard : public CTimelineClipboard
{
public:
    ~OtherClipboard() override = default;
};

/// True when the first word tells the classes apart, as a virtual table pointer does.
template <class Base, class Derived>
bool StartsWithVirtualTablePointer()
{
    const Base first;
    const Base second;
    const Derived derived;
    const auto table = Peek<std::uintptr_t>(first, 0);
    return table != 0 && table == Peek<std::uintptr_t>(second, 0) &&
           table != Peek<std::uintptr_t>(derived, 0);
}

} // namespace

class tst_BinaryLayout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void aGroupTokenIsItsCount();
    void aPointerIsOnePointer();
    void aListIsThreePointers();
    void aKeyStartsWithItsTableAndCount();
    void aKeyHasItsMembersInPlace_data();
    void aKeyHasItsMembersInPlace();
    void aKeyArrayStartsWithItsTableAndCount();
    void aKeyArrayHasItsListsInPlace();
    void aClipboardHasItsMembersInPlace();
    void segmentRecordsHaveTheirMembersInPlace();
    void aSwitchButtonHasItsMembersInPlace();
    void aRelationRowHasItsMembersInPlace();
    void aMenuEntryHasItsMembersInPlace();
    void recordsAreConstructedWithTheirDefaults();
    void enumerationsAreInts();
    void trackTypesHaveTheirNumbers();
    void editTypesHaveTheirNumbers();
    void dropTypesHaveTheirNumbers();
    void keyValuesHaveTheirNumbers();
    void aHandleIsAPlainPointer();
};

void tst_BinaryLayout::initTestCase()
{
    if (sizeof(void*) != kPointerSize)
        QSKIP("The layout is fixed for 64-bit builds only, and this is none.");
}

void tst_BinaryLayout::aGroupTokenIsItsCount()
{
    QCOMPARE(sizeof(CReltedGroupBase), std::size_t{4});
    QCOMPARE(sizeof(GroupToken), std::size_t{4});
    GroupToken token;
    token.IncrementReferences();
    QCOMPARE(Peek<std::uint32_t>(token, 0), std::uint32_t{1});
}

void tst_BinaryLayout::aPointerIsOnePointer()
{
    QCOMPARE(sizeof(VZ::CPointer<CTimelineKey>), kPointerSize);
    QCOMPARE(sizeof(VZ::CPointer<CTimelineKeyArray>), kPointerSize);
    QCOMPARE(sizeof(VZ::CPointer<CReltedGroupBase>), kPointerSize);
    const auto key = MakeKey(0);
    QCOMPARE(Peek<CTimelineKey*>(key, 0), key.Get());
}

void tst_BinaryLayout::aListIsThreePointers()
{
    VZ::CArrayList<TLEditType> list;
    QCOMPARE(sizeof(list), std::size_t{24});
    QCOMPARE(sizeof(VZ::CArrayList<CTimelineTrackBase*>), std::size_t{24});
    for (int i = 0; i < 3; ++i)
        list.Add(TL_EDIT_CUT);
    const auto image = Peek<VectorImage>(list, 0);
    QCOMPARE(image.begin, reinterpret_cast<const char*>(&list[0]));
    QCOMPARE(image.end - image.begin, std::ptrdiff_t{3 * sizeof(int)});
    QVERIFY(image.capacity >= image.end);
}

// --- Keys

void tst_BinaryLayout::aKeyStartsWithItsTableAndCount()
{
    QCOMPARE(sizeof(CTimelineKey), std::size_t{152});
    QVERIFY((StartsWithVirtualTablePointer<CTimelineKey, OtherKey>()));
    CTimelineKey key;
    key.IncrementReferences();
    key.IncrementReferences();
    QCOMPARE(Peek<std::uint32_t>(key, kPointerSize), std::uint32_t{2});
}

void tst_BinaryLayout::aKeyHasItsMembersInPlace_data()
{
    QTest::addColumn<int>("actual");
    QTest::addColumn<int>("offset");
    const CTimelineKey key;
#define MEMBER_AT(member, offset)                                                                  \
    QTest::newRow(#member) << OffsetOf(key, &CTimelineKey::member) << offset
    MEMBER_AT(name, 16);
    MEMBER_AT(hostFlag, 24);
    MEMBER_AT(keyType, 28);
    MEMBER_AT(frame, 32);
    MEMBER_AT(selected, 36);
    MEMBER_AT(kindMask, 40);
    MEMBER_AT(transitionFrames, 44);
    MEMBER_AT(hostValue1, 48);
    MEMBER_AT(hostSwitch, 52);
    MEMBER_AT(clipLength, 56);
    MEMBER_AT(hostValue2, 60);
    MEMBER_AT(hostValue3, 64);
    MEMBER_AT(hostValue4, 68);
    MEMBER_AT(displayLength, 72);
    MEMBER_AT(loopCount, 76);
    MEMBER_AT(hostValue5, 80);
    MEMBER_AT(hostValue6, 84);
    MEMBER_AT(hostValue7, 88);
    MEMBER_AT(lockState, 92);
    MEMBER_AT(alternateStyle, 96);
    MEMBER_AT(priority, 100);
    MEMBER_AT(relatedCopy, 104);
    MEMBER_AT(subKeys, 112);
    MEMBER_AT(group, 120);
    MEMBER_AT(segments, 128);
#undef MEMBER_AT
}

void tst_BinaryLayout::aKeyHasItsMembersInPlace()
{
    QFETCH(int, actual);
    QTEST(actual, "offset");
    QCOMPARE(sizeof(QString), std::size_t{8});
    QCOMPARE(sizeof(bool), std::size_t{1});
    QCOMPARE(sizeof(int), std::size_t{4});
}

void tst_BinaryLayout::aKeyArrayStartsWithItsTableAndCount()
{
    QCOMPARE(sizeof(CTimelineKeyArray), std::size_t{112});
    QVERIFY((StartsWithVirtualTablePointer<CTimelineKeyArray, OtherKeyArray>()));
    CTimelineKeyArray array;
    for (int i = 0; i < 3; ++i)
        array.IncrementReferences();
    QCOMPARE(Peek<std::uint32_t>(array, kPointerSize), std::uint32_t{3});
}

void tst_BinaryLayout::aKeyArrayHasItsListsInPlace()
{
    CTimelineKeyArray array;
    AddFrames(array, {1, 2, 3, 4, 5});
    array.SetSelection(1, 3, true, kEveryKind);
    array.SetSelToMove();
    array.SetSelection(3, 3, false, kEveryKind);
    array.RelatedAdd(MakeKey(9).Get(), false);
    QCOMPARE(BytesOfVectorAt(array, 16), 5 * kPointerSize); // keys
    QCOMPARE(BytesOfVectorAt(array, 40), 2 * sizeof(int));  // selection
    QCOMPARE(BytesOfVectorAt(array, 64), 3 * kPointerSize); // move set
    QCOMPARE(BytesOfVectorAt(array, 88), 1 * kPointerSize); // related keys
}

void tst_BinaryLayout::aClipboardHasItsMembersInPlace()
{
    QCOMPARE(sizeof(CTimelineClipboard), std::size_t{40});
    QVERIFY((StartsWithVirtualTablePointer<CTimelineClipboard, OtherClipboard>()));
    CTimelineClipboard clipboard;
    clipboard.Fill({MakeKey(77), MakeKey(78)}, 77);
    QCOMPARE(Peek<std::int32_t>(clipboard, 8), std::int32_t{77});
    QCOMPARE(BytesOfVectorAt(clipboard, 16), 2 * kPointerSize);
}

// --- Records

void tst_BinaryLayout::segmentRecordsHaveTheirMembersInPlace()
{
    const TimelineKeySegment segment;
    QCOMPARE(sizeof(segment), std::size_t{40});
    QCOMPARE(OffsetOf(segment, &TimelineKeySegment::red), 0);
    QCOMPARE(OffsetOf(segment, &TimelineKeySegment::green), 4);
    QCOMPARE(OffsetOf(segment, &TimelineKeySegment::blue), 8);
    QCOMPARE(OffsetOf(segment, &TimelineKeySegment::alpha), 12);
    QCOMPARE(OffsetOf(segment, &TimelineKeySegment::rects), 16);

    const TimelineKeyRect rect;
    QCOMPARE(sizeof(rect), std::size_t{16});
    QCOMPARE(OffsetOf(rect, &TimelineKeyRect::left), 0);
    QCOMPARE(OffsetOf(rect, &TimelineKeyRect::top), 4);
    QCOMPARE(OffsetOf(rect, &TimelineKeyRect::right), 8);
    QCOMPARE(OffsetOf(rect, &TimelineKeyRect::bottom), 12);
}

void tst_BinaryLayout::aSwitchButtonHasItsMembersInPlace()
{
    const _tmpTLSwitchBtnData button;
    QCOMPARE(sizeof(button), std::size_t{16});
    QCOMPARE(OffsetOf(button, &_tmpTLSwitchBtnData::text), 0);
    QCOMPARE(OffsetOf(button, &_tmpTLSwitchBtnData::state), 8);
}

void tst_BinaryLayout::aRelationRowHasItsMembersInPlace()
{
    const _tmpTLRelatedMap row;
    QCOMPARE(sizeof(row), std::size_t{32});
    QCOMPARE(OffsetOf(row, &_tmpTLRelatedMap::kind), 0);
    QCOMPARE(OffsetOf(row, &_tmpTLRelatedMap::tracks), 8);
    QCOMPARE(sizeof(row.tracks), std::size_t{24});
}

void tst_BinaryLayout::aMenuEntryHasItsMembersInPlace()
{
    const _tmpTLMenuMapData entry;
    QCOMPARE(sizeof(entry), std::size_t{56});
    QCOMPARE(OffsetOf(entry, &_tmpTLMenuMapData::command), 0);
    QCOMPARE(OffsetOf(entry, &_tmpTLMenuMapData::text), 8);
    QCOMPARE(OffsetOf(entry, &_tmpTLMenuMapData::checked), 16);
    QCOMPARE(OffsetOf(entry, &_tmpTLMenuMapData::enabled), 17);
    QCOMPARE(OffsetOf(entry, &_tmpTLMenuMapData::reserved), 24);
    QCOMPARE(OffsetOf(entry, &_tmpTLMenuMapData::children), 32);
}

void tst_BinaryLayout::recordsAreConstructedWithTheirDefaults()
{
    const _tmpTLMenuMapData entry;
    QCOMPARE(entry.command, 0);
    QVERIFY(entry.text.isEmpty());
    QCOMPARE(entry.checked, false);
    QCOMPARE(entry.enabled, true);
    QVERIFY(entry.reserved == nullptr);
    QVERIFY(entry.children.empty());

    const _tmpTLSwitchBtnData button;
    QVERIFY(button.text.isEmpty());
    QCOMPARE(button.state, 0);

    const _tmpTLRelatedMap row;
    QCOMPARE(row.kind, 0);
    QVERIFY(row.tracks.empty());
}

// --- Enumerations

void tst_BinaryLayout::enumerationsAreInts()
{
    QVERIFY((std::is_same<std::underlying_type_t<TL_TRACK_TYPE>, int>::value));
    QVERIFY((std::is_same<std::underlying_type_t<TLEditType>, int>::value));
    QVERIFY((std::is_same<std::underlying_type_t<TLDropFileType>, int>::value));
    QVERIFY((std::is_convertible<TLEditType, int>::value)); // plain, not scoped
}

void tst_BinaryLayout::trackTypesHaveTheirNumbers()
{
    QCOMPARE(int{TL_TRACK_NONE}, -1);
    QCOMPARE(int{TL_TRACK_HSCROLL}, 1);
    QCOMPARE(int{TL_TRACK_TICK}, 2);
    QCOMPARE(int{TL_TRACK_SWITCH}, 3);
    QCOMPARE(int{TL_TRACK_KEY}, 4);
    QCOMPARE(int{TL_TRACK_TRANSITION_KEY}, 5);
    QCOMPARE(int{TL_TRACK_LINK_KEY}, 6);
    QCOMPARE(int{TL_TRACK_VISEME_KEY}, 7);
    QCOMPARE(int{TL_TRACK_CLIP}, 8);
    QCOMPARE(int{TL_TRACK_WAVE}, 9);
}

void tst_BinaryLayout::editTypesHaveTheirNumbers()
{
    QCOMPARE(int{TL_EDIT_BEGIN}, 0);
    QCOMPARE(int{TL_EDIT_END}, 1);
    QCOMPARE(int{TL_EDIT_MOVE_KEYS}, 2);
    QCOMPARE(int{TL_EDIT_CLIP_LOOP}, 3);
    QCOMPARE(int{TL_EDIT_CLIP_SPEED}, 4);
    QCOMPARE(int{TL_EDIT_CLIP_TRIM}, 5);
    QCOMPARE(int{TL_EDIT_MOVE_KEYS_END}, 6);
    QCOMPARE(int{TL_EDIT_CLIP_LOOP_END}, 7);
    QCOMPARE(int{TL_EDIT_CLIP_SPEED_END}, 8);
    QCOMPARE(int{TL_EDIT_CLIP_TRIM_END}, 9);
    QCOMPARE(int{TL_EDIT_TIME_RANGE}, 10);
    QCOMPARE(int{TL_EDIT_SUB_KEYS}, 11);
    QCOMPARE(int{TL_EDIT_CUT}, 12);
    QCOMPARE(int{TL_EDIT_COPY}, 13);
    QCOMPARE(int{TL_EDIT_PASTE}, 14);
    QCOMPARE(int{TL_EDIT_DELETE}, 15);
    QCOMPARE(int{TL_EDIT_INSERT_KEY}, 16);
    QCOMPARE(int{TL_EDIT_BREAK}, 17);
    QCOMPARE(int{TL_EDIT_HOST_18}, 18);
    QCOMPARE(int{TL_EDIT_RANGE_COMMAND}, 19);
    QCOMPARE(int{TL_EDIT_HOST_20}, 20);
    QCOMPARE(int{TL_EDIT_AUTO_MOTION}, 21);
    QCOMPARE(int{TL_EDIT_SELECT_PREVIOUS}, 22);
    QCOMPARE(int{TL_EDIT_SELECT_NEXT}, 23);
    QCOMPARE(int{TL_EDIT_SELECT_ALL}, 24);
    QCOMPARE(int{TL_EDIT_HOST_27}, 27);
}

void tst_BinaryLayout::dropTypesHaveTheirNumbers()
{
    QCOMPARE(int{TL_DROP_NONE}, 0);
    QCOMPARE(int{TL_DROP_ANIMATION}, 1);
    QCOMPARE(int{TL_DROP_MOTION}, 2);
    QCOMPARE(int{TL_DROP_MOTION_3D}, 3);
    QCOMPARE(int{TL_DROP_PERFORM}, 4);
    QCOMPARE(int{TL_DROP_IDLE}, 6);
    QCOMPARE(int{TL_DROP_FACIAL}, 7);
    QCOMPARE(int{TL_DROP_SCRIPT}, 8);
    QCOMPARE(int{TL_DROP_CLIP}, 9);
    QCOMPARE(int{TL_DROP_AUTO_MOTION}, 10);
    QCOMPARE(int{TL_DROP_SOUND_FIRST}, 12);
    QCOMPARE(int{TL_DROP_SOUND_SECOND}, 13);
}

void tst_BinaryLayout::keyValuesHaveTheirNumbers()
{
    QCOMPARE(int{TL_KEY_MARKED_LINK}, 4);
    QCOMPARE(int{TL_KEY_TRIAL}, 8);
    QCOMPARE(int{TL_KEY_TRANSITION_IN}, 16);
    QCOMPARE(int{TL_KEY_TRANSITION_OUT}, 32);
    QCOMPARE(int{TL_KEY_SEGMENTS}, 64);
    QCOMPARE(int{TL_KEY_LINK_START}, 2);
    QCOMPARE(int{TL_KEY_NEVER_THINS}, 4);
    QCOMPARE(int{TL_KEY_UNLOCKED}, 0);
    QCOMPARE(int{TL_KEY_LOCKED}, 1);
    QCOMPARE(TL_KEY_ANY_KIND, 0xFFFFFFFFu);
}

void tst_BinaryLayout::aHandleIsAPlainPointer()
{
    QVERIFY((std::is_same<HANDLE, void*>::value));
}

QTEST_MAIN(tst_BinaryLayout)
#include "tst_BinaryLayout.moc"
