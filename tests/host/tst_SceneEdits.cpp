#include "document/ClipEdits.h"
#include "document/KeyEdits.h"
#include "document/KeyList.h"

#include <QtTest>

using namespace host;

namespace {

using Frames = QVector<int>;

/// A scene of a hundred frames with one row of each kind that is edited.
struct Rows
{
    Scene scene;
    TrackId keys = kNoTrack;
    TrackId links = kNoTrack;
    TrackId blends = kNoTrack;
    TrackId clips = kNoTrack;
    TrackId lips = kNoTrack;

    Rows()
    {
        scene.frameCount = 100;
        keys = Add(TrackKind::Key, {10, 20, 30});
        links = Add(TrackKind::Link, {10, 20});
        scene.FindTrack(links)->keys[0].startsLink = true;
        blends = Add(TrackKind::Transition, {40, 60});
        scene.FindTrack(blends)->keys[0].transition = Transition{BlendDirection::Into, 5};
        scene.FindTrack(blends)->keys[1].transition = Transition{BlendDirection::OutOf, 5};
        clips = Add(TrackKind::Clip, {10, 90});
        scene.FindTrack(clips)->keys[0].clip = ClipSpan{20, 1, 2, 10, 40};
        lips = Add(TrackKind::Viseme, {5});
        SceneKey& line = scene.FindTrack(lips)->keys[0];
        line.clip = ClipSpan{50, 1, 0, 50, 50};
        line.subKeys = KeysAt({0, 10, 20});
        scene.NumberKeys(line.subKeys);
    }

    static QVector<SceneKey> KeysAt(const Frames& frames)
    {
        QVector<SceneKey> made(frames.size());
        for (int i = 0; i < frames.size(); ++i)
            made[i].frame = frames[i];
        return made;
    }

    TrackId Add(TrackKind kind, const Frames& frames)
    {
        SceneTrack track;
        track.kind = kind;
        track.keys = KeysAt(frames);
        return scene.AddTrack(track);
    }

    SceneKey& Key(TrackId track, int index) { return scene.FindTrack(track)->keys[index]; }
    KeyId IdAt(TrackId track, int index) { return Key(track, index).id; }
    KeySelection Select(TrackId track, const QVector<int>& indexes)
    {
        KeySelection selection{track, kNoKey, {}};
        for (const int index : indexes)
            selection.keys.append(IdAt(track, index));
        return selection;
    }
};

Frames FramesOf(const QVector<SceneKey>& keys)
{
    Frames frames;
    for (const SceneKey& key : keys)
        frames.append(key.frame);
    return frames;
}

Frames FramesOf(const Scene& scene, TrackId track)
{
    return FramesOf(scene.FindTrack(track)->keys);
}

} // namespace

class tst_SceneEdits : public QObject
{
    Q_OBJECT

private slots:
    void everyKeyOfATrackGetsANumberOfItsOwn();
    void movesTheKeysOfSeveralRowsTogether();
    void movedKeysKeepTheirNumbersAndStandInFrameOrder();
    void aMovedKeyReplacesTheOneItLandsOn();
    void movedKeysDoNotReplaceEachOther();
    void keysArePlacedInOrderWhateverOrderTheyCameIn();
    void aMoveStopsWhereTheFirstKeyWouldLeaveTheScene_data();
    void aMoveStopsWhereTheFirstKeyWouldLeaveTheScene();
    void lockedKeysNeitherMoveNorGiveWay();
    void aMoveByNothingChangesNothing();
    void movesSubKeysWithinTheirClip();
    void deletesTheSelectedKeysAlone();
    void deletesSubKeys();
    void anEditOfAMissingTrackChangesNothing();
    void pastedKeysKeepTheirDistances();
    void aPastedKeyReplacesTheOneOnItsFrame();
    void pastedKeysGetNewNumbersAndNoGroup();
    void keysThatStandThereAlreadyAreKnown();
    void keysPastedBeyondTheEndAreLeftOut();
    void insertsAKeyInFrameOrder();
    void insertsNothingOnAnOccupiedFrame();
    void insertsNothingOutsideTheSceneOrOnARowOfClips();
    void aKeyInsertedIntoALinkKeepsBothPartsJoined();
    void anInsertedBlendFitsBeforeItsKey();
    void addsAndTakesLoopsDownToOne();
    void keepsTheClipLengthWithinItsLimits_data();
    void keepsTheClipLengthWithinItsLimits();
    void keysInsideFollowTheSpeedOfTheirClip();
    void anotherLengthPlaysTheSameMaterial();
    void thePartsOfAFastClipShareItsMaterial();
    void neverMakesTheLeadInNegative();
    void blendsGrowUpToTheEndsOfTheScene_data();
    void blendsGrowUpToTheEndsOfTheScene();
    void lockedClipsAndBlendsStayAsTheyAre();
    void plainKeysAreNoClips();
    void breaksAClipInTwo();
    void theSecondPartShowsTheMaterialFromTheCutOn();
    void breaksAClipOnlyWithin_data();
    void breaksAClipOnlyWithin();
    void aLoopCutBetweenPassesFallsIntoTwo();
    void aLoopCutWithinAPassPlaysTheSame();
    void partsBehindTheNextKeyAreGone();
    void keysInsideGoToTheirPart();
    void addsAClipThatKeepsItsSpeed();
    void addsNoClipToARowOfKeys();
    void leavesTheOriginalSceneAlone();
};

void tst_SceneEdits::everyKeyOfATrackGetsANumberOfItsOwn()
{
    const Rows rows;
    QSet<int> numbers;
    int count = 0;
    for (const SceneTrack& track : rows.scene.tracks) {
        numbers.insert(track.id);
        ++count;
        for (const SceneKey& key : track.keys) {
            numbers.insert(key.id);
            ++count;
            for (const SceneKey& subKey : key.subKeys) {
                numbers.insert(subKey.id);
                ++count;
            }
        }
    }
    QCOMPARE(numbers.size(), count);
    QVERIFY(!numbers.contains(kNoKey));
}

void tst_SceneEdits::movesTheKeysOfSeveralRowsTogether()
{
    Rows rows;
    MoveKeys(rows.scene, {rows.Select(rows.keys, {1, 2}), rows.Select(rows.blends, {0})}, 3);
    QCOMPARE(FramesOf(rows.scene, rows.keys), (Frames{10, 23, 33}));
    QCOMPARE(FramesOf(rows.scene, rows.blends), (Frames{43, 60}));
}

void tst_SceneEdits::movedKeysKeepTheirNumbersAndStandInFrameOrder()
{
    Rows rows;
    const KeyId first = rows.IdAt(rows.keys, 0);
    const KeyId second = rows.IdAt(rows.keys, 1);
    MoveKeys(rows.scene, {rows.Select(rows.keys, {0})}, 15);
    QCOMPARE(FramesOf(rows.scene, rows.keys), (Frames{20, 25, 30}));
    QCOMPARE(rows.IdAt(rows.keys, 0), second);
    QCOMPARE(rows.IdAt(rows.keys, 1), first);
}

void tst_SceneEdits::aMovedKeyReplacesTheOneItLandsOn()
{
    Rows rows;
    const KeyId moved = rows.IdAt(rows.keys, 0);
    MoveKeys(rows.scene, {rows.Select(rows.keys, {0})}, 10);
    QCOMPARE(FramesOf(rows.scene, rows.keys), (Frames{20, 30}));
    QCOMPARE(rows.IdAt(rows.keys, 0), moved);
}

void tst_SceneEdits::movedKeysDoNotReplaceEachOther()
{
    Rows rows;
    MoveKeys(rows.scene, {rows.Select(rows.keys, {0, 1})}, 10);
    QCOMPARE(FramesOf(rows.scene, rows.keys), (Frames{20, 30})); // 30 was replaced, 20 moved on
    Rows same;
    same.Key(same.keys, 1).frame = 10; // two keys on one frame
    MoveKeys(same.scene, {same.Select(same.keys, {0, 1})}, 5);
    QCOMPARE(FramesOf(same.scene, same.keys), (Frames{15, 15, 30}));
}

void tst_SceneEdits::keysArePlacedInOrderWhateverOrderTheyCameIn()
{
    QVector<SceneKey> keys = Rows::KeysAt({10, 20, 30});
    keys[1].locked = true;
    QVector<SceneKey> placed = Rows::KeysAt({40, 20, 5, 20, 30});
    for (int i = 0; i < placed.size(); ++i)
        placed[i].id = i + 1;
    PlaceKeys(keys, placed);
    QCOMPARE(FramesOf(keys), (Frames{5, 10, 20, 20, 20, 30, 40}));
    QVERIFY(keys[2].locked); // what stays comes before what was placed
    QVector<KeyId> ids;
    for (const SceneKey& key : qAsConst(keys))
        ids.append(key.id);
    QCOMPARE(ids, (QVector<KeyId>{3, kNoKey, kNoKey, 2, 4, 5, 1}));
}

void tst_SceneEdits::aMoveStopsWhereTheFirstKeyWouldLeaveTheScene_data()
{
    QTest::addColumn<int>("frames");
    QTest::addColumn<Frames>("keys");
    QTest::addColumn<Frames>("blends");
    // Backwards the row of keys is stopped first, forwards the row of blends.
    QTest::newRow("before the first frame") << -50 << Frames{0, 10, 30} << Frames{40, 50};
    QTest::newRow("behind the last frame") << 70 << Frames{30, 49, 59} << Frames{40, 99};
}

void tst_SceneEdits::aMoveStopsWhereTheFirstKeyWouldLeaveTheScene()
{
    QFETCH(int, frames);
    QFETCH(Frames, keys);
    QFETCH(Frames, blends);
    Rows rows;
    MoveKeys(rows.scene, {rows.Select(rows.keys, {0, 1}), rows.Select(rows.blends, {1})}, frames);
    QCOMPARE(FramesOf(rows.scene, rows.keys), keys);
    QCOMPARE(FramesOf(rows.scene, rows.blends), blends);
}

void tst_SceneEdits::lockedKeysNeitherMoveNorGiveWay()
{
    Rows rows;
    rows.Key(rows.keys, 1).locked = true;
    const KeyId locked = rows.IdAt(rows.keys, 1);
    const KeyId moved = rows.IdAt(rows.keys, 0);
    MoveKeys(rows.scene, {rows.Select(rows.keys, {0, 1})}, 10);
    QCOMPARE(FramesOf(rows.scene, rows.keys), (Frames{20, 20, 30}));
    QCOMPARE(rows.IdAt(rows.keys, 0), locked);
    QCOMPARE(rows.IdAt(rows.keys, 1), moved);
    DeleteKeys(rows.scene, {rows.Select(rows.keys, {0, 1})});
    QCOMPARE(FramesOf(rows.scene, rows.keys), (Frames{20, 30}));
}

void tst_SceneEdits::aMoveByNothingChangesNothing()
{
    Rows rows;
    rows.Key(rows.keys, 1).frame = 10; // moved keys would otherwise go behind others of their frame
    const Scene before = rows.scene;
    MoveKeys(rows.scene, {rows.Select(rows.keys, {0})}, 0);
    QVERIFY(rows.scene == before);
}

void tst_SceneEdits::movesSubKeysWithinTheirClip()
{
    Rows rows;
    const SceneKey line = rows.Key(rows.lips, 0);
    const KeySelection inside{rows.lips, line.id, {line.subKeys[1].id, line.subKeys[2].id}};
    MoveKeys(rows.scene, {inside}, -4);
    QCOMPARE(FramesOf(rows.Key(rows.lips, 0).subKeys), (Frames{0, 6, 16}));
    MoveKeys(rows.scene, {inside}, 1000);
    QCOMPARE(FramesOf(rows.Key(rows.lips, 0).subKeys), (Frames{0, 40, 50}));
    QCOMPARE(FramesOf(rows.scene, rows.lips), (Frames{5}));
}

void tst_SceneEdits::deletesTheSelectedKeysAlone()
{
    Rows rows;
    DeleteKeys(rows.scene, {rows.Select(rows.keys, {0, 2}), rows.Select(rows.links, {1})});
    QCOMPARE(FramesOf(rows.scene, rows.keys), (Frames{20}));
    QCOMPARE(FramesOf(rows.scene, rows.links), (Frames{10}));
}

void tst_SceneEdits::deletesSubKeys()
{
    Rows rows;
    const SceneKey line = rows.Key(rows.lips, 0);
    DeleteKeys(rows.scene, {{rows.lips, line.id, {line.subKeys[1].id}}});
    QCOMPARE(FramesOf(rows.Key(rows.lips, 0).subKeys), (Frames{0, 20}));
}

void tst_SceneEdits::anEditOfAMissingTrackChangesNothing()
{
    Rows rows;
    const Scene before = rows.scene;
    const KeyId some = rows.IdAt(rows.keys, 0);
    MoveKeys(rows.scene, {{999, kNoKey, {some}}}, 3);
    MoveKeys(rows.scene, {{rows.keys, some, {some}}}, 3); // no clip
    DeleteKeys(rows.scene, {{999, kNoKey, {some}}, {rows.keys, 999, {some}}});
    QVERIFY(PasteKeys(rows.scene, 999, Rows::KeysAt({1}), 0).isEmpty());
    QCOMPARE(InsertKey(rows.scene, 999, 1), kNoKey);
    QVERIFY(!ChangeLoops(rows.scene, 999, some, 1));
    QVERIFY(!BreakClip(rows.scene, rows.clips, 999, 15));
    QVERIFY(rows.scene == before);
}

void tst_SceneEdits::pastedKeysKeepTheirDistances()
{
    Rows rows;
    PasteKeys(rows.scene, rows.keys, Rows::KeysAt({3, 5, 9}), 40);
    QCOMPARE(FramesOf(rows.scene, rows.keys), (Frames{10, 20, 30, 43, 45, 49}));
}

void tst_SceneEdits::aPastedKeyReplacesTheOneOnItsFrame()
{
    Rows rows;
    const auto pasted = PasteKeys(rows.scene, rows.keys, Rows::KeysAt({15, 20}), 0);
    QCOMPARE(FramesOf(rows.scene, rows.keys), (Frames{10, 15, 20, 30}));
    QCOMPARE(pasted, (QVector<KeyId>{rows.IdAt(rows.keys, 1), rows.IdAt(rows.keys, 2)}));
}

void tst_SceneEdits::pastedKeysGetNewNumbersAndNoGroup()
{
    Rows rows;
    rows.Key(rows.lips, 0).group = 7;
    const SceneKey line = rows.Key(rows.lips, 0);
    PasteKeys(rows.scene, rows.lips, {line}, 60);
    const SceneKey pasted = rows.Key(rows.lips, 1);
    QCOMPARE(pasted.group, kNoGroup);
    QVERIFY(pasted.id != line.id);
    QCOMPARE(FramesOf(pasted.subKeys), FramesOf(line.subKeys));
    QVERIFY(pasted.subKeys[0].id != line.subKeys[0].id);
    QCOMPARE(rows.Key(rows.lips, 0).group, 7);
}

void tst_SceneEdits::keysThatStandThereAlreadyAreKnown()
{
    Rows rows;
    const QVector<SceneKey> keys = rows.scene.FindTrack(rows.keys)->keys; // at 10, 20 and 30
    const QVector<KeyId> ids{keys[0].id, keys[1].id, keys[2].id};
    QCOMPARE(KeysAlreadyPasted(rows.scene, rows.keys, keys, 0), ids);
    QVERIFY(KeysAlreadyPasted(rows.scene, rows.keys, keys, 1).isEmpty());
    QVERIFY(KeysAlreadyPasted(rows.scene, rows.keys, keys, 10).isEmpty()); // two of three
    QVERIFY(KeysAlreadyPasted(rows.scene, 999, keys, 0).isEmpty());
    QVector<SceneKey> other = keys;
    other[1].alternate = !other[1].alternate;
    QVERIFY(KeysAlreadyPasted(rows.scene, rows.keys, other, 0).isEmpty());
    rows.scene.FindTrack(rows.keys)->keys[0].group = 7; // would be lost
    QCOMPARE(KeysAlreadyPasted(rows.scene, rows.keys, keys, 0), ids);
    SceneKey line = rows.Key(rows.lips, 0);
    QCOMPARE(KeysAlreadyPasted(rows.scene, rows.lips, {line}, 0), QVector<KeyId>{line.id});
    line.subKeys[1].mouthShape += 1;
    QVERIFY(KeysAlreadyPasted(rows.scene, rows.lips, {line}, 0).isEmpty());
}

void tst_SceneEdits::keysPastedBeyondTheEndAreLeftOut()
{
    Rows rows;
    PasteKeys(rows.scene, rows.keys, Rows::KeysAt({-1, 0, 99, 100}), 0);
    QCOMPARE(FramesOf(rows.scene, rows.keys), (Frames{0, 10, 20, 30, 99}));
}

void tst_SceneEdits::insertsAKeyInFrameOrder()
{
    Rows rows;
    const KeyId inserted = InsertKey(rows.scene, rows.keys, 15);
    QCOMPARE(FramesOf(rows.scene, rows.keys), (Frames{10, 15, 20, 30}));
    QCOMPARE(rows.IdAt(rows.keys, 1), inserted);
    InsertKey(rows.scene, rows.keys, 0);
    InsertKey(rows.scene, rows.keys, 99);
    QCOMPARE(FramesOf(rows.scene, rows.keys), (Frames{0, 10, 15, 20, 30, 99}));
}

void tst_SceneEdits::insertsNothingOnAnOccupiedFrame()
{
    Rows rows;
    const Scene before = rows.scene;
    QCOMPARE(InsertKey(rows.scene, rows.keys, 20), kNoKey);
    QVERIFY(rows.scene == before);
}

void tst_SceneEdits::insertsNothingOutsideTheSceneOrOnARowOfClips()
{
    Rows rows;
    const Scene before = rows.scene;
    QCOMPARE(InsertKey(rows.scene, rows.keys, -1), kNoKey);
    QCOMPARE(InsertKey(rows.scene, rows.keys, 100), kNoKey);
    QCOMPARE(InsertKey(rows.scene, rows.clips, 50), kNoKey);
    QCOMPARE(InsertKey(rows.scene, rows.lips, 80), kNoKey);
    QVERIFY(rows.scene == before);
}

void tst_SceneEdits::aKeyInsertedIntoALinkKeepsBothPartsJoined()
{
    Rows rows;
    InsertKey(rows.scene, rows.links, 15);
    QVERIFY(rows.Key(rows.links, 1).startsLink);
    InsertKey(rows.scene, rows.links, 50);
    QVERIFY(!rows.Key(rows.links, 3).startsLink);
    InsertKey(rows.scene, rows.links, 5);
    QVERIFY(!rows.Key(rows.links, 0).startsLink);
}

void tst_SceneEdits::anInsertedBlendFitsBeforeItsKey()
{
    Rows rows;
    InsertKey(rows.scene, rows.blends, 2);
    QVERIFY(rows.Key(rows.blends, 0).transition == (Transition{BlendDirection::Into, 2}));
    InsertKey(rows.scene, rows.blends, 80);
    QVERIFY(rows.Key(rows.blends, 3).transition == (Transition{BlendDirection::Into, 6}));
}

void tst_SceneEdits::addsAndTakesLoopsDownToOne()
{
    Rows rows;
    const KeyId clip = rows.IdAt(rows.clips, 0);
    QVERIFY(ChangeLoops(rows.scene, rows.clips, clip, 2));
    QCOMPARE(rows.Key(rows.clips, 0).clip->loops, 3);
    QVERIFY(ChangeLoops(rows.scene, rows.clips, clip, -1));
    QCOMPARE(rows.Key(rows.clips, 0).clip->loops, 2);
    QVERIFY(ChangeLoops(rows.scene, rows.clips, clip, -5));
    QCOMPARE(rows.Key(rows.clips, 0).clip->loops, 1);
    QVERIFY(ChangeLoops(rows.scene, rows.clips, clip, std::numeric_limits<int>::max()));
    QVERIFY(rows.Key(rows.clips, 0).clip->loops > 1000);
}

void tst_SceneEdits::keepsTheClipLengthWithinItsLimits_data()
{
    QTest::addColumn<int>("asked");
    QTest::addColumn<int>("given");
    QTest::newRow("shortest less one") << 9 << 10;
    QTest::newRow("shortest") << 10 << 10;
    QTest::newRow("between") << 25 << 25;
    QTest::newRow("longest") << 40 << 40;
    QTest::newRow("longest and one") << 41 << 40;
    QTest::newRow("negative") << -3 << 10;
}

void tst_SceneEdits::keepsTheClipLengthWithinItsLimits()
{
    QFETCH(int, asked);
    QFETCH(int, given);
    Rows rows;
    QVERIFY(SetClipLength(rows.scene, rows.clips, rows.IdAt(rows.clips, 0), asked));
    QCOMPARE(rows.Key(rows.clips, 0).clip->length, given);
}

void tst_SceneEdits::keysInsideFollowTheSpeedOfTheirClip()
{
    Rows rows;
    rows.Key(rows.clips, 0).subKeys = Rows::KeysAt({0, 5, 20});
    QVERIFY(SetClipLength(rows.scene, rows.clips, rows.IdAt(rows.clips, 0), 30));
    QCOMPARE(FramesOf(rows.Key(rows.clips, 0).subKeys), (Frames{0, 8, 30}));
}

void tst_SceneEdits::anotherLengthPlaysTheSameMaterial()
{
    Rows rows;
    const KeyId clip = rows.IdAt(rows.clips, 0);
    QVERIFY(SetClipLength(rows.scene, rows.clips, clip, 20));
    QCOMPARE(rows.Key(rows.clips, 0).clip->material, 0); // still as long as the pass
    QVERIFY(SetClipLength(rows.scene, rows.clips, clip, 10));
    QCOMPARE(rows.Key(rows.clips, 0).clip->material, 20);
    QVERIFY(SetClipLength(rows.scene, rows.clips, clip, 40));
    QCOMPARE(rows.Key(rows.clips, 0).clip->material, 20);
}

void tst_SceneEdits::thePartsOfAFastClipShareItsMaterial()
{
    Rows rows;
    const KeyId clip = rows.IdAt(rows.clips, 0);
    QVERIFY(SetClipLength(rows.scene, rows.clips, clip, 10));
    QVERIFY(BreakClip(rows.scene, rows.clips, clip, 14)); // 4 of 10 frames, at double speed
    const ClipSpan first = *rows.Key(rows.clips, 0).clip;
    const ClipSpan second = *rows.Key(rows.clips, 1).clip;
    QCOMPARE(first.leadIn, 2);
    QCOMPARE(first.material, 8);
    QCOMPARE(second.leadIn, 10);
    QCOMPARE(second.material, 12);
}

void tst_SceneEdits::neverMakesTheLeadInNegative()
{
    Rows rows;
    const KeyId clip = rows.IdAt(rows.clips, 0);
    QVERIFY(ChangeLeadIn(rows.scene, rows.clips, clip, 3));
    QCOMPARE(rows.Key(rows.clips, 0).clip->leadIn, 5);
    QVERIFY(ChangeLeadIn(rows.scene, rows.clips, clip, -6));
    QCOMPARE(rows.Key(rows.clips, 0).clip->leadIn, 0);
}

void tst_SceneEdits::blendsGrowUpToTheEndsOfTheScene_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("change");
    QTest::addColumn<int>("frames");
    QTest::newRow("into, longer") << 0 << 4 << 9;
    QTest::newRow("into, to none") << 0 << -9 << 0;
    QTest::newRow("into, to the first frame") << 0 << 100 << 40;
    QTest::newRow("out of, longer") << 1 << 4 << 9;
    QTest::newRow("out of, to none") << 1 << -5 << 0;
    QTest::newRow("out of, to the last frame") << 1 << 100 << 39;
}

void tst_SceneEdits::blendsGrowUpToTheEndsOfTheScene()
{
    QFETCH(int, index);
    QFETCH(int, change);
    QFETCH(int, frames);
    Rows rows;
    QVERIFY(ChangeTransition(rows.scene, rows.blends, rows.IdAt(rows.blends, index), change));
    QCOMPARE(rows.Key(rows.blends, index).transition->frames, frames);
}

void tst_SceneEdits::lockedClipsAndBlendsStayAsTheyAre()
{
    Rows rows;
    rows.Key(rows.clips, 0).locked = true;
    rows.Key(rows.blends, 0).locked = true;
    const Scene before = rows.scene;
    const KeyId clip = rows.IdAt(rows.clips, 0);
    QVERIFY(!ChangeLoops(rows.scene, rows.clips, clip, 1));
    QVERIFY(!SetClipLength(rows.scene, rows.clips, clip, 30));
    QVERIFY(!ChangeLeadIn(rows.scene, rows.clips, clip, 1));
    QVERIFY(!BreakClip(rows.scene, rows.clips, clip, 15));
    QVERIFY(!ChangeTransition(rows.scene, rows.blends, rows.IdAt(rows.blends, 0), 1));
    QVERIFY(rows.scene == before);
}

void tst_SceneEdits::plainKeysAreNoClips()
{
    Rows rows;
    const Scene before = rows.scene;
    const KeyId plain = rows.IdAt(rows.keys, 0);
    QVERIFY(!ChangeLoops(rows.scene, rows.keys, plain, 1));
    QVERIFY(!SetClipLength(rows.scene, rows.keys, plain, 30));
    QVERIFY(!ChangeLeadIn(rows.scene, rows.keys, plain, 1));
    QVERIFY(!ChangeTransition(rows.scene, rows.keys, plain, 1));
    QVERIFY(!BreakClip(rows.scene, rows.keys, plain, 15));
    QVERIFY(rows.scene == before);
}

void tst_SceneEdits::breaksAClipInTwo()
{
    Rows rows;
    const SceneKey whole = rows.Key(rows.clips, 0);
    QVERIFY(BreakClip(rows.scene, rows.clips, whole.id, 15));
    QCOMPARE(FramesOf(rows.scene, rows.clips), (Frames{10, 15, 90}));
    const SceneKey first = rows.Key(rows.clips, 0);
    const SceneKey second = rows.Key(rows.clips, 1);
    QCOMPARE(first.id, whole.id);
    QVERIFY(second.id != whole.id && second.id != kNoKey);
    QCOMPARE(first.clip->length, 5);
    QCOMPARE(second.clip->length, 15);
    QCOMPARE(second.name, whole.name);
    // Both parts may still be played as fast and as slowly as the whole.
    QCOMPARE(second.clip->shortest, 8);
    QCOMPARE(second.clip->longest, 30);
}

void tst_SceneEdits::theSecondPartShowsTheMaterialFromTheCutOn()
{
    Rows rows;
    QVERIFY(BreakClip(rows.scene, rows.clips, rows.IdAt(rows.clips, 0), 15));
    QCOMPARE(rows.Key(rows.clips, 0).clip->leadIn, 2);
    QCOMPARE(rows.Key(rows.clips, 1).clip->leadIn, 7);
}

void tst_SceneEdits::breaksAClipOnlyWithin_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<bool>("breaks");
    QTest::newRow("before") << 9 << false;
    QTest::newRow("first frame") << 10 << false;
    QTest::newRow("second frame") << 11 << true;
    QTest::newRow("last but one") << 29 << true;
    QTest::newRow("last frame") << 30 << false;
    QTest::newRow("behind") << 31 << false;
}

void tst_SceneEdits::breaksAClipOnlyWithin()
{
    QFETCH(int, frame);
    QFETCH(bool, breaks);
    Rows rows;
    const Scene before = rows.scene;
    QCOMPARE(BreakClip(rows.scene, rows.clips, rows.IdAt(rows.clips, 0), frame), breaks);
    QCOMPARE(rows.scene != before, breaks);
}

void tst_SceneEdits::aLoopCutBetweenPassesFallsIntoTwo()
{
    Rows rows;
    rows.Key(rows.clips, 0).clip->loops = 3;
    QVERIFY(BreakClip(rows.scene, rows.clips, rows.IdAt(rows.clips, 0), 50));
    QCOMPARE(FramesOf(rows.scene, rows.clips), (Frames{10, 50, 90}));
    QCOMPARE(rows.Key(rows.clips, 0).clip->loops, 2);
    QCOMPARE(rows.Key(rows.clips, 1).clip->loops, 1);
    QCOMPARE(rows.Key(rows.clips, 1).clip->length, 20);
    QCOMPARE(rows.Key(rows.clips, 1).clip->leadIn, 2);
}

void tst_SceneEdits::aLoopCutWithinAPassPlaysTheSame()
{
    Rows rows;
    rows.Key(rows.clips, 0).clip->loops = 3;
    QVERIFY(BreakClip(rows.scene, rows.clips, rows.IdAt(rows.clips, 0), 37));
    QCOMPARE(FramesOf(rows.scene, rows.clips), (Frames{10, 30, 37, 50, 90}));
    Frames lengths, loops, leadIns;
    for (int i = 0; i < 4; ++i) {
        lengths.append(rows.Key(rows.clips, i).clip->length);
        loops.append(rows.Key(rows.clips, i).clip->loops);
        leadIns.append(rows.Key(rows.clips, i).clip->leadIn);
    }
    QCOMPARE(lengths, (Frames{20, 7, 13, 20}));
    QCOMPARE(loops, (Frames{1, 1, 1, 1}));
    QCOMPARE(leadIns, (Frames{2, 2, 9, 2}));
}

void tst_SceneEdits::partsBehindTheNextKeyAreGone()
{
    Rows rows;
    rows.Key(rows.clips, 0).clip->loops = 9; // up to frame 190, but the next clip starts at 90
    const KeyId clip = rows.IdAt(rows.clips, 0);
    const KeyId next = rows.IdAt(rows.clips, 1);
    Scene behind = rows.scene;
    QVERIFY(!BreakClip(behind, rows.clips, clip, 95));
    QVERIFY(behind == rows.scene);
    rows.scene.FindTrack(rows.clips)->keys[1].frame = 45;
    QVERIFY(BreakClip(rows.scene, rows.clips, clip, 37));
    QCOMPARE(FramesOf(rows.scene, rows.clips), (Frames{10, 30, 37, 45}));
    QCOMPARE(rows.IdAt(rows.clips, 3), next);
}

void tst_SceneEdits::keysInsideGoToTheirPart()
{
    Rows rows;
    rows.Key(rows.clips, 0).subKeys = Rows::KeysAt({0, 5, 12, 20});
    QVERIFY(BreakClip(rows.scene, rows.clips, rows.IdAt(rows.clips, 0), 15));
    QCOMPARE(FramesOf(rows.Key(rows.clips, 0).subKeys), (Frames{0}));
    QCOMPARE(FramesOf(rows.Key(rows.clips, 1).subKeys), (Frames{0, 7, 15}));
}

void tst_SceneEdits::addsAClipThatKeepsItsSpeed()
{
    Rows rows;
    const KeyId added = AddClip(rows.scene, rows.clips, QStringLiteral("voice"), 25, 40);
    QCOMPARE(FramesOf(rows.scene, rows.clips), (Frames{10, 40, 90}));
    const SceneKey& clip = rows.Key(rows.clips, 1);
    QCOMPARE(clip.id, added);
    QCOMPARE(clip.name, QStringLiteral("voice"));
    QVERIFY(clip.clip == (ClipSpan{25, 1, 0, 25, 25}));
}

void tst_SceneEdits::addsNoClipToARowOfKeys()
{
    Rows rows;
    const Scene before = rows.scene;
    QCOMPARE(AddClip(rows.scene, rows.keys, QStringLiteral("voice"), 25, 40), kNoKey);
    QCOMPARE(AddClip(rows.scene, rows.clips, QStringLiteral("voice"), 25, 100), kNoKey);
    QVERIFY(rows.scene == before);
}

void tst_SceneEdits::leavesTheOriginalSceneAlone()
{
    Rows rows;
    const Scene snapshot = rows.scene;
    const KeyId clip = rows.IdAt(rows.clips, 0);
    Scene edited = snapshot;
    MoveKeys(edited, {rows.Select(rows.keys, {0})}, 3);
    BreakClip(edited, rows.clips, clip, 15);
    ChangeTransition(edited, rows.blends, rows.IdAt(rows.blends, 0), 2);
    QVERIFY(edited != snapshot);
    QVERIFY(snapshot == Rows().scene);
}

QTEST_MAIN(tst_SceneEdits)
#include "tst_SceneEdits.moc"
