// The mouse on a row: what the handlers share with no other kind is in KeyGesture.

#include "tracks/CTimelineTrackBase.h"

#include <QMouseEvent>

void CTimelineTrackBase::mousePressEvent(QMouseEvent* event)
{
    QWidget::mousePressEvent(event);
}

void CTimelineTrackBase::mouseMoveEvent(QMouseEvent* event)
{
    QWidget::mouseMoveEvent(event);
}

void CTimelineTrackBase::mouseReleaseEvent(QMouseEvent* event)
{
    QWidget::mouseReleaseEvent(event);
}

void CTimelineTrackBase::mouseDoubleClickEvent(QMouseEvent* event)
{
    QWidget::mouseDoubleClickEvent(event);
}

void CTimelineTrackBase::EndGesture() {}
