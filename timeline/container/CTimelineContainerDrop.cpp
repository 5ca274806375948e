// Files dragged over the rows and dropped on them.

#include "container/CTimelineContainer.h"

#include <QDropEvent>

bool CTimelineContainer::OnTrackDrop(QDropEvent*, CTimelineTrackBase*)
{
    return false;
}

bool CTimelineContainer::OnTrackDragCheck(QDropEvent*, CTimelineTrackBase*, int)
{
    return false;
}
