#pragma once

#include "CTimelineKey.h"

#include <vector>

/// The keys that a copy or cut on a track put aside for a later paste, with one number that says
/// where they came from (the frame of the first of them). One per track, for the track's life.
class CTimelineClipboard
{
public:
    using KeyVector = std::vector<VZ::CPointer<CTimelineKey>>;

    CTimelineClipboard();
    virtual ~CTimelineClipboard();

    bool HasData() const;
    void Reset();
    void Fill(const KeyVector& keys, int sourceValue);
    const KeyVector& GetKeys() const;
    int GetSourceValue() const;

private:
    int m_sourceValue;
    KeyVector m_keys;
};
