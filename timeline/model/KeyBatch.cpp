#include "KeyBatch.h"

#include "ClipDisplayLength.h"

#include <algorithm>

KeyBatch::KeyBatch(const KeyVector& standing, const KeyVector& arriving, bool replace)
{
    m_arrivals.reserve(arriving.size());
    for (const VZ::CPointer<CTimelineKey>& key : arriving) {
        if (key)
            m_arrivals.push_back(Arrival{key.Get()});
    }
    if (m_arrivals.empty())
        return;
    Merge(standing, replace);
    FindNeighbours();
}

/// The numbers of the arrivals in frame order, those of one frame in the order of the additions.
std::vector<int> KeyBatch::ArrivalsByFrame() const
{
    struct Entry
    {
        int frame;
        int number;
    };
    // The frames lie side by side here: sorting by key->frame would fetch a key per comparison.
    std::vector<Entry> entries;
    entries.reserve(m_arrivals.size());
    for (const Arrival& arrival : m_arrivals)
        entries.push_back({arrival.key->frame, static_cast<int>(entries.size())});

    const auto isBefore = [](const Entry& a, const Entry& b) {
        return a.frame != b.frame ? a.frame < b.frame : a.number < b.number;
    };
    if (!std::is_sorted(entries.begin(), entries.end(), isBefore))
        std::sort(entries.begin(), entries.end(), isBefore);

    std::vector<int> numbers;
    numbers.reserve(entries.size());
    for (const Entry& entry : entries)
        numbers.push_back(entry.number);
    return numbers;
}

void KeyBatch::Merge(const KeyVector& standing, bool replace)
{
    m_keys.reserve(standing.size() + m_arrivals.size());
    auto nextStanding = standing.begin();
    for (int number : ArrivalsByFrame()) {
        Arrival& arrival = m_arrivals[static_cast<std::size_t>(number)];
        const int frame = arrival.key->frame;
        while (nextStanding != standing.end() && (*nextStanding)->frame <= frame)
            m_keys.push_back(*nextStanding++);
        if (replace && !m_keys.empty() && m_keys.back()->frame == frame) {
            arrival.replaced = m_keys.back().Get();
            m_keys.back() = arrival.key;
        } else {
            m_keys.emplace_back(arrival.key);
        }
        arrival.place = static_cast<int>(m_keys.size()) - 1;
    }
    m_keys.insert(m_keys.end(), nextStanding, standing.end());
}

void KeyBatch::FindNeighbours()
{
    struct Link
    {
        CTimelineKey* key;
        int previous;
        int next;
    };
    // A link without a key stands before the first place and another after the last one.
    std::vector<Link> links;
    links.reserve(m_keys.size() + 2);
    const auto append = [&links](CTimelineKey* key) {
        const int self = static_cast<int>(links.size());
        links.push_back({key, self - 1, self + 1});
    };
    append(nullptr);
    for (const VZ::CPointer<CTimelineKey>& key : m_keys)
        append(key.Get());
    append(nullptr);

    const auto linkAt = [&links](int place) -> Link& {
        return links[static_cast<std::size_t>(place)];
    };
    for (auto arrival = m_arrivals.rbegin(); arrival != m_arrivals.rend(); ++arrival) {
        Link& link = linkAt(arrival->place + 1);
        arrival->previous = linkAt(link.previous).key;
        arrival->next = linkAt(link.next).key;
        if (arrival->replaced) {
            link.key = arrival->replaced;
        } else {
            linkAt(link.previous).next = link.next;
            linkAt(link.next).previous = link.previous;
        }
    }
}

void KeyBatch::StoreLengths() const
{
    for (const Arrival& arrival : m_arrivals)
        StoreDisplayLengths(arrival.previous, *arrival.key, arrival.next);
}
