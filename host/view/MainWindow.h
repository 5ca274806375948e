#pragma once

#include "SceneTracks.h"
#include "TimelineCallbacks.h"
#include "TimelineWindowFactory.h"
#include "document/Scene.h"

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QMainWindow>

namespace host {

class TimelineWindow;

/// The editor's window: holds the scene and the timeline that shows it in a dock.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    MainWindow();

    /// Puts the timeline into the dock, drawn in that skin. False when the skin cannot be read or
    /// is not complete; the window is then of no use.
    bool CreateTimeline(const QString& skinPath);
    /// Shows @p scene in place of the one before. False when the skin lacks a style that it needs.
    bool SetScene(const Scene& scene);
    /// Makes @p frame current, or the last one when there are fewer, and brings it into view.
    void GotoFrame(int frame);

private:
    void ToggleRows(CTimelineTrackBase* switchTrack, int button);
    void MoveTimeMark(int mark, int frame);
    TimelineWindow* Window();

    // Destroyed from the last to the first: the manager goes before what it calls.
    Scene m_scene;
    QDockWidget* m_dock;
    TimelineCallbacks m_callbacks;
    TimelineWindowFactory m_factory;
    CTimelineManager m_manager;
    SceneTracks m_tracks;
};

} // namespace host
