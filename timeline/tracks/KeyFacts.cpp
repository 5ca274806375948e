#include "tracks/KeyFacts.h"

#include "TimelineEnums.h"
#include "model/FrameOrder.h"
#include "model/KeyArrayRevision.h"
#include "model/TimelineKeyValues.h"
#include "tracks/DisplayKeys.h"
#include "tracks/LinkThinning.h"
#include "tracks/SubKeyOrder.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <unordered_map>

namespace {

using KeyVector = CTimelineKeyArray::KeyVector;

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

/// @p end is the last frame that the keys in front of the clip take up.
void GatherSubKeys(const CTimelineKey& clip, long long end, KeyFacts& facts)
{
    facts.hasSubKeys = true;
    for (const auto& subKey : clip.subKeys->Keys())
        GatherReach(*subKey, facts);
    facts.subKeysInOrder &= AreSubKeysInOrder(clip);
    if (!IsDrawnOutOfView(clip) || clip.subKeys->Keys().empty())
        return;
    facts.subKeysOutOfView = true;
    const long long first = FirstSubKeyFrame(clip);
    facts.subKeysInFront = std::max(facts.subKeysInFront, -first);
    facts.subKeysInOrder &= clip.frame + first >= end;
}

void GatherKeys(const CTimelineKeyArray& array, KeyFacts& facts)
{
    long long previousFrame = std::numeric_limits<long long>::min();
    long long end = previousFrame; // of the previous key's clip or sub-keys
    facts.searchable = true;
    for (const auto& pointer : array.Keys()) {
        const CTimelineKey& key = *pointer;
        const bool isClip = key.clipLength >= 1 || key.subKeys;
        facts.searchable &= previousFrame <= key.frame && end < key.frame;
        if (key.subKeys)
            GatherSubKeys(key, std::max(previousFrame, end), facts);
        GatherReach(key, facts);
        if (key.clipLength >= 1)
            facts.longestLeadIn =
                std::max(facts.longestLeadIn, std::abs(1LL * key.transitionFrames));
        previousFrame = key.frame;
        end = isClip ? 1LL * key.frame + key.displayLength : std::numeric_limits<long long>::min();
    }
    for (const auto& key : array.RelatedKeys())
        GatherReach(*key, facts);
    facts.searchable &= IsInFrameOrder(array.RelatedKeys());
}

bool AllHaveCopy(const KeyVector& keys, int relatedCopy)
{
    return std::all_of(keys.begin(), keys.end(), [relatedCopy](const auto& key) {
        return key->relatedCopy == relatedCopy &&
               (!key->subKeys || AllHaveCopy(key->subKeys->Keys(), relatedCopy));
    });
}

/// Whether own keys and copies of other tracks' keys are drawn in one row.
bool HasMixedCopies(const CTimelineKeyArray& array)
{
    const KeyVector& first = array.Keys().empty() ? array.RelatedKeys() : array.Keys();
    return !first.empty() && !(AllHaveCopy(array.Keys(), first.front()->relatedCopy) &&
                               AllHaveCopy(array.RelatedKeys(), first.front()->relatedCopy));
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

/// Whether the handle of @p key stands at the row's left edge.
bool IsWithoutTransition(const CTimelineKey& key, const KeyFacts& facts)
{
    return key.frame < facts.frameCount && !key.subKeys &&
           !(key.kindMask & (TL_KEY_TRANSITION_IN | TL_KEY_TRANSITION_OUT));
}

void GatherRelatedWithoutTransition(const KeyVector& related, KeyFacts& facts)
{
    for (std::size_t i = 0; i < related.size(); ++i) {
        if (IsWithoutTransition(*related[i], facts))
            facts.lastRelatedWithoutTransition[related[i]->group ? 1 : 0] = static_cast<int>(i);
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
    if (!facts.searchable)
        return facts;

    if (trackType == TL_TRACK_TRANSITION_KEY)
        GatherRelatedWithoutTransition(keys.RelatedKeys(), facts);
    GatherSelection(keys, trackType, facts);
    if (trackType != TL_TRACK_LINK_KEY)
        return facts;
    const bool mixed = HasMixedCopies(keys);
    facts.mixedCopies = mixed && facts.hasSubKeys;
    if (!facts.hasSubKeys && (mixed || facts.relatedCount > 0)) {
        DisplayKeyList list = CollectAll(keys, {});
        ThinLinkKeys(list);
        facts.drawnOrder = PlacesOf(list, keys);
    }
    return facts;
}

void GatherSelection(const CTimelineKeyArray& array, int trackType, KeyFacts& facts)
{
    if (trackType != TL_TRACK_TRANSITION_KEY || !facts.searchable ||
        facts.revision == KeyArrayRevision())
        return;
    facts.revision = KeyArrayRevision();
    facts.lastWithoutTransition = KeyFacts().lastWithoutTransition;
    const KeyVector& keys = array.Keys();
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const CTimelineKey& key = *keys[i];
        if (IsWithoutTransition(key, facts))
            facts.lastWithoutTransition[key.group ? 1 : 0][key.selected ? 1 : 0] =
                static_cast<int>(i);
    }
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

KeyRange KeysReaching(const CTimelineKeyArray::KeyVector& keys, const KeyFacts& facts,
                      const FrameWindow& window)
{
    if (!facts.searchable)
        return {0, keys.size()};
    const auto begin = std::partition_point(
        keys.begin(), keys.end(), [&](const auto& key) { return key->frame < window.first; });
    const auto end = std::partition_point(
        begin, keys.end(), [&](const auto& key) { return key->frame <= window.last; });
    const auto first = static_cast<std::size_t>(begin - keys.begin());
    return {first > 0 ? first - 1 : 0, static_cast<std::size_t>(end - keys.begin())};
}
