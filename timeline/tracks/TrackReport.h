#pragma once

#include "model/MessageCodes.h"
#include "tracks/CTimelineTrackBase.h"

#include <QPointer>

/// Sends what a track has to report, as long as the track is there: each message may reach the
/// host, which may delete the track or take it out of the timeline. Nothing follows from it then.
class TrackReport
{
public:
    explicit TrackReport(CTimelineTrackBase& track) : m_track(&track) {}

    /// Whether the track lives and is part of a timeline.
    bool IsThere() const { return m_track && m_track->GetOwner(); }

    /// Sends a message; nothing when the track is no longer there.
    /// @return whether it is still there afterwards: only then may the caller go on.
    bool Send(int code, const QVariant& value2 = QVariant(0), const QVariant& value3 = QVariant(0))
    {
        if (IsThere())
            m_track->Send(code, value2, value3);
        return IsThere();
    }

    /// Tells that the current frame was set: the first notice and the final one.
    bool SendCurrentFrame() { return Send(kTrackFrameMoved) && Send(kTrackFrameSet); }

private:
    QPointer<CTimelineTrackBase> m_track;
};
