#pragma once

class CTimelineKeyArray;

/// Whether the selection list of @p keys tells which keys are selected. Taking an unselected key
/// out of the array leaves the indexes of those behind it one too high: the list's last entry then
/// misses the last selected key. Costs the same however many keys there are.
bool IsSelectionInStep(const CTimelineKeyArray& keys);
