#pragma once

class CTimelineContainer;
class CTimelineTrackBase;

/// Brings the selections that follow @p track's up to date: keys of one group, and the tracks that
/// share its selection by the relation table. Takes n log n time for n keys of all tracks together.
void FollowSelection(const CTimelineContainer& container, CTimelineTrackBase& track);
