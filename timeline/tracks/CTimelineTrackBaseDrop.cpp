// Files that are dragged over a row and dropped on it. What may be dropped, and what a drop does,
// is the owner's to say.

#include "tracks/CTimelineTrackBase.h"

#include "library/TimelineLibrary.h"
#include "tracks/CTimelineTrackBaseInterface.h"
#include "tracks/TrackReport.h"

#include <QCoreApplication>
#include <QDropEvent>

#include <algorithm>

// Each move asks anew, so that the answer can change along the row; entering only opens the way.
void CTimelineTrackBase::dragEnterEvent(QDragEnterEvent* event)
{
    m_isHeldOver = true;
    event->accept();
}

void CTimelineTrackBase::dragLeaveEvent(QDragLeaveEvent* event)
{
    m_isHeldOver = false;
    event->ignore();
}

/// Qt keeps a plain pointer to the widget that a drag is over; a row that is destroyed meanwhile
/// has it forgotten.
void CTimelineTrackBase::LeaveDrag()
{
    if (!m_isHeldOver)
        return;
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(this, &leave);
}

void CTimelineTrackBase::dragMoveEvent(QDragMoveEvent* event)
{
    const TrackReport report(*this);
    const OpenGesture::Handling handling(Gesture());
    const bool isAccepted =
        report.IsThere() &&
        m_owner->OnTrackDragCheck(event, m_trackId, PixelToFrame(event->pos().x()));
    event->setAccepted(isAccepted && report.IsThere());
}

void CTimelineTrackBase::dropEvent(QDropEvent* event)
{
    m_isHeldOver = false;
    TrackReport report(*this);
    const OpenGesture::Handling handling(Gesture());
    event->ignore();
    if (!report.IsThere())
        return;
    const int last = std::max(Axis().frameCount - 1, 0);
    Axis().currentFrame = std::clamp(PixelToFrame(event->pos().x()), 0, last);
    if (!report.SendCurrentFrame())
        return;
    // The file goes to the active track.
    if (!IsActive() && !report.Send(kTrackPressed))
        return;
    event->setAccepted(m_owner->OnTrackDrop(event, m_trackId));
}
