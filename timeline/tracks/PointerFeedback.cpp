#include "tracks/PointerFeedback.h"

#include "tracks/CTimelineTrackBase.h"
#include "tracks/KeyHit.h"
#include "tracks/RangeMarkers.h"

#include <QCursor>
#include <QToolTip>

#include <utility>

namespace {

bool HasOwnCursors(const CTimelineTrackBase& track)
{
    return track.GetTrackType() == TL_TRACK_CLIP || track.GetTrackType() == TL_TRACK_WAVE;
}

} // namespace

void PointerFeedback::ShowName(QPoint point, QPoint globalPoint)
{
    if (std::exchange(m_lastGlobalPoint, globalPoint) == globalPoint)
        return;
    const KeyHit hit(m_track, point);
    const CTimelineKey* const key = hit.Edited();
    QToolTip::showText(globalPoint, key ? key->name : QString(), &m_track);
}

void PointerFeedback::ShowCursor(QPoint point)
{
    if (HasOwnCursors(m_track))
        return;
    if (m_track.HitTestRangeMarker(point) != kNoMarker)
        ShowResizeCursor();
    else if (m_track.testAttribute(Qt::WA_SetCursor))
        m_track.unsetCursor();
}

void PointerFeedback::ShowResizeCursor()
{
    // Setting a cursor is an event each time; a pointer that moves on has it already.
    if (!m_track.testAttribute(Qt::WA_SetCursor) || m_track.cursor().shape() != Qt::SizeHorCursor)
        m_track.setCursor(Qt::SizeHorCursor);
}
