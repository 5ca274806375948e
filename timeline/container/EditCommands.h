#pragma once

#include "TimelineEnums.h"

class CTimelineContainer;
class CTimelineTrackBase;

/// Whether the edit can be done now on @p track (null: the active child track): its edit modes list
/// it and its own condition holds.
bool CanDoTrackEdit(const CTimelineContainer& container, TLEditType type,
                    CTimelineTrackBase* track);

/// Does select previous, select next and select all; false for any other edit. The edit modes are
/// not consulted.
bool DoTrackEdit(CTimelineContainer& container, TLEditType type, CTimelineTrackBase* track);

/// Selects every key of the track in frames 0 to the frame count, on a track in sub-key editing the
/// sub-keys of its selected clips, after the time range was cleared; then the track reports the
/// change, if it is shown.
void SelectAllKeys(CTimelineContainer& container, CTimelineTrackBase& track);

/// What a double click on the caption of @p track selects: all keys, but on the lips track only the
/// first key, with all sub-keys that it may have, and nobody is told.
void SelectRowKeys(CTimelineContainer& container, CTimelineTrackBase& track);
