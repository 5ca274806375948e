#pragma once

#include "skin/TrackStyles.h"
#include "tracks/DisplayKeys.h"

/// The keys of which a transition row shows a glyph, a span or a handle in the painted columns, in
/// the order in which they are drawn, and perhaps some others.
DisplayKeyList CollectTransitionWindow(const CTimelineKeyArray& keys, const KeyFacts& facts,
                                       const DisplayScope& scope, const RowView& view,
                                       const LineKeyTrackStyle& style);

/// The longest transition of a list, in frames.
long long LongestTransition(const DisplayKeyList& list);
