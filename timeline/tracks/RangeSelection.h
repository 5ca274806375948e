#pragma once

#include "CTimelineKeyArray.h"

class CTimelineTrackBase;
class KeyHit;

/// Selects what stands in the time range of a row: keys, or, where sub-keys are edited, the
/// sub-keys of the clip that was pressed, to whose span the range's dragged end is then limited. On
/// such a row nothing is selected without a clip. Short-lived: the host must not be called
/// meanwhile.
class RangeSelection
{
public:
    /// @p pressed is what was under the press. A clip that the host has taken out since is none.
    RangeSelection(CTimelineTrackBase& track, const KeyHit& pressed);

    /// Deselects all that the range could select.
    void Clear();
    /// Selects the keys from the range's start to its end.
    void Select();

    /// The place of a dragged end at @p frame: inside the clip's span, if there is one, whose last
    /// place is the frame after the clip; then inside the timeline.
    int Limited(int frame) const;

private:
    CTimelineTrackBase& m_track;
    VZ::CPointer<CTimelineKey> m_clip;      ///< null on rows whose own keys are edited
    VZ::CPointer<CTimelineKeyArray> m_keys; ///< what is selected from; null for nothing
};
