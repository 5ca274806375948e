#pragma once

#include "TimelineWindow.h"

#include <KestovaTimelineQU/KestovaTimelineQU.h>

namespace host {

/// Makes and destroys the host's timeline window on the manager's behalf.
class TimelineWindowFactory : public CTimelineWndFactoryBase
{
public:
    /// The window that was made last, as what it is; null when none is there.
    TimelineWindow* Window() const { return m_window; }

    CTimelineWndBase* CreateTimelineWnd(QDockWidget* dock) override;
    void ReleaseTimelineWnd(CTimelineWndBase** window) override;

private:
    QPointer<TimelineWindow> m_window;
};

} // namespace host
