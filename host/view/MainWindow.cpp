#include "MainWindow.h"

#include "TimelineWindow.h"

#include <QDockWidget>

namespace host {

MainWindow::MainWindow() : m_dock(new QDockWidget(this)), m_manager(this), m_tracks(m_manager)
{
    setWindowTitle(tr("Kestova Host"));
    m_dock->setWindowTitle(tr("Timeline"));
    m_dock->setFeatures(QDockWidget::NoDockWidgetFeatures);
    addDockWidget(Qt::BottomDockWidgetArea, m_dock);
    m_callbacks.switchButtonToggled = [this](CTimelineTrackBase* track, int button) {
        ToggleRows(track, button);
    };
    m_callbacks.timeMarkMoved = [this](int mark, int frame) { MoveTimeMark(mark, frame); };
}

bool MainWindow::CreateTimeline(const QString& skinPath)
{
    m_manager.SetTimelineWndFactoryBase(&m_factory);
    return m_manager.CreateTimelineManager(&m_callbacks, skinPath.toStdWString()) &&
           m_manager.CreateTimelineMainWidget(m_dock);
}

bool MainWindow::SetScene(const Scene& scene)
{
    m_scene = scene;
    Window()->SetTimeBase(m_scene.frameRate, m_scene.frameCount);
    m_manager.SetFrameCount(m_scene.frameCount);
    m_manager.SetTimeMarkFrame(m_scene.timeMark.start, m_scene.timeMark.end);
    if (!m_tracks.Show(m_scene))
        return false;
    if (CTimelineTrackBase* const lips = m_manager.GetLipsTrack())
        m_manager.SetActiveChildTrack(lips);
    return true;
}

void MainWindow::GotoFrame(int frame)
{
    m_manager.ShowTimelineWnd(true);
    Window()->ShowAllFrames();
    m_manager.SetCurrentFrame(frame);
    constexpr int kToTheMiddle = 0;
    m_manager.ScrollToFrame(m_manager.GetCurrentFrame(), kToTheMiddle);
}

void MainWindow::ToggleRows(CTimelineTrackBase* switchTrack, int button)
{
    SceneTrack* const row = m_scene.FindTrack(m_tracks.IdOf(switchTrack));
    std::vector<_tmpTLSwitchBtnData> states;
    if (!row || button < 0 || button >= row->buttons.size() ||
        !m_manager.GetTrackSwitchBtnList(switchTrack, states))
        return;
    constexpr int kFirstStateOn = 2; // on, and on with the pointer above
    SwitchButton& toggled = row->buttons[button];
    toggled.on = states[static_cast<std::size_t>(button)].state >= kFirstStateOn;
    for (const TrackId track : qAsConst(toggled.tracks))
        m_tracks.SetRowShown(m_scene, track, toggled.on);
}

void MainWindow::MoveTimeMark(int mark, int frame)
{
    (mark == 0 ? m_scene.timeMark.start : m_scene.timeMark.end) = frame;
}

TimelineWindow* MainWindow::Window()
{
    return static_cast<TimelineWindow*>(m_manager.GetTimelineWnd());
}

} // namespace host
