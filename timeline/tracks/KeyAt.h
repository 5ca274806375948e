#pragma once

#include "CTimelineKeyArray.h"

/// The key at @p index; null for an index that is none.
inline CTimelineKey* KeyAt(const CTimelineKeyArray& keys, int index)
{
    const bool isKey = index >= 0 && static_cast<std::size_t>(index) < keys.GetSize();
    return isKey ? keys.Keys()[static_cast<std::size_t>(index)].Get() : nullptr;
}
