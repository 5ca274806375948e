#include "tracks/KeyFacts.h"

#include "TimelineEnums.h"
#include "model/TimelineKeyValues.h"
#include "tracks/DisplayKeys.h"
#include "tracks/LinkThinning.h"

#include <algorithm>
#include <cstdlib>
#include <unordered_map>

namespace {

using KeyVector = CTimelineKeyArray::KeyVector;

bool IsInFrameOrder(const KeyVector& keys)
{
    return std::is_sorted(keys.begin(), keys.end(),
                          [](const auto& a, const auto& b) { return a->frame < b->frame; });
}

/// Sub-keys can be searched when they are in order, not in front of their clip, and when a pass
/// ends before the next begins.
bool AreSubKeysSearchable(const CTimelineKey& clip)
{
    const KeyVector& subKeys = clip.subKeys->Keys();
    if (subKeys.empty())
        return true;
    const bool insidePass = clip.loopCount <= 1 || subKeys.back()->frame < clip.clipLength;
    return insidePass && subKeys.front()->frame >= 0 && IsInFrameOrder(subKeys);
}

void GatherReach(const CTimelineKey& key, KeyFacts& facts)
{
    if (key.kindMask & (TL_KEY_TRANSITION_IN | TL_KEY_TRANSITION_OUT)) {
        const long long reach = std::abs(static_cast<long long>(key.transitionFrames));
        facts.longestTransition = std::max(facts.longestTransition, reach);
    }
    if (!(key.kindMask & TL_KEY_SEGMENTS))
        return;
    for (const TimelineKeySegment& segment : key.segments) {
        for (const TimelineKeyRect& rect : segment.rects) {
            facts.segmentsLeft = std::min(facts.segmentsLeft, rect.left);
            facts.segmentsRight = std::max(facts.segmentsRight, rect.right);
        }
    }
}

void GatherKeys(const CTimelineKeyArray& array, KeyFacts& facts)
{
    const KeyVector& keys = array.Keys();
    const CTimelineKey* previous = nullptr;
    facts.searchable = true;
    for (const auto& pointer : keys) {
        const CTimelineKey& key = *pointer;
        if (previous) {
            const bool reachesNext =
                previous->clipLength >= 1 &&
                static_cast<long long>(previous->frame) + previous->displayLength >= key.frame;
            facts.searchable &= previous->frame <= key.frame && !reachesNext;
        }
        if (key.subKeys) {
            facts.hasSubKeys = true;
            facts.searchable &= AreSubKeysSearchable(key);
        }
        GatherReach(key, facts);
        previous = &key;
    }
    for (const auto& key : array.RelatedKeys())
        GatherReach(*key, facts);
    facts.searchable &= IsInFrameOrder(array.RelatedKeys());
}

bool HasMixedCopies(const KeyVector& keys)
{
    return std::any_of(keys.begin(), keys.end(), [&keys](const auto& key) {
        return key->relatedCopy != keys.front()->relatedCopy;
    });
}

/// The places of a list's keys in the key array, as KeyFacts keeps them.
std::vector<int> PlacesOf(const DisplayKeyList& list, const CTimelineKeyArray& array)
{
    std::unordered_map<const CTimelineKey*, int> relatedPlaces;
    const KeyVector& related = array.RelatedKeys();
    for (std::size_t i = 0; i < related.size(); ++i)
        relatedPlaces.emplace(related[i].Get(), -1 - static_cast<int>(i));

    std::vector<int> places;
    places.reserve(list.size());
    std::size_t own = 0;
    for (const DisplayKey& each : list) {
        const auto place = relatedPlaces.find(each.key);
        if (place != relatedPlaces.end()) {
            places.push_back(place->second);
            continue;
        }
        while (array.Keys()[own].Get() != each.key)
            ++own;
        places.push_back(static_cast<int>(own));
    }
    return places;
}

void GatherLastWithoutTransition(const CTimelineKeyArray& array, KeyFacts& facts)
{
    const DrawnKeys drawn(array, facts);
    for (int place = 0; place < drawn.Size(); ++place) {
        const CTimelineKey& key = *drawn.At(place);
        if (key.frame >= facts.frameCount ||
            key.kindMask & (TL_KEY_TRANSITION_IN | TL_KEY_TRANSITION_OUT))
            continue;
        const std::size_t kind = (key.selected ? 1u : 0u) + (key.group ? 2u : 0u);
        facts.lastWithoutTransition[kind] = place;
    }
}

} // namespace

KeyFacts GatherFacts(const CTimelineKeyArray& keys, int trackType, int frameCount)
{
    KeyFacts facts;
    facts.keyCount = keys.GetSize();
    facts.relatedCount = keys.RelatedGetSize();
    facts.frameCount = frameCount;
    facts.valid = true;
    GatherKeys(keys, facts);
    if (!facts.searchable || facts.hasSubKeys)
        return facts;

    const bool isLink = trackType == TL_TRACK_LINK_KEY;
    const bool isTransition = trackType == TL_TRACK_TRANSITION_KEY;
    const bool mixed = isLink && facts.keyCount > 0 && HasMixedCopies(keys.Keys());
    if ((isLink || isTransition) && (facts.relatedCount > 0 || mixed)) {
        DisplayKeyList list = CollectAll(keys, {});
        if (isLink)
            ThinLinkKeys(list);
        facts.drawnOrder = PlacesOf(list, keys);
    }
    if (isTransition)
        GatherLastWithoutTransition(keys, facts);
    return facts;
}

DrawnKeys::DrawnKeys(const CTimelineKeyArray& keys, const KeyFacts& facts)
    : m_keys(keys.Keys()), m_related(keys.RelatedKeys()), m_order(facts.drawnOrder)
{
}

int DrawnKeys::Size() const
{
    return static_cast<int>(m_order.empty() ? m_keys.size() : m_order.size());
}

const CTimelineKey* DrawnKeys::At(int place) const
{
    if (m_order.empty())
        return m_keys[static_cast<std::size_t>(place)].Get();
    const int own = m_order[static_cast<std::size_t>(place)];
    return own >= 0 ? m_keys[static_cast<std::size_t>(own)].Get()
                    : m_related[static_cast<std::size_t>(-1 - own)].Get();
}

int DrawnKeys::FirstFrom(long long frame) const
{
    int low = 0;
    int high = Size();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (At(middle)->frame < frame)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}
