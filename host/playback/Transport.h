#pragma once

#include "Playback.h"

#include <KestovaTimelineQU/KestovaTimelineQU.h>

class QMainWindow;

namespace host {

class TransportBar;

/// Puts playback into the editor's window: plays the session's scene on the timeline, whose view
/// follows the current frame, with a bar of buttons and a menu.
class Transport : public QObject
{
    Q_OBJECT
public:
    /// @param window this object's parent, and the bar's. The others are kept and outlive it.
    Transport(QMainWindow* window, CTimelineManager& manager, const EditSession& session);
    ~Transport() override;

    Playback& Player() { return m_playback; }
    /// Playing, or paused: the current frame is the playback's, and Stop leads back to the user's.
    bool IsUnderWay() const { return m_playback.CurrentState() != Playback::State::Stopped; }
    TransportBar* Bar() const { return m_bar; }

    /// To be told whenever another frame is current, whoever made it so.
    void FollowFrame(int frame) { m_playback.FollowFrame(frame); }

signals:
    /// Playing has begun or has ended. What depends on the current frame may be brought up to date.
    void StateChanged();
    /// One line for the user.
    void Told(const QString& text);

private:
    void Show(int frame);

    CTimelineManager& m_manager;
    MonotonicClock m_clock;
    std::unique_ptr<SoundOutput> m_sound;
    Playback m_playback;
    TransportBar* m_bar; // the window's
};

} // namespace host
