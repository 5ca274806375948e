#pragma once

#include <KestovaTimelineQU/KestovaTimelineQU.h>

namespace host {

/// Makes and destroys the host's timeline window on the manager's behalf.
class TimelineWindowFactory : public CTimelineWndFactoryBase
{
public:
    CTimelineWndBase* CreateTimelineWnd(QDockWidget* dock) override;
    void ReleaseTimelineWnd(CTimelineWndBase** window) override;
};

} // namespace host
