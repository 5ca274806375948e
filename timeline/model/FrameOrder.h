#pragma once

#include "CTimelineKey.h"

#include <algorithm>
#include <vector>

/// True when no key of the list stands before a key of a lower frame. A list that only the library
/// changed always is in order; one whose keys' frames a host wrote in place may not be.
inline bool IsInFrameOrder(const std::vector<VZ::CPointer<CTimelineKey>>& keys)
{
    const auto isBefore = [](const auto& a, const auto& b) { return a->frame < b->frame; };
    return std::is_sorted(keys.begin(), keys.end(), isBefore);
}
