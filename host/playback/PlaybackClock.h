#pragma once

#include <QElapsedTimer>

namespace host {

/// The time that playback goes by: it runs evenly and never back, whatever the user does to the
/// computer's clock.
class PlaybackClock
{
public:
    virtual ~PlaybackClock() = default;
    /// Nanoseconds since some moment that stays the same.
    virtual qint64 Nanoseconds() const = 0;
};

/// The system's monotonic clock.
class MonotonicClock : public PlaybackClock
{
public:
    MonotonicClock() { m_timer.start(); }
    qint64 Nanoseconds() const override { return m_timer.nsecsElapsed(); }

private:
    QElapsedTimer m_timer;
};

} // namespace host
