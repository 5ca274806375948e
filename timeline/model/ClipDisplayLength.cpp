#include "ClipDisplayLength.h"

#include "CTimelineKey.h"

#include <algorithm>
#include <cstdint>
#include <limits>

int ClipDisplayLength(const CTimelineKey& key, const CTimelineKey* next)
{
    // Frames and lengths come from the host unchecked, so the product and the sum need more room.
    std::int64_t length = std::int64_t{key.loopCount} * key.clipLength;
    if (next && next->frame <= key.frame + length)
        length = std::int64_t{next->frame} - key.frame - 1;
    return static_cast<int>(std::clamp<std::int64_t>(length, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

void StoreDisplayLengths(CTimelineKey* previous, CTimelineKey& key, const CTimelineKey* next)
{
    if (previous)
        previous->displayLength = ClipDisplayLength(*previous, &key);
    key.displayLength = ClipDisplayLength(key, next);
}
