#pragma once

#include "CTimelineKeyArray.h"
#include "skin/TrackStyles.h"
#include "tracks/KeyFacts.h"
#include "tracks/RowView.h"

#include <optional>

class QPainter;

/// How a row draws the bars of keys that have a length.
struct BarStyle
{
    int height = 0;
    const StylePenPair* border = nullptr; ///< null: the row has a bar height but no bars of keys
};

/// The bar style of a key, transition-key, link-key, viseme, clip or wave row @p rowHeight pixels
/// high; none for other kinds and without their style.
std::optional<BarStyle> BarStyleOf(int trackType, const StyleRecord* style, int rowHeight);

/// Outlines of the keys that have a length, with a divider after each pass of a loop but the last.
void DrawKeyBars(QPainter& painter, const RowView& view, const BarStyle& style,
                 const CTimelineKeyArray& keys, const KeyFacts& facts);

/// Filled bars for the clips of another row, as this row shows them.
struct RelatedBarColours
{
    QColor normal;
    QColor selected;
};
void DrawRelatedBars(QPainter& painter, const RowView& view, int height,
                     const RelatedBarColours& colours, const CTimelineKeyArray& sourceKeys,
                     const KeyFacts& sourceFacts);

/// Indexes of the keys that start in @p window and, before them, of the one clip that may reach
/// into it; all indexes when the facts say that the keys cannot be searched. The end is not
/// included.
struct KeyRange
{
    std::size_t begin = 0;
    std::size_t end = 0;
};
KeyRange KeysReaching(const CTimelineKeyArray::KeyVector& keys, const KeyFacts& facts,
                      const FrameWindow& window);
