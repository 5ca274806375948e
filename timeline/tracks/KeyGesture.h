#pragma once

#include "tracks/KeyHit.h"
#include "tracks/PointerFeedback.h"

#include <QPoint>
#include <Qt>

class CTimelineTrackBase;
class OpenGesture;
class QMouseEvent;
class TrackReport;

/// The mouse on one row: presses that select keys and set the current frame, rubber bands that
/// select a time range, drags of the range's markers, and drags of the selected keys, which are
/// only reported: the owner moves the keys. A member of its track. Any report may end the track and
/// this object with it.
class KeyGesture
{
public:
    /// @p watch is told when a gesture is under way; it calls the track's EndGesture when the
    /// gesture loses its pointer. It also gives out the turns: the report of a press, of the first
    /// step of a drag or of a double click is over when a later press, double click, menu or
    /// release runs inside it, that of a release when one of the same does.
    KeyGesture(CTimelineTrackBase& track, OpenGesture& watch);

    // The track's handlers of the same names. This object may be gone when one of them returns.

    /// Ends a gesture that is still on and begins another, or only selects and goes to what is
    /// pressed. Any button on a row that only sets the current frame, the left one elsewhere; an
    /// event of another button is ignored, for the timeline to handle.
    void Press(QMouseEvent& event);
    /// Shows the pointer's name and cursor, and takes the gesture on to the pointer; ends it when
    /// any but the left button alone is down. Rows that only set the current frame do nothing.
    void Move(const QMouseEvent& event);
    /// Ends the gesture where the pointer is. For the left button; an event of another one is
    /// ignored, except on a row that only sets the current frame, where nothing happens.
    void Release(QMouseEvent& event);
    /// Ends a gesture that is still on, selects what is under the pointer alone and goes to it; no
    /// gesture begins. For the left button on every row; an event of another one is ignored.
    void DoubleClick(QMouseEvent& event);

    /// Whether a gesture is under way that the next release ends.
    bool IsOn() const { return m_state != State::Idle; }
    /// Ends the gesture as a release at the pointer's last place would; nothing without one.
    void End();

    /// A drag of the row's own kind takes the pointer: it is watched from now on, and a press that
    /// is still being reported goes no further. @return the report of the drag's own press, which
    /// ends when a later press runs inside it.
    TrackReport GiveWay();
    /// That drag is over.
    void ComeBack();
    /// It ended while the button was down: when that goes up, it is no news.
    void PassOverRelease() { m_releaseIsDone = true; }

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
    void PressOther(QMouseEvent& event);
    void GoToFrameAt(Pointer at, TrackReport& report);
    void PressRow(Pointer at);
    bool PressMarker(Pointer at, TrackReport& report);
    void PressBesideClips(Pointer at, TrackReport& report);
    void PressKey(Pointer at, const KeyHit& hit, TrackReport& report);
    void BeginRange(Pointer at, const KeyHit& hit, TrackReport& report);
    bool SelectFirstRange(Pointer at, TrackReport& report);
    void DragRange(Pointer at);
    void SelectRangeTo(Pointer at);
    void DragKeys(Pointer at);
    void DoubleClickRow(Pointer at);
    void Finish();
    bool FinishKeys(Pointer at, bool wasDragged, TrackReport& report);

    CTimelineTrackBase& m_track;
    OpenGesture& m_watch;
    PointerFeedback m_feedback;

    State m_state = State::Idle;
    KeyHit m_pressed;       ///< what was under the press of a rubber band; nothing otherwise
    bool m_isCopy = false;  ///< Ctrl was held when the key drag began
    QPoint m_pressPoint;    ///< where the key was pressed
    QPoint m_lastStepPoint; ///< where the pointer was at the last step of a key drag
    Pointer m_pointer;      ///< when it was last seen
    /// The gesture ended while the button was down: when it goes up, that is no news.
    bool m_releaseIsDone = false;
    bool m_hasGivenWay = false; ///< the watch is over a drag of the row's own kind
};
