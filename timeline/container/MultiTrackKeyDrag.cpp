#include "container/MultiTrackKeyDrag.h"

#include "container/CTimelineContainer.h"
#include "container/TrackMessageDispatch.h"
#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "tracks/CTimelineTrackBase.h"

#include <QApplication>

#include <algorithm>
#include <limits>
#include <optional>
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

std::int64_t FrameCount()
{
    return TimelineLibrary::Instance().axis.frameCount;
}

// The selection list may hold entries that point past the last key; they count as none.

const CTimelineKey* FirstSelectedKey(const CTimelineKeyArray& keys)
{
    for (const int index : keys.SelectedIndexes()) {
        if (index >= 0 && static_cast<std::size_t>(index) < keys.GetSize())
            return keys.Keys()[static_cast<std::size_t>(index)].Get();
    }
    return nullptr;
}

const CTimelineKey* LastSelectedKey(const CTimelineKeyArray& keys)
{
    const std::vector<int>& indexes = keys.SelectedIndexes();
    for (auto index = indexes.rbegin(); index != indexes.rend(); ++index) {
        if (*index >= 0 && static_cast<std::size_t>(*index) < keys.GetSize())
            return keys.Keys()[static_cast<std::size_t>(*index)].Get();
    }
    return nullptr;
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
    for (Part& part : m_parts) {
        if (!part.keys)
            continue;
        part.copies = part.keys->CopySelected();
        for (const auto& copy : part.copies)
            copy->selected = false;
        part.keys->ClearAllSelection();
        part.keys->AddSelected(part.copies);
        part.track->InvalidateCaches();
    }
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
    std::int64_t firstFrame = FrameCount();
    for (Part& part : m_parts) {
        TakeOutCopies(part);
        firstFrame = std::min(firstFrame, FirstFrame(part));
    }
    const Answer copied = Edit(TL_EDIT_COPY, 0);
    if (!copied.goesOn)
        return kNoDrag;
    if (copied.value < 0) {
        // Refused: the originals stay selected, and the move sets are left.
        Close();
        return 0;
    }

    std::optional<BorrowedCurrentFrame> pasteFrame(ToInt(m_moved + firstFrame));
    const Answer pasted = Edit(TL_EDIT_PASTE, 0);
    pasteFrame.reset();
    if (!pasted.goesOn)
        return pasted.value;
    for (Part& part : m_parts) {
        if (!part.keys)
            continue;
        part.keys->ClearAllSelection();
        part.keys->SelectFramesOf(part.formerCopies, CTimelineKeyArray::Kinds::Any);
    }
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
    m_movesSubKeys = tracks.GetSize() == 1 && tracks[0]->HasEditMode(TL_EDIT_SUB_KEYS);
    for (CTimelineTrackBase* const track : tracks)
        m_parts.push_back({track, &track->Keys(), {}, {}});
    FindSubKeys();
    return true;
}

/// Puts an end to the drag, whatever state the keys are in. @return who took part.
std::vector<MultiTrackKeyDrag::Part> MultiTrackKeyDrag::Close()
{
    ++m_number;
    m_sender = nullptr;
    return std::exchange(m_parts, {});
}

/// Puts an end to the drag. The move sets are emptied, and copies that still stand beside their
/// originals taken out.
void MultiTrackKeyDrag::Abandon()
{
    for (Part& part : Close())
        LeaveDrag(part);
}

void MultiTrackKeyDrag::Forget(const CTimelineTrackBase* track)
{
    if (m_sender && m_sender == track) {
        Abandon();
        return;
    }
    const auto place = std::find_if(m_parts.begin(), m_parts.end(),
                                    [track](const Part& part) { return part.track == track; });
    if (place == m_parts.end())
        return;
    Part part = std::move(*place);
    m_parts.erase(place);
    LeaveDrag(part);
}

/// Leaves what is not there any more: Qt deletes a track with its parent without asking anybody.
void MultiTrackKeyDrag::DropDeadParts()
{
    if (!m_sender) {
        Abandon();
        return;
    }
    const auto dead = std::stable_partition(m_parts.begin(), m_parts.end(),
                                            [](const Part& part) { return !part.track.isNull(); });
    std::vector<Part> left(std::make_move_iterator(dead), std::make_move_iterator(m_parts.end()));
    m_parts.erase(dead, m_parts.end());
    for (Part& part : left)
        LeaveDrag(part);
}

void MultiTrackKeyDrag::LeaveDrag(Part& part)
{
    if (!part.copies.empty())
        TakeOutCopies(part);
    if (part.keys)
        part.keys->ClearAllMove();
    if (part.track)
        part.track->InvalidateCaches();
}

// --- What a drag does to the keys

/// The drag of sub-keys is in the clip that is the first selected one now: the host may have put
/// another in its place. Copies stay where they stand.
void MultiTrackKeyDrag::FindSubKeys()
{
    if (!m_movesSubKeys || m_parts.empty() || !m_parts.front().copies.empty())
        return;
    Part& part = m_parts.front();
    const CTimelineKey* const clip = FirstSelectedKey(part.track->Keys());
    part.keys = clip ? clip->subKeys : nullptr;
}

/// Finds how far the keys may move, and keeps what they are before they do. A track with nothing
/// selected sets no bounds: locked copies are never selected. Without any bounds nothing moves.
void MultiTrackKeyDrag::SetOut()
{
    bool isFirst = true;
    for (const Part& part : m_parts) {
        if (!part.keys)
            continue;
        const CTimelineKey* const first = FirstSelectedKey(*part.keys);
        const CTimelineKey* const last = LastSelectedKey(*part.keys);
        if (first && last) {
            const CTimelineKey* const clip =
                m_movesSubKeys ? FirstSelectedKey(part.track->Keys()) : nullptr;
            const std::int64_t end = clip ? clip->clipLength : FrameCount() - 1;
            const std::int64_t lowest = -std::int64_t{first->frame};
            const std::int64_t highest = end - last->frame;
            m_lowest = isFirst ? lowest : std::max(m_lowest, lowest);
            m_highest = isFirst ? highest : std::min(m_highest, highest);
            isFirst = false;
        }
        part.keys->SetSelToMove();
    }
}

/// Moves the keys by @p delta frames, which is cut to what the bounds leave of it. False without a
/// track that takes part.
bool MultiTrackKeyDrag::Move(int& delta)
{
    DropDeadParts();
    if (m_parts.empty())
        return false;
    FindSubKeys();
    std::int64_t step = delta;
    if (m_lowest > m_moved + step)
        step = m_lowest - m_moved;
    if (m_highest < m_moved + step)
        step = m_highest - m_moved;
    delta = ToInt(step);
    m_moved += delta;
    for (const Part& part : m_parts) {
        if (part.keys)
            part.keys->MoveKeys(delta, false);
        part.track->InvalidateCaches();
    }
    return true;
}

/// Takes the copies out of the array and selects again what stands where the originals were.
void MultiTrackKeyDrag::TakeOutCopies(Part& part)
{
    if (!part.keys)
        return;
    part.formerCopies = std::exchange(part.copies, {});
    part.keys->RemoveKeys(part.formerCopies);
    part.keys->ClearAllSelection();
    part.keys->SelectFramesOf(part.keys->MoveSet(), CTimelineKeyArray::Kinds::Theirs);
    if (part.track)
        part.track->InvalidateCaches();
}

/// The lowest frame in the part's move set, counted from the start of the timeline; the frame count
/// without any below it.
std::int64_t MultiTrackKeyDrag::FirstFrame(const Part& part) const
{
    std::int64_t first = FrameCount();
    if (!part.keys)
        return first;
    const CTimelineKey* const clip =
        m_movesSubKeys ? FirstSelectedKey(part.track->Keys()) : nullptr;
    const std::int64_t start = clip ? clip->frame : 0;
    for (const auto& key : part.keys->MoveSet())
        first = std::min(first, start + key->frame);
    return first;
}

/// Asks the host about an edit of the tracks that take part.
MultiTrackKeyDrag::Answer MultiTrackKeyDrag::Edit(TLEditType type, std::int64_t value)
{
    VZ::CArrayList<CTimelineTrackBase*> tracks;
    for (const Part& part : m_parts)
        tracks.Add(part.track);

    const QPointer<CTimelineContainer> container(&m_container);
    const unsigned int number = m_number;
    const int answer = m_container.SendEdit(type, tracks, QVariant(ToInt(value)), QVariant(0));
    if (!container)
        return {answer, false};
    if (number == m_number)
        DropDeadParts();
    return {answer, number == m_number && !m_parts.empty()};
}
