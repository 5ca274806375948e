// The selection, the move set and the moving of selected keys.
//
// The selection list can hold indexes past the last key (see RemoveAt(int)). Loops here pass over
// them and leave the list as it is.

#include "AscendingSearch.h"
#include "CTimelineKeyArray.h"
#include "FrameOrder.h"
#include "KeyArrayRevision.h"
#include "TimelineKeyValues.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <utility>

namespace {

int ShiftedFrame(int frame, int delta)
{
    return static_cast<int>(std::clamp<std::int64_t>(std::int64_t{frame} + delta,
                                                     std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

/// Merges two lists in frame order, the moved keys behind those that stand at their frames. The
/// pointers move over: no key's count is touched.
CTimelineKeyArray::KeyVector MergeBehind(CTimelineKeyArray::KeyVector standing,
                                         CTimelineKeyArray::KeyVector moved)
{
    CTimelineKeyArray::KeyVector merged;
    merged.reserve(standing.size() + moved.size());
    std::merge(std::make_move_iterator(standing.begin()), std::make_move_iterator(standing.end()),
               std::make_move_iterator(moved.begin()), std::make_move_iterator(moved.end()),
               std::back_inserter(merged),
               [](const auto& a, const auto& b) { return a->frame < b->frame; });
    return merged;
}

bool PassesMask(const CTimelineKey& key, unsigned int mask)
{
    return mask == TL_KEY_ANY_KIND || (static_cast<unsigned int>(key.kindMask) & mask) != 0;
}

} // namespace

// --- Selecting

bool CTimelineKeyArray::SetSelection(int frameA, int frameB, bool select, unsigned int mask)
{
    if (m_keys.empty())
        return false;
    const auto [low, high] = std::minmax(frameA, frameB);

    bool found = false;
    int first = 0;
    GetInsertIndex(low, true, first, found);
    if (!IsKeyIndex(first))
        return true;

    // A range below the first key ends at -1, and one between two keys before its start: both are
    // empty.
    int last = 0;
    GetInsertIndex(high, false, last, found);
    if (!found)
        --last;
    SelectIndexes(first, last, select, mask);
    return true;
}

bool CTimelineKeyArray::SetSelectionByIndex(int first, int last, bool select, unsigned int)
{
    if (!IsKeyIndex(first) || !IsKeyIndex(last))
        return false;
    SelectIndexes(first, last, select, TL_KEY_ANY_KIND);
    return true;
}

/// Selects or deselects the keys from @p first to @p last, none if first > last. The keys' flags
/// are set one by one; the list takes all changes at once, so that a range costs no more than its
/// length and the entries behind it.
void CTimelineKeyArray::SelectIndexes(int first, int last, bool select, unsigned int mask)
{
    std::vector<int> changed;
    for (int index = first; index <= last; ++index) {
        CTimelineKey& key = *KeyAt(index);
        if (!PassesMask(key, mask) || key.selected == select || key.lockState == TL_KEY_LOCKED)
            continue;
        key.selected = select;
        changed.push_back(index);
    }
    ChangeEntries(changed, select);
}

void CTimelineKeyArray::SetSelectionOfKeys(const std::vector<Choice>& choices)
{
    std::vector<int> selected;
    std::vector<int> deselected;
    for (const Choice& choice : choices) {
        CTimelineKey& key = *KeyAt(choice.index);
        if (key.selected == choice.select || key.lockState == TL_KEY_LOCKED)
            continue;
        key.selected = choice.select;
        (choice.select ? selected : deselected).push_back(choice.index);
    }
    ChangeEntries(selected, true);
    ChangeEntries(deselected, false);
}

/// Puts the indexes @p changed, which are ascending, into the selection list or takes them out.
void CTimelineKeyArray::ChangeEntries(const std::vector<int>& changed, bool select)
{
    if (changed.empty())
        return;
    CountKeyArrayChange();
    const auto begin = std::lower_bound(m_selection.begin(), m_selection.end(), changed.front());
    const auto end = std::upper_bound(begin, m_selection.end(), changed.back());
    std::vector<int> entries;
    entries.reserve(changed.size() + static_cast<std::size_t>(end - begin));
    if (select)
        std::set_union(begin, end, changed.begin(), changed.end(), std::back_inserter(entries));
    else
        std::set_difference(begin, end, changed.begin(), changed.end(),
                            std::back_inserter(entries));
    m_selection.insert(m_selection.erase(begin, end), entries.begin(), entries.end());
}

void CTimelineKeyArray::ClearAllSelection()
{
    // Emptied first, so that sub-keys that lead back to this array find nothing left to do.
    const std::vector<int> entries = std::exchange(m_selection, {});
    if (!entries.empty())
        CountKeyArrayChange();
    for (int index : entries) {
        if (!IsKeyIndex(index))
            continue;
        CTimelineKey& key = *KeyAt(index);
        key.selected = false;
        if (key.subKeys)
            key.subKeys->ClearAllSelection();
    }
}

void CTimelineKeyArray::SelectOnly(int index)
{
    const VZ::CPointer<CTimelineKey> chosen = IsKeyIndex(index) ? KeyAt(index) : nullptr;
    CountKeyArrayChange();
    // Emptied first, so that sub-keys that lead back to this array find nothing left to do.
    m_selection.clear();
    for (const auto& key : m_keys) {
        if (key == chosen)
            continue;
        key->selected = false;
        if (key->subKeys && !(chosen && key->subKeys == chosen->subKeys))
            key->subKeys->ClearAllSelection();
    }
    if (!chosen)
        return;
    if (chosen->lockState != TL_KEY_LOCKED)
        chosen->selected = true;
    if (chosen->selected)
        m_selection.push_back(index);
}

/// Takes the selection anew from the keys' `selected` members.
void CTimelineKeyArray::RebuildSelection()
{
    m_selection.clear();
    for (std::size_t i = 0; i < m_keys.size(); ++i) {
        if (m_keys[i]->selected)
            m_selection.push_back(static_cast<int>(i));
    }
}

// --- The selection list

int CTimelineKeyArray::SelAdd(int keyIndex)
{
    int position = 0;
    bool found = false;
    SelGetInsertIndex(keyIndex, position, found);
    if (found)
        return position;
    CountKeyArrayChange();
    m_selection.insert(m_selection.begin() + position, keyIndex);
    return position;
}

void CTimelineKeyArray::SelGetInsertIndex(int keyIndex, int& position, bool& found) const
{
    const auto entryAt = [this](int at) { return m_selection[static_cast<std::size_t>(at)]; };
    const SearchResult result =
        SearchAscending(static_cast<int>(m_selection.size()), keyIndex, entryAt);
    position = result.index;
    found = result.found;
}

int CTimelineKeyArray::SelHitKey(int keyIndex) const
{
    int position = 0;
    bool found = false;
    SelGetInsertIndex(keyIndex, position, found);
    return found ? position : -1;
}

int CTimelineKeyArray::SelGetAt(int position) const
{
    return m_selection[static_cast<std::size_t>(position)];
}

VZ::CPointer<CTimelineKey> CTimelineKeyArray::SelGetKeyAt(int position) const
{
    const int index = SelGetAt(position);
    return IsKeyIndex(index) ? KeyAt(index) : VZ::CPointer<CTimelineKey>();
}

std::size_t CTimelineKeyArray::SelGetSize() const
{
    return m_selection.size();
}

CTimelineKeyArray::KeyVector CTimelineKeyArray::CopySelected() const
{
    KeyVector copies;
    copies.reserve(m_selection.size());
    for (int index : m_selection) {
        if (IsKeyIndex(index))
            copies.push_back(new CTimelineKey(*KeyAt(index)));
    }
    return copies;
}

// --- Moving

void CTimelineKeyArray::SetSelToMove()
{
    m_moveSet = CopySelected();
}

VZ::CPointer<CTimelineKey> CTimelineKeyArray::MoveGetAt(int position) const
{
    return m_moveSet[static_cast<std::size_t>(position)];
}

std::size_t CTimelineKeyArray::MoveGetSize() const
{
    return m_moveSet.size();
}

void CTimelineKeyArray::ClearAllMove()
{
    m_moveSet.clear();
}

void CTimelineKeyArray::MoveKeys(int delta, bool replace)
{
    CountKeyArrayChange();
    for (int index : m_selection) {
        if (IsKeyIndex(index))
            KeyAt(index)->frame = ShiftedFrame(KeyAt(index)->frame, delta);
    }
    KeyVector moved = TakeOutSelectedKeys();
    if (!replace && IsInFrameOrder(m_keys) && IsInFrameOrder(moved))
        m_keys = MergeBehind(std::move(m_keys), std::move(moved));
    else
        AddKeys(moved, replace);
    UpdateDisplayLengthsBelow(m_keys.size());
    RebuildSelection();
}

/// Moves the selected keys out of the list, in their order, and closes the gaps. The selection list
/// stays as it is.
CTimelineKeyArray::KeyVector CTimelineKeyArray::TakeOutSelectedKeys()
{
    KeyVector taken;
    KeyVector kept;
    taken.reserve(m_selection.size());
    kept.reserve(m_keys.size());
    auto selected = std::lower_bound(m_selection.begin(), m_selection.end(), 0);
    for (std::size_t i = 0; i < m_keys.size(); ++i) {
        const bool isSelected =
            selected != m_selection.end() && static_cast<std::size_t>(*selected) == i;
        if (isSelected)
            ++selected;
        (isSelected ? taken : kept).push_back(std::move(m_keys[i]));
    }
    m_keys = std::move(kept);
    return taken;
}
