#include "tracks/HeldKey.h"

#include "tracks/KeyAt.h"

void HeldKey::Hold(const CTimelineKeyArray& keys, int index)
{
    m_key = keys.GetAt(index);
    m_index = index;
}

void HeldKey::LetGo()
{
    m_key = nullptr;
    m_index = -1;
}

CTimelineKey* HeldKey::Find(const CTimelineKeyArray& keys)
{
    if (!m_key)
        return nullptr;
    int index = FindItself(keys);
    if (index < 0)
        index = FindReplacement(keys);
    if (index < 0)
        return nullptr;
    Hold(keys, index);
    return m_key.Get();
}

int HeldKey::FindItself(const CTimelineKeyArray& keys) const
{
    if (KeyAt(keys, m_index) == m_key.Get())
        return m_index;
    const int first = keys.HitKey(m_key->frame, true);
    for (int i = first; const CTimelineKey* const key = KeyAt(keys, i); ++i) {
        if (key == m_key.Get())
            return i;
        if (key->frame != m_key->frame)
            break;
    }
    return -1;
}

int HeldKey::FindReplacement(const CTimelineKeyArray& keys) const
{
    const CTimelineKey* const inPlace = KeyAt(keys, m_index);
    if (inPlace && inPlace->frame == m_key->frame)
        return m_index;
    return keys.HitKey(m_key->frame, false);
}
