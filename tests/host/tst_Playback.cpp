#include "playback/Playback.h"

#include <QtTest>

using namespace host;

namespace {

class HandClock : public PlaybackClock
{
public:
    qint64 Nanoseconds() const override { return now; }
    void Pass(double seconds) { now += static_cast<qint64>(seconds * 1e9); }

    qint64 now = 12345; // clocks start anywhere
};

/// Notes what it is asked for.
class NotedSound : public SoundOutput
{
public:
    QString Start(const SoundPlan& plan, double seconds) override
    {
        notes.append(QStringLiteral("%1 from %2").arg(plan.size()).arg(seconds, 0, 'f', 3));
        isOn = true;
        startPlace = seconds;
        startTime = clock ? clock->now : 0;
        return problem;
    }
    void Stop() override
    {
        if (isOn)
            notes.append(QStringLiteral("stop"));
        isOn = false;
    }
    std::optional<double> Place() const override
    {
        if (!clock || !isOn)
            return std::nullopt;
        return startPlace + static_cast<double>(clock->now - startTime) / 1e9 - delay;
    }
    /// It ran dry for that long, and goes on where it was.
    void Stall(double seconds) { startPlace -= seconds; }

    const HandClock* clock = nullptr; ///< by which it tells its place, if it does
    double delay = 0;                 ///< by which it is always late
    double startPlace = 0;
    qint64 startTime = 0;
    QStringList notes;
    QString problem;
    bool isOn = false;
};

Scene SceneOf(int frames, int rate = 10)
{
    Scene scene;
    scene.frameRate = rate;
    scene.frameCount = frames;
    scene.timeMark = {0, frames - 1};
    return scene;
}

Scene WithSound(Scene scene, int frame = 0, int length = 50)
{
    SceneTrack row;
    row.kind = TrackKind::Clip;
    SceneKey key;
    key.frame = frame;
    key.clip = ClipSpan{length, 1, 0, length, length};
    key.sound = QStringLiteral("/a/hello.wav");
    row.keys = {key};
    scene.AddTrack(row);
    return scene;
}

/// A playback with all that surrounds it; frames are heard of as from a timeline.
struct Player
{
    explicit Player(const Scene& scene)
    {
        session.Restart(scene);
        QObject::connect(&playback, &Playback::FrameReached, &playback, [this](int frame) {
            frames.append(frame);
            playback.FollowFrame(frame); // as the timeline tells everybody
        });
        QObject::connect(&playback, &Playback::Told, &playback,
                         [this](const QString& text) { told.append(text); });
    }

    /// Time passes, and the timer wakes the playback once at the end of it.
    void Pass(double seconds)
    {
        clock.Pass(seconds);
        playback.Advance();
    }
    QVector<int> TakeFrames() { return std::exchange(frames, {}); }
    QStringList TakeNotes() { return std::exchange(sound.notes, {}); }

    EditSession session;
    HandClock clock;
    NotedSound sound;
    Playback playback{session, clock, sound};
    QVector<int> frames;
    QStringList told;
};

using Frames = QVector<int>;
using State = Playback::State;

} // namespace

class tst_Playback : public QObject
{
    Q_OBJECT

private slots:
    void showsEachFrameAtItsTime();
    void goesByTheScenesFrameRate_data();
    void goesByTheScenesFrameRate();
    void leavesOutFramesThatThereIsNoTimeFor();
    void neverLagsHoweverLateItIsWoken();
    void endsOnTheLastFrameAfterItsTime();
    void playsFromTheStartAgainAtTheEnd();
    void pauseStaysAndPlayGoesOn();
    void stopGoesBackToWhereTheUserWas();
    void stopAtRestGoesBackToo();
    void toggleChangesBetweenPlayAndPause();
    void loopsOverTheTimeMark();
    void loopsWithoutLosingTime();
    void entersTheMarkFromBefore();
    void beginsAtTheMarkFromBehind();
    void followsAMarkThatIsMovedWhilePlaying();
    void aMarkTheWrongWayRoundIsTurned();
    void aMarkBeyondTheSceneIsCut();
    void aMarkOfOneFrameStaysThere();
    void playsOnBehindTheMarkWhenLoopingIsSwitchedOff();
    void stepsPauseAndStopAtTheEnds();
    void goesToTheEndsOfWhatIsPlayed();
    void scrubbingMovesThePlayhead();
    void theSameFrameToldAgainLosesNoTime();
    void anotherFrameRateGoesOnFromTheSamePlace();
    void aShorterSceneEndsThePlaying();
    void aShorterSceneLeavesWhereStopGoes();
    void anotherSceneEndsThePlaying();
    void aSceneWithoutFramesCannotBePlayed();
    void soundStartsWithTheFrameAndStopsWithIt();
    void soundStartsAgainWithEachLoop();
    void soundLosesNothingOfItsBeginning();
    void aMarkOfOneFrameIsSilent();
    void soundFollowsScrubbingOnceAFrame();
    void soundFollowsEdits();
    void soundThatFellBehindIsSetAnew();
    void soundOfASlowDeviceIsSetAnewOnce();
    void aDeviceThatStandsStillIsTriedEverMoreSeldom();
    void mutedRowsAreNotHeard();
    void saysOnceWhyNothingIsHeard();
    void noTimerRunsAtRest();
    void aTimerWakesItForTheNextFrame();
    void playsInRealTime();
};

void tst_Playback::showsEachFrameAtItsTime()
{
    Player player(SceneOf(100));
    player.playback.Play();
    QCOMPARE(player.playback.CurrentState(), State::Playing);
    player.Pass(0.05);
    QCOMPARE(player.TakeFrames(), Frames{});
    player.Pass(0.1);
    player.Pass(0.1);
    player.Pass(0.04); // still within frame 2
    player.Pass(0.02);
    QCOMPARE(player.TakeFrames(), (Frames{1, 2, 3}));
}

void tst_Playback::goesByTheScenesFrameRate_data()
{
    QTest::addColumn<int>("rate");
    for (const int rate : {1, 24, 25, 30, 60, 120})
        QTest::addRow("%d a second", rate) << rate;
}

void tst_Playback::goesByTheScenesFrameRate()
{
    QFETCH(int, rate);
    Player player(SceneOf(10000, rate));
    player.playback.Play();
    player.Pass(10 + 0.5 / rate);
    QCOMPARE(player.TakeFrames(), Frames{10 * rate});
}

void tst_Playback::leavesOutFramesThatThereIsNoTimeFor()
{
    Player player(SceneOf(100));
    player.playback.Play();
    player.Pass(0.35);
    player.Pass(0.4);
    QCOMPARE(player.TakeFrames(), (Frames{3, 7}));
}

void tst_Playback::neverLagsHoweverLateItIsWoken()
{
    Player player(SceneOf(100000, 30));
    player.playback.Play();
    double passed = 0;
    for (int i = 0; i < 1000; ++i) { // late by another time at each frame
        const double late = 0.001 * (i * 37 % 90);
        player.Pass(late);
        passed += late;
        // A nanosecond's rounding may fall on either side of a frame's start.
        QVERIFY(std::abs(player.playback.Frame() - passed * 30) < 1.001);
    }
}

void tst_Playback::endsOnTheLastFrameAfterItsTime()
{
    Player player(SceneOf(5));
    player.playback.Play();
    player.Pass(0.45);
    QCOMPARE(player.playback.Frame(), 4);
    QVERIFY(player.playback.IsPlaying());
    player.Pass(0.1);
    QCOMPARE(player.playback.Frame(), 4);
    QCOMPARE(player.playback.CurrentState(), State::Stopped);
    player.Pass(5);
    QCOMPARE(player.TakeFrames(), Frames{4});
}

void tst_Playback::playsFromTheStartAgainAtTheEnd()
{
    Player player(SceneOf(5));
    player.playback.FollowFrame(4);
    player.playback.Play();
    QCOMPARE(player.TakeFrames(), Frames{0});
    player.Pass(0.15);
    QCOMPARE(player.TakeFrames(), Frames{1});
}

void tst_Playback::pauseStaysAndPlayGoesOn()
{
    Player player(SceneOf(100));
    player.playback.Play();
    player.Pass(0.35);
    player.playback.Pause();
    QCOMPARE(player.playback.CurrentState(), State::Paused);
    player.Pass(10);
    QCOMPARE(player.playback.Frame(), 3);
    player.playback.Play();
    player.Pass(0.15);
    QCOMPARE(player.playback.Frame(), 4);
}

void tst_Playback::stopGoesBackToWhereTheUserWas()
{
    Player player(SceneOf(100));
    player.playback.FollowFrame(20);
    player.playback.Play();
    player.Pass(0.35);
    player.playback.Stop();
    QCOMPARE(player.playback.CurrentState(), State::Stopped);
    QCOMPARE(player.TakeFrames(), (Frames{23, 20}));
    player.Pass(1);
    QCOMPARE(player.TakeFrames(), Frames{});
}

void tst_Playback::stopAtRestGoesBackToo()
{
    Player player(SceneOf(30));
    player.playback.FollowFrame(20);
    player.playback.Play();
    player.Pass(5);
    QCOMPARE(player.playback.Frame(), 29);
    player.playback.Stop();
    QCOMPARE(player.playback.Frame(), 20);
    player.playback.Stop();
    QCOMPARE(player.playback.Frame(), 20);
}

void tst_Playback::toggleChangesBetweenPlayAndPause()
{
    Player player(SceneOf(30));
    player.playback.Toggle();
    QCOMPARE(player.playback.CurrentState(), State::Playing);
    player.playback.Toggle();
    QCOMPARE(player.playback.CurrentState(), State::Paused);
    player.playback.Toggle();
    QCOMPARE(player.playback.CurrentState(), State::Playing);
}

void tst_Playback::loopsOverTheTimeMark()
{
    Scene scene = SceneOf(100);
    scene.timeMark = {10, 12};
    Player player(scene);
    player.playback.FollowFrame(10);
    player.playback.SetLooping(true);
    player.playback.Play();
    player.Pass(0.05);
    for (int i = 0; i < 7; ++i)
        player.Pass(0.1);
    QCOMPARE(player.TakeFrames(), (Frames{11, 12, 10, 11, 12, 10, 11}));
}

void tst_Playback::loopsWithoutLosingTime()
{
    Scene scene = SceneOf(100);
    scene.timeMark = {10, 16}; // seven frames
    Player player(scene);
    player.playback.FollowFrame(10);
    player.playback.SetLooping(true);
    player.playback.Play();
    player.Pass(0.05);
    for (int i = 0; i < 100; ++i)
        player.Pass(0.37); // most wakes leave frames out
    QCOMPARE(player.playback.Frame(), 10 + 370 % 7);
    player.Pass(70); // as when the computer slept
    QCOMPARE(player.playback.Frame(), 10 + 370 % 7);
}

void tst_Playback::entersTheMarkFromBefore()
{
    Scene scene = SceneOf(100);
    scene.timeMark = {10, 12};
    Player player(scene);
    player.playback.FollowFrame(8);
    player.playback.SetLooping(true);
    player.playback.Play();
    player.Pass(0.05);
    for (int i = 0; i < 6; ++i)
        player.Pass(0.1);
    QCOMPARE(player.TakeFrames(), (Frames{9, 10, 11, 12, 10, 11}));
}

void tst_Playback::beginsAtTheMarkFromBehind()
{
    Scene scene = SceneOf(100);
    scene.timeMark = {10, 12};
    Player player(scene);
    player.playback.FollowFrame(50);
    player.playback.SetLooping(true);
    player.playback.Play();
    QCOMPARE(player.TakeFrames(), Frames{10});
}

void tst_Playback::followsAMarkThatIsMovedWhilePlaying()
{
    Player player(SceneOf(100));
    player.playback.SetLooping(true);
    player.playback.FollowFrame(50);
    player.playback.Play();
    player.Pass(0.15);
    Scene scene = player.session.Current();
    scene.timeMark = {20, 30};
    player.session.Apply(QStringLiteral("Move Marker"), scene);
    player.Pass(0.1);
    QCOMPARE(player.playback.Frame(), 20);
    player.Pass(0.15);
    QCOMPARE(player.playback.Frame(), 21);
}

void tst_Playback::aMarkTheWrongWayRoundIsTurned()
{
    Scene scene = SceneOf(100);
    scene.timeMark = {12, 10};
    Player player(scene);
    player.playback.SetLooping(true);
    player.playback.FollowFrame(12);
    player.playback.Play();
    player.Pass(0.15);
    QCOMPARE(player.playback.Frame(), 10);
}

void tst_Playback::aMarkBeyondTheSceneIsCut()
{
    Scene scene = SceneOf(20);
    scene.timeMark = {18, 500};
    Player player(scene);
    player.playback.SetLooping(true);
    player.playback.FollowFrame(19);
    player.playback.Play();
    player.Pass(0.15);
    QCOMPARE(player.playback.Frame(), 18);
}

void tst_Playback::aMarkOfOneFrameStaysThere()
{
    Scene scene = SceneOf(20);
    scene.timeMark = {7, 7};
    Player player(scene);
    player.playback.SetLooping(true);
    player.playback.FollowFrame(7);
    player.playback.Play();
    for (int i = 0; i < 10; ++i)
        player.Pass(0.13);
    QCOMPARE(player.TakeFrames(), Frames{});
    QVERIFY(player.playback.IsPlaying());
}

void tst_Playback::playsOnBehindTheMarkWhenLoopingIsSwitchedOff()
{
    Scene scene = SceneOf(100);
    scene.timeMark = {10, 12};
    Player player(scene);
    player.playback.FollowFrame(12);
    player.playback.SetLooping(true);
    player.playback.Play();
    player.playback.SetLooping(false);
    player.Pass(0.35);
    QCOMPARE(player.playback.Frame(), 15);
    player.playback.SetLooping(true);
    player.Pass(0.1);
    QCOMPARE(player.playback.Frame(), 10);
}

void tst_Playback::stepsPauseAndStopAtTheEnds()
{
    Player player(SceneOf(5));
    player.playback.Play();
    player.Pass(0.25);
    player.playback.Step(1);
    QCOMPARE(player.playback.CurrentState(), State::Paused);
    QCOMPARE(player.playback.Frame(), 3);
    player.playback.Step(1);
    player.playback.Step(1);
    QCOMPARE(player.playback.Frame(), 4);
    player.playback.Step(-3);
    QCOMPARE(player.playback.Frame(), 1);
    player.playback.Step(-3);
    QCOMPARE(player.playback.Frame(), 0);
}

void tst_Playback::goesToTheEndsOfWhatIsPlayed()
{
    Scene scene = SceneOf(100);
    scene.timeMark = {10, 12};
    Player player(scene);
    player.playback.GotoEnd();
    QCOMPARE(player.playback.Frame(), 99);
    player.playback.GotoStart();
    QCOMPARE(player.playback.Frame(), 0);
    player.playback.SetLooping(true);
    player.playback.GotoEnd();
    QCOMPARE(player.playback.Frame(), 12);
    player.playback.GotoStart();
    QCOMPARE(player.playback.Frame(), 10);
    player.playback.Stop(); // this is where the user went
    QCOMPARE(player.playback.Frame(), 10);
}

void tst_Playback::scrubbingMovesThePlayhead()
{
    Player player(SceneOf(100));
    player.playback.Play();
    player.Pass(0.35);
    player.playback.FollowFrame(60);
    QVERIFY(player.playback.IsPlaying());
    player.Pass(0.25);
    QCOMPARE(player.playback.Frame(), 62);
    player.playback.Stop();
    QCOMPARE(player.playback.Frame(), 60);
}

/// As happens when the timeline is shown anew.
void tst_Playback::theSameFrameToldAgainLosesNoTime()
{
    Player player(SceneOf(100));
    player.playback.Play();
    for (int i = 0; i < 10; ++i) {
        player.Pass(0.075);
        player.playback.FollowFrame(player.playback.Frame());
    }
    QCOMPARE(player.playback.Frame(), 7);
}

void tst_Playback::anotherFrameRateGoesOnFromTheSamePlace()
{
    Player player(SceneOf(1000));
    player.playback.Play();
    player.Pass(1.05);
    Scene scene = player.session.Current();
    scene.frameRate = 20;
    player.session.Apply(QStringLiteral("Rate"), scene);
    player.Pass(1);
    QCOMPARE(player.playback.Frame(), 30);
}

void tst_Playback::aShorterSceneEndsThePlaying()
{
    Player player(SceneOf(100));
    player.playback.FollowFrame(50);
    player.playback.Play();
    player.session.Apply(QStringLiteral("Cut"), SceneOf(20));
    player.Pass(0.1);
    QCOMPARE(player.playback.CurrentState(), State::Stopped);
    QCOMPARE(player.playback.Frame(), 19);
    player.playback.Stop();
    QCOMPARE(player.playback.Frame(), 19);
}

void tst_Playback::aShorterSceneLeavesWhereStopGoes()
{
    Player player(SceneOf(100));
    player.playback.FollowFrame(20);
    player.playback.Play();
    player.Pass(5);
    player.playback.Pause();
    player.session.Apply(QStringLiteral("Cut"), SceneOf(50));
    player.playback.FollowFrame(49); // as the timeline holds it inside the scene
    player.playback.Stop();
    QCOMPARE(player.playback.Frame(), 20);
}

void tst_Playback::anotherSceneEndsThePlaying()
{
    Player player(WithSound(SceneOf(100)));
    player.playback.Play();
    player.Pass(0.05);
    player.session.Restart(SceneOf(50));
    QCOMPARE(player.playback.CurrentState(), State::Stopped);
    QVERIFY(!player.playback.IsTimerActive());
    QVERIFY(!player.sound.isOn);
}

void tst_Playback::aSceneWithoutFramesCannotBePlayed()
{
    Player player(SceneOf(0));
    player.playback.Play();
    QCOMPARE(player.playback.CurrentState(), State::Stopped);
    player.playback.GotoEnd();
    player.playback.Step(1);
    player.playback.Stop();
    QCOMPARE(player.playback.Frame(), 0);
}

void tst_Playback::soundStartsWithTheFrameAndStopsWithIt()
{
    Player player(WithSound(SceneOf(100)));
    player.playback.FollowFrame(20);
    player.playback.Play();
    player.playback.Advance();
    player.Pass(0.35);
    QCOMPARE(player.TakeNotes(), QStringList{QStringLiteral("1 from 2.000")});
    player.playback.Pause();
    QCOMPARE(player.TakeNotes(), QStringList{QStringLiteral("stop")});
    player.playback.Play();
    player.Pass(0.05); // when it starts late it starts where the frames are by then
    QCOMPARE(player.TakeNotes(), QStringList{QStringLiteral("1 from 2.300")});
}

void tst_Playback::soundStartsAgainWithEachLoop()
{
    Scene scene = WithSound(SceneOf(100));
    scene.timeMark = {10, 19};
    Player player(scene);
    player.playback.FollowFrame(10);
    player.playback.SetLooping(true);
    player.playback.Play();
    player.playback.Advance();
    player.Pass(0.95);
    player.Pass(0.1);
    player.Pass(0.5);
    QCOMPARE(player.TakeNotes(),
             (QStringList{QStringLiteral("1 from 1.000"), QStringLiteral("stop"),
                          QStringLiteral("1 from 1.050")}));
}

void tst_Playback::soundLosesNothingOfItsBeginning()
{
    Scene scene = WithSound(SceneOf(100), 10);
    scene.timeMark = {10, 19};
    Player player(scene);
    player.playback.FollowFrame(10);
    player.playback.SetLooping(true);
    player.playback.Play();
    player.Pass(0.004); // when the timer comes round
    QCOMPARE(player.TakeNotes(), QStringList{QStringLiteral("1 from 1.000")});
    player.Pass(1.004); // in the next round by 8 milliseconds
    QCOMPARE(player.TakeNotes(),
             (QStringList{QStringLiteral("stop"), QStringLiteral("1 from 1.000")}));
    player.Pass(0.99);
    QCOMPARE(player.playback.Frame(), 19);
    player.Pass(0.003); // no time was lost
    QCOMPARE(player.playback.Frame(), 10);
}

void tst_Playback::aMarkOfOneFrameIsSilent()
{
    Scene scene = WithSound(SceneOf(100, 30));
    scene.timeMark = {7, 7};
    Player player(scene);
    player.playback.FollowFrame(5);
    player.playback.SetLooping(true);
    player.playback.Play();
    player.Pass(0.07);
    QCOMPARE(player.playback.Frame(), 7);
    QVERIFY(!player.sound.isOn);
    player.TakeNotes();
    for (int i = 0; i < 10; ++i)
        player.Pass(0.034);
    QCOMPARE(player.TakeNotes(), QStringList{});
    player.playback.SetLooping(false);
    player.Pass(0.034);
    QVERIFY(player.sound.isOn);
}

void tst_Playback::soundFollowsScrubbingOnceAFrame()
{
    Player player(WithSound(SceneOf(100)));
    player.playback.Play();
    player.playback.Advance();
    player.TakeNotes();
    for (int frame = 30; frame < 40; ++frame)
        player.playback.FollowFrame(frame);
    QCOMPARE(player.TakeNotes(), QStringList{QStringLiteral("stop")});
    player.Pass(0.05);
    player.Pass(0.05);
    QCOMPARE(player.TakeNotes(), QStringList{QStringLiteral("1 from 3.950")});
}

void tst_Playback::soundFollowsEdits()
{
    Player player(WithSound(SceneOf(100)));
    player.playback.Play();
    player.playback.Advance();
    player.TakeNotes();
    Scene scene = player.session.Current();
    scene.timeMark = {5, 50};
    player.session.Apply(QStringLiteral("Move Marker"), scene); // nothing to be heard of that
    player.Pass(0.05);
    QCOMPARE(player.TakeNotes(), QStringList{});
    scene.tracks[0].keys[0].frame = 3;
    player.session.Apply(QStringLiteral("Move"), scene);
    player.Pass(0.1);
    QCOMPARE(player.TakeNotes(),
             (QStringList{QStringLiteral("stop"), QStringLiteral("1 from 0.150")}));
}

void tst_Playback::soundThatFellBehindIsSetAnew()
{
    Player player(WithSound(SceneOf(300, 30), 0, 250));
    player.sound.clock = &player.clock;
    player.playback.Play();
    player.playback.Advance();
    player.Pass(0.1);
    player.TakeNotes();
    player.Pass(0.4); // the program was busy, but the device had enough
    QCOMPARE(player.TakeNotes(), QStringList{});
    player.sound.Stall(0.32);
    player.Pass(0.4);
    QCOMPARE(player.TakeNotes(), QStringList{QStringLiteral("1 from 0.900")});
    player.Pass(0.05);
    player.sound.Stall(-0.05); // it went ahead
    player.Pass(0.05);
    QCOMPARE(player.TakeNotes(), QStringList{QStringLiteral("1 from 1.000")});
    for (int i = 0; i < 20; ++i)
        player.Pass(0.03);
    QCOMPARE(player.TakeNotes(), QStringList{});
}

void tst_Playback::soundOfASlowDeviceIsSetAnewOnce()
{
    Player player(WithSound(SceneOf(300, 30), 0, 250));
    player.sound.clock = &player.clock;
    player.sound.delay = 0.1;
    player.playback.Play();
    player.playback.Advance();
    player.TakeNotes();
    for (int i = 0; i < 20; ++i)
        player.Pass(0.03);
    QVERIFY(player.TakeNotes().size() <= 1);
    player.sound.Stall(0.3);
    player.Pass(0.03);
    QCOMPARE(player.TakeNotes(), QStringList{QStringLiteral("1 from 0.630")});
}

void tst_Playback::aDeviceThatStandsStillIsTriedEverMoreSeldom()
{
    Player player(WithSound(SceneOf(3000, 30), 0, 2500));
    player.sound.clock = &player.clock;
    player.playback.Play();
    player.playback.Advance();
    player.TakeNotes();
    for (int i = 0; i < 300; ++i) {
        player.sound.delay = 10 + i; // wherever it is started
        player.Pass(0.03);
    }
    const int tries = player.TakeNotes().size();
    QVERIFY2(tries > 1 && tries < 15, qPrintable(QString::number(tries)));
}

void tst_Playback::mutedRowsAreNotHeard()
{
    Player player(WithSound(SceneOf(100)));
    player.playback.Play();
    player.playback.Advance();
    Scene scene = player.session.Current();
    scene.tracks[0].muted = true;
    player.session.Apply(QStringLiteral("Mute"), scene);
    player.Pass(0.05);
    player.Pass(0.05);
    QVERIFY(!player.sound.isOn);
    scene.tracks[0].muted = false;
    player.session.Apply(QStringLiteral("Mute"), scene);
    player.Pass(0.05);
    QVERIFY(player.sound.isOn);
}

void tst_Playback::saysOnceWhyNothingIsHeard()
{
    Player player(WithSound(SceneOf(100)));
    player.sound.problem = QStringLiteral("no device");
    for (int i = 0; i < 3; ++i) {
        player.playback.Play();
        player.Pass(0.15);
        player.playback.Stop();
    }
    QCOMPARE(player.told, QStringList{QStringLiteral("no device")});
    Player silent(SceneOf(100));
    silent.sound.problem = QStringLiteral("no device");
    silent.playback.Play();
    silent.Pass(0.15);
    QCOMPARE(silent.told, QStringList{}); // there is nothing to be heard
}

void tst_Playback::noTimerRunsAtRest()
{
    Player player(SceneOf(10));
    QVERIFY(!player.playback.IsTimerActive());
    player.playback.Play();
    QVERIFY(player.playback.IsTimerActive());
    player.playback.Pause();
    QVERIFY(!player.playback.IsTimerActive());
    player.playback.FollowFrame(5);
    player.playback.Step(1);
    player.playback.GotoStart();
    player.session.Apply(QStringLiteral("Cut"), SceneOf(20));
    QVERIFY(!player.playback.IsTimerActive());
    player.playback.Play();
    player.playback.Stop();
    QVERIFY(!player.playback.IsTimerActive());
    player.playback.Play();
    player.Pass(100);
    QVERIFY(!player.playback.IsPlaying());
    QVERIFY(!player.playback.IsTimerActive());
}

void tst_Playback::aTimerWakesItForTheNextFrame()
{
    Player player(SceneOf(10));
    player.playback.Play();
    player.clock.Pass(0.15);
    QVERIFY(QTest::qWaitFor([&player] { return player.playback.Frame() == 1; }));
    player.clock.Pass(0.1);
    QVERIFY(QTest::qWaitFor([&player] { return player.playback.Frame() == 2; }));
}

void tst_Playback::playsInRealTime()
{
    EditSession session;
    session.Restart(SceneOf(1000, 100));
    const MonotonicClock clock;
    NotedSound sound;
    Playback playback(session, clock, sound);
    QElapsedTimer timer;
    timer.start();
    playback.Play();
    QVERIFY(QTest::qWaitFor([&playback] { return playback.Frame() >= 50; }, 30000));
    // Never early, however slow the machine; the frame may have begun a little before it was seen.
    QVERIFY(timer.nsecsElapsed() >= 500 * 1000000LL);
    QVERIFY(playback.Frame() <= static_cast<int>(timer.nsecsElapsed() / 10000000));
}

QTEST_MAIN(tst_Playback)
#include "tst_Playback.moc"
