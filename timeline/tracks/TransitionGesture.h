#pragma once

#include "tracks/HeldKey.h"

class CTimelineTrackTransKey;
class TrackReport;

/// The drag of the handle at a transition's far end, from the press to the release. It changes no
/// key: it reports to the track's owner, and each step starts from what the host has made of the
/// key by then. A member of its track.
class TransitionGesture
{
public:
    explicit TransitionGesture(CTimelineTrackTransKey& track) : m_track(track) {}

    bool IsOn() const { return m_key.Index() >= 0; }

    /// Takes the handle of the key at @p index: activates the track and selects the key beside what
    /// is selected already, unless the press's @p report ends. The track may be gone afterwards.
    void Press(int index, TrackReport& report);
    /// Reports what changes with the pointer at @p x, a pixel of the row: the beginning and a step,
    /// or only the beginning when @p report ends with it. The track may be gone afterwards.
    void DragTo(int x, TrackReport& report);
    /// Reports the end, unless nothing was changed. The track may be gone afterwards.
    void Release();

private:
    CTimelineTrackTransKey& m_track;
    HeldKey m_key;
    bool m_hasMoved = false;
};
