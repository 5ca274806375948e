#pragma once

#include "model/MessageCodes.h"
#include "tracks/CTimelineTrackBase.h"

#include <QPointer>

/// Sends what a track has to report, as long as the track is there: each message may reach the
/// host, which may delete the track or take it out of the timeline. Nothing follows from it then.
/// The report of one handler among several also ends when a later one has run inside a message.
class TrackReport
{
public:
    explicit TrackReport(CTimelineTrackBase& track) : m_track(&track) {}
    /// @p turn is counted on by each handler of the track when it starts; it is part of the track.
    TrackReport(CTimelineTrackBase& track, const unsigned int& turn)
        : m_track(&track), m_turn(&turn), m_ownTurn(turn)
    {
    }

    /// Whether the track lives and is part of a timeline, and no later handler has had its turn.
    bool IsThere() const
    {
        return m_track && m_track->GetOwner() && (!m_turn || *m_turn == m_ownTurn);
    }

    /// Sends a message; nothing when the track is no longer there.
    /// @return IsThere() afterwards: only then may the caller go on.
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
    const unsigned int* m_turn = nullptr; ///< null: the report of a single handler
    unsigned int m_ownTurn = 0;
};
