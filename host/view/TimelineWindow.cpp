#include "TimelineWindow.h"

#include "TimelinePane.h"
#include "document/FrameText.h"

#include <QDockWidget>

namespace host {

TimelineWindow::TimelineWindow(QDockWidget* dock) : m_dock(dock), m_pane(new TimelinePane)
{
    connect(m_pane, &TimelinePane::ViewResized, this, &TimelineWindow::FitHeight);
    connect(m_pane, &TimelinePane::ZoomInRequested, this, [this] { DoZoomIn(); });
    connect(m_pane, &TimelinePane::ZoomOutRequested, this, [this] { DoZoomOut(); });
    connect(m_pane, &TimelinePane::ZoomAllRequested, this, [this] { DoZoomAll(); });
    connect(m_pane, &TimelinePane::ClipSpeedToggled, this,
            [this](bool isSpeed) { SetLoopSpeedState(isSpeed); });
}

TimelineWindow::~TimelineWindow()
{
    if (!m_pane)
        return;
    m_pane->ReleaseTimeline(); // the base destroys it
    delete m_pane;
}

void TimelineWindow::ShowAllFrames()
{
    DoZoomAll();
}

void TimelineWindow::SetTimeBase(int frameRate, int frameCount)
{
    m_frameRate = frameRate;
    m_frameCount = frameCount;
}

bool TimelineWindow::CreateWnd()
{
    return true; // all parts were made at construction
}

QWidget* TimelineWindow::GetWidget()
{
    return m_pane;
}

void TimelineWindow::UpdateWnd()
{
    FitHeight();
}

void TimelineWindow::GetInitialGeometry(QRect& rect)
{
    rect = m_pane->rect();
}

bool TimelineWindow::EnableWnd(bool enable)
{
    m_pane->setEnabled(enable);
    return true;
}

bool TimelineWindow::ShowWnd(bool show)
{
    m_dock->setVisible(show);
    return true;
}

bool TimelineWindow::IsWndVisible()
{
    return m_dock->isVisible();
}

void TimelineWindow::OnCurrentFrameChanged(int frame)
{
    m_pane->SetFrameText(FrameText(frame, m_frameCount, m_frameRate));
    emit CurrentFrameChanged(frame);
}

void TimelineWindow::RepaintWnd()
{
    // The pane draws nothing that depends on the tracks.
}

void TimelineWindow::OnAfterCreate()
{
    m_pane->AdoptTimeline();
    FitHeight();
}

void TimelineWindow::OnTrackListChanged()
{
    FitHeight();
}

void TimelineWindow::OnTimelineRefreshed()
{
    if (m_pane)
        m_pane->SetZoomEnabled(CanDoZoomIn(), CanDoZoomOut(), CanDoZoomAll());
}

void TimelineWindow::FitHeight()
{
    constexpr int kBottomLine = 1; // the timeline draws one line below its rows
    if (m_pane)
        m_pane->SetTimelineHeight(GetWndNeedHeight() + kBottomLine);
}

} // namespace host
