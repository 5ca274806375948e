// The mouse on a row. What it does is in KeyGesture. Finishing a gesture that was lost, which comes
// first in each handler, calls the host, which may delete the track.

#include "tracks/CTimelineTrackBase.h"

#include <QMouseEvent>
#include <QPointer>

void CTimelineTrackBase::mousePressEvent(QMouseEvent* event)
{
    const QPointer<CTimelineTrackBase> self(this);
    const OpenGesture::Handling handling(Gesture());
    if (self)
        m_keyGesture.Press(*event);
}

void CTimelineTrackBase::mouseMoveEvent(QMouseEvent* event)
{
    const QPointer<CTimelineTrackBase> self(this);
    const OpenGesture::Handling handling(Gesture());
    if (self)
        m_keyGesture.Move(*event);
}

void CTimelineTrackBase::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointer<CTimelineTrackBase> self(this);
    const OpenGesture::Handling handling(Gesture());
    if (self)
        m_keyGesture.Release(*event);
}

void CTimelineTrackBase::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPointer<CTimelineTrackBase> self(this);
    const OpenGesture::Handling handling(Gesture());
    // It is a press as well, and may find the drag of a kind's own still under way.
    if (self && event->button() == Qt::LeftButton)
        EndGesture();
    if (self)
        m_keyGesture.DoubleClick(*event);
}

void CTimelineTrackBase::EndGesture()
{
    // Called by the watch as well, with no handler around it.
    const CallOut callOut;
    m_keyGesture.End();
}
