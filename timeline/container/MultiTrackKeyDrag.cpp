#include "container/MultiTrackKeyDrag.h"

#include "container/CTimelineContainer.h"
#include "container/TrackMessageDispatch.h"
#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "tracks/CTimelineTrackBase.h"

#include <QApplication>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr int kNoDrag = -1;

/// The wait cursor over the whole application, for as long as this stands.
class WaitCursor
{
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

/// Another current frame, unclamped and unseen, for as long as this stands. What anybody sets
/// meanwhile is lost.
class BorrowedCurrentFrame
{
public:
    explicit BorrowedCurrentFrame(int frame) : m_former(std::exchange(Current(), frame)) {}
    ~BorrowedCurrentFrame() { Current() = m_former; }
    BorrowedCurrentFrame(const BorrowedCurrentFrame&) = delete;
    BorrowedCurrentFrame& operator=(const BorrowedCurrentFrame&) = delete;

private:
    static int& Current() { return TimelineLibrary::Instance().axis.currentFrame; }

    int m_former;
};

int ToInt(std::int64_t value)
{
    return static_cast<int>(std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

std::int64_t FramesOfAxis()
{
    return TimelineLibrary::Instance().axis.frameCount;
}

} // namespace

MultiTrackKeyDrag::~MultiTrackKeyDrag()
{
    Abandon();
}

int MultiTrackKeyDrag::Handle(const TrackMessage& message)
{
    const QPointer<CTimelineContainer> container(&m_container);
    const int result = Act(message);
    if (container)
        container->Refresh(false);
    return result;
}

int MultiTrackKeyDrag::Act(const TrackMessage& message)
{
    const int delta = message.value2.toInt();
    switch (message.code) {
    case kTrackKeyMoveBegins:
        return BeginMove(message.track);
    case kTrackKeyMoveStep:
        return StepMove(delta);
    case kTrackKeyMoveEnds:
        return EndMove(delta);
    case kTrackKeyCopyBegins:
        return BeginCopy(message.track);
    case kTrackKeyCopyStep:
        return StepCopy(delta);
    case kTrackKeyCopyEnds:
        return EndCopy(delta);
    default:
        return kNoDrag;
    }
}

// --- The codes

int MultiTrackKeyDrag::BeginMove(CTimelineTrackBase* sender)
{
    if (!Begin(sender))
        return kNoDrag;
    SetOut();
    return Edit(TL_EDIT_BEGIN, 0).value;
}

int MultiTrackKeyDrag::BeginCopy(CTimelineTrackBase* sender)
{
    if (!Begin(sender))
        return kNoDrag;
    for (DraggedTrack& track : m_tracks)
        track.AddCopies();
    SetOut();
    return -1;
}

int MultiTrackKeyDrag::StepMove(int delta)
{
    return Move(delta) ? Edit(TL_EDIT_MOVE_KEYS, delta).value : kNoDrag;
}

int MultiTrackKeyDrag::StepCopy(int delta)
{
    return Move(delta) ? 0 : kNoDrag;
}

int MultiTrackKeyDrag::EndMove(int delta)
{
    if (!Move(delta))
        return kNoDrag;
    const WaitCursor cursor;
    if (!Edit(TL_EDIT_MOVE_KEYS_END, m_moved).goesOn)
        return kNoDrag;
    const Answer answer = Edit(TL_EDIT_END, 0);
    if (answer.goesOn)
        Abandon();
    return answer.value;
}

int MultiTrackKeyDrag::EndCopy(int delta)
{
    if (!Move(delta))
        return kNoDrag;
    const WaitCursor cursor;
    for (DraggedTrack& track : m_tracks)
        track.TakeOutCopies();
    const int pasteFrame = PasteFrame();
    const Answer copied = Edit(TL_EDIT_COPY, 0);
    if (!copied.goesOn)
        return kNoDrag;
    if (copied.value < 0) {
        // Refused: the originals stay selected, and the move sets are left.
        Close();
        return 0;
    }
    const Answer pasted = Paste(pasteFrame);
    if (!pasted.goesOn)
        return pasted.value;
    for (DraggedTrack& track : m_tracks)
        track.SelectAtCopies();
    Abandon();
    return pasted.value;
}

// --- The drag's life

/// Gathers the tracks that take part; false without any.
bool MultiTrackKeyDrag::Begin(CTimelineTrackBase* sender)
{
    Abandon();
    m_moved = m_lowest = m_highest = 0;
    VZ::CArrayList<CTimelineTrackBase*> tracks;
    m_container.GetSelectedKeyTrack(tracks);
    if (tracks.GetSize() == 0)
        return false;
    m_sender = sender;
    const bool movesSubKeys = tracks.GetSize() == 1 && tracks[0]->HasEditMode(TL_EDIT_SUB_KEYS);
    for (CTimelineTrackBase* const track : tracks)
        m_tracks.emplace_back(track, movesSubKeys);
    return true;
}

/// Puts an end to the drag, whatever state the keys are in. @return the tracks that took part.
std::vector<DraggedTrack> MultiTrackKeyDrag::Close()
{
    ++m_number;
    m_sender = nullptr;
    return std::exchange(m_tracks, {});
}

/// Puts an end to the drag. The move sets are emptied, and copies that still stand beside their
/// originals taken out.
void MultiTrackKeyDrag::Abandon()
{
    for (DraggedTrack& track : Close())
        track.Leave();
}

void MultiTrackKeyDrag::Forget(const CTimelineTrackBase* track)
{
    if (m_sender && m_sender == track) {
        Abandon();
        return;
    }
    const auto place =
        std::find_if(m_tracks.begin(), m_tracks.end(),
                     [track](const DraggedTrack& each) { return each.Track() == track; });
    if (place == m_tracks.end())
        return;
    DraggedTrack left = std::move(*place);
    m_tracks.erase(place);
    left.Leave();
}

/// Leaves what is not there any more: Qt deletes a track with its parent without asking anybody.
void MultiTrackKeyDrag::DropDeadTracks()
{
    if (!m_sender) {
        Abandon();
        return;
    }
    for (auto track = m_tracks.begin(); track != m_tracks.end();) {
        if (track->Track()) {
            ++track;
            continue;
        }
        track->Leave();
        track = m_tracks.erase(track);
    }
}

// --- Moving and asking

/// Finds how far the keys may move, and keeps what they are before they do. A track with nothing
/// selected sets no bounds: locked copies are never selected. Without any bounds nothing moves.
void MultiTrackKeyDrag::SetOut()
{
    bool isFirst = true;
    for (DraggedTrack& track : m_tracks) {
        if (const auto frames = track.SelectedFrames()) {
            const CTimelineKey* const clip = track.Clip();
            const std::int64_t end = clip ? clip->clipLength : FramesOfAxis() - 1;
            const std::int64_t lowest = -std::int64_t{frames->first};
            const std::int64_t highest = end - frames->last;
            m_lowest = isFirst ? lowest : std::max(m_lowest, lowest);
            m_highest = isFirst ? highest : std::min(m_highest, highest);
            isFirst = false;
        }
        track.KeepMoveSet();
    }
}

/// Moves the keys by @p delta frames, which is cut to what the bounds leave of it. False without a
/// track that takes part.
bool MultiTrackKeyDrag::Move(int& delta)
{
    DropDeadTracks();
    if (m_tracks.empty())
        return false;
    std::int64_t step = delta;
    if (m_lowest > m_moved + step)
        step = m_lowest - m_moved;
    if (m_highest < m_moved + step)
        step = m_highest - m_moved;
    delta = ToInt(step);
    m_moved += delta;
    for (DraggedTrack& track : m_tracks)
        track.Move(delta);
    return true;
}

/// Where the first of the copies has been moved to, counted from the start of the timeline. No key
/// counts as standing behind the last frame.
int MultiTrackKeyDrag::PasteFrame() const
{
    std::int64_t first = FramesOfAxis();
    for (const DraggedTrack& track : m_tracks) {
        const CTimelineKey* const clip = track.Clip();
        const std::int64_t start = clip ? clip->frame : 0;
        if (const auto frame = track.FirstMoveSetFrame())
            first = std::min(first, start + *frame);
    }
    return ToInt(m_moved + first);
}

/// Asks the host about an edit of the tracks that take part.
MultiTrackKeyDrag::Answer MultiTrackKeyDrag::Edit(TLEditType type, std::int64_t value)
{
    VZ::CArrayList<CTimelineTrackBase*> tracks;
    for (const DraggedTrack& track : m_tracks)
        tracks.Add(track.Track());

    const QPointer<CTimelineContainer> container(&m_container);
    const unsigned int number = m_number;
    const int answer = m_container.SendEdit(type, tracks, QVariant(ToInt(value)), QVariant(0));
    if (!container)
        return {answer, false};
    if (number == m_number)
        DropDeadTracks();
    return {answer, number == m_number && !m_tracks.empty()};
}

/// Asks the host to paste with @p frame as the current one.
MultiTrackKeyDrag::Answer MultiTrackKeyDrag::Paste(int frame)
{
    const BorrowedCurrentFrame current(frame);
    return Edit(TL_EDIT_PASTE, 0);
}
