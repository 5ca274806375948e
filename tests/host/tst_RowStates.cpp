#include "document/PlaceText.h"
#include "document/RangeEdits.h"
#include "document/RowStates.h"

#include <QtTest>

using namespace host;

namespace {

SceneKey KeyAt(int frame)
{
    SceneKey key;
    key.frame = frame;
    return key;
}

SceneKey ClipAt(int frame, int length, int loops, const QString& name)
{
    SceneKey key = KeyAt(frame);
    key.name = name;
    key.clip = ClipSpan{length, loops, 0, 1, 100};
    return key;
}

/// A row of each kind that matters here, under one root.
struct Rows
{
    Rows()
    {
        scene.frameCount = 100;
        root = Add(TrackKind::Key, "Face", {}, kNoTrack);
        arm = Add(TrackKind::Key, "Arm", {KeyAt(3), KeyAt(10), KeyAt(20)}, root);
        SceneKey line = ClipAt(10, 30, 1, QStringLiteral("hello"));
        line.subKeys = {KeyAt(0), KeyAt(5), KeyAt(12)};
        line.subKeys[1].mouthShape = 2;
        line.subKeys[2].mouthShape = 9;
        lips = Add(TrackKind::Viseme, "Lips", {line}, root);
        scene.FindTrack(lips)->editModes = {EditMode::EditSubKeys};
        motion = Add(TrackKind::Clip, "Motion", {ClipAt(0, 9, 3, QStringLiteral("walk"))}, root);
        SceneKey blend = KeyAt(8);
        blend.transition = Transition{BlendDirection::OutOf, 4};
        blends = Add(TrackKind::Transition, "Blend", {blend}, root);
    }

    TrackId Add(TrackKind kind, const char* caption, const QVector<SceneKey>& keys, TrackId parent)
    {
        SceneTrack track;
        track.kind = kind;
        track.caption = QLatin1String(caption);
        track.keys = keys;
        track.parent = parent;
        return scene.AddTrack(track);
    }

    bool TakePart(TrackId row) const { return TakesPart(scene, *scene.FindTrack(row)); }

    Scene scene;
    TrackId root, arm, lips, motion, blends;
};

} // namespace

class tst_RowStates : public QObject
{
    Q_OBJECT

private slots:
    void eachStateIsSetOnItsOwn();
    void aMutedRowTakesNoPart();
    void onlySoloedRowsTakePartWhileThereAreSome();
    void rowsFollowTheRootThatTheyHangUnder();
    void aRowIsShownWhileNoneOfItsButtonsIsOff();
    void tellsWhatStandsAtAPlace_data();
    void tellsWhatStandsAtAPlace();
    void tellsTheStatesOfARow();
    void aRangeHoldsItsEnds();
    void aRangeInsideALineHoldsItsShapes();
    void aRangeIsSharedByTheRowsThatFollow();
};

void tst_RowStates::eachStateIsSetOnItsOwn()
{
    Rows rows;
    const Scene before = rows.scene;
    for (const RowState state : {RowState::Muted, RowState::Soloed, RowState::Locked}) {
        SetState(rows.scene, rows.arm, state, true);
        for (const RowState other : {RowState::Muted, RowState::Soloed, RowState::Locked})
            QCOMPARE(HasState(*rows.scene.FindTrack(rows.arm), other), other == state);
        QVERIFY(rows.scene != before);
        SetState(rows.scene, rows.arm, state, false);
        QVERIFY(rows.scene == before);
    }
    SetState(rows.scene, kNoTrack, RowState::Muted, true);
    QVERIFY(rows.scene == before);
}

void tst_RowStates::aMutedRowTakesNoPart()
{
    Rows rows;
    QVERIFY(rows.TakePart(rows.arm));
    SetState(rows.scene, rows.arm, RowState::Muted, true);
    QVERIFY(!rows.TakePart(rows.arm));
    QVERIFY(rows.TakePart(rows.lips));
}

void tst_RowStates::onlySoloedRowsTakePartWhileThereAreSome()
{
    Rows rows;
    SetState(rows.scene, rows.lips, RowState::Soloed, true);
    QVERIFY(rows.TakePart(rows.lips));
    QVERIFY(!rows.TakePart(rows.arm));
    SetState(rows.scene, rows.arm, RowState::Soloed, true);
    QVERIFY(rows.TakePart(rows.arm));
    SetState(rows.scene, rows.arm, RowState::Muted, true);
    QVERIFY(!rows.TakePart(rows.arm));
}

void tst_RowStates::rowsFollowTheRootThatTheyHangUnder()
{
    Rows rows;
    const TrackId other = rows.Add(TrackKind::Key, "Body", {}, kNoTrack);
    SetState(rows.scene, rows.root, RowState::Soloed, true);
    QVERIFY(rows.TakePart(rows.lips));
    QVERIFY(!rows.TakePart(other));
    SetState(rows.scene, rows.root, RowState::Soloed, false);
    SetState(rows.scene, rows.root, RowState::Muted, true);
    QVERIFY(!rows.TakePart(rows.lips));
    QVERIFY(rows.TakePart(other));
}

void tst_RowStates::aRowIsShownWhileNoneOfItsButtonsIsOff()
{
    Rows rows;
    SceneTrack all;
    all.kind = TrackKind::Switch;
    all.buttons = {{QStringLiteral("All"), true, {rows.arm, rows.lips}}};
    SceneTrack one = all;
    one.buttons = {{QStringLiteral("Arm"), true, {rows.arm}}};
    const TrackId allRow = rows.scene.AddTrack(all);
    const TrackId oneRow = rows.scene.AddTrack(one);
    QVERIFY(IsRowShown(rows.scene, rows.arm));
    rows.scene.FindTrack(oneRow)->buttons[0].on = false;
    QVERIFY(!IsRowShown(rows.scene, rows.arm));
    QVERIFY(IsRowShown(rows.scene, rows.lips));
    rows.scene.FindTrack(allRow)->buttons[0].on = false;
    rows.scene.FindTrack(oneRow)->buttons[0].on = true;
    QVERIFY(!IsRowShown(rows.scene, rows.arm));
}

void tst_RowStates::tellsWhatStandsAtAPlace_data()
{
    const Rows rows;
    QTest::addColumn<int>("track");
    QTest::addColumn<int>("frame");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, TrackId track, int frame, const char* text) {
        QTest::newRow(name) << track << frame << QString::fromLatin1(text);
    };
    row("nothing", rows.arm, 4, "Arm   frame 4   00:00:04");
    row("a key", rows.arm, 10, "Arm   frame 10   00:00:10   key");
    row("a blend's key", rows.blends, 8,
        "Blend   frame 8   00:00:08   key, blend of 4 frames out of it");
    row("before the line", rows.lips, 9, "Lips   frame 9   00:00:09");
    row("a shape", rows.lips, 16, "Lips   frame 16   00:00:16   shape B of hello");
    row("a shape of the user's own", rows.lips, 25,
        "Lips   frame 25   00:00:25   shape 9 of hello");
    row("the last frame of the line", rows.lips, 40,
        "Lips   frame 40   00:01:10   shape X of hello");
    row("behind the line", rows.lips, 41, "Lips   frame 41   00:01:11");
    row("the second pass", rows.motion, 9, "Motion   frame 9   00:00:09   walk, pass 2 of 3");
    row("the end of the passes", rows.motion, 27,
        "Motion   frame 27   00:00:27   walk, pass 3 of 3");
    row("no row", kNoTrack, 9, "");
}

void tst_RowStates::tellsWhatStandsAtAPlace()
{
    QFETCH(int, track);
    QFETCH(int, frame);
    QFETCH(QString, text);
    const Rows rows;
    QCOMPARE(PlaceText(rows.scene, track, frame), text);
}

void tst_RowStates::tellsTheStatesOfARow()
{
    Rows rows;
    QCOMPARE(RowText(rows.scene, rows.arm), QStringLiteral("Arm"));
    SetState(rows.scene, rows.arm, RowState::Muted, true);
    SetState(rows.scene, rows.arm, RowState::Locked, true);
    QCOMPARE(RowText(rows.scene, rows.arm), QStringLiteral("Arm (muted, locked)"));
}

void tst_RowStates::aRangeHoldsItsEnds()
{
    const Rows rows;
    const QVector<KeySelection> keys = KeysWithin(rows.scene, {rows.arm, rows.blends}, 3, 10);
    QCOMPARE(keys.size(), 2);
    const QVector<SceneKey>& arm = rows.scene.FindTrack(rows.arm)->keys;
    QCOMPARE(keys[0].keys, (QVector<KeyId>{arm[0].id, arm[1].id}));
    QCOMPARE(keys[1].track, rows.blends);
    QVERIFY(KeysWithin(rows.scene, {rows.arm, kNoTrack}, 4, 9).isEmpty());
}

void tst_RowStates::aRangeInsideALineHoldsItsShapes()
{
    const Rows rows;
    const SceneKey& line = rows.scene.FindTrack(rows.lips)->keys[0];
    const QVector<KeySelection> keys = KeysWithin(rows.scene, {rows.lips}, 15, 22);
    QCOMPARE(keys.size(), 1);
    QCOMPARE(keys[0].clip, line.id);
    QCOMPARE(keys[0].keys, (QVector<KeyId>{line.subKeys[1].id, line.subKeys[2].id}));
}

void tst_RowStates::aRangeIsSharedByTheRowsThatFollow()
{
    Rows rows;
    rows.scene.relations = {{RelationKind::SharedTimeRange, {rows.motion, rows.arm, rows.blends}},
                            {RelationKind::ClipBars, {rows.motion, rows.lips}}};
    QCOMPARE(RowsSharingRange(rows.scene, rows.motion),
             (QVector<TrackId>{rows.motion, rows.arm, rows.blends}));
    QCOMPARE(RowsSharingRange(rows.scene, rows.arm), QVector<TrackId>{rows.arm});
}

QTEST_MAIN(tst_RowStates)
#include "tst_RowStates.moc"
