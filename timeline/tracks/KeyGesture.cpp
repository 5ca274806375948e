#include "tracks/KeyGesture.h"

#include "axis/ClampedInt.h"
#include "library/OpenGesture.h"
#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "tracks/CTimelineTrackBase.h"
#include "tracks/CurrentFrame.h"
#include "tracks/PressSelection.h"
#include "tracks/RangeMarkers.h"
#include "tracks/RangeSelection.h"
#include "tracks/TrackReport.h"

#include <QMouseEvent>
#include <QPointer>

#include <utility>

namespace {

struct KeyDragCodes
{
    int begins, step, ends;
};
constexpr KeyDragCodes kMoveCodes = {kTrackKeyMoveBegins, kTrackKeyMoveStep, kTrackKeyMoveEnds};
constexpr KeyDragCodes kCopyCodes = {kTrackKeyCopyBegins, kTrackKeyCopyStep, kTrackKeyCopyEnds};

constexpr const KeyDragCodes& CodesOf(bool isCopy)
{
    return isCopy ? kCopyCodes : kMoveCodes;
}

} // namespace

KeyGesture::KeyGesture(CTimelineTrackBase& track, OpenGesture& watch)
    : m_track(track), m_watch(watch), m_feedback(track)
{
}

int KeyGesture::FrameAt(QPoint point) const
{
    return m_track.PixelToFrame(point.x());
}

int KeyGesture::FramesSinceLastStep(QPoint point) const
{
    return ClampedInt(1LL * FrameAt(point) - FrameAt(m_lastStepPoint));
}

// --- Press

void KeyGesture::Press(QMouseEvent& event)
{
    if (event.button() != Qt::LeftButton) {
        PressOther(event);
        return;
    }
    const OpenGesture::PressHandling handling(m_watch);
    if (!handling.MayGoOn())
        return;
    const QPointer<CTimelineTrackBase> track(&m_track);
    m_pointer = {event.pos(), event.modifiers()};
    m_releaseIsDone = false;
    // Watched from the start: what the host opens in the first report takes the pointer away too.
    m_watch.Begin();
    PressRow(m_pointer);
    if (track && !IsOn() && !m_hasGivenWay)
        m_watch.End();
}

/// Another button than the left one, which takes nobody's turn: a drag of the left button goes on,
/// unless the host took the edit modes away under it.
void KeyGesture::PressOther(QMouseEvent& event)
{
    const OpenGesture::Handling handling(m_watch);
    if (handling.MayGoOn() && m_track.IsFrameOnlyRow())
        End();
    if (!handling.MayGoOn())
        return;
    if (!m_track.IsFrameOnlyRow()) {
        event.ignore();
        return;
    }
    m_pointer = {event.pos(), event.modifiers()};
    TrackReport report(m_track);
    GoToFrameAt(m_pointer, report);
}

void KeyGesture::GoToFrameAt(Pointer at, TrackReport& report)
{
    WriteCurrentFrame(FrameAt(at.point));
    ReportCurrentFrame(report);
}

void KeyGesture::PressRow(Pointer at)
{
    TrackReport report(m_track, m_watch.TakeTurn(OpenGesture::Until::NextPressOrEnd));
    if (m_track.IsFrameOnlyRow()) {
        GoToFrameAt(at, report);
        return;
    }
    if (!report.Send(kTrackPressed) || PressMarker(at, report))
        return;

    const KeyHit hit(m_track, at.point);
    if (hit.EditsSubKeys()) {
        if (!hit.IsClipWithSubKeys()) {
            PressBesideClips(at, report);
            return;
        }
        if (!SelectHitClip(m_track, hit, report))
            return;
    }
    if (!hit.Edited() || at.HasShift())
        BeginRange(at, hit, report);
    else
        PressKey(at, hit, report);
}

/// Takes the marker under the pointer, if there is one: the end it stands for becomes the range's
/// end, which the pointer drags. @return whether there was one.
bool KeyGesture::PressMarker(Pointer at, TrackReport& report)
{
    const int marker = m_track.HitTestRangeMarker(at.point);
    if (marker != kStartMarker && marker != kEndMarker)
        return false;
    const int start = m_track.RangeStart();
    const int end = m_track.RangeEnd();
    if (marker == kStartMarker ? start < end : start > end)
        m_track.SetRange(end, start);
    m_state = State::DraggingMarker;
    WriteCurrentFrame(FrameAt(at.point));
    if (ReportCurrentFrame(report))
        m_feedback.ShowResizeCursor();
    return true;
}

/// A press on a row whose sub-keys are edited, but on none of its clips.
void KeyGesture::PressBesideClips(Pointer at, TrackReport& report)
{
    m_track.Keys().ClearAllSelection();
    if (report.Send(kTrackSelectionCleared))
        GoToFrameAt(at, report);
}

/// Selects the key or sub-key that was pressed and goes to it; with Ctrl the selection stays until
/// the release. One that the host has taken out by now is neither selected nor dragged.
void KeyGesture::PressKey(Pointer at, const KeyHit& hit, TrackReport& report)
{
    WriteCurrentFrame(FrameAt(at.point));
    if (!at.HasCtrl()) {
        const bool selects = hit.EditedIndex() >= 0 && !hit.Edited()->selected;
        if (selects && !SelectHitAlone(hit, report))
            return;
        GoToHit(hit);
        if (!report.Send(kTrackSelectionChanged))
            return;
    }
    if (hit.EditedIndex() >= 0 && m_track.HasEditMode(TL_EDIT_MOVE_KEYS)) {
        m_state = State::Armed;
        m_pressPoint = m_lastStepPoint = at.point;
        m_track.SetRange(-1, -1);
    }
    ReportCurrentFrame(report);
}

void KeyGesture::BeginRange(Pointer at, const KeyHit& hit, TrackReport& report)
{
    m_state = State::DraggingRange;
    m_pressed = hit;
    const int frame = NearestFrame(FrameAt(at.point));
    m_track.SetRange(frame, frame);
    if (!SelectFirstRange(at, report) || !report.Send(kTrackSelectionChanged))
        return;
    WriteCurrentFrame(FrameAt(at.point));
    if (ReportCurrentFrame(report))
        m_track.setFocus();
}

/// Selects the pressed frame, or with Shift all from the current frame to it; with Ctrl in addition
/// to what is selected. @return whether the press may go on.
bool KeyGesture::SelectFirstRange(Pointer at, TrackReport& report)
{
    const int end = m_track.RangeEnd();
    const bool editsSubKeys = m_track.HasEditMode(TL_EDIT_SUB_KEYS);
    if (!at.HasCtrl()) {
        RangeSelection(m_track, m_pressed).Clear();
        if (!editsSubKeys && !at.HasShift() && !report.Send(kTrackSelectionCleared))
            return false;
    }
    RangeSelection range(m_track, m_pressed);
    if (at.HasShift())
        m_track.SetRange(range.Limited(TimelineLibrary::Instance().axis.currentFrame), end);
    range.Select();
    return true;
}

// --- Move

void KeyGesture::Move(const QMouseEvent& event)
{
    m_pointer = {event.pos(), event.modifiers()};
    if (m_track.IsFrameOnlyRow()) {
        End(); // the host took the edit modes away under the pointer
        return;
    }
    m_feedback.ShowName(event.pos(), event.globalPos());
    const bool isLost = event.buttons() != Qt::LeftButton;
    if (isLost || m_state != State::DraggingMarker)
        m_feedback.ShowCursor(event.pos());
    if (isLost) {
        End(); // the button went up where nobody saw it
        return;
    }
    if (m_state == State::DraggingRange || m_state == State::DraggingMarker)
        DragRange(m_pointer);
    else if (IsOn())
        DragKeys(m_pointer);
}

void KeyGesture::DragRange(Pointer at)
{
    if (m_state == State::DraggingMarker)
        m_feedback.ShowResizeCursor();
    if (!at.HasCtrl())
        RangeSelection(m_track, m_pressed).Clear();
    SelectRangeTo(at);
    TrackReport(m_track).Send(kTrackSelectionChanged);
}

/// Makes the pointer's place the range's end and selects what the range holds now, too.
void KeyGesture::SelectRangeTo(Pointer at)
{
    RangeSelection range(m_track, m_pressed);
    m_track.SetRange(m_track.RangeStart(), range.Limited(FrameAt(at.point)));
    range.Select();
}

/// Announces the drag when the pointer enters another frame for the first time, and reports each
/// step from then on, one that stays in its frame too.
void KeyGesture::DragKeys(Pointer at)
{
    if (m_state == State::Armed) {
        if (FrameAt(at.point) == FrameAt(m_pressPoint))
            return;
        m_state = State::DraggingKeys;
        m_isCopy = at.HasCtrl();
        const OpenGesture::Turn turn(m_watch, OpenGesture::Until::NextPressOrEnd);
        if (!TrackReport(m_track, turn).Send(CodesOf(m_isCopy).begins))
            return;
    }
    const int frames = FramesSinceLastStep(at.point);
    m_lastStepPoint = at.point;
    TrackReport(m_track).Send(CodesOf(m_isCopy).step, frames);
}

// --- Release

void KeyGesture::Release(QMouseEvent& event)
{
    m_pointer = {event.pos(), event.modifiers()};
    if (m_track.IsFrameOnlyRow()) {
        End();
        return;
    }
    if (event.button() != Qt::LeftButton) {
        event.ignore();
        return;
    }
    if (!std::exchange(m_releaseIsDone, false))
        Finish();
}

void KeyGesture::End()
{
    if (!IsOn())
        return;
    m_releaseIsDone = true;
    Finish();
}

TrackReport KeyGesture::GiveWay()
{
    m_releaseIsDone = false;
    m_hasGivenWay = true;
    m_watch.Begin();
    return TrackReport(m_track, m_watch.TakeTurn(OpenGesture::Until::NextPress));
}

void KeyGesture::ComeBack()
{
    m_hasGivenWay = false;
    m_watch.End();
}

/// What a release at the pointer's last place does. Nothing is under way any more when the first
/// report goes out.
void KeyGesture::Finish()
{
    const Pointer at = m_pointer;
    const State ended = std::exchange(m_state, State::Idle);
    m_watch.End();
    const bool wasRange = ended == State::DraggingRange || ended == State::DraggingMarker;
    const bool wasKeys = ended == State::Armed || ended == State::DraggingKeys;

    const bool isThere = m_track.GetOwner() != nullptr;
    if (isThere)
        WriteCurrentFrame(FrameAt(at.point));
    if (isThere && wasRange)
        SelectRangeTo(at);
    m_pressed = {};
    if (wasKeys || (wasRange && !m_track.HasEditMode(TL_EDIT_TIME_RANGE)))
        m_track.SetRange(-1, -1);
    TrackReport report(m_track, OpenGesture::Turn(m_watch, OpenGesture::Until::NextPressOrEnd));
    if (isThere && (!wasKeys || FinishKeys(at, ended == State::DraggingKeys, report)))
        ReportCurrentFrame(report);
}

/// Toggles with Ctrl what is under the pointer, goes to it, and reports the end of a drag. @return
/// whether the release may go on.
bool KeyGesture::FinishKeys(Pointer at, bool wasDragged, TrackReport& report)
{
    const bool isCopy = m_isCopy;
    const int frames = FramesSinceLastStep(at.point);
    const KeyHit hit(m_track, at.point);
    if (hit.Edited() && at.HasCtrl() && !wasDragged) {
        hit.SelectEdited(!hit.Edited()->selected);
        if (!report.Send(kTrackSelectionChanged))
            return false;
    }
    GoToHit(hit);
    return !wasDragged || report.Send(CodesOf(isCopy).ends, frames);
}

// --- Double click

void KeyGesture::DoubleClick(QMouseEvent& event)
{
    if (event.button() != Qt::LeftButton) {
        event.ignore();
        return;
    }
    const OpenGesture::PressHandling handling(m_watch);
    if (!handling.MayGoOn())
        return;
    m_pointer = {event.pos(), event.modifiers()};
    m_releaseIsDone = false;
    DoubleClickRow(m_pointer);
}

void KeyGesture::DoubleClickRow(Pointer at)
{
    TrackReport report(m_track, m_watch.TakeTurn(OpenGesture::Until::NextPressOrEnd));
    if (!report.Send(kTrackPressed))
        return;
    m_track.Keys().ClearAllSelection();
    if (!report.Send(kTrackSelectionCleared))
        return;

    const int frame = FrameAt(at.point);
    WriteCurrentFrame(frame);
    if (frame >= TimelineLibrary::Instance().axis.frameCount) {
        ReportCurrentFrame(report);
        return;
    }
    const KeyHit hit(m_track, at.point);
    const bool selects = hit.Key() && m_track.GetEditModes().GetSize() > 0;
    if (selects && !SelectDoubleClicked(m_track, hit, report))
        return;
    if (ReportCurrentFrame(report))
        report.Send(kTrackDoubleClicked, hit.EditedIndex());
}
