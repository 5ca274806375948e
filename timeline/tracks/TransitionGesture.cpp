#include "tracks/TransitionGesture.h"

#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CTimelineTrackTransKey.h"
#include "tracks/TrackReport.h"
#include "tracks/TransitionHandles.h"

#include <utility>

void TransitionGesture::Press(int index, TrackReport& report)
{
    CTimelineKeyArray& keys = m_track.Keys();
    m_hasMoved = false;
    m_key.Hold(keys, index);
    // The drag may end while the host is being told of the press; the key is selected even then.
    HeldKey key = m_key;

    if (!report.Send(kTrackPressed))
        return;
    if (key.Find(keys))
        keys.SetSelectionByIndex(key.Index(), key.Index(), true, TL_KEY_ANY_KIND);
    report.Send(kTrackSelectionChanged);
}

void TransitionGesture::DragTo(int x, TrackReport& report)
{
    const FrameAxis& axis = TimelineLibrary::Instance().axis;
    const CTimelineKey* key = m_key.Find(m_track.Keys());
    if (!key)
        return;
    auto amount = TransitionDragAmount(axis, *key, x);
    if (!amount)
        return;

    if (!std::exchange(m_hasMoved, true)) {
        if (!report.Send(kTrackTrimBegins, m_key.Index(), *amount))
            return;
        // The host may have made another key of this one.
        key = m_key.Find(m_track.Keys());
        if (key)
            amount = TransitionDragAmount(axis, *key, x);
        if (!key || !amount)
            return;
    }
    report.Send(kTrackTrimStep, m_key.Index(), *amount);
}

void TransitionGesture::Release()
{
    m_key.Find(m_track.Keys());
    const int index = m_key.Index();
    m_key.LetGo();
    if (std::exchange(m_hasMoved, false))
        TrackReport(m_track).Send(kTrackTrimEnds, index);
}
