#pragma once

#include "skin/TrackStyles.h"
#include "tracks/DisplayKeys.h"
#include "tracks/GlyphPainter.h"

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

/// The keys that a link row shows in the painted columns, thinned, and those around them that
/// decide how: the keys at the other ends of the bars, and the keys from which on glyphs that would
/// crowd each other are merged.
DisplayKeyList CollectLinkWindow(const CTimelineKeyArray& keys, const KeyFacts& facts,
                                 const DisplayScope& scope, const RowView& view,
                                 const LineKeyTrackStyle& style);
