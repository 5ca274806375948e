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
    void End(); ///< it is over; also called for a release that ends none
    bool IsOn() const { return m_isOn; }

    /// What takes a turn from its handler. Host code that is called from one handler may run later
    /// events of the same widget, whose handlers are through when the first one goes on.
    enum class Until
    {
        NextPress,      ///< a press, double click or menu that arrives later
        NextPressOrEnd, ///< or the end of a gesture, even of none: a release of the button
    };
    /// Tells a handler whether the widget is still there and still its own to act on.
    class Turn
    {
    public:
        Turn(OpenGesture& gesture, Until until);
        bool IsOn() const;

    private:
        QPointer<OpenGesture> m_gesture;
        Until m_until;
        unsigned int m_presses;
        unsigned int m_ends;
    };
    /// Begins the turn of a press: those of all presses before it are over.
    Turn TakeTurn(Until until);

    /// Stands on the stack of every handler of the widget that may call the host.
    class Handling
    {
    public:
        /// Finishes a gesture that was lost and is still waiting for it.
        explicit Handling(OpenGesture& gesture);
        ~Handling();
        Handling(const Handling&) = delete;
        Handling& operator=(const Handling&) = delete;

        /// False when the widget is gone or a later press has arrived since the handler began,
        /// whose gesture is none of this handler's business.
        bool MayGoOn() const { return m_turn.IsOn(); }
        const Turn& GetTurn() const { return m_turn; }

    private:
        const CallOut m_callOut;
        const Turn m_turn;
        QPointer<OpenGesture> m_gesture;
    };

    /// The same for a press, double click or menu: takes the turn, and finishes any gesture that is
    /// still on.
    class PressHandling : public Handling
    {
    public:
        explicit PressHandling(OpenGesture& gesture);
    };

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void OnFocusChanged(QWidget* now);
    void Lose();
    void FinishIfLost();
    void EnterHandler();
    void LeaveHandler();
    OpenGesture& CountPress();

    QWidget& m_widget;
    std::function<void()> m_finish;
    QMetaObject::Connection m_focus;
    bool m_isOn = false;
    bool m_isLost = false;
    bool m_isPointerTaken = false; ///< since the outermost handler that is running started
    int m_handlers = 0;
    unsigned int m_presses = 0; ///< that arrived
    unsigned int m_ends = 0;    ///< of gestures, and of none
};
