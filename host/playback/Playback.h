#pragma once

#include "PlaybackClock.h"
#include "SoundSync.h"
#include "document/EditSession.h"

#include <QObject>
#include <QTimer>

namespace host {

/// Plays the scene of a session: says from moment to moment which frame is to be current, at the
/// scene's frame rate, and has its sounds heard. The frame follows from the clock alone: when there
/// is no time to show every frame, frames are left out and the rest comes when it should. Without a
/// display and without a timeline, which are others' business. No timer runs unless it plays.
class Playback : public QObject
{
    Q_OBJECT
public:
    enum class State
    {
        Stopped,
        Playing,
        Paused
    };

    /// All are kept and outlive this object.
    Playback(const EditSession& session, const PlaybackClock& clock, SoundOutput& sound);
    ~Playback() override;

    State CurrentState() const { return m_state; }
    bool IsPlaying() const { return m_state == State::Playing; }
    /// The frame that is current as far as the playback has been told.
    int Frame() const { return m_frame; }
    bool IsLooping() const { return m_isLooping; }
    bool IsTimerActive() const { return m_timer.isActive(); }

    /// Plays from the current frame to the scene's last one; from the first again when it is there
    /// already. Looping plays to the end of the time mark, whose frames it then repeats; from
    /// behind the mark it begins at the mark's start. A mark of a tenth of a second or less is
    /// repeated silently.
    void Play();
    /// Halts where it is.
    void Pause();
    /// Plays, or pauses when it is playing.
    void Toggle();
    /// Halts and goes back to the frame that was current last without being played: where the user
    /// had put it.
    void Stop();
    /// Pauses and moves the current frame, as far as there are frames.
    void Step(int frames);
    /// To the first or the last frame of what is played: of the time mark when looping.
    void GotoStart();
    void GotoEnd();
    void SetLooping(bool isLooping);

    /// Somebody has made that frame current. Playing goes on from there.
    void FollowFrame(int frame);

    /// Brings the frame to where it is to be now. The timer's business.
    void Advance();

signals:
    /// The frame is to be made current.
    void FrameReached(int frame);
    void StateChanged();
    void LoopingChanged(bool isLooping);
    /// One line for the user about sounds that are not heard; each is told once.
    void Told(const QString& text);

private:
    struct Range
    {
        int first = 0;
        int last = 0;
    };
    Range PlayedRange() const;
    double FrameRate() const;
    double FramesPlayed(qint64 now) const;
    void PlayFrom(double place);
    void MoveTo(int frame);
    void Reach(int frame);
    void Halt(State state);
    void FollowSound(double place);
    void ScheduleNext();
    void FollowScene();

    const EditSession& m_session;
    const PlaybackClock& m_clock;
    SoundSync m_sound;
    QTimer m_timer;
    State m_state = State::Stopped;
    bool m_isLooping = false;
    bool m_isReaching = false; ///< what is told of the current frame now is our own doing
    int m_frame = 0;
    int m_origin = 0;        ///< where Stop goes
    double m_startPlace = 0; ///< in frames: where playing was at the moment of m_startTime
    qint64 m_startTime = 0;
    double m_playedRate = 0; ///< the frame rate then
};

} // namespace host
