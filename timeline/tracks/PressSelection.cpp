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

bool SelectHitClip(CTimelineTrackBase& track, const KeyHit& hit, TrackReport& report)
{
    if (!report.Send(kTrackSelectionCleared))
        return false;
    // Clips may share their sub-keys; those of the pressed clip keep their selection. Without that
    // clip, what is selected is the host's own choice.
    if (const int clip = hit.KeyIndex(); clip >= 0)
        track.Keys().SelectOnly(clip);
    return report.Send(kTrackSelectionChanged);
}

bool SelectHitAlone(const KeyHit& hit, TrackReport& report)
{
    hit.EditedKeys().ClearAllSelection();
    if (!hit.EditsSubKeys() && !report.Send(kTrackSelectionCleared))
        return false;
    hit.SelectEdited(true);
    return true;
}

void GoToHit(const KeyHit& hit)
{
    if (hit.EditedIndex() >= 0)
        GoTo(hit, *hit.Edited());
}

bool SelectDoubleClicked(CTimelineTrackBase& track, const KeyHit& hit, TrackReport& report)
{
    const int index = hit.KeyIndex();
    track.Keys().SetSelectionByIndex(index, index, true, TL_KEY_ANY_KIND);
    if (hit.SubKey())
        hit.SelectEdited(true);
    GoTo(hit, hit.SubKey() ? *hit.SubKey() : *hit.Key());
    return report.Send(kTrackSelectionChanged);
}
