#include "library/OpenGesture.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <utility>

namespace {

/// Whether the focus on @p focus still belongs to the timeline that @p widget is a part of: to a
/// widget inside it, or to one that it stands in, as the host's window has it for a moment.
bool IsFocusOfTimeline(const QWidget* focus, const QWidget& widget)
{
    const QWidget* const home = widget.parentWidget() ? widget.parentWidget() : &widget;
    return focus && (focus == home || home->isAncestorOf(focus) || focus->isAncestorOf(home));
}

} // namespace

OpenGesture::OpenGesture(QWidget& widget, std::function<void()> finish)
    : m_widget(widget), m_finish(std::move(finish))
{
}

void OpenGesture::Begin()
{
    if (std::exchange(m_isOn, true))
        return;
    m_isLost = m_isPointerTaken;
    m_widget.installEventFilter(this);
    m_focus = connect(qApp, &QApplication::focusChanged, this,
                      [this](QWidget*, QWidget* now) { OnFocusChanged(now); });
}

void OpenGesture::End()
{
    ++m_ends;
    if (!std::exchange(m_isOn, false))
        return;
    m_isLost = false;
    if (m_handlers == 0)
        m_widget.removeEventFilter(this);
    disconnect(m_focus);
}

bool OpenGesture::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide || event->type() == QEvent::WindowBlocked) {
        m_isPointerTaken = m_handlers > 0;
        if (m_isOn)
            Lose();
    }
    return QObject::eventFilter(watched, event);
}

void OpenGesture::OnFocusChanged(QWidget* now)
{
    if (!IsFocusOfTimeline(now, m_widget))
        Lose();
}

void OpenGesture::Lose()
{
    if (std::exchange(m_isLost, true) || m_handlers > 0)
        return;
    QMetaObject::invokeMethod(
        this, [this] { FinishIfLost(); }, Qt::QueuedConnection);
}

void OpenGesture::FinishIfLost()
{
    // A handler that runs a nested event loop finishes it when it returns.
    if (m_isOn && m_isLost && m_handlers == 0)
        m_finish();
}

void OpenGesture::EnterHandler()
{
    if (m_handlers++ > 0)
        return;
    // A dialog may open before the gesture begins: Qt then keeps the release to itself.
    m_isPointerTaken = false;
    m_widget.installEventFilter(this);
}

void OpenGesture::LeaveHandler()
{
    if (--m_handlers > 0)
        return;
    m_isPointerTaken = false;
    if (!m_isOn)
        m_widget.removeEventFilter(this);
    FinishIfLost();
}

OpenGesture& OpenGesture::CountPress()
{
    ++m_presses;
    return *this;
}

OpenGesture::Turn OpenGesture::TakeTurn(Until until)
{
    return Turn(CountPress(), until);
}

OpenGesture::Turn::Turn(OpenGesture& gesture, Until until)
    : m_gesture(&gesture), m_until(until), m_presses(gesture.m_presses), m_ends(gesture.m_ends)
{
}

bool OpenGesture::Turn::IsOn() const
{
    return m_gesture && m_gesture->m_presses == m_presses &&
           (m_until == Until::NextPress || m_gesture->m_ends == m_ends);
}

OpenGesture::Handling::Handling(OpenGesture& gesture)
    : m_turn(gesture, Until::NextPress), m_gesture(&gesture)
{
    gesture.FinishIfLost();
    if (m_gesture)
        m_gesture->EnterHandler();
}

OpenGesture::Handling::~Handling()
{
    if (m_gesture)
        m_gesture->LeaveHandler();
}

OpenGesture::PressHandling::PressHandling(OpenGesture& gesture) : Handling(gesture.CountPress())
{
    if (MayGoOn() && gesture.m_isOn)
        gesture.m_finish();
}
