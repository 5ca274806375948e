#include "KeyRemoval.h"

#include "ClipDisplayLength.h"

#include <algorithm>
#include <functional>

namespace {

std::size_t At(int index)
{
    return static_cast<std::size_t>(index);
}

/// Marks places of a list and counts the marked ones before a place, both in log n time.
class MarkedPlaces
{
public:
    explicit MarkedPlaces(std::size_t size) : m_sums(size + 1) {}

    void Mark(int place)
    {
        // The sum at i covers as many places up to i as the lowest bit of i says.
        for (std::size_t i = At(place) + 1; i < m_sums.size(); i += i & (~i + 1))
            ++m_sums[i];
    }

    int CountBefore(int place) const
    {
        int count = 0;
        for (std::size_t i = At(place); i > 0; i &= i - 1)
            count += m_sums[i];
        return count;
    }

private:
    std::vector<int> m_sums;
};

/// A selection list under removals: entries behind one that is taken out mean one key less.
class ShrinkingSelection
{
public:
    explicit ShrinkingSelection(const std::vector<int>& entries)
        : m_entries(entries), m_gone(entries.size()), m_isGone(entries.size())
    {
    }

    void TakeOut(int keyIndex)
    {
        // Entries never fall behind each other. Of those that mean this key, if any, all but the
        // last are gone.
        int low = 0;
        int high = static_cast<int>(m_entries.size());
        while (low < high) {
            const int middle = low + (high - low) / 2;
            if (Meaning(middle) <= keyIndex)
                low = middle + 1;
            else
                high = middle;
        }
        const int position = low - 1;
        if (position < 0 || m_isGone[At(position)] || Meaning(position) != keyIndex)
            return;
        m_isGone[At(position)] = true;
        m_gone.Mark(position);
    }

    std::vector<int> Entries() const
    {
        std::vector<int> entries;
        int gone = 0;
        for (std::size_t i = 0; i < m_entries.size(); ++i) {
            if (m_isGone[i])
                ++gone;
            else
                entries.push_back(m_entries[i] - gone);
        }
        return entries;
    }

private:
    int Meaning(int position) const
    {
        return m_entries[At(position)] - m_gone.CountBefore(position);
    }

    const std::vector<int>& m_entries;
    MarkedPlaces m_gone;
    std::vector<bool> m_isGone;
};

} // namespace

KeyRemoval::KeyRemoval(const KeyVector& standing, const KeyVector& leaving)
    : m_keys(standing), m_leaves(standing.size())
{
    FindPlaces(leaving);
}

void KeyRemoval::FindPlaces(const KeyVector& leaving)
{
    struct Place
    {
        const CTimelineKey* key;
        int place;
    };
    const std::less<const CTimelineKey*> isBefore;
    std::vector<Place> places;
    places.reserve(m_keys.size());
    for (const VZ::CPointer<CTimelineKey>& key : m_keys)
        places.push_back({key.Get(), static_cast<int>(places.size())});
    std::sort(places.begin(), places.end(),
              [&](const Place& a, const Place& b) { return isBefore(a.key, b.key); });

    const auto isSame = [](const Place& a, const Place& b) { return a.key == b.key; };
    m_isPossible = std::adjacent_find(places.begin(), places.end(), isSame) == places.end();
    if (!m_isPossible)
        return;
    for (const VZ::CPointer<CTimelineKey>& key : leaving) {
        const auto found = std::lower_bound(
            places.begin(), places.end(), key.Get(),
            [&](const Place& a, const CTimelineKey* b) { return isBefore(a.key, b); });
        if (found == places.end() || found->key != key || m_leaves[At(found->place)])
            continue;
        m_leaves[At(found->place)] = true;
        m_leaving.push_back(found->place);
    }
}

void KeyRemoval::StoreLengths() const
{
    struct Link
    {
        int previous;
        int next;
    };
    // The link after the last key's stands for none.
    const int size = static_cast<int>(m_keys.size());
    std::vector<Link> links;
    links.reserve(At(size) + 1);
    for (int place = 0; place <= size; ++place)
        links.push_back({place - 1, place + 1});
    const auto store = [&](int place) {
        CTimelineKey& key = *m_keys[At(place)];
        const int next = links[At(place)].next;
        key.displayLength = ClipDisplayLength(key, next < size ? m_keys[At(next)].Get() : nullptr);
    };

    // A key is computed anew with every removal behind it. Nothing behind it changes between the
    // last of these and its own removal, or the end.
    int last = -1;
    for (int place : m_leaving) {
        if (place < last)
            store(place);
        last = std::max(last, place);
        const Link link = links[At(place)];
        links[At(link.next)].previous = link.previous;
        if (link.previous >= 0)
            links[At(link.previous)].next = link.next;
    }
    for (int place = 0; place < last; ++place) {
        if (!m_leaves[At(place)])
            store(place);
    }
}

std::vector<int> KeyRemoval::Selection(const std::vector<int>& selection) const
{
    MarkedPlaces gone(m_keys.size());
    ShrinkingSelection shrinking(selection);
    for (int place : m_leaving) {
        shrinking.TakeOut(place - gone.CountBefore(place));
        gone.Mark(place);
    }
    return shrinking.Entries();
}

KeyRemoval::KeyVector KeyRemoval::KeysThatStay() const
{
    KeyVector keys;
    keys.reserve(m_keys.size() - m_leaving.size());
    for (std::size_t place = 0; place < m_keys.size(); ++place) {
        if (!m_leaves[place])
            keys.push_back(m_keys[place]);
    }
    return keys;
}
