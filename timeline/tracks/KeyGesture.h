#pragma once

#include "tracks/PointerFeedback.h"

#include <QPoint>
#include <Qt>

class CTimelineTrackBase;
class KeyHit;
class OpenGesture;
class QMouseEvent;

/// The mouse on one row: presses that select keys and set the current frame, rubber bands that
/// select a time range, drags of the range's markers, and drags of the selected keys, which are
/// only reported: the owner moves the keys. A member of its track. Any report may end the track and
/// this object with it.
class KeyGesture
{
public:
    /// @p watch is told when a gesture is under way; it calls the track's EndGesture when the
    /// gesture loses its pointer.
    KeyGesture(CTimelineTrackBase& track, OpenGesture& watch);

    void Press(QMouseEvent& event);
    void Move(const QMouseEvent& event);
    void Release(QMouseEvent& event);
    void DoubleClick(QMouseEvent& event);

    /// Whether a gesture is under way that the next release ends.
    bool IsOn() const { return m_state != State::Idle; }
    /// Ends the gesture as a release at the pointer's last place would; nothing without one.
    void End();

    /// A drag of the row's own kind takes the pointer: it is watched from now on, and a press that
    /// is still being reported goes no further.
    void GiveWay();
    /// That drag is over. The button may still be down: when it goes up, that is no news.
    void ComeBack();

private:
    enum class State
    {
        Idle,
        Armed,         ///< a key is pressed that the pointer has not dragged to another frame yet
        DraggingKeys,  ///< the drag was announced
        DraggingRange, ///< a rubber band
        DraggingMarker ///< one end of the time range, which the press made the range's end
    };

    /// Where the pointer is in the row, and the modifier keys that are held.
    struct Pointer
    {
        QPoint point;
        Qt::KeyboardModifiers modifiers;

        bool HasShift() const { return modifiers.testFlag(Qt::ShiftModifier); }
        bool HasCtrl() const { return modifiers.testFlag(Qt::ControlModifier); }
    };

    int FrameAt(QPoint point) const;
    int FramesSinceLastStep(QPoint point) const;

    // The steps take the pointer as it was at their event: host code may run the handlers of later
    // ones inside a report.
    void PressRow(Pointer at);
    bool PressMarker(Pointer at);
    void PressBesideClips(Pointer at);
    void PressKey(Pointer at, const KeyHit& hit);
    void BeginRange(Pointer at, const KeyHit& hit);
    bool SelectFirstRange(Pointer at);
    void DragRange(Pointer at);
    void SelectRangeTo(Pointer at);
    void DragKeys(Pointer at);
    void DoubleClickRow(Pointer at);
    void Finish();
    bool FinishKeys(Pointer at, bool wasDragged);

    CTimelineTrackBase& m_track;
    OpenGesture& m_watch;
    PointerFeedback m_feedback;

    State m_state = State::Idle;
    int m_pressedKey = -1;  ///< index of the key or clip under the press; -1 beside keys
    bool m_isCopy = false;  ///< Ctrl was held when the key drag began
    QPoint m_pressPoint;    ///< where the key was pressed
    QPoint m_lastStepPoint; ///< where the pointer was at the last step of a key drag
    Pointer m_pointer;      ///< when it was last seen
    /// The gesture ended while the button was down: when it goes up, that is no news.
    bool m_releaseIsDone = false;
    bool m_hasGivenWay = false; ///< the watch is over a drag of the row's own kind
    /// Counts presses and ends, by which an earlier handler sees that later ones ran inside it.
    unsigned int m_turn = 0;
};
