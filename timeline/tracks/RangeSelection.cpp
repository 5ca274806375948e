#include "tracks/RangeSelection.h"

#include "axis/ClampedInt.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CTimelineTrackBase.h"
#include "tracks/CurrentFrame.h"

#include <algorithm>

RangeSelection::RangeSelection(CTimelineTrackBase& track, int pressedKey) : m_track(track)
{
    if (!track.HasEditMode(TL_EDIT_SUB_KEYS)) {
        m_keys = &track.Keys();
        return;
    }
    // The host may have replaced the keys since the press.
    const auto& keys = track.Keys().Keys();
    const bool isKey = pressedKey >= 0 && static_cast<std::size_t>(pressedKey) < keys.size();
    if (!isKey || !keys[static_cast<std::size_t>(pressedKey)]->subKeys)
        return;
    m_clip = keys[static_cast<std::size_t>(pressedKey)];
    m_keys = m_clip->subKeys;
}

void RangeSelection::Clear()
{
    if (m_keys)
        m_keys->ClearAllSelection();
}

void RangeSelection::Select()
{
    if (!m_keys)
        return;
    const long long origin = m_clip ? m_clip->frame : 0;
    m_keys->SetSelection(ClampedInt(m_track.RangeStart() - origin),
                         ClampedInt(m_track.RangeEnd() - origin), true, TL_KEY_ANY_KIND);
}

int RangeSelection::Limited(int frame) const
{
    if (!m_clip)
        return NearestFrame(frame);
    const long long clipEnd = 1LL * m_clip->frame + m_clip->displayLength + 1;
    return NearestFrame(std::min<long long>(std::max(frame, m_clip->frame), clipEnd));
}
