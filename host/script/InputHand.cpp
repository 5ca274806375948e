#include "InputHand.h"

#include <QApplication>
#include <QEnterEvent>
#include <QKeySequence>
#include <QWindow>

// Qt's own entrances for tests: as if the windowing system had reported it.
extern Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local,
                                             const QPointF& global, Qt::MouseButtons state,
                                             Qt::MouseButton button, QEvent::Type type,
                                             Qt::KeyboardModifiers modifiers, int timestamp);
extern Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key,
                                           Qt::KeyboardModifiers modifiers, const QString& text,
                                           bool isRepeated, ushort count);

namespace host {

namespace {

// Milliseconds. Longer apart than any double click, and two events of one gesture.
constexpr int kApart = 10000;
constexpr int kTogether = 10;

/// What a key writes: the letters and digits do, held with no more than Shift.
QString TextOf(int key, Qt::KeyboardModifiers modifiers)
{
    const bool isPlain = !(modifiers & ~Qt::KeyboardModifiers(Qt::ShiftModifier));
    if (!isPlain || key < Qt::Key_Space || key > Qt::Key_AsciiTilde)
        return {};
    const QChar character(key);
    return modifiers & Qt::ShiftModifier ? QString(character) : QString(character.toLower());
}

} // namespace

/// Without it no widget hears that the pointer has come to this window.
void InputHand::Enter()
{
    QWindow* const window = m_pointed->windowHandle();
    QEnterEvent enter(m_point, m_point, window->mapToGlobal(m_point));
    QCoreApplication::sendEvent(window, &enter);
    // A move to where the pointer was left last would not be one.
    const QPoint corner(-1, -1);
    qt_handleMouseEvent(window, corner, window->mapToGlobal(corner), Qt::NoButton, Qt::NoButton,
                        QEvent::MouseMove, Qt::NoModifier, m_time);
}

void InputHand::Send(QEvent::Type type, Qt::MouseButton button)
{
    QWindow* const window = m_pointed ? m_pointed->windowHandle() : nullptr;
    if (!window)
        return;
    qt_handleMouseEvent(window, m_point, window->mapToGlobal(m_point), m_buttons, button, type,
                        m_modifiers, m_time);
    QCoreApplication::processEvents();
}

void InputHand::MoveTo(QWidget& widget, QPoint point)
{
    QWidget* const window = widget.window();
    m_point = widget.mapTo(window, point);
    m_time += kTogether;
    if (m_pointed != window) {
        m_pointed = window;
        Enter();
    }
    Send(QEvent::MouseMove, Qt::NoButton);
}

void InputHand::Press(QWidget& widget, QPoint point, Qt::KeyboardModifiers modifiers,
                      Qt::MouseButton button)
{
    m_modifiers = modifiers;
    MoveTo(widget, point);
    m_time += kApart;
    m_buttons = button;
    Send(QEvent::MouseButtonPress, button);
}

void InputHand::Release()
{
    const auto button = static_cast<Qt::MouseButton>(static_cast<int>(m_buttons));
    m_time += kTogether;
    m_buttons = Qt::NoButton;
    Send(QEvent::MouseButtonRelease, button);
    m_modifiers = Qt::NoModifier;
}

void InputHand::Click(QWidget& widget, QPoint point, Qt::KeyboardModifiers modifiers,
                      Qt::MouseButton button)
{
    Press(widget, point, modifiers, button);
    Release();
}

void InputHand::Strike(const QKeySequence& keys)
{
    // Not every windowing system gives the window back what a menu or a dialog has taken.
    QApplication::setActiveWindow(&m_window);
    for (int i = 0; i < keys.count(); ++i) {
        const int both = keys[static_cast<uint>(i)];
        const int modifierMask = static_cast<int>(Qt::KeyboardModifierMask);
        const Qt::KeyboardModifiers modifiers(QFlag(both & modifierMask));
        const int key = both & ~modifierMask;
        const QString text = TextOf(key, modifiers);
        qt_handleKeyEvent(m_window.windowHandle(), QEvent::KeyPress, key, modifiers, text, false,
                          1);
        qt_handleKeyEvent(m_window.windowHandle(), QEvent::KeyRelease, key, modifiers, text, false,
                          1);
        QCoreApplication::processEvents();
    }
}

} // namespace host
