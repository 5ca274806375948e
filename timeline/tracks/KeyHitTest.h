#pragma once

#include "CTimelineKeyArray.h"
#include "tracks/BarPainter.h"
#include "tracks/GlyphPainter.h"

#include <QPoint>

#include <optional>

/// Finds the keys of one row under the pointer. Points are pixels from the row's corner.
class KeyHitTest
{
public:
    /// Pixels around a bar that still belong to it.
    static constexpr int kMargin = 6;

    KeyHitTest(const FrameAxis& axis, int trackType, const StyleRecord* style, int rowHeight);

    /// Whether @p point lies on @p key if that stood at @p frame: on its glyph, or on its bar
    /// widened by @p margin, which reaches down to the bottom of the row.
    bool Hits(const CTimelineKey& key, long long frame, QPoint point, int margin) const;

    /// The index of the last key under the point that is not locked; -1 without one.
    int FindKey(const CTimelineKeyArray& keys, const KeyFacts& facts, QPoint point) const;
    /// The index of the last sub-key of @p clip under the point, of those inside the clip's drawn
    /// length; -1 without one. They need not be in frame order.
    int FindSubKey(const CTimelineKey& clip, QPoint point) const;

private:
    FrameWindow FramesWithin(QPoint point) const;
    bool HitsGlyph(const CTimelineKey& key, long long frame, QPoint point) const;
    bool HitsBar(const CTimelineKey& key, long long frame, QPoint point, int margin) const;

    const FrameAxis& m_axis;
    int m_rowHeight;
    std::optional<GlyphStyle> m_glyphs; ///< none on rows whose keys are all hit as bars
    std::optional<int> m_barHeight;
};
