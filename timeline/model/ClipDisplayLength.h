#pragma once

class CTimelineKey;

/// The frames that are drawn of @p key: loop count times clip length, but at most up to the frame
/// before @p next, the key after it (null when it is the last one). A plain key gets 0, or -1 when
/// the next key stands on the same frame.
int ClipDisplayLength(const CTimelineKey& key, const CTimelineKey* next);

/// Stores the display lengths that a new or changed @p key settles: first that of the key before
/// it, then its own. Either neighbour may be null.
void StoreDisplayLengths(CTimelineKey* previous, CTimelineKey& key, const CTimelineKey* next);
