// The related keys and what is displayed of them.

#include "CTimelineKeyArray.h"
#include "FrameOrder.h"
#include "KeyArrayRevision.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

using KeyVector = CTimelineKeyArray::KeyVector;

/// Where both stand on one frame, the key that is shown stays unless the related one outranks it.
void ShowHigherPriority(VZ::CPointer<CTimelineKey>& shown,
                        const VZ::CPointer<CTimelineKey>& related)
{
    if (shown->priority < related->priority)
        shown = related;
}

/// Merges two lists in frame order: each related key meets the last key of its frame, if there is
/// one, or else finds its place.
KeyVector MergeByFrame(KeyVector keys, const KeyVector& relatedKeys)
{
    KeyVector merged;
    merged.reserve(keys.size() + relatedKeys.size());
    auto key = keys.begin();
    for (const VZ::CPointer<CTimelineKey>& related : relatedKeys) {
        while (key != keys.end() && (*key)->frame <= related->frame)
            merged.push_back(std::move(*key++));
        if (!merged.empty() && merged.back()->frame == related->frame)
            ShowHigherPriority(merged.back(), related);
        else
            merged.push_back(related);
    }
    std::move(key, keys.end(), std::back_inserter(merged));
    return merged;
}

} // namespace

int CTimelineKeyArray::RelatedAdd(CTimelineKey* key, bool replace)
{
    if (!key)
        return -1;
    const VZ::CPointer<CTimelineKey> copy(new CTimelineKey(*key));
    copy->relatedCopy = 1;
    CountKeyArrayChange();
    return Place(m_relatedKeys, copy, replace);
}

int CTimelineKeyArray::RelatedHitKey(int frame, bool first) const
{
    return HitKey(m_relatedKeys, frame, first);
}

void CTimelineKeyArray::RelatedRemoveAt(int index)
{
    CountKeyArrayChange();
    m_relatedKeys.erase(m_relatedKeys.begin() + index);
}

void CTimelineKeyArray::RelatedRemoveAll()
{
    if (!m_relatedKeys.empty())
        CountKeyArrayChange();
    m_relatedKeys.clear();
}

VZ::CPointer<CTimelineKey> CTimelineKeyArray::RelatedGetAt(int index) const
{
    return m_relatedKeys[static_cast<std::size_t>(index)];
}

std::size_t CTimelineKeyArray::RelatedGetSize() const
{
    return m_relatedKeys.size();
}

void CTimelineKeyArray::CollectDisplayKeys(KeyVector& out) const
{
    out.insert(out.end(), m_keys.begin(), m_keys.end());
    if (IsInFrameOrder(out) && IsInFrameOrder(m_relatedKeys)) {
        out = MergeByFrame(std::move(out), m_relatedKeys);
        return;
    }
    // A host wrote frames in place. Where a related key then goes only the search itself can tell.
    for (const VZ::CPointer<CTimelineKey>& related : m_relatedKeys) {
        int index = 0;
        bool found = false;
        GetInsertIndex(out, related->frame, false, index, found);
        if (found)
            ShowHigherPriority(out[static_cast<std::size_t>(index)], related);
        else
            out.insert(out.begin() + index, related);
    }
}
