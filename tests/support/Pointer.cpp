#include "support/Pointer.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWindow>

// Qt's own entrance for tests: as if the windowing system had reported it.
extern Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local,
                                             const QPointF& global, Qt::MouseButtons state,
                                             Qt::MouseButton button, QEvent::Type type,
                                             Qt::KeyboardModifiers modifiers, int timestamp);

namespace KestovaTest {

namespace {

// Milliseconds. Longer apart than any double click, and the two presses of one.
constexpr int kApart = 10000;
constexpr int kTogether = 10;

int now = 0;

} // namespace

Pointer::Pointer(QWidget* inWindow) : m_window(inWindow->window()) {}

void Pointer::Send(QEvent::Type type, Qt::MouseButton button)
{
    if (!m_window)
        return;
    QWindow* const window = m_window->windowHandle();
    if (!m_isInside) {
        // Without it no widget hears that the pointer has entered it.
        m_isInside = true;
        QEnterEvent enter(m_point, m_point, window->mapToGlobal(m_point));
        QCoreApplication::sendEvent(window, &enter);
        // A move to where the last pointer of this process was left would not be one.
        const QPointF corner(-1, -1);
        qt_handleMouseEvent(window, corner, window->mapToGlobal(corner.toPoint()), Qt::NoButton,
                            Qt::NoButton, QEvent::MouseMove, Qt::NoModifier, now);
    }
    qt_handleMouseEvent(window, m_point, window->mapToGlobal(m_point), m_buttons, button, type,
                        modifiers, now);
    QCoreApplication::processEvents();
}

void Pointer::MoveTo(QWidget* widget, QPoint point)
{
    m_point = widget->mapTo(m_window, point);
    now += kTogether;
    Send(QEvent::MouseMove, Qt::NoButton);
}

void Pointer::PressAt(QPoint windowPoint, Qt::MouseButton button)
{
    m_point = windowPoint;
    m_buttons |= button;
    Send(QEvent::MouseButtonPress, button);
}

void Pointer::Press(QWidget* widget, QPoint point, Qt::MouseButton button)
{
    MoveTo(widget, point);
    now += kApart;
    PressAt(m_point, button);
}

void Pointer::Release(Qt::MouseButton button)
{
    now += kTogether;
    m_buttons &= ~Qt::MouseButtons(button);
    Send(QEvent::MouseButtonRelease, button);
}

void Pointer::Click(QWidget* widget, QPoint point, Qt::MouseButton button)
{
    Press(widget, point, button);
    Release(button);
}

void Pointer::PressAgain(Qt::MouseButton button)
{
    now += kTogether;
    PressAt(m_point, button);
}

void Pointer::DoubleClick(QWidget* widget, QPoint point, Qt::MouseButton button)
{
    Click(widget, point, button);
    PressAgain(button);
    Release(button);
}

} // namespace KestovaTest
