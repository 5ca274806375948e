#include "TestFiles.h"

#include "document/KeyList.h"
#include "import/FaceTracks.h"
#include "import/MaterialEdits.h"
#include "import/SceneBuilder.h"
#include "import/SceneFiles.h"
#include "import/SoundClips.h"

#include <QTemporaryDir>

using namespace host;

namespace {

Motion Walk(const QStringList& joints, int sampleCount = 31)
{
    Motion motion;
    motion.name = QStringLiteral("walk");
    motion.sampleTime = 1.0 / 30;
    motion.sampleCount = sampleCount;
    for (int i = 0; i < joints.size(); ++i) {
        Joint joint;
        joint.name = joints[i];
        joint.parent = i - 1;
        joint.channels = {Channel::YRotation};
        joint.firstChannel = i;
        motion.joints.append(joint);
    }
    motion.channelCount = joints.size();
    for (int sample = 0; sample < sampleCount; ++sample) {
        for (int joint = 0; joint < joints.size(); ++joint)
            motion.samples.append(static_cast<float>(sample < 15 ? sample * 4 : 120 - sample * 4));
    }
    return motion;
}

SpokenLine Line(double seconds, const QString& name = QStringLiteral("hello"))
{
    return {name, seconds, {{0, 0.5, 0}, {0.5, seconds - 0.5, 3}, {seconds - 0.5, seconds, 0}}};
}

Material Made(const Motion& motion, const SpokenLine& line, const QVector<Sound>& sounds = {})
{
    return {*BuildScene(motion, line, {kSceneFrameRate, !sounds.isEmpty(), {}}), sounds, {}};
}

TrackId Id(const Scene& scene, const char* name)
{
    for (const SceneTrack& track : scene.tracks) {
        if (track.name == QLatin1String(name))
            return track.id;
    }
    return kNoTrack;
}

SceneTrack Row(const Scene& scene, const char* name)
{
    const SceneTrack* const row = scene.FindTrack(Id(scene, name));
    return row ? *row : SceneTrack();
}

QStringList Names(const Scene& scene)
{
    QStringList names;
    for (const SceneTrack& track : scene.tracks)
        names.append(track.name);
    return names;
}

QVector<TrackId> ButtonRows(const Scene& scene, const char* text)
{
    for (const SwitchButton& button : Row(scene, "Layers").buttons) {
        if (button.text == QLatin1String(text))
            return button.tracks;
    }
    return {};
}

bool Import(Scene& scene, const Material& material, int frame = 0)
{
    QString reason;
    return AddMaterial(scene, material, frame, reason);
}

/// Every number that is referred to is there, and none is there twice.
QString Broken(const Scene& scene)
{
    QSet<int> numbers;
    const auto isNew = [&](int number) {
        const bool fresh = number > 0 && number <= scene.lastId && !numbers.contains(number);
        numbers.insert(number);
        return fresh;
    };
    for (const SceneTrack& track : scene.tracks) {
        if (!isNew(track.id) || (track.parent != kNoTrack && !scene.FindTrack(track.parent)))
            return QStringLiteral("track ") + track.name;
        for (const SceneKey& key : track.keys) {
            if (!isNew(key.id))
                return QStringLiteral("key of ") + track.name;
            for (const SceneKey& subKey : key.subKeys) {
                if (!isNew(subKey.id))
                    return QStringLiteral("sub-key of ") + track.name;
            }
        }
        for (const SwitchButton& button : track.buttons) {
            for (const TrackId row : button.tracks) {
                if (!scene.FindTrack(row))
                    return QStringLiteral("button ") + button.text;
            }
        }
    }
    for (const TrackRelation& relation : scene.relations) {
        for (const TrackId row : relation.tracks) {
            if (!scene.FindTrack(row))
                return QStringLiteral("relation");
        }
    }
    return {};
}

} // namespace

class tst_MaterialEdits : public QObject
{
    Q_OBJECT

private slots:
    void cuesReplaceTheLineAndKeepTheRows();
    void whatTheUserSetOnARowStays();
    void cuesAreAddedToASceneWithoutAFace();
    void aMotionReplacesTheBody();
    void jointsOfAnotherCaptureComeAndGo();
    void jointsOfOneNameAreKeptApart();
    void aMotionIsAddedToASceneWithoutABody();
    void soundsAreAddedOneBehindTheOther();
    void aSoundBringsItsRowToASceneWithoutAFace();
    void aSoundThatIsThereStays();
    void aSoundThatIsInTheWayStays_data();
    void aSoundThatIsInTheWayStays();
    void theSameSoundIsNotAddedTwice();
    void aSoundThatIsThereAlreadyChangesNothing();
    void aLockedRowOfSoundsStaysAsItIs();
    void theSceneGrowsAndTheMarkerGoesAlong();
    void aMarkerInsideTheSceneStays();
    void theSceneNeverShrinks();
    void lockedRowsAreRefused_data();
    void lockedRowsAreRefused();
    void aLockedRowOfTheOtherRootDoesNotMatter();
    void groupsOfReplacedKeysGo();
    void everyNumberIsGivenOnce();
    void readsFilesOfEveryKind();
    void opensSoundsWithoutAnythingElse();
    void readsTheRealFilesIntoAnOpenScene();
    void cancellingBringsNothing_data();
    void cancellingBringsNothing();
};

void tst_MaterialEdits::cuesReplaceTheLineAndKeepTheRows()
{
    Scene scene = Made(Walk({"Hips", "Arm"}), Line(2)).rows;
    const Scene before = scene;
    QVERIFY(Import(scene, Made({}, Line(3, QStringLiteral("other")))));
    QCOMPARE(Names(scene), Names(before));
    QCOMPARE(Id(scene, "Lips"), Id(before, "Lips"));
    QCOMPARE(Row(scene, "Lips").keys.size(), 1);
    QCOMPARE(Row(scene, "Lips").keys[0].name, QStringLiteral("other"));
    QCOMPARE(Row(scene, "Lips").keys[0].clip->length, 89);
    QCOMPARE(Row(scene, "MouthRest").keys.last().frame, 75);
    QVERIFY(scene.line == Line(3, QStringLiteral("other")));
    QVERIFY(scene.motion == before.motion);
    QVERIFY(Row(scene, "Arm") == Row(before, "Arm"));
    QVERIFY(Row(scene, "Layers") == Row(before, "Layers"));
    QCOMPARE(scene.relations.size(), before.relations.size());
    for (const TrackRelation& relation : before.relations)
        QVERIFY(scene.relations.contains(relation));
}

void tst_MaterialEdits::whatTheUserSetOnARowStays()
{
    Scene scene = Made({}, Line(2)).rows;
    scene.FindTrack(Id(scene, "Lips"))->muted = true;
    scene.FindTrack(Id(scene, "Lips"))->caption = QStringLiteral("Mouth");
    scene.FindTrack(Id(scene, "Layers"))->buttons[0].on = false;
    QVERIFY(Import(scene, Made({}, Line(1))));
    QVERIFY(Row(scene, "Lips").muted);
    QCOMPARE(Row(scene, "Lips").caption, QStringLiteral("Mouth"));
    QVERIFY(!Row(scene, "Layers").buttons[0].on);
}

void tst_MaterialEdits::cuesAreAddedToASceneWithoutAFace()
{
    Scene scene = Made(Walk({"Hips", "Arm"}), {}).rows;
    QVERIFY(Import(scene, Made({}, Line(2))));
    const QStringList whole = Names(Made(Walk({"Hips", "Arm"}), Line(2)).rows);
    QCOMPARE(Names(scene), whole);
    QCOMPARE(ButtonRows(scene, "Lips"), QVector<TrackId>{Id(scene, "Lips")});
    QVERIFY(ButtonRows(scene, "Blends").contains(Id(scene, "MouthRest")));
    QVERIFY(ButtonRows(scene, "Blends").contains(Id(scene, "MotionBlend")));
    const TrackRelation bars{RelationKind::ClipBars, {Id(scene, "Lips"), Id(scene, "MouthRest")}};
    QVERIFY(scene.relations.contains(bars));
    QCOMPARE(Broken(scene), QString());
}

void tst_MaterialEdits::aMotionReplacesTheBody()
{
    Scene scene = Made(Walk({"Hips", "Arm"}), Line(2)).rows;
    const Scene before = scene;
    QVERIFY(Import(scene, Made(Walk({"Hips", "Arm"}, 46), {})));
    QCOMPARE(Names(scene), Names(before));
    QCOMPARE(Id(scene, "Arm"), Id(before, "Arm"));
    QCOMPARE(Row(scene, "Motion").keys.size(), 1);
    QCOMPARE(Row(scene, "Motion").keys[0].clip->length, 45);
    QCOMPARE(Row(scene, "Arm").keys.last().frame, 45);
    QCOMPARE(scene.motion.sampleCount, 46);
    QVERIFY(Row(scene, "Lips") == Row(before, "Lips"));
    QVERIFY(scene.line == before.line);
    QCOMPARE(scene.relations.size(), before.relations.size());
    QCOMPARE(Broken(scene), QString());
}

void tst_MaterialEdits::jointsOfAnotherCaptureComeAndGo()
{
    Scene scene = Made(Walk({"Hips", "Arm"}), Line(2)).rows;
    const TrackId hips = Id(scene, "Hips");
    QVERIFY(Import(scene, Made(Walk({"Hips", "Leg", "Foot"}), {})));
    QCOMPARE(Id(scene, "Hips"), hips);
    QCOMPARE(Id(scene, "Arm"), kNoTrack);
    QCOMPARE(ButtonRows(scene, "Joints"),
             (QVector<TrackId>{hips, Id(scene, "Leg"), Id(scene, "Foot")}));
    QCOMPARE(Names(scene), Names(Made(Walk({"Hips", "Leg", "Foot"}), Line(2)).rows));
    const TrackRelation range{RelationKind::SharedTimeRange,
                              {Id(scene, "Motion"), hips, Id(scene, "Leg"), Id(scene, "Foot")}};
    QCOMPARE(scene.relations.count(range), 1);
    QCOMPARE(Broken(scene), QString());
}

void tst_MaterialEdits::jointsOfOneNameAreKeptApart()
{
    Scene scene = Made(Walk({"Bone", "Bone", "Bone"}), {}).rows;
    QVERIFY(Import(scene, Made(Walk({"Bone", "Bone"}), {})));
    QCOMPARE(Names(scene).count(QStringLiteral("Bone")), 2);
    QCOMPARE(Broken(scene), QString());
}

void tst_MaterialEdits::aMotionIsAddedToASceneWithoutABody()
{
    Scene scene = Made({}, Line(2)).rows;
    QVERIFY(Import(scene, Made(Walk({"Hips", "Arm"}), {})));
    QCOMPARE(Names(scene), Names(Made(Walk({"Hips", "Arm"}), Line(2)).rows));
    QCOMPARE(ButtonRows(scene, "Joints").size(), 2);
    QCOMPARE(Broken(scene), QString());
}

void tst_MaterialEdits::soundsAreAddedOneBehindTheOther()
{
    Scene scene = Made({}, Line(4)).rows;
    const QVector<Sound> sounds{{QStringLiteral("/a/one.wav"), 1},
                                {QStringLiteral("/a/two.wav"), 0.5}};
    QVERIFY(Import(scene, Made({}, {}, sounds), 20));
    const SceneTrack row = Row(scene, "Sound");
    QCOMPARE(row.keys.size(), 2);
    QCOMPARE(row.keys[0].frame, 20);
    QCOMPARE(row.keys[0].name, QStringLiteral("one"));
    QCOMPARE(row.keys[0].sound, QStringLiteral("/a/one.wav"));
    QCOMPARE(row.keys[0].clip->length, 29);
    QCOMPARE(row.keys[1].frame, 50);
    QCOMPARE(row.keys[1].clip->length, 14);
    QVERIFY(scene.line == Line(4));
    QCOMPARE(Row(scene, "Lips").keys.size(), 1);
}

void tst_MaterialEdits::aSoundBringsItsRowToASceneWithoutAFace()
{
    Scene scene = Made(Walk({"Hips"}), {}).rows;
    QVERIFY(Import(scene, Made({}, {}, {{QStringLiteral("/a/one.wav"), 0.5}})));
    QVERIFY(Names(scene).indexOf(QStringLiteral("Face")) <
            Names(scene).indexOf(QStringLiteral("Body")));
    QCOMPARE(Row(scene, "Sound").keys.size(), 1);
    QCOMPARE(Row(scene, "Sound").parent, Id(scene, "Face"));
    QVERIFY(!Names(scene).contains(QStringLiteral("Lips")));
    QCOMPARE(Broken(scene), QString());
    QVERIFY(Import(scene, Made({}, Line(2)))); // the line comes between the two
    const QStringList whole = Names(Made(Walk({"Hips"}), Line(2)).rows);
    QCOMPARE(Names(scene), whole);
    QCOMPARE(Row(scene, "Sound").keys.size(), 1);
}

void tst_MaterialEdits::aSoundThatIsThereStays()
{
    Scene scene = Made({}, Line(4)).rows;
    QVERIFY(Import(scene, Made({}, {}, {{QStringLiteral("/a/one.wav"), 1}}), 0));
    QVERIFY(Import(scene, Made({}, {}, {{QStringLiteral("/a/two.wav"), 1}}), 60));
    QVERIFY(Import(scene, Made(Walk({"Hips"}), Line(2))));
    QCOMPARE(Row(scene, "Sound").keys.size(), 2);
}

void tst_MaterialEdits::aSoundThatIsInTheWayStays_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<bool>("isFree");
    QTest::newRow("at its first frame") << 30 << false;
    QTest::newRow("inside it") << 45 << false;
    QTest::newRow("at its last frame") << 59 << false;
    QTest::newRow("into it") << 1 << false;
    QTest::newRow("up to it") << 0 << true;
    QTest::newRow("behind it") << 60 << true;
}

void tst_MaterialEdits::aSoundThatIsInTheWayStays()
{
    QFETCH(int, frame);
    QFETCH(bool, isFree);
    Scene scene = Made({}, Line(4)).rows;
    QVERIFY(Import(scene, Made({}, {}, {{QStringLiteral("/a/one.wav"), 1}}), 30));
    const SceneKey before = Row(scene, "Sound").keys[0];
    QCOMPARE(LastFrameOf({{}, 1}, 30, 30), 59);
    QVERIFY(Import(scene, Made({}, {}, {{QStringLiteral("/a/two.wav"), 1}}), frame));
    QCOMPARE(Row(scene, "Sound").keys.size(), isFree ? 2 : 1);
    QVERIFY(Row(scene, "Sound").keys.contains(before));
    QCOMPARE(Names(scene).count(QStringLiteral("Sound")), isFree ? 1 : 2);
    QCOMPARE(Broken(scene), QString());
    if (isFree)
        return;
    const int index = Names(scene).indexOf(QStringLiteral("Sound")) + 1;
    const SceneTrack& added = scene.tracks[index];
    QCOMPARE(added.caption, QStringLiteral("Sound 2"));
    QCOMPARE(added.parent, Id(scene, "Face"));
    QCOMPARE(added.keys.size(), 1);
    QCOMPARE(added.keys[0].frame, frame);
    // The rows stay apart when more is brought, and are filled before a third one is made.
    QVERIFY(Import(scene, Made({}, Line(2))));
    QVERIFY(Import(scene, Made({}, {}, {{QStringLiteral("/a/three.wav"), 1}}), frame + 35));
    QCOMPARE(Names(scene).count(QStringLiteral("Sound")), 2);
}

void tst_MaterialEdits::theSameSoundIsNotAddedTwice()
{
    Scene scene = Made({}, Line(4)).rows;
    const Material material = Made({}, Line(2), {{QStringLiteral("/a/one.wav"), 1}});
    QVERIFY(Import(scene, material));
    QVERIFY(Import(scene, material));
    QCOMPARE(Names(scene).count(QStringLiteral("Sound")), 1);
    QCOMPARE(Row(scene, "Sound").keys.size(), 1);
}

void tst_MaterialEdits::aSoundThatIsThereAlreadyChangesNothing()
{
    Scene scene = Made({}, Line(4)).rows;
    const QStringList order = Names(scene);
    const Material sound = Made({}, {}, {{QStringLiteral("/a/one.wav"), 1}});
    QVERIFY(Import(scene, sound, 10));
    QCOMPARE(Names(scene), order);
    const Scene before = scene;
    QVERIFY(Import(scene, sound, 10));
    QVERIFY(scene == before);
}

void tst_MaterialEdits::aLockedRowOfSoundsStaysAsItIs()
{
    Scene scene = Made({}, Line(2)).rows;
    scene.FindTrack(Id(scene, "Sound"))->locked = true;
    QVERIFY(Import(scene, Made({}, {}, {{QStringLiteral("/a/one.wav"), 1}})));
    QVERIFY(Row(scene, "Sound").keys.isEmpty());
    QCOMPARE(Names(scene).count(QStringLiteral("Sound")), 2);
}

void tst_MaterialEdits::theSceneGrowsAndTheMarkerGoesAlong()
{
    Scene scene = Made({}, Line(2)).rows;
    QCOMPARE(scene.frameCount, 60);
    QVERIFY(Import(scene, Made({}, {}, {{QStringLiteral("/a/one.wav"), 2}}), 50));
    QCOMPARE(scene.frameCount, 110);
    QCOMPARE(scene.timeMark.end, 109);
    QCOMPARE(scene.timeMark.start, 0);
}

void tst_MaterialEdits::aMarkerInsideTheSceneStays()
{
    Scene scene = Made({}, Line(2)).rows;
    scene.timeMark = {10, 40};
    QVERIFY(Import(scene, Made({}, Line(3))));
    QCOMPARE(scene.frameCount, 90);
    QVERIFY(scene.timeMark == (TimeMark{10, 40}));
}

void tst_MaterialEdits::theSceneNeverShrinks()
{
    Scene scene = Made({}, Line(3)).rows;
    QVERIFY(Import(scene, Made({}, Line(1))));
    QCOMPARE(scene.frameCount, 90);
}

void tst_MaterialEdits::lockedRowsAreRefused_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<bool>("keyOnly");
    QTest::newRow("the lips") << QStringLiteral("Lips") << false;
    QTest::newRow("the clip on the lips") << QStringLiteral("Lips") << true;
    QTest::newRow("a joint") << QStringLiteral("Arm") << false;
    QTest::newRow("a key of a joint") << QStringLiteral("Arm") << true;
}

void tst_MaterialEdits::lockedRowsAreRefused()
{
    QFETCH(QString, row);
    QFETCH(bool, keyOnly);
    Scene scene = Made(Walk({"Hips", "Arm"}), Line(2)).rows;
    SceneTrack& locked = *scene.FindTrack(Id(scene, row.toLatin1()));
    (keyOnly ? locked.keys[0].locked : locked.locked) = true;
    const Scene before = scene;
    QString reason;
    const Material all = Made(Walk({"Hips"}), Line(3), {{QStringLiteral("/a/one.wav"), 1}});
    QVERIFY(!AddMaterial(scene, all, 0, reason));
    QCOMPARE(reason, row + QStringLiteral(" is locked and cannot be replaced"));
    QVERIFY(scene == before);
}

void tst_MaterialEdits::aLockedRowOfTheOtherRootDoesNotMatter()
{
    Scene scene = Made(Walk({"Hips", "Arm"}), Line(2)).rows;
    scene.FindTrack(Id(scene, "Lips"))->locked = true;
    scene.FindTrack(Id(scene, "Sound"))->locked = true;
    QVERIFY(Import(scene, Made(Walk({"Hips"}), {})));
}

void tst_MaterialEdits::groupsOfReplacedKeysGo()
{
    Scene scene = Made(Walk({"Hips", "Arm"}), Line(2)).rows;
    const GroupId arm = scene.AddGroup(QStringLiteral("Arm"));
    const GroupId mouth = scene.AddGroup(QStringLiteral("Mouth"));
    scene.FindTrack(Id(scene, "Arm"))->keys[0].group = arm;
    scene.FindTrack(Id(scene, "MouthRest"))->keys[0].group = mouth;
    QVERIFY(Import(scene, Made(Walk({"Hips", "Arm"}), {})));
    QCOMPARE(scene.groups.size(), 1);
    QCOMPARE(scene.groups[0].id, mouth);
}

void tst_MaterialEdits::everyNumberIsGivenOnce()
{
    Scene scene = Made(Walk({"Hips", "Arm"}), Line(2)).rows;
    for (int i = 0; i < 3; ++i) {
        QVERIFY(Import(scene,
                       Made(Walk({"Hips", i % 2 ? "Arm" : "Leg"}), Line(3),
                            {{QStringLiteral("/a/one.wav"), 1}}),
                       i * 30));
        QCOMPARE(Broken(scene), QString());
    }
}

void tst_MaterialEdits::readsFilesOfEveryKind()
{
    QTemporaryDir directory;
    const auto write = [&directory](const char* name, const QByteArray& bytes) {
        const QString path = directory.filePath(QLatin1String(name));
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? path
                                                                                    : QString();
    };
    const QString cues = write("hello.TSV", "0\tX\n0.5\tB\n1\tX\n");
    ImportError error;
    const auto material = ReadMaterial({SamplePath(QStringLiteral("stroll.bvh")), cues}, 24, error);
    QVERIFY2(material, qPrintable(error.Message()));
    QCOMPARE(material->rows.frameRate, 24);
    QCOMPARE(Row(material->rows, "Lips").keys[0].clip->length, 24); // the rest at its end is seen
    QCOMPARE(Row(material->rows, "Motion").keys[0].clip->length, 72);
    QVERIFY(IsMaterial(QStringLiteral("a.Wav")) && IsMaterial(QStringLiteral("a.bvh")));
    QVERIFY(!IsMaterial(QStringLiteral("wav")) && !IsMaterial(QStringLiteral("a.mp3")));
}

void tst_MaterialEdits::opensSoundsWithoutAnythingElse()
{
    QTemporaryDir directory;
    QStringList paths;
    for (const char* name : {"one.wav", "two.wav"}) {
        paths.append(directory.filePath(QLatin1String(name)));
        QFile file(paths.last());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(WavBytes(8000, 4000));
    }
    ImportError error;
    const auto scene = LoadScene(paths, error);
    QVERIFY2(scene, qPrintable(error.Message()));
    QCOMPARE(Names(*scene), (QStringList{QStringLiteral("Layers"), QStringLiteral("Face"),
                                         QStringLiteral("Sound")}));
    const QVector<SceneKey> clips = Row(*scene, "Sound").keys;
    QCOMPARE(clips.size(), 2);
    QCOMPARE(clips[0].sound, paths[0]);
    QCOMPARE(clips[1].frame, 60);
    QCOMPARE(scene->frameCount, 120);
    QCOMPARE(Broken(*scene), QString());
}

void tst_MaterialEdits::readsTheRealFilesIntoAnOpenScene()
{
    const QString walk = SharedDataPath(QStringLiteral("walk.bvh"));
    SKIP_WITHOUT(walk);
    const QString dialogue = SharedDataPath(QStringLiteral("dialogue.json"));
    SKIP_WITHOUT(dialogue);
    ImportError error;
    Scene scene = ReadMaterial({SamplePath(QStringLiteral("stroll.bvh")),
                                SamplePath(QStringLiteral("greeting.json"))},
                               kSceneFrameRate, error)
                      ->rows;
    const auto material = ReadMaterial({walk, dialogue}, kSceneFrameRate, error);
    QVERIFY2(material, qPrintable(error.Message()));
    QVERIFY(Import(scene, *material));
    QCOMPARE(Names(scene), Names(material->rows));
    QCOMPARE(scene.frameCount, 131);
    QCOMPARE(Broken(scene), QString());
}

void tst_MaterialEdits::cancellingBringsNothing_data()
{
    QTest::addColumn<double>("share");
    for (const double share : {0.0, 0.3, 0.59, 0.6, 0.75, 0.99})
        QTest::addRow("at %d percent", static_cast<int>(share * 100)) << share;
}

void tst_MaterialEdits::cancellingBringsNothing()
{
    QFETCH(double, share);
    double reached = -1;
    const ImportProgress progress([&reached, share](double now) {
        reached = now;
        return now < share;
    });
    ImportError error;
    const QStringList files{SamplePath(QStringLiteral("stroll.bvh")),
                            SamplePath(QStringLiteral("greeting.json"))};
    const auto material = ReadMaterial(files, kSceneFrameRate, error, progress);
    QVERIFY(!material);
    QVERIFY(error.isCancelled);
    QVERIFY(reached >= share);
}

QTEST_MAIN(tst_MaterialEdits)
#include "tst_MaterialEdits.moc"
