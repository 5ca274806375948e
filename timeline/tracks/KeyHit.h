#pragma once

#include "CTimelineKeyArray.h"

#include <QPoint>

class CTimelineTrackBase;

/// What lies under a point of a row: a key or clip, and, where the row edits sub-keys, a sub-key of
/// that clip. Holds on to both, and to the lists they are in, while host code runs, which may move
/// them to other indexes, take them out, or delete the track.
class KeyHit
{
public:
    /// Hits nothing.
    KeyHit() = default;
    /// @p point counts from the corner of @p track, which is not kept.
    KeyHit(CTimelineTrackBase& track, QPoint point);

    // What was hit stays alive here, though the host may have taken it out of the row meanwhile:
    // after each report the indexes tell.

    /// The key or clip; null without one.
    const CTimelineKey* Key() const { return m_key.Get(); }
    /// The clip's sub-key; null without one, and where the row does not edit sub-keys.
    const CTimelineKey* SubKey() const { return m_subKey.Get(); }
    bool IsClipWithSubKeys() const { return static_cast<bool>(m_subKeys); }

    /// What a press on the row is about: the sub-key where sub-keys are edited, the key elsewhere;
    /// null without one.
    const CTimelineKey* Edited() const { return m_editsSubKeys ? SubKey() : Key(); }
    /// Where it stands. Not to be asked without one.
    CTimelineKeyArray& EditedKeys() const { return m_editsSubKeys ? *m_subKeys : *m_keys; }
    bool EditsSubKeys() const { return m_editsSubKeys; }

    /// Their indexes at present; -1 without one, and for what the host has taken out. A sub-key is
    /// out with its clip, and when the clip has another list of sub-keys.
    int KeyIndex() const;
    int SubKeyIndex() const;
    int EditedIndex() const { return m_editsSubKeys ? SubKeyIndex() : KeyIndex(); }

    /// Selects or deselects what a press is about, unless it is locked or gone.
    void SelectEdited(bool select) const;

private:
    VZ::CPointer<CTimelineKeyArray> m_keys;
    VZ::CPointer<CTimelineKey> m_key;
    VZ::CPointer<CTimelineKeyArray> m_subKeys; ///< of the clip, if it is one
    VZ::CPointer<CTimelineKey> m_subKey;
    int m_keyIndex = -1;
    int m_subKeyIndex = -1;
    bool m_editsSubKeys = false;
};
