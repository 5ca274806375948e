#include "tracks/LinkPainter.h"

#include "TimelineEnums.h"
#include "library/TimelineLibrary.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CellGeometry.h"
#include "tracks/LinkThinning.h"
#include "tracks/SpanPainter.h"

#include <QPainter>

#include <algorithm>

namespace {

/// Glyphs closer than this part of their width are merged.
constexpr int kCrowdDivisor = 4;

int LinkGlyphIndex(const DisplayKey& key)
{
    const int selected = key.selected ? 1 : 0;
    if (key.HasMask(TL_KEY_MARKED_LINK))
        return 2 + selected;
    return (key.key->alternateStyle ? 4 : 0) + selected;
}

} // namespace

GlyphStyle LinkGlyphs(const LineKeyTrackStyle& style)
{
    return {TL_TRACK_LINK_KEY, style.line.keyBmpType, style.line.relatedKeyBmpType, style.keyAlign};
}

QSize LinkGlyphSize(const GlyphStyle& style)
{
    return TimelineLibrary::Instance().images.Glyph(GlyphGroupOf(style, false), 0).size();
}

int LinkCrowd(int glyphWidth)
{
    return glyphWidth / kCrowdDivisor;
}

LinkPainter::LinkPainter(QPainter& painter, const RowView& view, const LineKeyTrackStyle& style)
    : m_painter(painter), m_view(view), m_style(style), m_glyphs(LinkGlyphs(style)),
      m_glyphSize(LinkGlyphSize(m_glyphs))
{
}

void LinkPainter::Draw(const DisplayKeyList& list)
{
    DrawBars(list);
    DrawGlyphs(list, false);
    DrawGlyphs(list, true);
}

void LinkPainter::DrawBars(const DisplayKeyList& list)
{
    const FrameAxis& axis = m_view.axis;
    for (std::size_t i = 0; i < list.size(); ++i) {
        const DisplayKey& key = list[i];
        const int x = axis.FrameToPixel(key.frame);
        if (key.frame >= m_view.LastFrame() || !(key.KeyType() & TL_KEY_LINK_START) ||
            x > m_view.endX)
            continue;
        const bool isLast = i + 1 == list.size();
        const int right = isLast ? std::min(m_view.row.width() - 1, m_view.endX)
                                 : CellCentre(axis, axis.FrameToPixel(list[i + 1].frame));
        if (right >= 0)
            DrawBar(key, CellCentre(axis, x), right);
    }
}

void LinkPainter::DrawBar(const DisplayKey& key, int left, int right)
{
    const auto& line = m_style.line;
    const bool copy = key.key->relatedCopy != 0;
    const bool alternate = key.key->alternateStyle;
    const StylePenPair& border = copy ? line.relatedBorder : alternate ? line.border1 : line.border;
    const StyleBrushPair& fill = copy ? line.relatedFill : alternate ? line.fill1 : line.fill;
    if (right < left || line.lineHeight < 1)
        return;
    // Keys of a group look like the others: the skin has no entries of their own for them.
    const int height = std::min(line.lineHeight, kHighestSpan);
    const int top = AlignedTop(m_style.keyAlign, m_view.row.height(), height);
    // The outline of a rectangle runs one pixel to the right of it and below it.
    DrawSpan(m_painter, m_view, left, right + 1LL, top, top + height, border[key.selected],
             fill[key.selected]);
}

int LinkPainter::GlyphX(const DisplayKey& key) const
{
    return CentredOnFrame(m_view.axis, key.frame, m_glyphSize.width());
}

void LinkPainter::DrawGlyphs(const DisplayKeyList& list, bool selected)
{
    const long long crowd = LinkCrowd(m_glyphSize.width());
    const DisplayKey* last = nullptr; // the key that stands for a run of crowded ones
    long long runStart = 0;
    int lastX = 0;
    for (const DisplayKey& key : list) {
        if (key.selected != selected || key.frame >= m_view.LastFrame())
            continue;
        const int x = GlyphX(key);
        const bool joinsRun = last && x <= runStart + crowd;
        if (!joinsRun && (1LL * x + m_glyphSize.width() < 0 || x > m_view.endX))
            continue;
        if (!joinsRun) {
            if (last)
                DrawGlyph(*last, lastX);
            runStart = x;
        }
        last = &key;
        lastX = x;
    }
    if (last)
        DrawGlyph(*last, lastX);
}

void LinkPainter::DrawGlyph(const DisplayKey& key, int x)
{
    const int group = GlyphGroupOf(m_glyphs, key.key->relatedCopy != 0);
    const QPoint corner(x, (m_view.row.height() - m_glyphSize.height()) / 2);
    GlyphPainter glyphs(m_painter, m_view, m_glyphs);
    glyphs.DrawPicture(corner,
                       TimelineLibrary::Instance().images.Glyph(group, LinkGlyphIndex(key)));
    glyphs.DrawSegments(key, corner);
}
