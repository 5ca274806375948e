#pragma once

#include "library/OpenGesture.h"
#include "model/MessageCodes.h"
#include "tracks/CTimelineTrackBase.h"

#include <QPointer>

#include <optional>

/// Sends what a track has to report, as long as the track is there: each message may reach the
/// host, which may delete the track or take it out of the timeline. Nothing follows from it then.
/// The report of a handler that has a turn also ends with that turn: when host code runs a later
/// press inside a message, the rest is no longer said.
class TrackReport
{
public:
    explicit TrackReport(CTimelineTrackBase& track) : m_track(&track) {}
    /// @p turn is one of the track's own watch.
    TrackReport(CTimelineTrackBase& track, const OpenGesture::Turn& turn)
        : m_track(&track), m_turn(turn)
    {
    }

    /// Whether the track lives and is part of a timeline, and the turn is not over.
    bool IsThere() const { return IsTrackThere() && (!m_turn || m_turn->IsOn()); }

    /// Sends a message; nothing when the report has ended.
    /// @return IsThere() afterwards: only then may the caller go on.
    bool Send(int code, const QVariant& value2 = QVariant(0), const QVariant& value3 = QVariant(0))
    {
        if (IsThere())
            m_track->Send(code, value2, value3);
        return IsThere();
    }

    /// Tells that the current frame was set: the first notice and the final one, which follows from
    /// any track that is there, even when the turn ended in between.
    bool SendCurrentFrame()
    {
        if (!IsThere())
            return false;
        m_track->Send(kTrackFrameMoved);
        if (IsTrackThere())
            m_track->Send(kTrackFrameSet);
        return IsThere();
    }

private:
    bool IsTrackThere() const { return m_track && m_track->GetOwner(); }

    QPointer<CTimelineTrackBase> m_track;
    std::optional<OpenGesture::Turn> m_turn; ///< none: the report ends with the track alone
};
