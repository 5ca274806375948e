// The related keys and what is displayed of them.

#include "CTimelineKeyArray.h"

int CTimelineKeyArray::RelatedAdd(CTimelineKey* key, bool replace)
{
    if (!key)
        return -1;
    const VZ::CPointer<CTimelineKey> copy(new CTimelineKey(*key));
    copy->relatedCopy = 1;
    return Place(m_relatedKeys, copy, replace);
}

int CTimelineKeyArray::RelatedHitKey(int frame, bool first) const
{
    return HitKey(m_relatedKeys, frame, first);
}

void CTimelineKeyArray::RelatedRemoveAt(int index)
{
    m_relatedKeys.erase(m_relatedKeys.begin() + index);
}

void CTimelineKeyArray::RelatedRemoveAll()
{
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

void CTimelineKeyArray::CollectDisplayKeys(KeyVector& out)
{
    out.insert(out.end(), m_keys.begin(), m_keys.end());
    for (const VZ::CPointer<CTimelineKey>& related : m_relatedKeys) {
        int index = 0;
        bool found = false;
        GetInsertIndex(out, related->frame, false, index, found);
        if (!found) {
            out.insert(out.begin() + index, related);
            continue;
        }
        VZ::CPointer<CTimelineKey>& shown = out[static_cast<std::size_t>(index)];
        if (shown->priority < related->priority)
            shown = related;
    }
}
