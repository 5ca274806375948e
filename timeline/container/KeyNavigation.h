#pragma once

class CTimelineContainer;
class CTimelineTrackBase;

// Selecting the next or previous key of a track, and moving the current frame to it. A null track
// stands for the active child track. On a track in sub-key editing whose first key carries
// sub-keys, the sub-keys of one clip are walked instead: of the selected clip that has any with the
// lowest index, or else of the first key.

/// Whether there is a track, and a key on it.
bool CanSelectNeighbourKey(const CTimelineContainer& container, const CTimelineTrackBase* track);
/// Selects the first key after the current frame, or the first of all; the frame moves before the
/// selection.
void SelectNextKey(CTimelineContainer& container, CTimelineTrackBase* track);
/// Selects the key before the first selected one (before the current frame when none is selected),
/// or the last of all, passing over locked keys; the frame moves after the selection.
void SelectPreviousKey(CTimelineContainer& container, CTimelineTrackBase* track);
