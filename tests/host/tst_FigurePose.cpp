#include "TestFiles.h"

#include "document/ClipEdits.h"
#include "import/SceneBuilder.h"
#include "import/SceneFiles.h"
#include "preview/FigurePose.h"

#include <cmath>

using namespace host;

namespace {

constexpr int kPassLength = 20;
constexpr int kFirst = 30; // the clip's first frame

/// Three joints in a row, of which the upper one rises by one unit a frame and the arm turns by two
/// degrees a frame, sampled at every scene frame from 0 to 20.
Motion Climb()
{
    Motion motion;
    motion.name = QStringLiteral("climb");
    motion.sampleTime = 1.0 / kSceneFrameRate;
    motion.channelCount = 4;
    motion.sampleCount = kPassLength + 1;
    motion.joints = {
        {QStringLiteral("Root"),
         -1,
         {0, 5, 0},
         {Channel::XPosition, Channel::YPosition, Channel::ZPosition},
         0},
        {QStringLiteral("Arm"), 0, {1, 0, 0}, {Channel::ZRotation}, 3},
        {QStringLiteral("Hand"), 1, {2, 0, 0}, {}, 4},
    };
    for (int sample = 0; sample < motion.sampleCount; ++sample) {
        const auto way = static_cast<float>(sample);
        motion.samples << way << 5 + way << 0 << way * 2;
    }
    return motion;
}

/// The motion as a clip from frame 30 to 50, without blends.
struct Body
{
    Scene scene;

    Body()
    {
        scene.frameCount = 200;
        scene.motion = Climb();
        SceneTrack root;
        const TrackId body = scene.AddTrack(root);
        SceneTrack motion = Row(TrackKind::Clip, "Motion", body);
        SceneKey clip;
        clip.frame = kFirst;
        clip.clip = ClipSpan{kPassLength, 1, 0, 5, 80, kPassLength};
        motion.keys = {clip};
        scene.AddTrack(motion);
        scene.AddTrack(Row(TrackKind::Transition, "MotionBlend", body));
        scene.AddTrack(Row(TrackKind::Key, "Root", body));
        scene.AddTrack(Row(TrackKind::Key, "Arm", body));
    }

    static SceneTrack Row(TrackKind kind, const char* name, TrackId parent)
    {
        SceneTrack row;
        row.kind = kind;
        row.name = QLatin1String(name);
        row.parent = parent;
        return row;
    }

    SceneTrack& Track(const char* name)
    {
        for (SceneTrack& row : scene.tracks) {
            if (row.name == QLatin1String(name))
                return row;
        }
        qFatal("no row %s", name);
    }
    SceneKey& Clip() { return Track("Motion").keys[0]; }
    SceneKey& AddClip(int frame)
    {
        SceneKey added = Clip();
        added.frame = frame;
        Track("Motion").keys.append(added);
        return Track("Motion").keys.last();
    }
    void Blend(int frame, BlendDirection direction, int frames)
    {
        SceneKey key;
        key.frame = frame;
        key.transition = Transition{direction, frames};
        Track("MotionBlend").keys.append(key);
    }
    FigurePose At(int frame) const { return FigureAt(scene, frame); }
    /// The material's frame that is seen, read off the way that the root has gone.
    double Seen(int frame) const { return At(frame).positions[0].x(); }
    double ArmAngle(int frame) const
    {
        const QVector3D arm = At(frame).positions[2] - At(frame).positions[1];
        return std::atan2(arm.y(), arm.x()) * 180 / M_PI;
    }
};

bool IsAt(const QVector3D& a, const QVector3D& b)
{
    return (a - b).length() < 1e-4F;
}

#define COMPARE_NEAR(actual, expected)                                                             \
    QVERIFY2(std::abs((actual) - (expected)) < 1e-3,                                               \
             qPrintable(QStringLiteral("%1 against %2").arg(actual).arg(double(expected))))

} // namespace

class tst_FigurePose : public QObject
{
    Q_OBJECT

private slots:
    void posesTheJointsOfTheFrame();
    void holdsTheNearestPoseOutsideTheClip();
    void holdsBetweenTwoClipsUntilTheNextBegins();
    void everyPassShowsTheSame();
    void halfTheLengthPlaysAtDoubleSpeed();
    void twiceTheLengthPlaysBetweenTheSamples();
    void changingTheLengthPlaysTheWholeMaterial();
    void theLeadInCutsTheMaterialsStart();
    void holdsTheMaterialsLastPose();
    void aBrokenClipPlaysAsBefore();
    void blendsOutOfRest();
    void blendsBackIntoRest();
    void blendsFromOneClipIntoTheNext();
    void blendsWithinAClipAreLeftOut();
    void aMutedRowOfBlendsIsLeftOut();
    void restsWithoutAClip();
    void restsWhereTheMotionHasCarriedIt();
    void restsFacingTheWayItWent();
    void aMutedMotionRests();
    void aMutedJointIsNotTurned();
    void aSoloedJointIsTheOnlyOneTurned();
    void jointsOfOneNameHaveRowsOfTheirOwn();
    void rowsElsewhereOfAJointsNameAreOthers();
    void aSoloedMotionMovesAllJoints();
    void restsWhileTheFaceIsSoloed();
    void soundsOnTheRowPoseNothing();
    void aSceneWithoutAMotionHasNoFigure();
    void standsOnTheGround();
    void posesTheSampleWalk();
};

void tst_FigurePose::posesTheJointsOfTheFrame()
{
    const Body body;
    const FigurePose pose = body.At(kFirst + 10);
    QCOMPARE(pose.positions.size(), 3);
    QVERIFY(IsAt(pose.positions[0], {10, 15, 0}));
    QVERIFY(IsAt(pose.positions[1], {11, 15, 0}));
    const double turned = 20 * M_PI / 180;
    QVERIFY(IsAt(pose.positions[2], {11 + 2 * static_cast<float>(std::cos(turned)),
                                     15 + 2 * static_cast<float>(std::sin(turned)), 0}));
}

void tst_FigurePose::holdsTheNearestPoseOutsideTheClip()
{
    const Body body;
    for (const int frame : {-2000000000, -1, 0, 29})
        QVERIFY(body.At(frame) == body.At(kFirst));
    for (const int frame : {51, 199, 2000000000})
        QVERIFY(body.At(frame) == body.At(kFirst + kPassLength));
    QVERIFY(body.At(kFirst) != body.At(kFirst + kPassLength));
}

void tst_FigurePose::holdsBetweenTwoClipsUntilTheNextBegins()
{
    Body body;
    body.AddClip(100);
    COMPARE_NEAR(body.Seen(51), 20.0);
    COMPARE_NEAR(body.Seen(99), 20.0);
    COMPARE_NEAR(body.Seen(100), 0.0);
    COMPARE_NEAR(body.Seen(105), 5.0);
}

void tst_FigurePose::everyPassShowsTheSame()
{
    Body body;
    body.Clip().clip->loops = 3;
    for (int frame = kFirst; frame < kFirst + kPassLength; ++frame) {
        QVERIFY(body.At(frame) == body.At(frame + kPassLength));
        QVERIFY(body.At(frame) == body.At(frame + 2 * kPassLength));
    }
    COMPARE_NEAR(body.Seen(kFirst + 3 * kPassLength), 20.0); // the end of the last pass
    body.Clip().clip->loops = 2000000000;
    COMPARE_NEAR(body.Seen(kFirst + 5 + 4 * kPassLength), 5.0);
}

void tst_FigurePose::halfTheLengthPlaysAtDoubleSpeed()
{
    Body body;
    body.Clip().clip->length = kPassLength / 2;
    for (int i = 0; i <= kPassLength / 2; ++i)
        COMPARE_NEAR(body.Seen(kFirst + i), 2.0 * i);
    COMPARE_NEAR(body.ArmAngle(kFirst + 4), 16.0);
}

void tst_FigurePose::twiceTheLengthPlaysBetweenTheSamples()
{
    Body body;
    body.Clip().clip->length = kPassLength * 2;
    COMPARE_NEAR(body.Seen(kFirst + 7), 3.5);
    COMPARE_NEAR(body.ArmAngle(kFirst + 7), 7.0);
    COMPARE_NEAR(body.Seen(kFirst + 40), 20.0);
}

void tst_FigurePose::changingTheLengthPlaysTheWholeMaterial()
{
    Body body;
    body.Clip().clip->material = 0; // as many frames as the pass is long
    const SceneTrack row = body.Track("Motion");
    COMPARE_NEAR(body.Seen(kFirst + 10), 10.0);
    QVERIFY(SetClipLength(body.scene, row.id, row.keys[0].id, 10));
    COMPARE_NEAR(body.Seen(kFirst + 5), 10.0);
    COMPARE_NEAR(body.Seen(kFirst + 10), 20.0);
}

void tst_FigurePose::theLeadInCutsTheMaterialsStart()
{
    Body body;
    body.Clip().clip->leadIn = 6;
    COMPARE_NEAR(body.Seen(kFirst), 6.0);
    COMPARE_NEAR(body.Seen(kFirst + 4), 10.0);
    COMPARE_NEAR(body.Seen(0), 6.0);
    body.Clip().clip->loops = 2;
    COMPARE_NEAR(body.Seen(kFirst + kPassLength), 6.0); // of every pass
    body.Clip().clip->length = kPassLength / 2;         // at double speed the same is cut off
    COMPARE_NEAR(body.Seen(kFirst), 6.0);
    COMPARE_NEAR(body.Seen(kFirst + 2), 10.0);
}

void tst_FigurePose::holdsTheMaterialsLastPose()
{
    Body body;
    body.Clip().clip->leadIn = 15;
    COMPARE_NEAR(body.Seen(kFirst + 5), 20.0);
    COMPARE_NEAR(body.Seen(kFirst + 12), 20.0);
    body.Clip().clip->leadIn = 1000000;
    COMPARE_NEAR(body.Seen(kFirst), 20.0);
}

void tst_FigurePose::aBrokenClipPlaysAsBefore()
{
    Body whole;
    whole.Clip().clip->loops = 2;
    whole.Clip().clip->length = 10; // at double speed
    Body broken = whole;
    const SceneTrack row = broken.Track("Motion");
    QVERIFY(BreakClip(broken.scene, row.id, row.keys[0].id, kFirst + 14));
    QCOMPARE(broken.Track("Motion").keys.size(), 3);
    for (int frame = kFirst; frame <= kFirst + 20; ++frame)
        COMPARE_NEAR(broken.Seen(frame), whole.Seen(frame));
}

void tst_FigurePose::blendsOutOfRest()
{
    Body body;
    body.Blend(kFirst, BlendDirection::OutOf, 8);
    COMPARE_NEAR(body.ArmAngle(kFirst), 0.0);
    COMPARE_NEAR(body.ArmAngle(kFirst + 2), 1.0); // a quarter of 4 degrees
    COMPARE_NEAR(body.ArmAngle(kFirst + 4), 4.0); // half of 8
    COMPARE_NEAR(body.ArmAngle(kFirst + 8), 16.0);
    COMPARE_NEAR(body.ArmAngle(kFirst + 9), 18.0);
    QVERIFY(body.At(0) == body.At(kFirst)); // held before
    // The height of the rest: its lowest joint as low as the lowest of the first sample.
    COMPARE_NEAR(body.At(kFirst + 4).positions[0].y(), (5.0 + 9.0) / 2);
}

void tst_FigurePose::blendsBackIntoRest()
{
    Body body;
    const int last = kFirst + kPassLength;
    body.Blend(last, BlendDirection::Into, 10);
    COMPARE_NEAR(body.ArmAngle(last - 10), 20.0);
    COMPARE_NEAR(body.ArmAngle(last - 5), 15.0); // half of 30
    COMPARE_NEAR(body.ArmAngle(last), 0.0);
    QVERIFY(body.At(last + 50) == body.At(last));
}

void tst_FigurePose::blendsFromOneClipIntoTheNext()
{
    const int meeting = kFirst + kPassLength;
    Body out;
    out.AddClip(meeting);
    out.Blend(meeting, BlendDirection::OutOf, 4);
    COMPARE_NEAR(out.ArmAngle(meeting), 38.0); // the first clip's last frame before the second's
    COMPARE_NEAR(out.ArmAngle(meeting + 2), (38.0 + 4.0) / 2);
    COMPARE_NEAR(out.ArmAngle(meeting + 4), 8.0);
    Body into;
    into.AddClip(meeting);
    into.Blend(meeting, BlendDirection::Into, 4);
    COMPARE_NEAR(into.ArmAngle(meeting - 4), 32.0);
    COMPARE_NEAR(into.ArmAngle(meeting - 2), (36.0 + 0.0) / 2);
    COMPARE_NEAR(into.ArmAngle(meeting), 0.0);
    COMPARE_NEAR(into.ArmAngle(meeting + 3), 6.0);
}

void tst_FigurePose::blendsWithinAClipAreLeftOut()
{
    Body body;
    const Body plain;
    body.Blend(kFirst + 5, BlendDirection::OutOf, 8);
    body.Blend(kFirst + 15, BlendDirection::Into, 8);
    for (int frame = 0; frame < 70; ++frame)
        QVERIFY(body.At(frame) == plain.At(frame));
}

void tst_FigurePose::aMutedRowOfBlendsIsLeftOut()
{
    Body body;
    body.Blend(kFirst, BlendDirection::OutOf, 8);
    body.Track("MotionBlend").muted = true;
    COMPARE_NEAR(body.ArmAngle(kFirst + 4), 8.0);
}

void tst_FigurePose::restsWithoutAClip()
{
    Body body;
    body.Track("Motion").keys.clear();
    for (const int frame : {0, 40, 100})
        QVERIFY(body.At(frame) == RestPose(body.scene.motion));
    body.scene.tracks.clear();
    QVERIFY(body.At(40) == RestPose(body.scene.motion));
}

void tst_FigurePose::restsWhereTheMotionHasCarriedIt()
{
    Body body;
    body.Blend(kFirst + kPassLength, BlendDirection::Into, 10);
    QVERIFY(IsAt(body.At(kFirst + kPassLength).positions[0], {20, 5, 0}));
}

void tst_FigurePose::restsFacingTheWayItWent()
{
    Body body;
    Motion& motion = body.scene.motion;
    motion.joints[0].channels = {Channel::YRotation, Channel::XRotation, Channel::ZRotation};
    for (int sample = 0; sample < motion.sampleCount; ++sample) {
        motion.samples[sample * motion.channelCount] = 90;     // to the side
        motion.samples[sample * motion.channelCount + 1] = 40; // and bent down
        motion.samples[sample * motion.channelCount + 2] = 0;
    }
    body.Blend(kFirst + kPassLength, BlendDirection::Into, 10);
    const FigurePose pose = body.At(kFirst + kPassLength);
    QVERIFY(IsAt(pose.positions[1] - pose.positions[0], {0, 0, -1}));
    QVERIFY(IsAt(pose.rotations[0].rotatedVector({0, 1, 0}), {0, 1, 0}));
}

void tst_FigurePose::aMutedMotionRests()
{
    Body body;
    body.Track("Motion").muted = true;
    COMPARE_NEAR(body.ArmAngle(kFirst + 10), 0.0);
    COMPARE_NEAR(body.At(kFirst + 10).positions[0].y(), 5.0);
    body.Track("Motion").muted = false;
    body.scene.tracks[0].muted = true; // the root above it
    COMPARE_NEAR(body.ArmAngle(kFirst + 10), 0.0);
}

void tst_FigurePose::aMutedJointIsNotTurned()
{
    Body body;
    body.Track("Arm").muted = true;
    COMPARE_NEAR(body.ArmAngle(kFirst + 10), 0.0);
    COMPARE_NEAR(body.At(kFirst + 10).positions[0].y(), 15.0); // the others go on
}

void tst_FigurePose::aSoloedJointIsTheOnlyOneTurned()
{
    Body body;
    body.Track("Arm").soloed = true;
    COMPARE_NEAR(body.ArmAngle(kFirst + 10), 20.0);
    COMPARE_NEAR(body.At(kFirst + 10).positions[0].y(), 5.0);
}

void tst_FigurePose::jointsOfOneNameHaveRowsOfTheirOwn()
{
    Body body;
    body.scene.motion.joints[0].name =
        QStringLiteral("Arm"); // the second arm is the one that turns
    body.Track("Root").name = QStringLiteral("Arm");
    SceneTrack& first = body.scene.tracks[3];
    SceneTrack& second = body.scene.tracks[4];
    first.muted = true;
    COMPARE_NEAR(body.ArmAngle(kFirst + 10), 20.0);
    first.muted = false;
    second.muted = true;
    COMPARE_NEAR(body.ArmAngle(kFirst + 10), 0.0);
    second.muted = false;
    first.soloed = true;
    COMPARE_NEAR(body.ArmAngle(kFirst + 10), 0.0);
    first.soloed = false;
    second.soloed = true;
    COMPARE_NEAR(body.ArmAngle(kFirst + 10), 20.0);
}

void tst_FigurePose::rowsElsewhereOfAJointsNameAreOthers()
{
    Body body;
    SceneTrack other = Body::Row(TrackKind::Key, "Arm", kNoTrack);
    other.muted = true;
    body.scene.AddTrack(other);
    body.scene.tracks.move(body.scene.tracks.size() - 1, 0);
    COMPARE_NEAR(body.ArmAngle(kFirst + 10), 20.0);
}

void tst_FigurePose::aSoloedMotionMovesAllJoints()
{
    Body body;
    const FigurePose before = body.At(kFirst + 10);
    body.Track("Motion").soloed = true;
    QVERIFY(body.At(kFirst + 10) == before);
}

void tst_FigurePose::restsWhileTheFaceIsSoloed()
{
    Body body;
    SceneTrack lips = Body::Row(TrackKind::Viseme, "Lips", kNoTrack);
    lips.soloed = true;
    body.scene.AddTrack(lips);
    COMPARE_NEAR(body.ArmAngle(kFirst + 10), 0.0);
    COMPARE_NEAR(body.At(kFirst + 10).positions[0].y(), 5.0);
}

void tst_FigurePose::soundsOnTheRowPoseNothing()
{
    Body body;
    body.AddClip(35).sound = QStringLiteral("/line.wav");
    COMPARE_NEAR(body.Seen(40), 10.0);
}

void tst_FigurePose::aSceneWithoutAMotionHasNoFigure()
{
    QVERIFY(FigureAt(Scene(), 3).positions.isEmpty());
    QCOMPARE(BuildOf(Motion()).height, 0.0F);
    Body body;
    body.scene.motion.sampleCount = 0;
    body.scene.motion.samples.clear();
    QVERIFY(body.At(40) == RestPose(body.scene.motion));
}

void tst_FigurePose::standsOnTheGround()
{
    ImportError error;
    const auto scene = LoadScene({SamplePath(QStringLiteral("stroll.bvh"))}, error);
    QVERIFY(scene);
    const FigureBuild build = BuildOf(scene->motion);
    const FigurePose rest = RestPose(scene->motion);
    float lowest = rest.positions[0].y();
    for (const QVector3D& position : rest.positions)
        lowest = std::min(lowest, position.y());
    COMPARE_NEAR(lowest, double(build.ground));
    QVERIFY(build.height > 15);
}

void tst_FigurePose::posesTheSampleWalk()
{
    ImportError error;
    const auto scene = LoadScene({SamplePath(QStringLiteral("stroll.bvh"))}, error);
    QVERIFY(scene);
    QSet<float> ways;
    for (int frame = 12; frame < 78; ++frame) { // between the blends
        const FigurePose pose = FigureAt(*scene, frame);
        QCOMPARE(pose.positions.size(), scene->motion.joints.size());
        ways.insert(pose.positions[0].z());
    }
    QVERIFY(ways.size() == 66); // it walks on at every frame
}

QTEST_MAIN(tst_FigurePose)
#include "tst_FigurePose.moc"
