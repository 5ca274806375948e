#pragma once

#include "skin/TrackStyles.h"
#include "tracks/DisplayKeys.h"
#include "tracks/GlyphPainter.h"

/// The glyphs of a link row.
GlyphStyle LinkGlyphs(const LineKeyTrackStyle& style);
/// The size that all link glyphs are placed by: that of the first.
QSize LinkGlyphSize(const GlyphStyle& style);
/// Pixels; glyphs of this width that stand no further apart are merged.
int LinkCrowd(int glyphWidth);

/// Paints the keys of a link row: the bars that join each link start to the next key, then the
/// glyphs of unselected keys, then those of selected ones.
class LinkPainter
{
public:
    LinkPainter(QPainter& painter, const RowView& view, const LineKeyTrackStyle& style);

    /// @p list is thinned; it is the whole list or what CollectLinkWindow gives.
    void Draw(const DisplayKeyList& list);

private:
    void DrawBars(const DisplayKeyList& list);
    void DrawBar(const DisplayKey& key, int left, int right);
    void DrawGlyphs(const DisplayKeyList& list, bool selected);
    void DrawGlyph(const DisplayKey& key, int x);
    int GlyphX(const DisplayKey& key) const;

    QPainter& m_painter;
    const RowView& m_view;
    const LineKeyTrackStyle& m_style;
    GlyphStyle m_glyphs;
    QSize m_glyphSize;
};
