#pragma once

#include "tracks/ClipEdges.h"
#include "tracks/HeldKey.h"

class CTimelineTrackClip;
class TrackReport;

/// The drag of a clip's edge: a press arms it, the first change of the clip's loops, length or
/// lead-in begins it, and the release ends it. It changes no clip: it reports to the track's owner,
/// and each step starts from what the host has made of the clip by then. A member of its track.
class ClipEdgeGesture
{
public:
    explicit ClipEdgeGesture(CTimelineTrackClip& track) : m_track(track) {}

    bool IsOn() const { return m_kind >= 0; }
    /// The edge that is dragged, as it was found by the last step.
    ClipEdgeHit Edge() const { return {m_clip.Index(), m_kind}; }
    /// Whether the owner was told that a drag began.
    bool HasMoved() const { return m_hasMoved; }

    /// Arms the drag of @p edge: activates the track and selects the clip, and no other, unless
    /// the press's @p report ends. The track may be gone afterwards.
    void Press(const ClipEdgeHit& edge, TrackReport& report);
    /// Reports what changes with the pointer at @p x, a pixel of the row: the beginning and a step,
    /// or only the beginning when @p report ends with it. The track may be gone afterwards.
    void DragTo(int x, TrackReport& report);
    /// Reports the end, unless nothing was changed. The track may be gone afterwards.
    void Release();

private:
    CTimelineTrackClip& m_track;
    HeldKey m_clip;
    int m_kind = -1;
    bool m_hasMoved = false;
};
