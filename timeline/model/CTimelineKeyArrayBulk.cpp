// Operations on many keys at once.

#include "CTimelineKeyArray.h"
#include "TimelineKeyValues.h"

void CTimelineKeyArray::AddSelected(const KeyVector& keys)
{
    for (const auto& key : KeyVector(keys)) {
        const int index = Add(key, false);
        SetSelectionByIndex(index, index, true, TL_KEY_ANY_KIND);
    }
}

void CTimelineKeyArray::RemoveKeys(const KeyVector& keys)
{
    for (const auto& key : KeyVector(keys))
        RemoveAt(key.Get());
}

void CTimelineKeyArray::SelectFramesOf(const KeyVector& keys, Kinds kinds)
{
    for (const auto& key : keys) {
        const auto mask =
            kinds == Kinds::Any ? TL_KEY_ANY_KIND : static_cast<unsigned int>(key->kindMask);
        SetSelection(key->frame, key->frame, true, mask);
    }
}
