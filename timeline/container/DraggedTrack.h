#pragma once

#include "CTimelineKeyArray.h"

#include <QPointer>

#include <optional>

class CTimelineTrackBase;

/// A track that takes part in a drag of keys, or, where sub-keys are dragged, its clip: whose
/// selected keys move, and which copies of them were made. Holds the keys' array, so that the
/// copies can be taken out of it even when the track is gone.
class DraggedTrack
{
public:
    /// The first and the last frame of the keys that move.
    struct Frames
    {
        int first;
        int last;
    };

    /// With @p movesSubKeys, those of the track's first selected clip move, and otherwise the
    /// track's own keys.
    DraggedTrack(CTimelineTrackBase* track, bool movesSubKeys);

    /// Null when the track is gone.
    CTimelineTrackBase* Track() const;
    /// The clip whose sub-keys move; null when they do not, or without any.
    const CTimelineKey* Clip() const;
    /// None when nothing is selected.
    std::optional<Frames> SelectedFrames() const;
    /// The lowest frame of the move set; none when it is empty.
    std::optional<int> FirstMoveSetFrame() const;

    /// Makes copies of the selected keys, which are selected in their place.
    void AddCopies();
    void KeepMoveSet();
    void Move(int delta);
    /// Takes the copies out and selects again what stands where the originals were.
    void TakeOutCopies();
    /// Selects what stands at the frames of the copies that were taken out.
    void SelectAtCopies();
    /// Ends the part in the drag: no move set, and no copies, stay behind.
    void Leave();

private:
    void FindSubKeys();
    void InvalidateCaches() const;

    QPointer<CTimelineTrackBase> m_track;
    bool m_movesSubKeys;
    VZ::CPointer<CTimelineKeyArray> m_keys;     ///< null for a clip without sub-keys
    CTimelineKeyArray::KeyVector m_copies;      ///< that stand in it
    CTimelineKeyArray::KeyVector m_takenCopies; ///< that were taken out again
};
