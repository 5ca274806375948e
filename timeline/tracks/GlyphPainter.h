#pragma once

#include "tracks/DisplayKeys.h"
#include "tracks/RowView.h"

#include <QColor>
#include <QPixmap>

#include <optional>

class QPainter;
struct StyleRecord;

/// Where a row's glyphs come from and how they stand in it.
struct GlyphStyle
{
    int trackType = 0;
    int bitmapType = 0;        ///< glyph table entry of keys
    int relatedBitmapType = 0; ///< of keys that belong to a related group (link rows: of copies)
    int align = 0;             ///< VerticalAlign
};

/// The glyph style of a key, transition-key, link-key or viseme-key row; none for other kinds and
/// without their style.
std::optional<GlyphStyle> GlyphStyleOf(int trackType, const StyleRecord* style);

/// The group of the glyph table: the skin's number and the row kind's offset; -1, an empty group,
/// when the sum is out of range.
int GlyphGroupOf(const GlyphStyle& style, bool related);
/// The widest glyph of a row, in pixels.
int WidestGlyph(const GlyphStyle& style);
/// The glyph of a key on a key, transition-key or viseme-key row.
const QPixmap& KeyGlyph(const GlyphStyle& style, const DisplayKey& key);
/// The left edge of a key's glyph in its row, without the two pixels that painting shifts it by.
int KeyGlyphX(const FrameAxis& axis, int frame, int width);

/// A colour given as fractions, truncated to bytes and kept inside their range.
QColor SegmentColour(const TimelineKeySegment& segment);

/// Paints the glyphs of keys, and over them the segments that keys carry.
class GlyphPainter
{
public:
    GlyphPainter(QPainter& painter, const RowView& view, const GlyphStyle& style);

    /// The unselected keys of a list first, the selected ones over them.
    void DrawList(const DisplayKeyList& list);
    /// The key's glyph, two pixels right of the middle of its frame, and its segments; nothing for
    /// a key at or beyond the last frame or wholly left of the row.
    void Draw(const DisplayKey& key);
    /// The rectangles of a key's segments, around a glyph whose corner is @p corner (row
    /// coordinates). Expanded sub-keys have none.
    void DrawSegments(const DisplayKey& key, QPoint corner);
    /// @p picture with its corner at @p corner (row coordinates).
    void DrawPicture(QPoint corner, const QPixmap& picture);

    /// The frames whose glyphs or segments can show in the painted columns.
    static FrameWindow Window(const RowView& view, const GlyphStyle& style, const KeyFacts& facts);

private:
    QPainter& m_painter;
    const RowView& m_view;
    GlyphStyle m_style;
};
