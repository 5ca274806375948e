#pragma once

#include "skin/TrackStyles.h"
#include "tracks/DisplayKeys.h"

/// The keys that a link row shows in the painted columns, thinned, and those around them that
/// decide how: the keys at the other ends of the bars, and the keys from which on glyphs that would
/// crowd each other are merged.
DisplayKeyList CollectLinkWindow(const CTimelineKeyArray& keys, const KeyFacts& facts,
                                 const DisplayScope& scope, const RowView& view,
                                 const LineKeyTrackStyle& style);
