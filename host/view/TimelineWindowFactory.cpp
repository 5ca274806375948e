#include "TimelineWindowFactory.h"

#include "TimelineWindow.h"

namespace host {

CTimelineWndBase* TimelineWindowFactory::CreateTimelineWnd(QDockWidget* dock)
{
    return new TimelineWindow(dock);
}

void TimelineWindowFactory::ReleaseTimelineWnd(CTimelineWndBase** window)
{
    delete *window;
    *window = nullptr;
}

} // namespace host
