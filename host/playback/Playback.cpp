#include "Playback.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

constexpr double kNanosecondsPerSecond = 1e9;
constexpr double kNanosecondsPerMillisecond = 1e6;
constexpr double kLongestWait = 1000;      ///< milliseconds
constexpr double kUnheardLateness = 0.02;  ///< seconds that a sound may start after its picture
constexpr double kShortestHeardLoop = 0.1; ///< seconds; what is shorter would be a buzz

} // namespace

Playback::Playback(const EditSession& session, const PlaybackClock& clock, SoundOutput& sound)
    : m_session(session), m_clock(clock), m_sound(sound)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_sound, &SoundSync::Told, this, &Playback::Told);
    connect(&m_timer, &QTimer::timeout, this, &Playback::Advance);
    connect(&session, &EditSession::Changed, this, &Playback::FollowScene);
    connect(&session, &EditSession::Restarted, this, [this] {
        m_origin = m_frame;
        Halt(State::Stopped);
    });
}

Playback::~Playback() = default;

void Playback::Play()
{
    const Range range = PlayedRange();
    if (IsPlaying() || range.last < range.first)
        return;
    const bool isBehind = m_isLooping ? m_frame > range.last : m_frame >= range.last;
    m_state = State::Playing;
    PlayFrom(isBehind ? range.first : m_frame);
    FollowSound(m_startPlace);
    m_startTime = m_clock.Nanoseconds(); // to open the device has taken its time
    emit StateChanged();
    if (!IsPlaying())
        return;
    Reach(static_cast<int>(m_startPlace));
    ScheduleNext();
}

void Playback::Pause()
{
    if (IsPlaying())
        Halt(State::Paused);
}

void Playback::Toggle()
{
    if (IsPlaying())
        Pause();
    else
        Play();
}

void Playback::Stop()
{
    Halt(State::Stopped);
    Reach(std::clamp(m_origin, 0, std::max(0, m_session.Current().frameCount - 1)));
}

void Playback::Step(int frames)
{
    Pause();
    const int last = std::max(0, m_session.Current().frameCount - 1);
    MoveTo(static_cast<int>(std::clamp<qint64>(qint64(m_frame) + frames, 0, last)));
}

void Playback::GotoStart()
{
    MoveTo(PlayedRange().first);
}

void Playback::GotoEnd()
{
    MoveTo(std::max(0, PlayedRange().last));
}

void Playback::SetLooping(bool isLooping)
{
    if (m_isLooping == isLooping)
        return;
    m_isLooping = isLooping;
    emit LoopingChanged(isLooping);
}

void Playback::FollowFrame(int frame)
{
    if (m_isReaching || frame == m_frame)
        return;
    const int last = m_session.Current().frameCount - 1;
    const bool isForced = m_frame > last && frame == last; // the scene has become shorter
    m_frame = frame;
    if (!isForced)
        m_origin = frame;
    if (!IsPlaying())
        return;
    // While the user scrubs this comes many times a frame; the sound waits for the next frame.
    PlayFrom(frame);
    ScheduleNext();
}

void Playback::Advance()
{
    if (!IsPlaying())
        return;
    const Range range = PlayedRange();
    double place = m_startPlace + FramesPlayed(m_clock.Nanoseconds());
    if (place >= range.last + 1 && !m_isLooping) {
        Halt(State::Stopped);
        Reach(std::max(0, range.last));
        return;
    }
    double heard = place;
    if (place >= range.last + 1) {
        // A mark that was moved to before the current frame is entered at its start.
        const bool isBehind = m_frame > range.last;
        const double length = range.last + 1 - range.first;
        place = isBehind ? range.first : range.first + std::fmod(place - range.first, length);
        PlayFrom(place);
        // Nobody hears that it is a little late, but that its beginning is missing.
        const bool isLittle = place - range.first < kUnheardLateness * m_playedRate;
        heard = isLittle ? range.first : place;
    }
    FollowSound(heard);
    Reach(static_cast<int>(place));
    ScheduleNext();
}

Playback::Range Playback::PlayedRange() const
{
    const Scene& scene = m_session.Current();
    const int last = scene.frameCount - 1;
    if (!m_isLooping || last < 0)
        return {0, last};
    const auto [start, end] = std::minmax(scene.timeMark.start, scene.timeMark.end);
    return {std::clamp(start, 0, last), std::clamp(end, 0, last)};
}

double Playback::FrameRate() const
{
    return std::max(1, m_session.Current().frameRate);
}

/// The frames that have passed since playing was at its start place.
double Playback::FramesPlayed(qint64 now) const
{
    return static_cast<double>(now - m_startTime) / kNanosecondsPerSecond * m_playedRate;
}

void Playback::PlayFrom(double place)
{
    m_startPlace = place;
    m_startTime = m_clock.Nanoseconds();
    m_playedRate = FrameRate();
    m_sound.Restart();
}

/// Makes the frame current as the user's choice.
void Playback::MoveTo(int frame)
{
    FollowFrame(frame);
    m_origin = frame;
    m_isReaching = true;
    emit FrameReached(frame);
    m_isReaching = false;
}

void Playback::Reach(int frame)
{
    if (frame == m_frame)
        return;
    m_frame = frame;
    m_isReaching = true;
    emit FrameReached(frame);
    m_isReaching = false;
}

void Playback::Halt(State state)
{
    m_timer.stop();
    m_sound.Stop();
    if (m_state == state)
        return;
    m_state = state;
    emit StateChanged();
}

void Playback::FollowSound(double place)
{
    const Range range = PlayedRange();
    const bool isBuzz = m_isLooping && place >= range.first &&
                        range.last + 1 - range.first <= kShortestHeardLoop * FrameRate();
    if (isBuzz)
        m_sound.Restart();
    else
        m_sound.Follow(m_session.Current(), place / FrameRate());
}

/// Wakes at the moment when the next frame is due.
void Playback::ScheduleNext()
{
    if (!IsPlaying())
        return;
    const double played = FramesPlayed(m_clock.Nanoseconds());
    const double place = m_startPlace + played;
    const double wait = (std::floor(place) + 1 - place) / m_playedRate * kNanosecondsPerSecond /
                        kNanosecondsPerMillisecond;
    m_timer.start(static_cast<int>(std::ceil(std::clamp(wait, 0.0, kLongestWait))));
}

/// Edits while it plays: another rate goes on from the same place, other sounds are heard at once.
void Playback::FollowScene()
{
    if (!IsPlaying())
        return;
    if (FrameRate() != m_playedRate) {
        PlayFrom(m_startPlace + FramesPlayed(m_clock.Nanoseconds()));
        return;
    }
    m_sound.Compare(m_session.Current());
}

} // namespace host
