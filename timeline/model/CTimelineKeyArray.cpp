#include "CTimelineKeyArray.h"

#include "AscendingSearch.h"
#include "ClipDisplayLength.h"
#include "KeyArrayRevision.h"

#include <algorithm>
#include <cstdint>
#include <utility>

CTimelineKeyArray::CTimelineKeyArray() = default;

CTimelineKeyArray::CTimelineKeyArray(const CTimelineKeyArray& other) = default;

CTimelineKeyArray& CTimelineKeyArray::operator=(const CTimelineKeyArray& other)
{
    // Our keys are released with the copy, at the end: the other array can be inside one of them.
    CTimelineKeyArray copy(other);
    CountKeyArrayChange();
    CReltedGroupBase::operator=(copy);
    m_keys.swap(copy.m_keys);
    m_selection.swap(copy.m_selection);
    m_moveSet.swap(copy.m_moveSet);
    m_relatedKeys.swap(copy.m_relatedKeys);
    return *this;
}

CTimelineKeyArray::~CTimelineKeyArray() = default;

void CTimelineKeyArray::IncrementReferences()
{
    ++m_references;
}

void CTimelineKeyArray::DecrementReferences()
{
    if (m_references-- == 1)
        delete this;
}

unsigned int CTimelineKeyArray::GetReferences() const
{
    return m_references;
}

// --- Search

void CTimelineKeyArray::GetInsertIndex(const KeyVector& keys, int frame, bool first, int& index,
                                       bool& found) const
{
    const auto frameAt = [&keys](int at) { return keys[static_cast<std::size_t>(at)]->frame; };
    const SearchResult result = SearchAscending(static_cast<int>(keys.size()), frame, frameAt);
    found = result.found;
    index = found ? GetSameFrameID(keys, result.index, first) : result.index;
}

void CTimelineKeyArray::GetInsertIndex(int frame, bool first, int& index, bool& found) const
{
    GetInsertIndex(m_keys, frame, first, index, found);
}

int CTimelineKeyArray::GetSameFrameID(const KeyVector& keys, int index, bool first) const
{
    const int size = static_cast<int>(keys.size());
    if (index < 0 || index >= size)
        return -1;
    const auto frameAt = [&keys](int at) { return keys[static_cast<std::size_t>(at)]->frame; };
    const int frame = frameAt(index);
    if (first) {
        while (index > 0 && frameAt(index - 1) == frame)
            --index;
    } else {
        while (index + 1 < size && frameAt(index + 1) == frame)
            ++index;
    }
    return index;
}

int CTimelineKeyArray::HitKey(const KeyVector& keys, int frame, bool first) const
{
    int index = 0;
    bool found = false;
    GetInsertIndex(keys, frame, first, index, found);
    return found ? index : -1;
}

int CTimelineKeyArray::HitKey(int frame, bool first) const
{
    return HitKey(m_keys, frame, first);
}

int CTimelineKeyArray::HitClipRange(int frame, bool first, bool exclusive) const
{
    int index = 0;
    bool found = false;
    GetInsertIndex(frame, first, index, found);
    const int candidate = found ? index : index - 1;
    if (candidate < 0 || KeyAt(candidate)->clipLength < 1)
        return -1;

    const std::int64_t start = KeyAt(candidate)->frame;
    const std::int64_t end = start + KeyAt(candidate)->displayLength;
    const bool hit = exclusive ? start < frame && frame < end : start <= frame && frame <= end;
    return hit ? candidate : -1;
}

// --- Insertion and removal

/// Puts a key into a frame-ordered list by the rule that the main and the related list share.
int CTimelineKeyArray::Place(KeyVector& keys, VZ::CPointer<CTimelineKey> key, bool replace)
{
    int index = 0;
    bool found = false;
    GetInsertIndex(keys, key->frame, false, index, found);
    if (found && replace) {
        keys[static_cast<std::size_t>(index)] = std::move(key);
        return index;
    }
    if (found)
        ++index;
    keys.insert(keys.begin() + index, std::move(key));
    return index;
}

int CTimelineKeyArray::Add(VZ::CPointer<CTimelineKey> key, bool replace)
{
    if (!key)
        return -1;
    const int index = Place(m_keys, std::move(key), replace);
    CountKeyArrayChange();
    UpdateClipDisplayLength(index);
    RebuildSelection();
    return index;
}

void CTimelineKeyArray::RemoveAt(int index)
{
    const int position = SelHitKey(index);
    if (position >= 0) {
        auto later = m_selection.erase(m_selection.begin() + position);
        for (; later != m_selection.end(); ++later)
            --*later;
    }
    CountKeyArrayChange();
    m_keys.erase(m_keys.begin() + index);
    UpdateDisplayLengthsBelow(static_cast<std::size_t>(index));
}

void CTimelineKeyArray::RemoveAt(CTimelineKey* key)
{
    const auto place = std::find(m_keys.begin(), m_keys.end(), key);
    if (place != m_keys.end())
        RemoveAt(static_cast<int>(place - m_keys.begin()));
}

void CTimelineKeyArray::RemoveAll()
{
    if (!m_keys.empty() || !m_selection.empty() || !m_relatedKeys.empty())
        CountKeyArrayChange();
    m_keys.clear();
    m_selection.clear();
    m_moveSet.clear();
    m_relatedKeys.clear();
}

// --- Access

VZ::CPointer<CTimelineKey> CTimelineKeyArray::GetAt(int index) const
{
    return KeyAt(index);
}

std::size_t CTimelineKeyArray::GetSize() const
{
    return m_keys.size();
}

bool CTimelineKeyArray::IsKeyIndex(int index) const
{
    return index >= 0 && static_cast<std::size_t>(index) < m_keys.size();
}

const VZ::CPointer<CTimelineKey>& CTimelineKeyArray::KeyAt(int index) const
{
    return m_keys[static_cast<std::size_t>(index)];
}

// --- Display lengths

void CTimelineKeyArray::UpdateClipDisplayLength(int index)
{
    CountKeyArrayChange();
    CTimelineKey* const previous = index > 0 ? KeyAt(index - 1).Get() : nullptr;
    const CTimelineKey* const next = IsKeyIndex(index + 1) ? KeyAt(index + 1).Get() : nullptr;
    StoreDisplayLengths(previous, *KeyAt(index), next);
}

/// Computes the display length of every key before @p index, in ascending order.
void CTimelineKeyArray::UpdateDisplayLengthsBelow(std::size_t index)
{
    for (std::size_t i = 0; i < index; ++i) {
        const CTimelineKey* const next = i + 1 < m_keys.size() ? m_keys[i + 1].Get() : nullptr;
        m_keys[i]->displayLength = ClipDisplayLength(*m_keys[i], next);
    }
}
