#pragma once

#include "CTimelineKey.h"

#include <vector>

/// The keys that a copy or cut on a track put aside for a later paste, with one number that says
/// where they came from (the frame of the first of them). One per track, for the track's life; a
/// paste is possible exactly when it has data. GUI thread only.
class CTimelineClipboard
{
public:
    using KeyVector = std::vector<VZ::CPointer<CTimelineKey>>;

    /// An empty clipboard: no keys, source value 0.
    CTimelineClipboard();
    /// Releases the keys.
    virtual ~CTimelineClipboard();

    /// True when at least one key is put aside.
    bool HasData() const;
    /// Releases every key and sets the source value to 0; harmless on an empty clipboard.
    void Reset();
    /// Replaces the contents. @p keys are shared, not copied: whoever copies or cuts makes the
    /// copies, so that later edits on the track leave the clipboard alone. @p sourceValue is a
    /// frame; without keys it is not kept, as an empty clipboard always says 0.
    void Fill(const KeyVector& keys, int sourceValue);
    /// The keys put aside, in the order they were given in.
    const KeyVector& GetKeys() const;
    /// The number given with the keys; 0 when empty.
    int GetSourceValue() const;

private:
    int m_sourceValue;
    KeyVector m_keys;
};
