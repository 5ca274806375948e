#pragma once

#include <QEvent>
#include <QPoint>
#include <QPointer>
#include <QWidget>

class QKeySequence;

namespace host {

/// A hand on the mouse and the keyboard. What it does enters where the windowing system reports
/// what people do, so that Qt itself finds the widget under the pointer, grabs the mouse for a
/// pressed button, gives the focus and looks for shortcuts. Each deed returns when all that follows
/// at once has been handled. Points are pixels of the widget that is named.
class InputHand
{
public:
    /// @param window is kept and outlives this object.
    explicit InputHand(QWidget& window) : m_window(window) {}

    /// Moves onto the point, then presses; never the second press of a double click.
    void Press(QWidget& widget, QPoint point, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
               Qt::MouseButton button = Qt::LeftButton);
    /// Moves with what is pressed.
    void MoveTo(QWidget& widget, QPoint point);
    /// Releases where the pointer is.
    void Release();
    void Click(QWidget& widget, QPoint point, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
               Qt::MouseButton button = Qt::LeftButton);
    /// Strikes the keys one after another.
    void Strike(const QKeySequence& keys);

private:
    void Enter();
    void Send(QEvent::Type type, Qt::MouseButton button);

    QWidget& m_window;
    QPointer<QWidget> m_pointed; ///< the window under the pointer
    QPoint m_point;              ///< of that window
    Qt::MouseButtons m_buttons;
    Qt::KeyboardModifiers m_modifiers;
    int m_time = 0; ///< milliseconds
};

} // namespace host
