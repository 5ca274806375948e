// The right button's menu of a row.

#include "tracks/CTimelineTrackBase.h"

#include <QContextMenuEvent>

void CTimelineTrackBase::contextMenuEvent(QContextMenuEvent* event)
{
    QWidget::contextMenuEvent(event);
}

void CTimelineTrackBase::BuildContextMenu(QPoint) {}
