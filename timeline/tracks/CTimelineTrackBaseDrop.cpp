// Files that are dragged over a row and dropped on it.

#include "tracks/CTimelineTrackBase.h"

#include <QDropEvent>

void CTimelineTrackBase::dragEnterEvent(QDragEnterEvent* event)
{
    QWidget::dragEnterEvent(event);
}

void CTimelineTrackBase::dragMoveEvent(QDragMoveEvent* event)
{
    QWidget::dragMoveEvent(event);
}

void CTimelineTrackBase::dragLeaveEvent(QDragLeaveEvent* event)
{
    QWidget::dragLeaveEvent(event);
}

void CTimelineTrackBase::dropEvent(QDropEvent* event)
{
    QWidget::dropEvent(event);
}
