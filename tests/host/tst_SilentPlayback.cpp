#include "playback/Playback.h"

#include <QtTest>

using namespace host;

/// Playback in a program that was built without sound: with the output that stands in then.
class tst_SilentPlayback : public QObject
{
    Q_OBJECT

private slots:
    void playsOnAndSaysOnceWhyNothingIsHeard();
    void saysNothingOfASceneWithoutSounds();
};

namespace {

Scene SceneWithSound(bool hasSound)
{
    Scene scene;
    scene.frameRate = 100;
    scene.frameCount = 1000;
    SceneTrack row;
    row.kind = TrackKind::Clip;
    SceneKey clip;
    clip.clip = ClipSpan{999, 1, 0, 999, 999};
    clip.sound = hasSound ? QStringLiteral("/a/hello.wav") : QString();
    row.keys = {clip};
    scene.AddTrack(row);
    return scene;
}

/// What is told while the scene is played twice, up to frame 5.
QStringList ToldWhilePlaying(const Scene& scene)
{
    EditSession session;
    session.Restart(scene);
    const MonotonicClock clock;
    const std::unique_ptr<SoundOutput> output = MakeSoundOutput();
    Playback playback(session, clock, *output);
    QStringList told;
    QObject::connect(&playback, &Playback::Told, &playback,
                     [&told](const QString& text) { told.append(text); });
    for (int i = 0; i < 2; ++i) {
        playback.Play();
        if (!QTest::qWaitFor([&playback] { return playback.Frame() >= 5; }, 30000))
            told.append(QStringLiteral("it does not play"));
        playback.Stop();
    }
    return told;
}

} // namespace

void tst_SilentPlayback::playsOnAndSaysOnceWhyNothingIsHeard()
{
    QCOMPARE(ToldWhilePlaying(SceneWithSound(true)),
             QStringList{QStringLiteral("This program was built without sound: playing silently")});
}

void tst_SilentPlayback::saysNothingOfASceneWithoutSounds()
{
    QCOMPARE(ToldWhilePlaying(SceneWithSound(false)), QStringList());
}

QTEST_MAIN(tst_SilentPlayback)
#include "tst_SilentPlayback.moc"
