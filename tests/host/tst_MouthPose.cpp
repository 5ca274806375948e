#include "TestFiles.h"

#include "document/MouthShapes.h"
#include "import/SceneBuilder.h"
#include "preview/Blink.h"
#include "preview/MouthPose.h"

using namespace host;

namespace {

constexpr int kOpen = 4;  // D
constexpr int kRound = 5; // E
constexpr int kTeeth = 2; // B

SceneKey KeyAt(int frame, int shape = 0)
{
    SceneKey key;
    key.frame = frame;
    key.mouthShape = shape;
    return key;
}

/// A face whose lips hold their shapes so long that the blends between them are clear of each
/// other: from frame 10 on D, from 20 on E, from 30 on B, to the clip's end at 40.
struct Face
{
    Scene scene;

    Face()
    {
        scene.frameCount = 200;
        SceneTrack root;
        SceneTrack lips;
        lips.kind = TrackKind::Viseme;
        lips.parent = scene.AddTrack(root);
        SceneKey clip = KeyAt(10);
        clip.clip = ClipSpan{30, 1, 0, 30, 30};
        clip.subKeys = {KeyAt(0, kOpen), KeyAt(10, kRound), KeyAt(20, kTeeth)};
        lips.keys = {clip};
        scene.AddTrack(lips);
        SceneTrack blends;
        blends.kind = TrackKind::Transition;
        blends.parent = lips.parent;
        scene.AddTrack(blends);
    }

    SceneTrack& Root() { return scene.tracks[0]; }
    SceneTrack& Lips() { return scene.tracks[1]; }
    SceneTrack& Blends() { return scene.tracks[2]; }
    SceneKey& Clip() { return Lips().keys[0]; }
    void Blend(int frame, BlendDirection direction, int frames)
    {
        SceneKey key = KeyAt(frame);
        key.transition = Transition{direction, frames};
        Blends().keys.append(key);
    }
    MouthPose At(int frame) const { return MouthAt(scene, frame); }
};

bool IsShape(const MouthPose& pose, int shape)
{
    return pose == PoseOfShape(shape);
}

bool IsHalfway(const MouthPose& pose, int from, int to)
{
    return pose == Blended(PoseOfShape(from), PoseOfShape(to), 0.5F);
}

} // namespace

class tst_MouthPose : public QObject
{
    Q_OBJECT

private slots:
    void everyShapeLooksDifferent();
    void aNumberThatIsNoShapeIsTheClosedMouth();
    void blendsEveryMovementByTheShare();
    void showsEachShapeFromItsFrameOn();
    void isClosedOutsideTheClip();
    void comesToTheNextShapeJustAheadOfIt();
    void keepsEveryShapeOfOneFrame();
    void aBlendOutOfAKeyStretchesTheChangeBehindIt();
    void aBlendIntoAKeyStretchesTheChangeBeforeIt();
    void aBlendOfNoFramesIsACut();
    void repeatsItsShapesInEveryPass();
    void theNextClipTakesOver();
    void shapesAheadOfTheFirstKeyAreClosed();
    void rests_data();
    void rests();
    void aMutedRowOfBlendsIsLeftOut();
    void aSceneWithoutAFaceHasAClosedMouth();
    void showsEveryCueOfTheSampleLine();
    void costsNextToNothing();
    void blinksNowAndThenAndAlwaysTheSame();
    void blinksAsOftenAtAnotherRate();
};

void tst_MouthPose::everyShapeLooksDifferent()
{
    for (int a = 0; a < kMouthShapeCount; ++a) {
        for (int b = a + 1; b < kMouthShapeCount; ++b)
            QVERIFY2(PoseOfShape(a) != PoseOfShape(b), qPrintable(QString::number(b)));
    }
    QCOMPARE(PoseOfShape(kClosedMouth).jaw, 0.0F);
    QVERIFY(PoseOfShape(kOpen).jaw > PoseOfShape(kRound).jaw);
    QVERIFY(PoseOfShape(kRound).width < PoseOfShape(kTeeth).width);
}

void tst_MouthPose::aNumberThatIsNoShapeIsTheClosedMouth()
{
    for (const int shape : {-1, kMouthShapeCount, 1000000})
        QVERIFY(IsShape(PoseOfShape(shape), kClosedMouth));
}

void tst_MouthPose::blendsEveryMovementByTheShare()
{
    const MouthPose a{0, 1, 0, 0, 0, 1, 0, 0, 1};
    const MouthPose b{1, 2, 1, 1, 1, 0, 1, 1, 0};
    QVERIFY(Blended(a, b, 0) == a);
    QVERIFY(Blended(a, b, 1) == b);
    const MouthPose quarter{0.25F, 1.25F, 0.25F, 0.25F, 0.25F, 0.75F, 0.25F, 0.25F, 0.75F};
    QVERIFY(Blended(a, b, 0.25F) == quarter);
}

void tst_MouthPose::showsEachShapeFromItsFrameOn()
{
    const Face face;
    for (int frame = 10; frame <= 40; ++frame) {
        const int shape = frame < 20 ? kOpen : frame < 30 ? kRound : kTeeth;
        const bool isBlended = frame == 19 || frame == 29 || frame == 40;
        QVERIFY2(IsShape(face.At(frame), shape) != isBlended, qPrintable(QString::number(frame)));
    }
}

void tst_MouthPose::isClosedOutsideTheClip()
{
    const Face face;
    for (const int frame : {-1000, -1, 0, 8, 41, 42, 199, 2000000000})
        QVERIFY2(IsShape(face.At(frame), kClosedMouth), qPrintable(QString::number(frame)));
}

void tst_MouthPose::comesToTheNextShapeJustAheadOfIt()
{
    const Face face;
    QVERIFY(IsHalfway(face.At(9), kClosedMouth, kOpen));
    QVERIFY(IsHalfway(face.At(19), kOpen, kRound));
    QVERIFY(IsHalfway(face.At(40), kTeeth, kClosedMouth)); // the clip's last frame
}

void tst_MouthPose::keepsEveryShapeOfOneFrame()
{
    Face face;
    face.Clip().subKeys = {KeyAt(0, kOpen), KeyAt(1, kRound), KeyAt(2, kTeeth), KeyAt(3, kOpen)};
    QVERIFY(IsShape(face.At(10), kOpen));
    QVERIFY(IsShape(face.At(11), kRound));
    QVERIFY(IsShape(face.At(12), kTeeth));
    QVERIFY(IsShape(face.At(13), kOpen));
}

void tst_MouthPose::aBlendOutOfAKeyStretchesTheChangeBehindIt()
{
    Face face;
    face.Blend(20, BlendDirection::OutOf, 4);
    QVERIFY(IsShape(face.At(19), kOpen)); // the change does not begin earlier than stated
    QVERIFY(IsShape(face.At(20), kOpen));
    QVERIFY(face.At(21) == Blended(PoseOfShape(kOpen), PoseOfShape(kRound), 0.25F));
    QVERIFY(IsHalfway(face.At(22), kOpen, kRound));
    QVERIFY(IsShape(face.At(24), kRound));
}

void tst_MouthPose::aBlendIntoAKeyStretchesTheChangeBeforeIt()
{
    Face face;
    face.Blend(30, BlendDirection::Into, 8);
    QVERIFY(IsShape(face.At(22), kRound));
    QVERIFY(IsHalfway(face.At(26), kRound, kTeeth));
    QVERIFY(face.At(28) == Blended(PoseOfShape(kRound), PoseOfShape(kTeeth), 0.75F));
    QVERIFY(IsShape(face.At(30), kTeeth));
}

void tst_MouthPose::aBlendOfNoFramesIsACut()
{
    for (const BlendDirection direction : {BlendDirection::OutOf, BlendDirection::Into}) {
        Face face;
        face.Blend(20, direction, 0);
        QVERIFY(IsShape(face.At(19), kOpen));
        QVERIFY(IsShape(face.At(20), kRound));
    }
}

void tst_MouthPose::repeatsItsShapesInEveryPass()
{
    Face face;
    face.Clip().clip->loops = 3;
    for (int frame = 10; frame < 40; ++frame) {
        QVERIFY(face.At(frame) == face.At(frame + 30));
        if (frame > 10 && frame < 39) // the last pass ends in rest
            QVERIFY(face.At(frame) == face.At(frame + 60));
    }
    QVERIFY(IsHalfway(face.At(39), kTeeth, kOpen)); // on into the next pass
    QVERIFY(IsShape(face.At(40), kOpen));
    QVERIFY(IsShape(face.At(101), kClosedMouth));
}

void tst_MouthPose::theNextClipTakesOver()
{
    Face face;
    SceneKey next = face.Clip();
    next.frame = 25;
    face.Lips().keys.append(next);
    QVERIFY(IsShape(face.At(23), kRound));
    QVERIFY(IsHalfway(face.At(24), kRound, kOpen));
    QVERIFY(IsShape(face.At(25), kOpen));
    QVERIFY(IsShape(face.At(36), kRound));
}

void tst_MouthPose::shapesAheadOfTheFirstKeyAreClosed()
{
    Face face;
    face.Clip().subKeys = {KeyAt(5, kOpen)};
    QVERIFY(IsShape(face.At(12), kClosedMouth));
    QVERIFY(IsShape(face.At(15), kOpen));
    face.Clip().subKeys.clear();
    QVERIFY(IsShape(face.At(15), kClosedMouth));
}

void tst_MouthPose::rests_data()
{
    QTest::addColumn<int>("muted");
    QTest::addColumn<int>("soloed");
    QTest::addColumn<bool>("speaks");
    constexpr int kNone = -1;
    QTest::newRow("nothing set") << kNone << kNone << true;
    QTest::newRow("muted") << 1 << kNone << false;
    QTest::newRow("root muted") << 0 << kNone << false;
    QTest::newRow("another row muted") << 2 << kNone << true;
    QTest::newRow("soloed") << kNone << 1 << true;
    QTest::newRow("root soloed") << kNone << 0 << true;
    QTest::newRow("another row soloed") << kNone << 2 << false;
    QTest::newRow("soloed and muted") << 1 << 1 << false;
}

void tst_MouthPose::rests()
{
    QFETCH(int, muted);
    QFETCH(int, soloed);
    QFETCH(bool, speaks);
    Face face;
    if (muted >= 0)
        face.scene.tracks[muted].muted = true;
    if (soloed >= 0)
        face.scene.tracks[soloed].soloed = true;
    QVERIFY(IsShape(face.At(15), speaks ? kOpen : kClosedMouth));
}

void tst_MouthPose::aMutedRowOfBlendsIsLeftOut()
{
    Face face;
    face.Blend(20, BlendDirection::OutOf, 6);
    QVERIFY(!IsShape(face.At(20), kRound));
    face.Blends().muted = true;
    QVERIFY(IsShape(face.At(20), kRound));
}

void tst_MouthPose::aSceneWithoutAFaceHasAClosedMouth()
{
    QVERIFY(IsShape(MouthAt(Scene(), 5), kClosedMouth));
}

void tst_MouthPose::showsEveryCueOfTheSampleLine()
{
    const Scene scene = BuildScene(
        Motion(), {QStringLiteral("line"),
                   2,
                   {{0, 0.5, kClosedMouth}, {0.5, 1, kOpen}, {1, 1.5, kRound}, {1.5, 2, 0}}});
    QVERIFY(IsShape(MouthAt(scene, 15), kOpen));
    QVERIFY(IsShape(MouthAt(scene, 30), kRound));
    // The mouth falls shut over the six frames that the builder gives it.
    QVERIFY(IsShape(MouthAt(scene, 45), kRound));
    QVERIFY(IsHalfway(MouthAt(scene, 48), kRound, kClosedMouth));
    QVERIFY(IsShape(MouthAt(scene, 51), kClosedMouth));
}

/// A line of an hour: finding the shape of a frame must not walk through all of them.
void tst_MouthPose::costsNextToNothing()
{
    Face face;
    constexpr int kHour = 108000;
    face.Clip().clip = ClipSpan{kHour, 1, 0, kHour, kHour};
    face.Clip().subKeys.clear();
    for (int frame = 0; frame < kHour; frame += 3)
        face.Clip().subKeys.append(KeyAt(frame, frame % 9));
    QElapsedTimer timer;
    timer.start();
    constexpr int kLooks = 1000;
    float sum = 0;
    for (int i = 0; i < kLooks; ++i)
        sum += face.At(10 + i * 101).jaw;
    QVERIFY(sum > 0);
    QVERIFY2(timer.elapsed() < kLooks, qPrintable(QString::number(timer.elapsed())));
}

void tst_MouthPose::blinksNowAndThenAndAlwaysTheSame()
{
    QVector<int> starts;
    int shut = 0;
    for (int frame = 0; frame < 30 * 60; ++frame) {
        const float lids = LidsAt(frame, 30);
        QVERIFY(lids >= 0 && lids <= 1);
        QCOMPARE(LidsAt(frame, 30), lids);
        if (lids > 0 && (frame == 0 || LidsAt(frame - 1, 30) == 0))
            starts.append(frame);
        shut += lids == 1 ? 1 : 0;
    }
    QVERIFY2(starts.size() > 18 && starts.size() < 30, qPrintable(QString::number(starts.size())));
    QVERIFY(shut >= starts.size()); // every blink closes the eyes
    QSet<int> pauses;
    for (int i = 1; i < starts.size(); ++i)
        pauses.insert(starts[i] - starts[i - 1]);
    QVERIFY(pauses.size() > 5);
}

void tst_MouthPose::blinksAsOftenAtAnotherRate()
{
    const auto blinks = [](int rate) {
        int count = 0;
        for (int frame = 1; frame < rate * 60; ++frame)
            count += LidsAt(frame, rate) > 0 && LidsAt(frame - 1, rate) == 0 ? 1 : 0;
        return count;
    };
    QCOMPARE(blinks(60), blinks(30));
    QCOMPARE(blinks(24), blinks(30));
    QCOMPARE(LidsAt(10, 0), LidsAt(10, 0)); // a rate of nothing does no harm
}

QTEST_MAIN(tst_MouthPose)
#include "tst_MouthPose.moc"
