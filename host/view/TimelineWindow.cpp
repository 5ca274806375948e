#include "TimelineWindow.h"

#include "TimelinePane.h"

#include <QAction>
#include <QDockWidget>

namespace host {

struct TimelineWindow::Tool
{
    const char* text;
    const char* tip;
    bool (CTimelineWndBase::*can)();
    void (CTimelineWndBase::*run)();
};

/// In the order of ViewCommand.
const TimelineWindow::Tool TimelineWindow::kTools[] = {
    {QT_TR_NOOP("Zoom In"), QT_TR_NOOP("Show fewer frames, larger (+, or Ctrl and the wheel)"),
     &TimelineWindow::CanDoZoomIn, &TimelineWindow::DoZoomIn},
    {QT_TR_NOOP("Zoom Out"), QT_TR_NOOP("Show more frames, smaller (-, or Ctrl and the wheel)"),
     &TimelineWindow::CanDoZoomOut, &TimelineWindow::DoZoomOut},
    {QT_TR_NOOP("Show All"), QT_TR_NOOP("Show every frame of the scene (*)"),
     &TimelineWindow::CanDoZoomAll, &TimelineWindow::DoZoomAll},
    {QT_TR_NOOP("Closest"), QT_TR_NOOP("Show the frames as large as they get (/)"),
     &TimelineWindow::CanDoUnZoom, &TimelineWindow::DoUnZoom},
    {QT_TR_NOOP("Previous Key"), QT_TR_NOOP("Select the key before the selected one (Shift+Tab)"),
     &TimelineWindow::CanDoSelectPreviousKey, &TimelineWindow::DoSelectPreviousKey},
    {QT_TR_NOOP("Next Key"), QT_TR_NOOP("Select the next key after the current frame (Tab)"),
     &TimelineWindow::CanDoSelectNextKey, &TimelineWindow::DoSelectNextKey},
};

TimelineWindow::TimelineWindow(QDockWidget* dock) : m_dock(dock), m_pane(new TimelinePane)
{
    connect(m_pane, &TimelinePane::ViewResized, this, &TimelineWindow::FitHeight);
    connect(m_pane, &TimelinePane::ClipSpeedToggled, this, &TimelineWindow::TakeClipSpeed);
    AddTools();
}

void TimelineWindow::AddTools()
{
    int command = 0;
    for (const Tool& tool : kTools) {
        const auto stands = static_cast<ViewCommand>(command++);
        QAction* const action = m_pane->AddTool(IconOf(stands), tr(tool.text), tr(tool.tip));
        connect(action, &QAction::triggered, this, [this, stands] { Do(stands); });
        m_tools.push_back(action);
        if (stands == ViewCommand::ShowClosest || stands == ViewCommand::NextKey)
            m_pane->AddSeparator();
    }
}

TimelineWindow::~TimelineWindow()
{
    if (!m_pane)
        return;
    m_pane->ReleaseTimeline(); // the base destroys it
    delete m_pane;
}

bool TimelineWindow::Can(ViewCommand command)
{
    return (this->*kTools[static_cast<int>(command)].can)();
}

void TimelineWindow::Do(ViewCommand command)
{
    const Tool& tool = kTools[static_cast<int>(command)];
    if (!(this->*tool.can)())
        return;
    (this->*tool.run)();
    OnTimelineRefreshed(); // the timeline does not tell of what it was told to do
}

void TimelineWindow::SetClipSpeed(bool isSpeed)
{
    if (m_pane)
        m_pane->SetClipSpeed(isSpeed);
}

TimelinePane* TimelineWindow::Pane() const
{
    return m_pane;
}

void TimelineWindow::SetFrameText(const QString& text)
{
    if (m_pane)
        m_pane->SetFrameText(text);
}

void TimelineWindow::TakeClipSpeed(bool isSpeed)
{
    m_isClipSpeed = isSpeed;
    SetLoopSpeedState(isSpeed);
    emit ClipSpeedChanged(isSpeed);
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
    rect = m_pane ? m_pane->rect() : QRect();
}

bool TimelineWindow::EnableWnd(bool enable)
{
    if (m_pane)
        m_pane->setEnabled(enable);
    return m_pane;
}

bool TimelineWindow::ShowWnd(bool show)
{
    if (m_dock)
        m_dock->setVisible(show);
    return m_dock;
}

bool TimelineWindow::IsWndVisible()
{
    return m_dock && m_dock->isVisible();
}

void TimelineWindow::OnCurrentFrameChanged(int frame)
{
    emit CurrentFrameChanged(frame);
}

void TimelineWindow::RepaintWnd()
{
    // The pane draws nothing that depends on the tracks.
}

void TimelineWindow::OnAfterCreate()
{
    if (m_pane)
        m_pane->AdoptTimeline();
    FitHeight();
}

void TimelineWindow::OnTrackListChanged()
{
    FitHeight();
}

void TimelineWindow::OnTimelineRefreshed()
{
    if (!m_pane)
        return;
    for (std::size_t i = 0; i < m_tools.size(); ++i)
        m_tools[i]->setEnabled((this->*kTools[i].can)());
    emit Refreshed();
}

void TimelineWindow::FitHeight()
{
    constexpr int kBottomLine = 1; // the timeline draws one line below its rows
    if (m_pane)
        m_pane->SetTimelineHeight(GetWndNeedHeight() + kBottomLine);
}

} // namespace host
