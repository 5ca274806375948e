#include "container/QTimelineCaptionArea.h"

#include <QDragEnterEvent>

QTimelineCaptionArea::QTimelineCaptionArea(QWidget* parent) : QWidget(parent)
{
    setAcceptDrops(true);
    // Without it moves with no button down would not be delivered here and so not passed on to the
    // container, whose caption buttons follow the pointer.
    setMouseTracking(true);
}

void QTimelineCaptionArea::dragEnterEvent(QDragEnterEvent* event)
{
    event->ignore();
}
