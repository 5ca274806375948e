#pragma once

#include "model/MessageCodes.h"
#include "tracks/CTimelineTrackBase.h"

#include <QPointer>

/// Sends a track's messages one after another. Each may reach the host, which may delete the track
/// or take it out of the timeline: from then on nothing is sent any more.
class TrackMessenger
{
public:
    explicit TrackMessenger(CTimelineTrackBase& track) : m_track(&track) {}

    /// Whether the track still lives and has an owner.
    bool IsThere() const { return m_track && m_track->GetOwner(); }

    /// @return whether the track is still there afterwards, as in the next one.
    bool Send(int code)
    {
        if (IsThere())
            m_track->Send(code);
        return IsThere();
    }

    /// Tells that the current frame was set: the first notice and the final one.
    bool SendCurrentFrame() { return Send(kTrackFrameMoved) && Send(kTrackFrameSet); }

private:
    QPointer<CTimelineTrackBase> m_track;
};
