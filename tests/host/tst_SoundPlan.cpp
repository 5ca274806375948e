#include "playback/SoundPlan.h"

#include <QtTest>

using namespace host;

namespace {

const QString kPath = QStringLiteral("/a/hello.wav");

SceneKey Clip(int frame, int length, int loops = 1, int leadIn = 0)
{
    SceneKey key;
    key.frame = frame;
    key.clip = ClipSpan{length, loops, leadIn, length, length};
    key.sound = kPath;
    return key;
}

SceneTrack Row(const QVector<SceneKey>& keys, TrackKind kind = TrackKind::Clip)
{
    SceneTrack row;
    row.kind = kind;
    row.keys = keys;
    return row;
}

Scene SceneOf(const QVector<SceneTrack>& rows)
{
    Scene scene;
    scene.frameRate = 10;
    scene.frameCount = 1000;
    for (const SceneTrack& row : rows)
        scene.AddTrack(row);
    return scene;
}

SoundPlan Plan(double start, double end, double offset = 0)
{
    return {{kPath, start, end, offset}};
}

} // namespace

class tst_SoundPlan : public QObject
{
    Q_OBJECT

private slots:
    void aClipIsHeardOnAllItsFrames();
    void eachPassOfALoopStartsTheSoundAgain();
    void aLeadInIsLeftOut();
    void theNextClipEndsTheOneBefore();
    void theNextClipEndsALoopToo();
    void theSceneEndsEverySound();
    void clipsWithoutASoundAreSilent();
    void onlyRowsOfClipsAreHeard();
    void mutedRowsAreSilent();
    void soloedRowsSilenceAllOthers();
    void aSoloedRowThatIsMutedIsSilent();
};

void tst_SoundPlan::aClipIsHeardOnAllItsFrames()
{
    QVERIFY(SoundsOf(SceneOf({Row({Clip(20, 9)})})) == Plan(2, 3)); // the ten frames 20 to 29
}

void tst_SoundPlan::eachPassOfALoopStartsTheSoundAgain()
{
    const SoundPlan plan = SoundsOf(SceneOf({Row({Clip(0, 10, 3)})}));
    QVERIFY(plan == Plan(0, 1) + Plan(1, 2) + Plan(2, 3.1));
}

void tst_SoundPlan::aLeadInIsLeftOut()
{
    QVERIFY(SoundsOf(SceneOf({Row({Clip(0, 9, 1, 5)})})) == Plan(0, 1, 0.5));
}

void tst_SoundPlan::theNextClipEndsTheOneBefore()
{
    const SoundPlan plan = SoundsOf(SceneOf({Row({Clip(0, 29), Clip(10, 9)})}));
    QVERIFY(plan == Plan(0, 1) + Plan(1, 2));
}

void tst_SoundPlan::theNextClipEndsALoopToo()
{
    const SoundPlan plan = SoundsOf(SceneOf({Row({Clip(0, 10, 9999), Clip(15, 9)})}));
    QVERIFY(plan == Plan(0, 1) + Plan(1, 1.5) + Plan(1.5, 2.5));
}

void tst_SoundPlan::theSceneEndsEverySound()
{
    Scene scene = SceneOf({Row({Clip(0, 10, 9999)})});
    scene.frameCount = 15;
    QVERIFY(SoundsOf(scene) == Plan(0, 1) + Plan(1, 1.5));
}

void tst_SoundPlan::clipsWithoutASoundAreSilent()
{
    SceneKey silent = Clip(0, 9);
    silent.sound.clear();
    SceneKey point = Clip(20, 9);
    point.clip.reset();
    QVERIFY(SoundsOf(SceneOf({Row({silent, point})})).isEmpty());
}

void tst_SoundPlan::onlyRowsOfClipsAreHeard()
{
    QVERIFY(SoundsOf(SceneOf({Row({Clip(0, 9)}, TrackKind::Viseme)})).isEmpty());
}

void tst_SoundPlan::mutedRowsAreSilent()
{
    SceneTrack muted = Row({Clip(0, 9)});
    muted.muted = true;
    QVERIFY(SoundsOf(SceneOf({muted, Row({Clip(20, 9)})})) == Plan(2, 3));
}

void tst_SoundPlan::soloedRowsSilenceAllOthers()
{
    SceneTrack soloed = Row({Clip(0, 9)});
    soloed.soloed = true;
    QVERIFY(SoundsOf(SceneOf({soloed, Row({Clip(20, 9)})})) == Plan(0, 1));
    soloed.kind = TrackKind::Key; // a row without sounds as well
    QVERIFY(SoundsOf(SceneOf({soloed, Row({Clip(20, 9)})})).isEmpty());
}

void tst_SoundPlan::aSoloedRowThatIsMutedIsSilent()
{
    SceneTrack row = Row({Clip(0, 9)});
    row.soloed = row.muted = true;
    QVERIFY(SoundsOf(SceneOf({row})).isEmpty());
}

QTEST_MAIN(tst_SoundPlan)
#include "tst_SoundPlan.moc"
