#include "tracks/KeyGesture.h"

#include "axis/ClampedInt.h"
#include "library/OpenGesture.h"
#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "tracks/CTimelineTrackBase.h"
#include "tracks/CurrentFrame.h"
#include "tracks/KeyHit.h"
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
    const QPointer<CTimelineTrackBase> track(&m_track);
    const bool isLeft = event.button() == Qt::LeftButton;
    if (isLeft || m_track.IsFrameOnlyRow())
        End();
    if (!track)
        return;
    if (!isLeft && !m_track.IsFrameOnlyRow()) {
        event.ignore();
        return;
    }
    m_pointer = {event.pos(), event.modifiers()};
    m_releaseIsDone = m_releaseIsDone && !isLeft;
    // Watched from the start: what the host opens in the first report takes the pointer away too.
    m_watch.Begin();
    PressRow(m_pointer);
    if (track && !IsOn() && !m_hasGivenWay)
        m_watch.End();
}

void KeyGesture::PressRow(Pointer at)
{
    const unsigned int turn = ++m_turn;
    if (m_track.IsFrameOnlyRow()) {
        WriteCurrentFrame(FrameAt(at.point));
        ReportCurrentFrame(m_track);
        return;
    }
    if (!TrackReport(m_track).Send(kTrackPressed) || turn != m_turn)
        return;
    if (PressMarker(at))
        return;

    const KeyHit hit(m_track, at.point);
    if (hit.EditsSubKeys()) {
        if (!hit.IsClipWithSubKeys()) {
            PressBesideClips(at);
            return;
        }
        if (!SelectHitClip(m_track, hit) || turn != m_turn)
            return;
    }
    if (!hit.Edited() || at.HasShift())
        BeginRange(at, hit);
    else
        PressKey(at, hit);
}

/// Takes the marker under the pointer, if there is one: the end it stands for becomes the range's
/// end, which the pointer drags. @return whether there was one.
bool KeyGesture::PressMarker(Pointer at)
{
    const int marker = m_track.HitTestRangeMarker(at.point);
    if (marker != kStartMarker && marker != kEndMarker)
        return false;
    const int start = m_track.RangeStart();
    const int end = m_track.RangeEnd();
    if (marker == kStartMarker ? start < end : start > end)
        m_track.SetRange(end, start);
    m_state = State::DraggingMarker;
    m_pressedKey = -1;
    WriteCurrentFrame(FrameAt(at.point));
    if (ReportCurrentFrame(m_track) && m_state == State::DraggingMarker)
        m_feedback.ShowResizeCursor();
    return true;
}

/// A press on a row whose sub-keys are edited, but on none of its clips.
void KeyGesture::PressBesideClips(Pointer at)
{
    m_track.Keys().ClearAllSelection();
    if (!TrackReport(m_track).Send(kTrackSelectionCleared))
        return;
    WriteCurrentFrame(FrameAt(at.point));
    ReportCurrentFrame(m_track);
}

/// Selects the key or sub-key that was pressed and goes to it; with Ctrl the selection stays until
/// the release.
void KeyGesture::PressKey(Pointer at, const KeyHit& hit)
{
    const unsigned int turn = m_turn;
    WriteCurrentFrame(FrameAt(at.point));
    if (!at.HasCtrl()) {
        if (!hit.Edited()->selected && !SelectHitAlone(m_track, hit))
            return;
        GoToHit(hit);
        if (!TrackReport(m_track).Send(kTrackSelectionChanged) || turn != m_turn)
            return;
    }
    const int pressedKey = hit.KeyIndex();
    if (pressedKey >= 0 && m_track.HasEditMode(TL_EDIT_MOVE_KEYS)) {
        m_state = State::Armed;
        m_pressedKey = pressedKey;
        m_pressPoint = m_lastStepPoint = at.point;
        m_track.SetRange(-1, -1);
    }
    ReportCurrentFrame(m_track);
}

void KeyGesture::BeginRange(Pointer at, const KeyHit& hit)
{
    m_state = State::DraggingRange;
    m_pressedKey = hit.KeyIndex();
    const int frame = NearestFrame(FrameAt(at.point));
    m_track.SetRange(frame, frame);
    if (!SelectFirstRange(at) || !TrackReport(m_track).Send(kTrackSelectionChanged))
        return;
    WriteCurrentFrame(FrameAt(at.point));
    if (ReportCurrentFrame(m_track))
        m_track.setFocus();
}

/// Selects the pressed frame, or with Shift all from the current frame to it; with Ctrl in addition
/// to what is selected. @return whether the track is still there.
bool KeyGesture::SelectFirstRange(Pointer at)
{
    const int end = m_track.RangeEnd();
    const bool editsSubKeys = m_track.HasEditMode(TL_EDIT_SUB_KEYS);
    if (!at.HasCtrl()) {
        RangeSelection(m_track, m_pressedKey).Clear();
        if (!editsSubKeys && !at.HasShift() && !TrackReport(m_track).Send(kTrackSelectionCleared))
            return false;
    }
    RangeSelection range(m_track, m_pressedKey);
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
    if (m_state != State::DraggingMarker)
        m_feedback.ShowCursor(event.pos());
    if (event.buttons() != Qt::LeftButton) {
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
    SelectRangeTo(at);
    TrackReport(m_track).Send(kTrackSelectionChanged);
}

void KeyGesture::SelectRangeTo(Pointer at)
{
    RangeSelection range(m_track, m_pressedKey);
    if (!at.HasCtrl())
        range.Clear();
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
        const unsigned int turn = m_turn;
        if (!TrackReport(m_track).Send(CodesOf(m_isCopy).begins) || turn != m_turn)
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

void KeyGesture::GiveWay()
{
    ++m_turn;
    m_releaseIsDone = false;
    m_hasGivenWay = true;
    m_watch.Begin();
}

void KeyGesture::ComeBack()
{
    m_releaseIsDone = true;
    m_hasGivenWay = false;
    m_watch.End();
}

/// What a release at the pointer's last place does. Nothing is under way any more when the first
/// report goes out.
void KeyGesture::Finish()
{
    ++m_turn;
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
    if (wasKeys || (wasRange && !m_track.HasEditMode(TL_EDIT_TIME_RANGE)))
        m_track.SetRange(-1, -1);
    if (isThere && (!wasKeys || FinishKeys(at, ended == State::DraggingKeys)))
        ReportCurrentFrame(m_track);
}

/// Toggles with Ctrl what is under the pointer, goes to it, and reports the end of a drag. @return
/// whether the track is still there.
bool KeyGesture::FinishKeys(Pointer at, bool wasDragged)
{
    const bool isCopy = m_isCopy;
    const int frames = FramesSinceLastStep(at.point);
    const KeyHit hit(m_track, at.point);
    if (hit.Edited() && at.HasCtrl() && !wasDragged) {
        hit.SelectEdited(!hit.Edited()->selected);
        if (!TrackReport(m_track).Send(kTrackSelectionChanged))
            return false;
    }
    GoToHit(hit);
    return !wasDragged || TrackReport(m_track).Send(CodesOf(isCopy).ends, frames);
}

// --- Double click

void KeyGesture::DoubleClick(QMouseEvent& event)
{
    if (event.button() != Qt::LeftButton) {
        event.ignore();
        return;
    }
    const QPointer<CTimelineTrackBase> track(&m_track);
    End();
    if (!track)
        return;
    m_pointer = {event.pos(), event.modifiers()};
    m_releaseIsDone = false;
    DoubleClickRow(m_pointer);
}

void KeyGesture::DoubleClickRow(Pointer at)
{
    ++m_turn;
    if (!TrackReport(m_track).Send(kTrackPressed))
        return;
    m_track.Keys().ClearAllSelection();
    if (!TrackReport(m_track).Send(kTrackSelectionCleared))
        return;

    const int frame = FrameAt(at.point);
    WriteCurrentFrame(frame);
    if (frame >= TimelineLibrary::Instance().axis.frameCount) {
        ReportCurrentFrame(m_track);
        return;
    }
    const KeyHit hit(m_track, at.point);
    if (hit.Key() && m_track.GetEditModes().GetSize() > 0 && !SelectDoubleClicked(m_track, hit))
        return;
    if (ReportCurrentFrame(m_track))
        TrackReport(m_track).Send(kTrackDoubleClicked, hit.EditedIndex());
}
