#pragma once

#include "tracks/DisplayKeys.h"
#include "tracks/GlyphPainter.h"

#include <QPoint>
#include <QRect>

#include <optional>

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

/// Frames to add to the key's transition for its handle to follow the pointer to @p x, a pixel of
/// the row; the transition never becomes negative. No value when nothing changes, and for a key
/// without a transition.
std::optional<int> TransitionDragAmount(const FrameAxis& axis, const CTimelineKey& key, int x);
