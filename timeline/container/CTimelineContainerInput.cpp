// The container's own input: hotkeys, the mouse over the caption column, and tooltips.

#include "container/CTimelineContainer.h"

#include <QMouseEvent>

void CTimelineContainer::mousePressEvent(QMouseEvent* event)
{
    QWidget::mousePressEvent(event);
}

void CTimelineContainer::mouseMoveEvent(QMouseEvent* event)
{
    QWidget::mouseMoveEvent(event);
}

void CTimelineContainer::mouseReleaseEvent(QMouseEvent* event)
{
    QWidget::mouseReleaseEvent(event);
}

void CTimelineContainer::mouseDoubleClickEvent(QMouseEvent* event)
{
    QWidget::mouseDoubleClickEvent(event);
}

void CTimelineContainer::enterEvent(QEvent* event)
{
    QWidget::enterEvent(event);
}

void CTimelineContainer::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
}

bool CTimelineContainer::event(QEvent* event)
{
    return QWidget::event(event);
}
