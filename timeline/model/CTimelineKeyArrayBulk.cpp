// Operations on many keys at once, each with the outcome of its plain steps.

#include "CTimelineKeyArray.h"
#include "FrameOrder.h"
#include "KeyArrayRevision.h"
#include "KeyBatch.h"
#include "KeyRemoval.h"
#include "TimelineKeyValues.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

using KeyVector = CTimelineKeyArray::KeyVector;

unsigned int SelectingMask(const CTimelineKey& key, CTimelineKeyArray::Kinds kinds)
{
    return kinds == CTimelineKeyArray::Kinds::Any ? TL_KEY_ANY_KIND
                                                  : static_cast<unsigned int>(key.kindMask);
}

/// What is to be selected at one frame: keys of any of these kinds.
struct Wish
{
    int frame;
    unsigned int mask;
    bool isAnyKind; ///< those without any kind, too

    bool IsFor(const CTimelineKey& key) const
    {
        return isAnyKind || (static_cast<unsigned int>(key.kindMask) & mask) != 0;
    }
};

bool IsOfEarlierFrame(const Wish& a, const Wish& b)
{
    return a.frame < b.frame;
}

/// One wish for each frame that a key of the list stands at, in frame order.
std::vector<Wish> WishesByFrame(const KeyVector& keys, CTimelineKeyArray::Kinds kinds)
{
    std::vector<Wish> wishes;
    wishes.reserve(keys.size());
    for (const VZ::CPointer<CTimelineKey>& key : keys) {
        if (!key)
            continue;
        const unsigned int mask = SelectingMask(*key, kinds);
        wishes.push_back({key->frame, mask, mask == TL_KEY_ANY_KIND});
    }
    if (!std::is_sorted(wishes.begin(), wishes.end(), IsOfEarlierFrame))
        std::sort(wishes.begin(), wishes.end(), IsOfEarlierFrame);

    std::vector<Wish> merged;
    for (const Wish& wish : wishes) {
        if (merged.empty() || merged.back().frame != wish.frame) {
            merged.push_back(wish);
        } else {
            merged.back().mask |= wish.mask;
            merged.back().isAnyKind |= wish.isAnyKind;
        }
    }
    return merged;
}

} // namespace

void CTimelineKeyArray::AddKeys(const KeyVector& keys, bool replace)
{
    if (!IsInFrameOrder(m_keys)) {
        // A host wrote frames in place. Where a key then ends up only the search itself can tell.
        for (const VZ::CPointer<CTimelineKey>& key : KeyVector(keys))
            Add(key, replace);
        return;
    }

    KeyBatch batch(m_keys, keys, replace);
    if (batch.IsEmpty())
        return;
    CountKeyArrayChange();
    batch.StoreLengths();
    // The former list goes last, with the keys that were replaced: the array is in order by then.
    const KeyVector former = std::exchange(m_keys, batch.TakeKeys());
    RebuildSelection();
}

void CTimelineKeyArray::AddSelected(const KeyVector& keys)
{
    KeyVector arriving;
    std::copy_if(keys.begin(), keys.end(), std::back_inserter(arriving),
                 [](const VZ::CPointer<CTimelineKey>& key) { return bool(key); });
    if (arriving.empty())
        return;
    // Each addition takes the selection anew from the keys, so that only the last key is selected
    // by its index in the end.
    const VZ::CPointer<CTimelineKey> last = arriving.back();
    arriving.pop_back();
    AddKeys(arriving, false);
    for (const VZ::CPointer<CTimelineKey>& key : arriving) {
        if (key->lockState != TL_KEY_LOCKED)
            key->selected = true;
    }
    const int index = Add(last, false);
    SetSelectionByIndex(index, index, true, TL_KEY_ANY_KIND);
}

void CTimelineKeyArray::RemoveKeys(const KeyVector& keys)
{
    const KeyRemoval removal(m_keys, keys);
    if (!removal.IsPossible()) {
        for (const VZ::CPointer<CTimelineKey>& key : KeyVector(keys))
            RemoveAt(key.Get());
        return;
    }
    CountKeyArrayChange();
    removal.StoreLengths();
    m_selection = removal.Selection(m_selection);
    // The former list goes last, with the keys that leave: the array is in order by then.
    KeyVector stay = removal.KeysThatStay();
    m_keys.swap(stay);
}

void CTimelineKeyArray::SelectFramesOf(const KeyVector& keys, Kinds kinds)
{
    if (!IsInFrameOrder(m_keys)) {
        // A host wrote frames in place. Which keys a frame has only the search itself can tell.
        for (const VZ::CPointer<CTimelineKey>& key : keys) {
            if (key)
                SetSelection(key->frame, key->frame, true, SelectingMask(*key, kinds));
        }
        return;
    }
    std::vector<int> selected;
    std::size_t place = 0;
    for (const Wish& wish : WishesByFrame(keys, kinds)) {
        while (place < m_keys.size() && m_keys[place]->frame < wish.frame)
            ++place;
        for (; place < m_keys.size() && m_keys[place]->frame == wish.frame; ++place) {
            CTimelineKey& key = *m_keys[place];
            if (!wish.IsFor(key) || key.selected || key.lockState == TL_KEY_LOCKED)
                continue;
            key.selected = true;
            selected.push_back(static_cast<int>(place));
        }
    }
    ChangeEntries(selected, true);
}
