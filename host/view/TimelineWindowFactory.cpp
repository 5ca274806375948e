#include "TimelineWindowFactory.h"

namespace host {

CTimelineWndBase* TimelineWindowFactory::CreateTimelineWnd(QDockWidget* dock)
{
    m_window = new TimelineWindow(dock);
    return m_window;
}

void TimelineWindowFactory::ReleaseTimelineWnd(CTimelineWndBase** window)
{
    delete *window;
    *window = nullptr;
}

} // namespace host
