// The mouse on a row. What it does is in KeyGesture. Finishing a gesture that was lost, which comes
// first in each handler, calls the host, which may delete the track or run later events of it.

#include "tracks/CTimelineTrackBase.h"

#include <QMouseEvent>

void CTimelineTrackBase::mousePressEvent(QMouseEvent* event)
{
    m_keyGesture.Press(*event);
}

void CTimelineTrackBase::mouseMoveEvent(QMouseEvent* event)
{
    const OpenGesture::Handling handling(Gesture());
    if (handling.MayGoOn())
        m_keyGesture.Move(*event);
}

void CTimelineTrackBase::mouseReleaseEvent(QMouseEvent* event)
{
    const OpenGesture::Handling handling(Gesture());
    if (handling.MayGoOn())
        m_keyGesture.Release(*event);
}

void CTimelineTrackBase::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_keyGesture.DoubleClick(*event);
}

void CTimelineTrackBase::EndGesture()
{
    // Called by the watch as well, with no handler around it.
    const CallOut callOut;
    m_keyGesture.End();
}
