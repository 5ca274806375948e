#include "tracks/RangeSelection.h"

#include "axis/ClampedInt.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CTimelineTrackBase.h"
#include "tracks/CurrentFrame.h"
#include "tracks/KeyHit.h"

#include <algorithm>

RangeSelection::RangeSelection(CTimelineTrackBase& track, const KeyHit& pressed) : m_track(track)
{
    if (!track.HasEditMode(TL_EDIT_SUB_KEYS)) {
        m_keys = &track.Keys();
        return;
    }
    const int index = pressed.KeyIndex();
    if (index < 0 || !pressed.Key()->subKeys)
        return;
    m_clip = track.Keys().GetAt(index);
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
