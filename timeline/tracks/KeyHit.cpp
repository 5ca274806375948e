#include "tracks/KeyHit.h"

#include "model/TimelineKeyValues.h"
#include "tracks/CTimelineTrackBase.h"
#include "tracks/KeyAt.h"

#include <algorithm>

namespace {

using KeyPointer = VZ::CPointer<CTimelineKey>;

/// Where @p key stands now, most likely still at @p index; -1 when it is gone.
int IndexOf(const CTimelineKeyArray& keys, const KeyPointer& key, int index)
{
    if (!key || KeyAt(keys, index) == key.Get())
        return key ? index : -1;
    const auto& all = keys.Keys();
    const auto found = std::find(all.begin(), all.end(), key);
    return found == all.end() ? -1 : static_cast<int>(found - all.begin());
}

} // namespace

KeyHit::KeyHit(CTimelineTrackBase& track, QPoint point)
    : m_keys(&track.Keys()), m_keyIndex(track.HitTestKey(point)),
      m_editsSubKeys(track.HasEditMode(TL_EDIT_SUB_KEYS))
{
    // The hit of a row of buttons is no key.
    m_key = KeyAt(*m_keys, m_keyIndex);
    if (m_key)
        m_subKeys = m_key->subKeys;
    if (!m_editsSubKeys || !m_subKeys)
        return;
    m_subKeyIndex = track.HitTestSubKey(point, m_keyIndex);
    m_subKey = KeyAt(*m_subKeys, m_subKeyIndex);
}

int KeyHit::KeyIndex() const
{
    return m_key ? IndexOf(*m_keys, m_key, m_keyIndex) : -1;
}

int KeyHit::SubKeyIndex() const
{
    if (!m_subKey || KeyIndex() < 0 || m_key->subKeys != m_subKeys)
        return -1;
    return IndexOf(*m_subKeys, m_subKey, m_subKeyIndex);
}

void KeyHit::SelectEdited(bool select) const
{
    const int index = EditedIndex();
    if (index >= 0)
        EditedKeys().SetSelectionByIndex(index, index, select, TL_KEY_ANY_KIND);
}
