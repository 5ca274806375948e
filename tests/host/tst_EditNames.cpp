#include "document/EditNames.h"

#include <QtTest>

using namespace host;

class tst_EditNames : public QObject
{
    Q_OBJECT

private slots:
    void sayWhatWasDone_data();
    void sayWhatWasDone();
    void countOnlyWhatMayBeEdited();
    void tellClipsAndMouthShapesFromKeys();
};

void tst_EditNames::sayWhatWasDone_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    const EditedItems one{1, 0, 0};
    const EditedItems many{12, 0, 0};
    const EditedItems mixed{3, 1, 2};
    const auto row = [](const QString& name, const char* text) {
        QTest::newRow(text) << name << QString::fromLatin1(text);
    };
    row(MoveName(many, 3), "Move 12 keys by 3 frames");
    row(MoveName(one, -1), "Move 1 key back by 1 frame");
    row(MoveName(mixed, 10), "Move 3 keys and 1 clip and 2 mouth shapes by 10 frames");
    row(CopyName(one, 22), "Copy 1 key to frame 22");
    row(PasteName(many, 0), "Paste 12 keys at frame 0");
    row(CutName({0, 2, 0}), "Cut 2 clips");
    row(DeleteName({0, 0, 1}), "Delete 1 mouth shape");
    row(InsertName(8), "Insert key at frame 8");
    row(InsertShapeName(8), "Insert mouth shape at frame 8");
    row(ChangeShapesName({0, 0, 2}, 4), "Change 2 mouth shapes to D");
    row(ChangeShapesName({0, 0, 1}, 12), "Change 1 mouth shape to 12");
    row(BreakName(40), "Break clip at frame 40");
    row(LoopName(3), "Loop clip 3 times");
    row(LoopName(1), "Loop clip once");
    row(SpeedName(30, 20), "Speed clip up by 10 frames");
    row(SpeedName(30, 31), "Slow clip down by 1 frame");
    row(TrimName(4), "Trim 4 frames off clip's start");
    row(TrimName(-4), "Give 4 frames back to clip's start");
    row(BlendName(4), "Lengthen blend by 4 frames");
    row(BlendName(-1), "Shorten blend by 1 frame");
    row(RowsName(QStringLiteral("Joints"), false), "Hide Joints");
    row(RowsName(QStringLiteral("Joints"), true), "Show Joints");
    row(MarkerName(true, 10), "Move start marker to frame 10");
    row(MarkerName(false, 60), "Move end marker to frame 60");
}

void tst_EditNames::sayWhatWasDone()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QCOMPARE(name, text);
}

void tst_EditNames::countOnlyWhatMayBeEdited()
{
    Scene scene;
    SceneTrack row;
    row.keys = QVector<SceneKey>(3);
    row.keys[1].locked = true;
    const TrackId id = scene.AddTrack(row);
    const QVector<SceneKey>& keys = scene.tracks[0].keys;
    const EditedItems items =
        ItemsOf(scene, {{id, kNoKey, {keys[0].id, keys[1].id, 99}}, {77, kNoKey, {keys[2].id}}});
    QCOMPARE(items.keys, 1);
    QCOMPARE(items.clips, 0);
    QCOMPARE(items.mouthShapes, 0);
}

void tst_EditNames::tellClipsAndMouthShapesFromKeys()
{
    Scene scene;
    SceneTrack row;
    row.kind = TrackKind::Viseme;
    row.keys = QVector<SceneKey>(1);
    row.keys[0].clip = ClipSpan();
    row.keys[0].subKeys = QVector<SceneKey>(2);
    const TrackId id = scene.AddTrack(row);
    const SceneKey& clip = scene.tracks[0].keys[0];
    QCOMPARE(ItemsOf(scene, {{id, kNoKey, {clip.id}}}).clips, 1);
    const EditedItems inside =
        ItemsOf(scene, {{id, clip.id, {clip.subKeys[0].id, clip.subKeys[1].id}}});
    QCOMPARE(inside.mouthShapes, 2);
    QCOMPARE(inside.clips, 0);
}

QTEST_MAIN(tst_EditNames)
#include "tst_EditNames.moc"
