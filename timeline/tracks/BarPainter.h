#pragma once

#include "CTimelineKeyArray.h"
#include "skin/TrackStyles.h"
#include "tracks/KeyFacts.h"
#include "tracks/RowView.h"

#include <optional>

class QPainter;

/// Pixels of a wave row that its bars leave free.
constexpr int kWaveBarMargin = 2;

/// How a row draws the bars of keys that have a length.
struct BarStyle
{
    int height = 0;
    const StylePenPair* border = nullptr; ///< null: the row has a bar height but no bars of keys
};

/// The bar style of a key, transition-key, link-key, viseme, clip or wave row @p rowHeight pixels
/// high; none for other kinds and without their style.
std::optional<BarStyle> BarStyleOf(int trackType, const StyleRecord* style, int rowHeight);

/// Outlines of the keys that have a length, are switched on by the host and start before the last
/// frame. A loop's passes after the first have a divider each, one frame after their start, as far
/// as the bar reaches.
void DrawKeyBars(QPainter& painter, const RowView& view, const BarStyle& style,
                 const CTimelineKeyArray& keys, const KeyFacts& facts);

struct RelatedBarColours
{
    QColor normal;
    QColor selected;
};

/// Filled bars, @p height pixels high, for the clips of another row, as this row shows them; keys
/// in the alternate style have none.
void DrawRelatedBars(QPainter& painter, const RowView& view, int height,
                     const RelatedBarColours& colours, const CTimelineKeyArray& sourceKeys,
                     const KeyFacts& sourceFacts);
