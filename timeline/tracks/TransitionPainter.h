#pragma once

#include "skin/TrackStyles.h"
#include "tracks/DisplayKeys.h"
#include "tracks/GlyphPainter.h"

#include <QPoint>
#include <QRect>

/// Where a transition row draws the handles at the far ends of its transitions. Positions are
/// pixels from the row's corner.
class TransitionHandles
{
public:
    TransitionHandles(const FrameAxis& axis, const GlyphStyle& style, int rowHeight);

    /// The far end of a transition: its first frame for one into the key, its last for one out of
    /// it, 0 for a key without a transition.
    int EndX(const DisplayKey& key) const;
    /// The handle's corner and size, the size being that of the group's first glyph.
    QRect Box(const DisplayKey& key) const;
    /// The index of the key whose handle is under @p point, its right and bottom edge included:
    /// selected keys first, then unselected ones, each from the last on; -1 without one.
    int Find(const CTimelineKeyArray& keys, const KeyFacts& facts, QPoint point) const;

private:
    const FrameAxis& m_axis;
    GlyphStyle m_style;
    int m_rowHeight;
};

/// The glyphs of a transition row.
GlyphStyle TransitionGlyphStyle(const LineKeyTrackStyle& style);

/// Paints the keys of a transition row: for the unselected keys and then for the selected ones, the
/// spans of their transitions, and over them the glyphs of the keys with those of their handles.
class TransitionPainter
{
public:
    TransitionPainter(QPainter& painter, const RowView& view, const LineKeyTrackStyle& style);

    /// @p list is the whole list of keys to draw or what CollectTransitionWindow gives.
    void Draw(const DisplayKeyList& list);

private:
    void DrawPass(const DisplayKeyList& list, bool selected);
    void DrawTransition(const DisplayKey& key);
    void DrawHandle(const DisplayKey& key);

    QPainter& m_painter;
    const RowView& m_view;
    const LineKeyTrackStyle& m_style;
    GlyphStyle m_glyphs;
    TransitionHandles m_handles;
};
