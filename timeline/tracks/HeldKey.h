#pragma once

#include "CTimelineKeyArray.h"

/// The key that a gesture works on. While the host hears of the gesture it may move the key among
/// the others, put a new key in its place or delete it, so that its index has to be asked for anew
/// after each report.
class HeldKey
{
public:
    /// Takes hold of the key at @p index, which must be one of @p keys.
    void Hold(const CTimelineKeyArray& keys, int index);
    void LetGo();

    /// Finds the key in @p keys: the very key, or the one that stands in its place now: on its
    /// frame, at its index if it can be. That one is held from then on. Null without one.
    CTimelineKey* Find(const CTimelineKeyArray& keys);
    /// Where the key was when it was last found; -1 while none is held.
    int Index() const { return m_index; }

private:
    int FindItself(const CTimelineKeyArray& keys) const;
    int FindReplacement(const CTimelineKeyArray& keys) const;

    VZ::CPointer<CTimelineKey> m_key;
    int m_index = -1;
};
