#pragma once

#include "library/CallOut.h"

#include <QObject>
#include <QPointer>

#include <functional>

class QWidget;

/// Watches over the gesture that a widget has under way, from the press to the release. A gesture
/// may lose its pointer without a release: the focus leaves the timeline, the widget is hidden, or
/// a modal dialog opens in front of it. The watch then has it finished: at once when no handler of
/// the widget is running, or else as soon as the outermost one returns, so that host code is never
/// called from inside Qt's own hiding and focusing. While host code runs a dialog from one of the
/// widget's own handlers, the gesture thus ends only when that handler returns. A member of the
/// widget. GUI thread only.
class OpenGesture : public QObject
{
    Q_OBJECT
public:
    /// @p finish ends the gesture as a release at the pointer's last place would, and calls End.
    OpenGesture(QWidget& widget, std::function<void()> finish);

    /// A gesture is under way from now on. Does nothing while one is: one that was lost already
    /// stays lost.
    void Begin();
    void End(); ///< it is over
    bool IsOn() const { return m_isOn; }

    /// Stands on the stack of every handler of the widget that may call the host.
    class Handling
    {
    public:
        /// Finishes a gesture that was lost and is still waiting for it.
        explicit Handling(OpenGesture& gesture);
        ~Handling();
        Handling(const Handling&) = delete;
        Handling& operator=(const Handling&) = delete;

    private:
        const CallOut m_callOut;
        QPointer<OpenGesture> m_gesture;
    };

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void OnFocusChanged(QWidget* now);
    void Lose();
    void FinishIfLost();
    void EnterHandler();
    void LeaveHandler();

    QWidget& m_widget;
    std::function<void()> m_finish;
    QMetaObject::Connection m_focus;
    bool m_isOn = false;
    bool m_isLost = false;
    bool m_isPointerTaken = false; ///< since the outermost handler that is running started
    int m_handlers = 0;
};
