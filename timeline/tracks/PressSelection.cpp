#include "tracks/PressSelection.h"

#include "model/MessageCodes.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CTimelineTrackBase.h"
#include "tracks/CurrentFrame.h"
#include "tracks/KeyHit.h"
#include "tracks/TrackReport.h"

namespace {

/// @p key is the one that is hit, or the sub-key, whose frame counts from its clip's.
void GoTo(const KeyHit& hit, const CTimelineKey& key)
{
    if (key.subKeys)
        return;
    const long long origin = &key == hit.SubKey() ? hit.Key()->frame : 0;
    WriteCurrentFrame(origin + key.frame);
}

} // namespace

bool SelectHitClip(CTimelineTrackBase& track, const KeyHit& hit)
{
    if (!TrackReport(track).Send(kTrackSelectionCleared))
        return false;
    CTimelineKeyArray& keys = track.Keys();
    const int last = static_cast<int>(keys.GetSize()) - 1;
    const int clip = hit.KeyIndex();
    keys.SetSelectionByIndex(0, clip - 1, false, TL_KEY_ANY_KIND);
    keys.SetSelectionByIndex(clip, clip, true, TL_KEY_ANY_KIND);
    keys.SetSelectionByIndex(clip + 1, last, false, TL_KEY_ANY_KIND);
    for (const auto& key : keys.Keys()) {
        // Clips may share their sub-keys; those of the pressed clip keep their selection.
        if (key->subKeys && key->subKeys != hit.Key()->subKeys)
            key->subKeys->ClearAllSelection();
    }
    return TrackReport(track).Send(kTrackSelectionChanged);
}

bool SelectHitAlone(CTimelineTrackBase& track, const KeyHit& hit)
{
    hit.EditedKeys().ClearAllSelection();
    if (!hit.EditsSubKeys() && !TrackReport(track).Send(kTrackSelectionCleared))
        return false;
    hit.SelectEdited(true);
    return true;
}

void GoToHit(const KeyHit& hit)
{
    if (hit.Edited())
        GoTo(hit, *hit.Edited());
}

bool SelectDoubleClicked(CTimelineTrackBase& track, const KeyHit& hit)
{
    const int index = hit.KeyIndex();
    track.Keys().SetSelectionByIndex(index, index, true, TL_KEY_ANY_KIND);
    if (hit.SubKey())
        hit.SelectEdited(true);
    GoTo(hit, hit.SubKey() ? *hit.SubKey() : *hit.Key());
    return TrackReport(track).Send(kTrackSelectionChanged);
}
