#pragma once

class CTimelineTrackBase;
class KeyHit;
class TrackReport;

// What a press does to the selection and the current frame of a row. The operations that return
// bool report to the owner and return false when the report has ended, as when the track is not
// there any more; nothing of it may be touched then.

/// Where sub-keys are edited: reports the clearing of the other rows, makes the clip that is hit
/// the only selected one, clears the sub-key selections of all others, and reports the change. The
/// selection inside the clip itself stays; all do when the host has taken the clip out.
bool SelectHitClip(CTimelineTrackBase& track, const KeyHit& hit, TrackReport& report);

/// Makes the key or sub-key that is hit the only selected one of its row or clip. For a key, the
/// clearing of the other rows is reported in between; the new selection is not.
bool SelectHitAlone(const KeyHit& hit, TrackReport& report);

/// Selects the key or clip that is hit, and the sub-key too where those are edited, goes to the
/// frame of the innermost of them unless it has sub-keys of its own, and reports the selection.
bool SelectDoubleClicked(CTimelineTrackBase& track, const KeyHit& hit, TrackReport& report);

/// Makes the frame of the key or sub-key that is hit the current one, unless it has sub-keys of its
/// own, or nothing is hit, or the host has taken it out. Nobody is told.
void GoToHit(const KeyHit& hit);
