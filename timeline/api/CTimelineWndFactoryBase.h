#pragma once

#include "KestovaExport.h"

class CTimelineWndBase;
class QDockWidget;

/// Through this the manager asks the host to make and destroy its timeline window. Not owned by the
/// manager; it outlives it.
class KESTOVA_EXPORT CTimelineWndFactoryBase
{
public:
    virtual ~CTimelineWndFactoryBase();

    /// Makes the host's window for @p dock; null when it cannot be made.
    virtual CTimelineWndBase* CreateTimelineWnd(QDockWidget* dock) = 0;
    /// Destroys the window and sets the pointer that it was given to null.
    virtual void ReleaseTimelineWnd(CTimelineWndBase** window) = 0;
};
