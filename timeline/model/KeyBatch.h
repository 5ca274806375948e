#pragma once

#include "CTimelineKey.h"

#include <utility>
#include <vector>

/// Adds many keys to a frame-ordered list at once, with the outcome of adding them one after
/// another. That outcome depends on the order of the additions: each one settles the display
/// lengths of the new key and of the key before it by the neighbours of that moment, and some of
/// these lengths are never looked at again. So the batch first merges the lists, then takes the
/// additions back from last to first to see between which neighbours each key came to stand.
///
/// The two lists must outlive the batch: they keep keys alive that were replaced on the way.
class KeyBatch
{
public:
    using KeyVector = std::vector<VZ::CPointer<CTimelineKey>>;

    /// @p standing is in frame order; @p arriving is in the order of the additions, and its null
    /// keys are passed over. With @p replace, a key takes the place of the last key of its frame.
    KeyBatch(const KeyVector& standing, const KeyVector& arriving, bool replace);

    /// True when there was nothing to add.
    bool IsEmpty() const { return m_arrivals.empty(); }
    /// Writes the display lengths that the additions leave, to replaced keys too.
    void StoreLengths() const;
    /// The merged list; the batch is used up afterwards.
    KeyVector TakeKeys() { return std::move(m_keys); }

private:
    struct Arrival
    {
        CTimelineKey* key;
        int place = 0;                    ///< its index in the merged list
        CTimelineKey* replaced = nullptr; ///< whose place it took
        CTimelineKey* previous = nullptr; ///< its neighbours at the moment of its arrival
        CTimelineKey* next = nullptr;
    };

    std::vector<int> ArrivalsByFrame() const;
    void Merge(const KeyVector& standing, bool replace);
    void FindNeighbours();

    std::vector<Arrival> m_arrivals; ///< in the order of the additions
    KeyVector m_keys;
};
