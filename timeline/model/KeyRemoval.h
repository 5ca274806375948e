#pragma once

#include "CTimelineKey.h"

#include <vector>

/// Takes many keys out of a list at once, with the outcome of taking them out one after another.
/// That outcome depends on the order: each removal computes the display lengths of the keys before
/// it, of some that leave later too, and corrects the selection only when the key was selected, so
/// that entries may come to mean other keys.
///
/// The list must outlive the removal.
class KeyRemoval
{
public:
    using KeyVector = std::vector<VZ::CPointer<CTimelineKey>>;

    /// @p leaving is in the order of the removals; keys that are not in @p standing, and null, are
    /// passed over.
    KeyRemoval(const KeyVector& standing, const KeyVector& leaving);

    /// False when a key stands in the list more than once: its display length then depends on too
    /// much. Nothing else may be called.
    bool IsPossible() const { return m_isPossible; }
    /// Writes the display lengths that the removals leave, to the keys that leave too.
    void StoreLengths() const;
    /// What the removals make of @p selection, ascending indexes into the list.
    std::vector<int> Selection(const std::vector<int>& selection) const;
    /// The keys that stay.
    KeyVector KeysThatStay() const;

private:
    void FindPlaces(const KeyVector& leaving);

    const KeyVector& m_keys;
    std::vector<int> m_leaving; ///< places in the list, in the order of the removals
    std::vector<bool> m_leaves; ///< by place
    bool m_isPossible = true;
};
