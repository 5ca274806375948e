#include "tracks/LinkThinning.h"

#include "model/TimelineKeyValues.h"

void ThinLinkKeys(DisplayKeyList& list)
{
    // A key is judged by the keys before it as they were collected, whether or not those stay.
    DisplayKeyList kept;
    kept.reserve(list.size());
    const DisplayKey* previous = nullptr;
    const DisplayKey* otherOrigin = nullptr;
    for (const DisplayKey& each : list) {
        if (previous && previous->key->relatedCopy != each.key->relatedCopy)
            otherOrigin = previous;
        const bool outranked = otherOrigin && otherOrigin->KeyType() != TL_KEY_NEVER_THINS &&
                               otherOrigin->key->priority > each.key->priority;
        if (!outranked)
            kept.push_back(each);
        previous = &each;
    }
    list.swap(kept);
}
