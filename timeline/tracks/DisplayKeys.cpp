#include "tracks/DisplayKeys.h"

#include "AscendingSearch.h"
#include "tracks/SubKeyOrder.h"

#include <algorithm>
#include <limits>

namespace {

using KeyVector = CTimelineKeyArray::KeyVector;
using KeyIterator = KeyVector::const_iterator;

constexpr FrameWindow kAllFrames = {std::numeric_limits<int>::min(),
                                    std::numeric_limits<int>::max()};

int ClampedFrame(long long frame)
{
    constexpr long long lowest = std::numeric_limits<int>::min();
    constexpr long long highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(frame, lowest, highest));
}

KeyIterator FirstFrom(const KeyVector& keys, int frame)
{
    return std::partition_point(keys.begin(), keys.end(),
                                [frame](const auto& key) { return key->frame < frame; });
}

KeyIterator FirstBeyond(const KeyVector& keys, int frame)
{
    return std::partition_point(keys.begin(), keys.end(),
                                [frame](const auto& key) { return key->frame <= frame; });
}

/// Takes the sub-keys of one clip, pass by pass, into a list.
class Expansion
{
public:
    Expansion(const CTimelineKey* clip, const DisplayScope& scope, DisplayKeyList& out)
        : m_clip(clip), m_subKeys(clip->subKeys->Keys()), m_scope(scope), m_out(out)
    {
    }

    /// Every sub-key of every pass whose frame lies in the window, in any order of frames.
    void AddAll(const FrameWindow& window)
    {
        if (m_subKeys.empty())
            return;
        const long long earliest = FirstSubKeyFrame(*m_clip);
        const long long passes = PassCount(*m_clip);
        for (long long pass = 0; pass < passes; ++pass) {
            // Passes that lie wholly beyond the drawn length add nothing; there may be millions.
            if (m_clip->clipLength >= 1 &&
                earliest + pass * m_clip->clipLength > m_clip->displayLength)
                return;
            for (const auto& subKey : m_subKeys) {
                if (!Add(subKey.Get(), pass, window))
                    return;
            }
        }
    }

    /// The same, found by searching where the clip's sub-keys allow it.
    void AddWindow(const FrameWindow& window)
    {
        if (m_clip->clipLength < 1 || !AreSubKeysInOrder(*m_clip)) {
            AddAll(window);
            return;
        }
        if (m_subKeys.empty())
            return;
        const long long start = m_clip->frame;
        long long firstOffset = window.first - start;
        if (!IsDrawnOutOfView(*m_clip))
            firstOffset = std::max({firstOffset, m_scope.firstVisibleFrame - start, 0LL});
        const long long lastOffset =
            std::min<long long>({window.last - start, m_scope.lastVisibleFrame - start,
                                 m_scope.lastFrame - start, m_clip->displayLength});
        const long long length = m_clip->clipLength;
        const long long passes = PassCount(*m_clip);
        const long long firstPass = std::max(firstOffset - m_subKeys.back()->frame, 0LL) / length;
        for (long long pass = firstPass; pass < passes; ++pass) {
            const long long shift = pass * length;
            if (m_subKeys.front()->frame + shift > lastOffset)
                return;
            const auto end = FirstBeyond(m_subKeys, ClampedFrame(lastOffset - shift));
            for (auto subKey = FirstFrom(m_subKeys, ClampedFrame(firstOffset - shift));
                 subKey < end; ++subKey)
                Add(subKey->Get(), pass, window);
        }
    }

private:
    /// False when the sub-key lies beyond what is to be drawn, which ends the expansion.
    bool Add(const CTimelineKey* subKey, long long pass, const FrameWindow& window)
    {
        const long long offset = subKey->frame + pass * m_clip->clipLength;
        if (offset > m_clip->displayLength)
            return true;
        const long long frame = m_clip->frame + offset;
        if (frame > m_scope.lastVisibleFrame || frame > m_scope.lastFrame)
            return false;
        const bool isBefore = frame < m_scope.firstVisibleFrame || frame < m_clip->frame;
        if (isBefore && !IsDrawnOutOfView(*m_clip))
            return true;

        DisplayKey copy(subKey);
        copy.clip = m_clip;
        copy.frame = ClampedFrame(frame);
        if (copy.frame < window.first || copy.frame > window.last)
            return true;
        if (m_scope.clipSelects)
            copy.selected = m_clip->selected;
        m_out.push_back(copy);
        return true;
    }

    const CTimelineKey* m_clip;
    const KeyVector& m_subKeys;
    const DisplayScope& m_scope;
    DisplayKeyList& m_out;
};

/// Both lists in frame order: one walk places every related key.
DisplayKeyList MergeInOrder(const DisplayKeyList& own, KeyIterator related, KeyIterator end)
{
    DisplayKeyList out;
    out.reserve(own.size() + static_cast<std::size_t>(end - related));
    auto next = own.begin();
    for (; related != end; ++related) {
        const CTimelineKey* key = related->Get();
        for (; next != own.end() && next->frame <= key->frame; ++next)
            out.push_back(*next);
        if (out.empty() || out.back().frame != key->frame)
            out.emplace_back(key);
        else if (key->priority > out.back().key->priority)
            out.back() = DisplayKey(key);
    }
    out.insert(out.end(), next, own.end());
    return out;
}

/// Lists out of order: each related key goes where a search for its frame ends.
void PlaceOneByOne(DisplayKeyList& list, const KeyVector& related)
{
    const auto frameAt = [&list](int at) { return list[static_cast<std::size_t>(at)].frame; };
    for (const auto& each : related) {
        const CTimelineKey* key = each.Get();
        const int size = static_cast<int>(list.size());
        const SearchResult place = SearchAscending(size, key->frame, frameAt);
        if (!place.found) {
            list.insert(list.begin() + place.index, DisplayKey(key));
            continue;
        }
        int last = place.index;
        while (last + 1 < size && frameAt(last + 1) == key->frame)
            ++last;
        DisplayKey& there = list[static_cast<std::size_t>(last)];
        if (key->priority > there.key->priority)
            there = DisplayKey(key);
    }
}

} // namespace

DisplayKeyList CollectAll(const CTimelineKeyArray& keys, const DisplayScope& scope)
{
    DisplayKeyList list;
    list.reserve(keys.Keys().size());
    for (const auto& key : keys.Keys()) {
        if (key->subKeys)
            Expansion(key.Get(), scope, list).AddAll(kAllFrames);
        else
            list.emplace_back(key.Get());
    }
    const KeyVector& related = keys.RelatedKeys();
    if (related.empty())
        return list;

    const bool ordered =
        std::is_sorted(list.begin(), list.end(),
                       [](const auto& a, const auto& b) { return a.frame < b.frame; }) &&
        std::is_sorted(related.begin(), related.end(),
                       [](const auto& a, const auto& b) { return a->frame < b->frame; });
    if (ordered)
        return MergeInOrder(list, related.begin(), related.end());
    PlaceOneByOne(list, related);
    return list;
}

DisplayKeyList CollectWindow(const CTimelineKeyArray& keys, const KeyFacts& facts,
                             const DisplayScope& scope, const FrameWindow& window)
{
    // A related key finds its place among sub-keys out of order only in the whole list.
    if (!facts.searchable || (!facts.subKeysInOrder && keys.RelatedGetSize() > 0))
        return CollectAll(keys, scope);

    const KeyVector& own = keys.Keys();
    auto key = FirstFrom(own, window.first);
    const auto end = FirstBeyond(own, ClampedFrame(window.last + facts.subKeysInFront));
    DisplayKeyList list;
    list.reserve(static_cast<std::size_t>(std::max<std::ptrdiff_t>(end - key, 0)) + 1);
    // A clip ends before the next key, so only the last one in front of the window reaches into it.
    if (key != own.begin() && key[-1]->subKeys)
        --key;
    for (; key < end; ++key) {
        if ((*key)->subKeys)
            Expansion(key->Get(), scope, list).AddWindow(window);
        else if ((*key)->frame <= window.last)
            list.emplace_back(key->Get());
    }

    const KeyVector& related = keys.RelatedKeys();
    const auto firstRelated = FirstFrom(related, window.first);
    const auto lastRelated = FirstBeyond(related, window.last);
    if (firstRelated >= lastRelated)
        return list;
    return MergeInOrder(list, firstRelated, lastRelated);
}

CTimelineKeyArray::KeyVector CountedCopies(const DisplayKeyList& list)
{
    KeyVector out;
    out.reserve(list.size());
    for (const DisplayKey& each : list) {
        if (!each.clip) {
            // The lists hold their keys to be changed; only painting reads them as constants.
            out.emplace_back(const_cast<CTimelineKey*>(each.key));
            continue;
        }
        VZ::CPointer<CTimelineKey> copy(new CTimelineKey(*each.key));
        copy->frame = each.frame;
        copy->selected = each.selected;
        copy->group = each.clip->group;
        copy->keyType = each.clip->keyType;
        copy->clipLength = each.clip->clipLength;
        copy->hostValue1 = each.clip->frame;
        out.push_back(copy);
    }
    return out;
}
