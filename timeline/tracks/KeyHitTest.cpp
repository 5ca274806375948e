#include "tracks/KeyHitTest.h"

#include "TimelineEnums.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CellGeometry.h"

#include <algorithm>

KeyHitTest::KeyHitTest(const FrameAxis& axis, int trackType, const StyleRecord* style,
                       int rowHeight)
    : m_axis(axis), m_rowHeight(rowHeight)
{
    if (trackType != TL_TRACK_LINK_KEY)
        m_glyphs = GlyphStyleOf(trackType, style);
    if (trackType == TL_TRACK_WAVE)
        m_barHeight = rowHeight - kWaveBarMargin;
    else if (const auto bars = BarStyleOf(trackType, style, rowHeight))
        m_barHeight = bars->height;
}

bool KeyHitTest::Hits(const CTimelineKey& key, long long frame, QPoint point, int margin) const
{
    if (m_glyphs && key.clipLength < 1)
        return HitsGlyph(key, frame, point);
    return m_barHeight && HitsBar(key, frame, point, margin);
}

bool KeyHitTest::HitsGlyph(const CTimelineKey& key, long long frame, QPoint point) const
{
    const QPixmap& glyph = KeyGlyph(*m_glyphs, DisplayKey(&key));
    const int left = CentredInCell(m_axis, m_axis.FrameToPixel(frame), glyph.width());
    const int top = AlignedTop(m_glyphs->align, m_rowHeight, glyph.height());
    return left <= point.x() && point.x() <= 1LL * left + glyph.width() && top <= point.y() &&
           point.y() <= top + glyph.height();
}

bool KeyHitTest::HitsBar(const CTimelineKey& key, long long frame, QPoint point, int margin) const
{
    // The halving is unsigned: a bar higher than its row starts far below it and is not hit.
    const long long top =
        (static_cast<quint32>(m_rowHeight) - static_cast<quint32>(*m_barHeight)) / 2;
    const long long bottom = 2 * top - 1 + *m_barHeight;
    const long long left = 1LL * m_axis.FrameToPixel(frame) - margin;
    const long long end = frame + key.displayLength + (margin == 0 ? 1 : 0);
    const long long right = margin - 1LL + m_axis.FrameToPixel(end);
    return left <= point.x() && point.x() <= right && top <= point.y() && point.y() <= bottom;
}

/// The frames whose glyphs, and into which the bars, can reach the point.
FrameWindow KeyHitTest::FramesWithin(QPoint point) const
{
    const int reach = kMargin + (m_glyphs ? WidestGlyph(*m_glyphs) : 0) +
                      std::max(m_axis.info.pixelsPerFrame, 0) + 1;
    return FramesAround(m_axis, 1LL * point.x() - reach, 1LL * point.x() + reach);
}

int KeyHitTest::FindKey(const CTimelineKeyArray& keys, const KeyFacts& facts, QPoint point) const
{
    const KeyRange range = point.x() < 0 ? KeyRange{0, keys.GetSize()}
                                         : KeysReaching(keys.Keys(), facts, FramesWithin(point));
    for (std::size_t i = range.end; i-- > range.begin;) {
        const CTimelineKey& key = *keys.Keys()[i];
        if (key.lockState != TL_KEY_LOCKED && Hits(key, key.frame, point, kMargin))
            return static_cast<int>(i);
    }
    return -1;
}

int KeyHitTest::FindSubKey(const CTimelineKey& clip, QPoint point) const
{
    if (!clip.subKeys)
        return -1;
    const FrameWindow around = FramesWithin(point);
    const auto isFar = [&](const CTimelineKey& subKey, long long frame) {
        return point.x() >= 0 &&
               (frame > around.last || frame + std::max(subKey.displayLength, 0) < around.first);
    };
    const auto& subKeys = clip.subKeys->Keys();
    for (std::size_t i = subKeys.size(); i-- > 0;) {
        const CTimelineKey& subKey = *subKeys[i];
        const bool drawn = subKey.frame <= clip.displayLength;
        const long long frame = 1LL * clip.frame + subKey.frame;
        if (drawn && !isFar(subKey, frame) && Hits(subKey, frame, point, kMargin))
            return static_cast<int>(i);
    }
    return -1;
}
