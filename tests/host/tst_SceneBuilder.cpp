#include "TestFiles.h"

#include "document/MouthShapes.h"
#include "import/FaceTracks.h"
#include "import/FootContacts.h"
#include "import/LineSound.h"
#include "import/RowDefaults.h"
#include "import/SceneBuilder.h"
#include "import/SceneFiles.h"
#include "import/SoundClips.h"

#include <QProcess>
#include <QTemporaryDir>

using namespace host;

namespace {

Scene SceneOf(const QStringList& files)
{
    ImportError error;
    const auto scene = LoadScene(files, error);
    if (!scene)
        qFatal("%s", qPrintable(error.Message()));
    return *scene;
}

Scene SampleScene()
{
    return SceneOf(
        {SamplePath(QStringLiteral("stroll.bvh")), SamplePath(QStringLiteral("greeting.json"))});
}

Scene SceneOfCues(double duration, const QVector<MouthCue>& cues)
{
    return BuildScene(Motion(), {QStringLiteral("line"), duration, cues});
}

const SceneTrack* RowNamed(const Scene& scene, const QString& name)
{
    for (const SceneTrack& track : scene.tracks) {
        if (track.name == name)
            return &track;
    }
    return nullptr;
}

const SceneKey& LipsOf(const Scene& scene)
{
    return RowNamed(scene, QStringLiteral("Lips"))->keys.first();
}

bool IsInOrder(const QVector<SceneKey>& keys)
{
    return std::is_sorted(keys.cbegin(), keys.cend(),
                          [](const SceneKey& a, const SceneKey& b) { return a.frame < b.frame; });
}

/// What must hold of a scene whatever it was made from.
void VerifyIsSound(const Scene& scene)
{
    QSet<TrackId> ids;
    for (const SceneTrack& track : scene.tracks) {
        QVERIFY(!ids.contains(track.id));
        QVERIFY(track.parent == kNoTrack || ids.contains(track.parent));
        ids.insert(track.id);
        QVERIFY(IsInOrder(track.keys));
        for (const SceneKey& key : track.keys) {
            QVERIFY(key.frame >= 0 && key.frame < scene.frameCount);
            QVERIFY(!key.clip || key.frame + key.clip->length < scene.frameCount + 1);
            QVERIFY(IsInOrder(key.subKeys));
            for (const SceneKey& subKey : key.subKeys)
                QVERIFY(subKey.frame >= 0 && subKey.frame <= key.clip->length);
        }
    }
    for (const TrackRelation& relation : scene.relations) {
        QVERIFY(relation.tracks.size() >= 2);
        for (const TrackId track : relation.tracks)
            QVERIFY(ids.contains(track));
    }
}

} // namespace

class tst_SceneBuilder : public QObject
{
    Q_OBJECT

private slots:
    void runsAtThirtyFramesASecond();
    void stacksButtonsFaceAndBody();
    void putsTheMotionIntoOneClip();
    void makesOneKeyRowForEachJoint();
    void keysAJointWhereItTurnsAndNotOnEveryFrame();
    void putsTheLipsIntoOneClipOfSubKeys();
    void letsTheLipsClipCoverTheLine_data();
    void letsTheLipsClipCoverTheLine();
    void keepsTheKeyOfALateCueInsideTheScene();
    void showsTheLongestOfTheCuesOnOneFrame();
    void blendsWhereTheMouthComesToRest();
    void blendsAtBothEndsOfTheMotion();
    void linksTheFramesWhileAFootStands();
    void leavesFeetThatNeverLiftWithoutContacts();
    void findsNoContactsInAWalkOnTheSpot();
    void groupsTheKeysOfALimbDuringItsFirstContact();
    void relatesRowsInEveryWay();
    void givesEachButtonTheRowsItShows();
    void buildsFromAMotionAlone();
    void buildsFromALineAlone();
    void buildsFromTheShortestMotion();
    void namesRowsAsWordsAreRead_data();
    void namesRowsAsWordsAreRead();
    void refusesFilesItCannotTakeIn_data();
    void refusesFilesItCannotTakeIn();
    void takesFilesInAnyOrder();
    void putsTheLinesSoundOnItsRow();
    void growsForALongerSound();
    void leavesOutASoundItCannotRead_data();
    void leavesOutASoundItCannotRead();
    void keepsTheSampleWalkAsItsGeneratorWritesIt();
    void buildsFromTheRealFiles();
};

void tst_SceneBuilder::runsAtThirtyFramesASecond()
{
    const Scene scene = SampleScene();
    VerifyIsSound(scene);
    QCOMPARE(scene.frameRate, 30);
    QCOMPARE(scene.frameCount, 91); // the walk's last sample lies at 3.0 seconds
    QVERIFY((scene.timeMark == TimeMark{0, 90}));
}

void tst_SceneBuilder::stacksButtonsFaceAndBody()
{
    const Scene scene = SampleScene();
    QStringList roots;
    for (const TrackId root : scene.ChildrenOf(kNoTrack))
        roots.append(scene.FindTrack(root)->caption);
    const QStringList expected{QStringLiteral("Layers"), QStringLiteral("Joints"),
                               QStringLiteral("Face"), QStringLiteral("Body")};
    QCOMPARE(roots, expected);
}

void tst_SceneBuilder::putsTheMotionIntoOneClip()
{
    const Scene scene = SampleScene();
    const SceneTrack* const row = RowNamed(scene, QStringLiteral("Motion"));
    QCOMPARE(row->kind, TrackKind::Clip);
    QCOMPARE(row->keys.size(), 1);
    QCOMPARE(row->keys[0].frame, 0);
    QCOMPARE(row->keys[0].name, QStringLiteral("stroll"));
    QCOMPARE(row->keys[0].clip->length, 90);
    QCOMPARE(row->keys[0].clip->loops, 1);
    QVERIFY(row->keys[0].clip->shortest < 90);
    QVERIFY(row->keys[0].clip->longest > 90);
    QCOMPARE(row->keys[0].clip->material, 90);
}

void tst_SceneBuilder::makesOneKeyRowForEachJoint()
{
    const Scene scene = SampleScene();
    const TrackId body = RowNamed(scene, QStringLiteral("Body"))->id;
    for (const Joint& joint : scene.motion.joints) {
        const SceneTrack* const row = RowNamed(scene, joint.name);
        QVERIFY(row);
        QCOMPARE(row->kind, TrackKind::Key);
        QCOMPARE(row->parent, body);
    }
    QCOMPARE(RowNamed(scene, QStringLiteral("LeftUpLeg"))->caption, QStringLiteral("Left Up Leg"));
}

void tst_SceneBuilder::keysAJointWhereItTurnsAndNotOnEveryFrame()
{
    const Scene scene = SampleScene();
    QVector<int> frames;
    for (const SceneKey& key : RowNamed(scene, QStringLiteral("LeftArm"))->keys)
        frames.append(key.frame);
    // The arm swings once a second, from the back at frame 0 to the front at frame 15.
    const QVector<int> expected{0, 15, 30, 45, 60, 75, 90};
    QCOMPARE(frames, expected);
}

void tst_SceneBuilder::putsTheLipsIntoOneClipOfSubKeys()
{
    const Scene scene = SampleScene();
    const SceneTrack* const row = RowNamed(scene, QStringLiteral("Lips"));
    QCOMPARE(row->kind, TrackKind::Viseme);
    QVERIFY(row->editModes.contains(EditMode::EditSubKeys));
    QCOMPARE(row->keys.size(), 1);
    const SceneKey& lips = row->keys[0];
    QCOMPARE(lips.name, QStringLiteral("greeting"));
    QCOMPARE(lips.subKeys.size(), scene.line.cues.size());
    QCOMPARE(lips.subKeys[1].frame, 7); // 0.22 seconds
    QCOMPARE(lips.subKeys[1].mouthShape, *MouthShapeOfCue(QStringLiteral("B")));
}

void tst_SceneBuilder::letsTheLipsClipCoverTheLine_data()
{
    QTest::addColumn<double>("duration");
    QTest::addColumn<double>("lastCueEnd");
    QTest::addColumn<int>("frameCount");
    QTest::newRow("whole frames") << 3.0 << 3.0 << 90;
    QTest::newRow("a part of a frame more") << 2.69 << 2.69 << 81;
    QTest::newRow("a rounding error more") << 3.0000000001 << 3.0 << 90;
    QTest::newRow("a cue beyond the duration") << 1.0 << 2.0 << 60;
    QTest::newRow("less than a frame") << 0.001 << 0.001 << 2;
}

void tst_SceneBuilder::letsTheLipsClipCoverTheLine()
{
    QFETCH(double, duration);
    QFETCH(double, lastCueEnd);
    QFETCH(int, frameCount);
    const Scene scene = SceneOfCues(duration, {{0, lastCueEnd, 1}});
    QCOMPARE(scene.frameCount, frameCount);
    QCOMPARE(LipsOf(scene).clip->length, frameCount - 1);
}

void tst_SceneBuilder::keepsTheKeyOfALateCueInsideTheScene()
{
    const Scene scene = SceneOfCues(1, {{0, 0.985, 1}, {0.985, 1, kClosedMouth}});
    const SceneKey& lips = LipsOf(scene);
    QCOMPARE(lips.subKeys.last().frame, 30); // the nearest to 0.985 seconds
    QCOMPARE(scene.frameCount, 31);
    QCOMPARE(lips.clip->length, 30);
    VerifyIsSound(scene);
}

void tst_SceneBuilder::showsTheLongestOfTheCuesOnOneFrame()
{
    const Scene scene =
        SceneOfCues(1, {{0, 0.002, 1}, {0.002, 0.012, 2}, {0.012, 0.015, 3}, {0.5, 1, 4}});
    const SceneKey& lips = LipsOf(scene);
    QCOMPARE(lips.subKeys.size(), 2);
    QCOMPARE(lips.subKeys[0].frame, 0);
    QCOMPARE(lips.subKeys[0].mouthShape, 2);
    QCOMPARE(lips.subKeys[1].frame, 15);
}

void tst_SceneBuilder::blendsWhereTheMouthComesToRest()
{
    const Scene scene = SceneOfCues(2, {{0, 0.1, kClosedMouth}, {0.1, 1, 2}, {1, 2, kClosedMouth}});
    const SceneTrack* const row = RowNamed(scene, QStringLiteral("MouthRest"));
    QCOMPARE(row->kind, TrackKind::Transition);
    QCOMPARE(row->keys.size(), 2);
    QCOMPARE(row->keys[0].frame, 0);
    QCOMPARE(row->keys[0].transition->frames, 3); // no longer than the rest
    QCOMPARE(row->keys[1].frame, 30);
    QCOMPARE(row->keys[1].transition->frames, 6);
}

void tst_SceneBuilder::blendsAtBothEndsOfTheMotion()
{
    const Scene scene = SampleScene();
    const SceneTrack* const row = RowNamed(scene, QStringLiteral("MotionBlend"));
    QCOMPARE(row->kind, TrackKind::Transition);
    QCOMPARE(row->keys.size(), 2);
    QCOMPARE(row->keys[0].frame, 0);
    QCOMPARE(row->keys[0].transition->direction, BlendDirection::OutOf);
    QCOMPARE(row->keys[1].frame, 90);
    QCOMPARE(row->keys[1].transition->direction, BlendDirection::Into);
    QCOMPARE(row->keys[1].transition->frames, 12);
}

void tst_SceneBuilder::linksTheFramesWhileAFootStands()
{
    const Scene scene = SampleScene();
    const SceneTrack* const left = RowNamed(scene, QStringLiteral("LeftFootContact"));
    const SceneTrack* const right = RowNamed(scene, QStringLiteral("RightFootContact"));
    QVERIFY(left && right);
    QCOMPARE(left->kind, TrackKind::Link);
    QCOMPARE(left->caption, QStringLiteral("Left Contact"));
    QVERIFY(left->keys.size() >= 6); // each foot stands once in each of three strides
    for (const SceneTrack* row : {left, right}) {
        for (int i = 0; i < row->keys.size(); ++i)
            QCOMPARE(row->keys[i].startsLink, i % 2 == 0);
    }
    // In the middle of its swing (frame 21 of 30 for the left leg) a foot is off the ground.
    for (int i = 0; i + 1 < left->keys.size(); i += 2) {
        for (const int swing : {21, 51, 81})
            QVERIFY(swing < left->keys[i].frame || swing > left->keys[i + 1].frame);
    }
}

void tst_SceneBuilder::leavesFeetThatNeverLiftWithoutContacts()
{
    Scene scene = SampleScene();
    Motion still = scene.motion;
    for (int sample = 1; sample < still.sampleCount; ++sample)
        std::copy_n(still.samples.begin(), still.channelCount,
                    still.samples.begin() + sample * still.channelCount);
    QVERIFY(FindFootContacts(still, 30).isEmpty());
    const ImportProgress cancelled([](double share) { return share < 0.5; });
    QVERIFY(!FindFootContacts(still, 30, cancelled));
    VerifyIsSound(BuildScene(still, SpokenLine()));
}

void tst_SceneBuilder::findsNoContactsInAWalkOnTheSpot()
{
    Motion onTheSpot = SampleScene().motion;
    QCOMPARE(FindFootContacts(onTheSpot, 30).size(), 2);
    constexpr int kForward = 2; // the channel that carries the hips ahead
    QVERIFY(onTheSpot.joints[0].channels[kForward] == Channel::ZPosition);
    for (int sample = 0; sample < onTheSpot.sampleCount; ++sample)
        onTheSpot.samples[sample * onTheSpot.channelCount + kForward] = 0;
    QVERIFY(FindFootContacts(onTheSpot, 30).isEmpty());
}

void tst_SceneBuilder::groupsTheKeysOfALimbDuringItsFirstContact()
{
    const Scene scene = SampleScene();
    QCOMPARE(scene.groups.size(), 2);
    const SceneTrack* const contact = RowNamed(scene, QStringLiteral("LeftFootContact"));
    const SceneTrack* const leg = RowNamed(scene, QStringLiteral("LeftUpLeg"));
    int grouped = 0;
    for (const SceneKey& key : leg->keys) {
        const bool stands =
            key.frame >= contact->keys[0].frame && key.frame <= contact->keys[1].frame;
        QCOMPARE(key.group != kNoGroup, stands);
        grouped += stands ? 1 : 0;
    }
    QVERIFY(grouped > 0);
    for (const SceneKey& key : RowNamed(scene, QStringLiteral("LeftArm"))->keys)
        QCOMPARE(key.group, kNoGroup);
}

void tst_SceneBuilder::relatesRowsInEveryWay()
{
    const Scene scene = SampleScene();
    for (const RelationKind kind :
         {RelationKind::SharedTimeRange, RelationKind::SharedSelection, RelationKind::ClipBars}) {
        QVERIFY(
            std::any_of(scene.relations.cbegin(), scene.relations.cend(),
                        [kind](const TrackRelation& relation) { return relation.kind == kind; }));
    }
    // A limb from the hip down shares its selection.
    const QVector<TrackId> leftLeg{RowNamed(scene, QStringLiteral("LeftUpLeg"))->id,
                                   RowNamed(scene, QStringLiteral("LeftLeg"))->id,
                                   RowNamed(scene, QStringLiteral("LeftFoot"))->id};
    QVERIFY(scene.relations.contains({RelationKind::SharedSelection, leftLeg}));
}

void tst_SceneBuilder::givesEachButtonTheRowsItShows()
{
    const Scene scene = SampleScene();
    const SceneTrack* const row = RowNamed(scene, QStringLiteral("Layers"));
    QCOMPARE(row->kind, TrackKind::Switch);
    QStringList texts;
    for (const SwitchButton& button : row->buttons) {
        texts.append(button.text);
        QVERIFY(button.on);
        QVERIFY(!button.tracks.isEmpty());
    }
    const QStringList expected{QStringLiteral("Lips"), QStringLiteral("Joints"),
                               QStringLiteral("Contacts"), QStringLiteral("Blends")};
    QCOMPARE(texts, expected);
    QCOMPARE(row->buttons[1].tracks.size(), 17);
}

void tst_SceneBuilder::buildsFromAMotionAlone()
{
    const Scene scene = SceneOf({SamplePath(QStringLiteral("stroll.bvh"))});
    VerifyIsSound(scene);
    QVERIFY(!RowNamed(scene, QStringLiteral("Face")));
    QVERIFY(RowNamed(scene, QStringLiteral("Body")));
}

void tst_SceneBuilder::buildsFromALineAlone()
{
    const Scene scene = SceneOf({SamplePath(QStringLiteral("greeting.json"))});
    VerifyIsSound(scene);
    QVERIFY(RowNamed(scene, QStringLiteral("Face")));
    QVERIFY(!RowNamed(scene, QStringLiteral("Body")));
    QCOMPARE(scene.frameCount, 90);
}

void tst_SceneBuilder::buildsFromTheShortestMotion()
{
    Motion motion;
    motion.sampleTime = 0.1;
    motion.channelCount = 1;
    motion.sampleCount = 1;
    motion.joints = {{QStringLiteral("Root"), -1, {}, {Channel::YRotation}, 0}};
    motion.samples = {30};
    const Scene scene = BuildScene(motion, SpokenLine());
    QCOMPARE(scene.frameCount, 2); // a clip of one step shows two frames
    VerifyIsSound(scene);
    QCOMPARE(RowNamed(scene, QStringLiteral("Root"))->keys.size(), 1);
}

void tst_SceneBuilder::namesRowsAsWordsAreRead_data()
{
    QTest::addColumn<QString>("joint");
    QTest::addColumn<QString>("caption");
    const auto row = [](const char* joint, const char* caption) {
        QTest::newRow(joint) << QString::fromLatin1(joint) << QString::fromLatin1(caption);
    };
    row("Hips", "Hips");
    row("LeftUpLeg", "Left Up Leg");
    row("LHipJoint", "L Hip Joint");
    row("Spine1", "Spine1");
    row("LeftHandIndex1Tip", "Left Hand Index1 Tip");
    row("right_fore_arm", "right fore arm");
    row("mixer:LeftArm", "Left Arm");
    row("mixer:", "mixer:");
    row("", "");
}

void tst_SceneBuilder::namesRowsAsWordsAreRead()
{
    QFETCH(QString, joint);
    QFETCH(QString, caption);
    QCOMPARE(CaptionOfJoint(joint), caption);
}

void tst_SceneBuilder::refusesFilesItCannotTakeIn_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("message");
    const QString walk = SamplePath(QStringLiteral("stroll.bvh"));
    const QString missing = QStringLiteral("/none/walk.bvh");
    QTest::newRow("not there")
        << QStringList{missing}
        << missing + QStringLiteral(": expected a readable file (%1)").arg(ReasonAgainst(missing));
    QTest::newRow("another kind") << QStringList{QStringLiteral("walk.fbx")}
                                  << QStringLiteral("walk.fbx: expected a motion capture (.bvh), "
                                                    "mouth cues (.json, .tsv) or a sound (.wav)");
    QTest::newRow("two motions") << QStringList{walk, walk}
                                 << walk + QStringLiteral(": expected at most one motion capture");
    const QString line = SamplePath(QStringLiteral("greeting.json"));
    QTest::newRow("two lines") << QStringList{line, line}
                               << line +
                                      QStringLiteral(": expected at most one file of mouth cues");
}

void tst_SceneBuilder::refusesFilesItCannotTakeIn()
{
    QFETCH(QStringList, files);
    QFETCH(QString, message);
    ImportError error;
    QVERIFY(!LoadScene(files, error));
    QCOMPARE(error.Message(), message);
}

void tst_SceneBuilder::takesFilesInAnyOrder()
{
    const Scene turned = SceneOf(
        {SamplePath(QStringLiteral("greeting.json")), SamplePath(QStringLiteral("stroll.bvh"))});
    QVERIFY(turned == SampleScene());
}

void tst_SceneBuilder::putsTheLinesSoundOnItsRow()
{
    const Scene scene = SampleScene();
    const SceneTrack* const row = RowNamed(scene, QStringLiteral("Sound"));
    QCOMPARE(row->keys.size(), 1);
    const SceneKey& clip = row->keys[0];
    QCOMPARE(clip.frame, 0);
    QCOMPARE(clip.name, QStringLiteral("greeting"));
    QCOMPARE(clip.clip->length, 89); // three seconds on ninety frames, as the lips
    QVERIFY(BytesOf(clip.sound) == BytesOf(SamplePath(QStringLiteral("greeting.wav"))));
    QVERIFY(BytesOf(clip.sound).size() < 200000);
    QVERIFY(RowNamed(scene, QStringLiteral("Motion"))->keys[0].sound.isEmpty());
}

void tst_SceneBuilder::growsForALongerSound()
{
    Scene scene = SceneOfCues(1, {{0, 1, 2}});
    QCOMPARE(scene.frameCount, 30);
    QString problem;
    const auto sound = SoundOfLine("{\"metadata\":{\"soundFile\":\"greeting.wav\"}}",
                                   SamplePath(QStringLiteral("line.json")), problem);
    QVERIFY(sound);
    QCOMPARE(problem, QString());
    AddSounds(scene, {*sound}, 0);
    QCOMPARE(scene.frameCount, 90);
    QCOMPARE(scene.timeMark.end, 89);
    QCOMPARE(RowNamed(scene, QStringLiteral("Sound"))->keys[0].clip->length, 89);
    VerifyIsSound(scene);
}

void tst_SceneBuilder::leavesOutASoundItCannotRead_data()
{
    QTest::addColumn<QByteArray>("metadata");
    QTest::addColumn<QString>("problem"); // behind the path of the samples
    const QString unreadable = QStringLiteral(": expected a readable file");
    QTest::newRow("none named") << QByteArray("{}") << QString();
    QTest::newRow("not there") << QByteArray("{\"soundFile\":\"none.wav\"}")
                               << QStringLiteral("/none.wav") + unreadable;
    QTest::newRow("no sound")
        << QByteArray("{\"soundFile\":\"stroll.bvh\"}")
        << QStringLiteral("/stroll.bvh: expected a sound file that starts with RIFF and WAVE");
    QTest::newRow("a folder") << QByteArray("{\"soundFile\":\".\"}") << unreadable;
    QTest::newRow("a number") << QByteArray("{\"soundFile\":5}") << QString();
}

void tst_SceneBuilder::leavesOutASoundItCannotRead()
{
    QFETCH(QByteArray, metadata);
    QFETCH(QString, problem);
    QString told;
    const QString path = SamplePath(QStringLiteral("l.json"));
    QVERIFY(!SoundOfLine("{\"metadata\":" + metadata + "}", path, told));
    const QString folder = problem.isEmpty() ? QString() : QStringLiteral(KESTOVA_SAMPLES_DIR);
    QCOMPARE(told, folder + problem);
}

void tst_SceneBuilder::keepsTheSampleWalkAsItsGeneratorWritesIt()
{
    QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("stroll.bvh"));
    QCOMPARE(QProcess::execute(QStringLiteral(KESTOVA_SAMPLE_WALK), {path}), 0);
    const QByteArray written = BytesOf(path);
    QVERIFY(!written.isEmpty());
    QVERIFY(written == BytesOf(SamplePath(QStringLiteral("stroll.bvh"))));
}

void tst_SceneBuilder::buildsFromTheRealFiles()
{
    const QString walk = SharedDataPath(QStringLiteral("walk.bvh"));
    SKIP_WITHOUT(walk);
    const QString dialogue = SharedDataPath(QStringLiteral("dialogue.json"));
    SKIP_WITHOUT(dialogue);
    const Scene scene = SceneOf({walk, dialogue});
    VerifyIsSound(scene);
    QCOMPARE(scene.frameCount, 131);
    QCOMPARE(LipsOf(scene).clip->length, 80);
    QCOMPARE(LipsOf(scene).subKeys.size(), 18); // its first two cues fall on one frame
    QVERIFY(RowNamed(scene, QStringLiteral("LeftToeBaseContact")));
    int keys = 0;
    for (const Joint& joint : scene.motion.joints) {
        const int count = RowNamed(scene, joint.name)->keys.size();
        QVERIFY2(count < 131 / 3, qPrintable(joint.name));
        keys += count;
    }
    QVERIFY(keys > 31 * 2);
}

QTEST_MAIN(tst_SceneBuilder)
#include "tst_SceneBuilder.moc"
