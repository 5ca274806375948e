#pragma once

#include <QEvent>
#include <QPoint>
#include <QPointer>
#include <QWidget>

namespace KestovaTest {

/// A hand on the mouse and the modifier keys. Its events enter where those of the windowing system
/// do, so that Qt itself picks the widget, grabs the mouse for a pressed button, gives the focus by
/// click, and holds back what a modal dialog blocks. Points are pixels of the widget that is named;
/// nothing needs to be under them. Each deed returns when its event, and all that followed at once,
/// has been handled.
class Pointer
{
public:
    /// Of the window that shows @p inWindow.
    explicit Pointer(QWidget* inWindow);

    Qt::KeyboardModifiers modifiers = Qt::NoModifier;

    /// Moves onto the point, then presses. Two presses are never a double click unless
    /// DoubleClick does them.
    void Press(QWidget* widget, QPoint point, Qt::MouseButton button = Qt::LeftButton);
    void MoveTo(QWidget* widget, QPoint point);
    /// Releases where the pointer is.
    void Release(Qt::MouseButton button = Qt::LeftButton);
    void Click(QWidget* widget, QPoint point, Qt::MouseButton button = Qt::LeftButton);
    /// The second press of a double click, where the last click was.
    void PressAgain(Qt::MouseButton button = Qt::LeftButton);
    void DoubleClick(QWidget* widget, QPoint point, Qt::MouseButton button = Qt::LeftButton);
    /// The button goes up where no window of ours hears of it: no release arrives.
    void LoseButtons() { m_buttons = Qt::NoButton; }

private:
    void PressAt(QPoint windowPoint, Qt::MouseButton button);
    void Send(QEvent::Type type, Qt::MouseButton button);

    QPointer<QWidget> m_window;
    QPoint m_point;
    Qt::MouseButtons m_buttons;
    bool m_isInside = false; ///< the window was told that the pointer has entered it
};

} // namespace KestovaTest
