#include "TimelineWheel.h"

#include "TimelinePane.h"
#include "TimelineWindow.h"
#include "ViewFractions.h"

#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>

namespace host {

namespace {

constexpr int kNotch = 120;             ///< what Qt counts a notch of the wheel as
constexpr float kPartOfView = 1.0F / 8; ///< by which a notch moves the view

} // namespace

TimelineWheel::TimelineWheel(TimelineWindow& window, CTimelineManager& manager)
    : QObject(&window), m_window(window), m_manager(manager)
{
    // Rows leave the wheel to the widget that they stand in.
    if (window.Pane())
        window.Pane()->Viewport()->installEventFilter(this);
}

bool TimelineWheel::eventFilter(QObject*, QEvent* event)
{
    return event->type() == QEvent::Wheel && Take(*static_cast<QWheelEvent*>(event));
}

bool TimelineWheel::Take(const QWheelEvent& event)
{
    const Qt::KeyboardModifiers modifiers =
        event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
    if (modifiers == Qt::NoModifier)
        return false;
    const QPoint angle = event.angleDelta();
    const int turned = std::abs(angle.y()) >= std::abs(angle.x()) ? angle.y() : angle.x();
    if (modifiers != m_modifiers || (turned > 0) != (m_turned > 0))
        m_turned = 0;
    m_modifiers = modifiers;
    m_turned += turned;
    const int notches = m_turned / kNotch;
    m_turned %= kNotch;
    if (modifiers & Qt::ControlModifier)
        Zoom(notches);
    else
        MoveView(-notches); // away from the hand is toward the start
    return true;
}

void TimelineWheel::Zoom(int notches)
{
    for (int i = 0; i < std::abs(notches); ++i)
        m_window.Do(notches > 0 ? ViewCommand::ZoomIn : ViewCommand::ZoomOut);
}

void TimelineWheel::MoveView(int notches)
{
    if (notches == 0)
        return;
    ViewFractions view = ViewOf(m_manager);
    const float wanted = (view.right - view.left) * kPartOfView * static_cast<float>(notches);
    const float way = std::clamp(wanted, -view.left, std::max(0.0F, 1 - view.right));
    ShowView(m_manager, {view.left + way, view.right + way});
}

} // namespace host
