#include "container/DraggedTrack.h"

#include "tracks/CTimelineTrackBase.h"

#include <algorithm>
#include <utility>

namespace {

/// The key at the first of some entries of a selection list that means one: an entry may point past
/// the last key. Null when none does.
template <class Iterator>
const CTimelineKey* FirstKey(const CTimelineKeyArray& keys, Iterator begin, Iterator end)
{
    const auto entry = std::find_if(begin, end, [&keys](int index) {
        return index >= 0 && static_cast<std::size_t>(index) < keys.GetSize();
    });
    return entry == end ? nullptr : keys.Keys()[static_cast<std::size_t>(*entry)].Get();
}

const CTimelineKey* FirstSelectedKey(const CTimelineKeyArray& keys)
{
    return FirstKey(keys, keys.SelectedIndexes().begin(), keys.SelectedIndexes().end());
}

const CTimelineKey* LastSelectedKey(const CTimelineKeyArray& keys)
{
    return FirstKey(keys, keys.SelectedIndexes().rbegin(), keys.SelectedIndexes().rend());
}

} // namespace

DraggedTrack::DraggedTrack(CTimelineTrackBase* track, bool movesSubKeys)
    : m_track(track), m_movesSubKeys(movesSubKeys), m_keys(movesSubKeys ? nullptr : &track->Keys())
{
    FindSubKeys();
}

CTimelineTrackBase* DraggedTrack::Track() const
{
    return m_track;
}

/// The sub-keys that move are those of the clip that is the first selected one now: the host may
/// have put another in its place. The former ones keep no move set. Copies stay where they stand.
void DraggedTrack::FindSubKeys()
{
    if (!m_movesSubKeys || !m_copies.empty())
        return;
    const CTimelineKey* const clip = Clip();
    const VZ::CPointer<CTimelineKeyArray> former =
        std::exchange(m_keys, clip ? clip->subKeys : VZ::CPointer<CTimelineKeyArray>());
    if (former && former != m_keys)
        former->ClearAllMove();
}

const CTimelineKey* DraggedTrack::Clip() const
{
    return m_movesSubKeys && m_track ? FirstSelectedKey(m_track->Keys()) : nullptr;
}

std::optional<DraggedTrack::Frames> DraggedTrack::SelectedFrames() const
{
    const CTimelineKey* const first = m_keys ? FirstSelectedKey(*m_keys) : nullptr;
    if (!first)
        return std::nullopt;
    return Frames{first->frame, LastSelectedKey(*m_keys)->frame};
}

std::optional<int> DraggedTrack::FirstMoveSetFrame() const
{
    if (!m_keys || m_keys->MoveSet().empty())
        return std::nullopt;
    const auto& moveSet = m_keys->MoveSet();
    const auto first =
        std::min_element(moveSet.begin(), moveSet.end(),
                         [](const auto& a, const auto& b) { return a->frame < b->frame; });
    return (*first)->frame;
}

void DraggedTrack::AddCopies()
{
    if (!m_keys)
        return;
    m_copies = m_keys->CopySelected();
    for (const auto& copy : m_copies)
        copy->selected = false;
    m_keys->ClearAllSelection();
    m_keys->AddSelected(m_copies);
    InvalidateCaches();
}

void DraggedTrack::KeepMoveSet()
{
    if (m_keys)
        m_keys->SetSelToMove();
}

void DraggedTrack::Move(int delta)
{
    FindSubKeys();
    if (m_keys)
        m_keys->MoveKeys(delta, false);
    InvalidateCaches();
}

void DraggedTrack::TakeOutCopies()
{
    if (!m_keys)
        return;
    m_takenCopies = std::exchange(m_copies, {});
    m_keys->RemoveKeys(m_takenCopies);
    m_keys->ClearAllSelection();
    m_keys->SelectFramesOf(m_keys->MoveSet(), CTimelineKeyArray::Kinds::Theirs);
    InvalidateCaches();
}

void DraggedTrack::SelectAtCopies()
{
    FindSubKeys();
    if (!m_keys)
        return;
    m_keys->ClearAllSelection();
    m_keys->SelectFramesOf(m_takenCopies, CTimelineKeyArray::Kinds::Any);
}

void DraggedTrack::Leave()
{
    if (!m_copies.empty())
        TakeOutCopies();
    if (m_keys)
        m_keys->ClearAllMove();
    InvalidateCaches();
}

void DraggedTrack::InvalidateCaches() const
{
    if (m_track)
        m_track->InvalidateCaches();
}
