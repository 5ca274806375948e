#include "tracks/TransitionPainter.h"

#include "TimelineEnums.h"
#include "library/TimelineLibrary.h"
#include "tracks/CellGeometry.h"
#include "tracks/SpanPainter.h"

#include <QPainter>

#include <algorithm>
#include <array>

namespace {

/// The top of a span of @p height in a row: spans stand one pixel lower than glyphs.
int SpanTop(int align, int rowHeight, int height)
{
    return align == kAlignTop ? 0 : AlignedTop(align, rowHeight + 1, height);
}

} // namespace

GlyphStyle TransitionGlyphStyle(const LineKeyTrackStyle& style)
{
    return {TL_TRACK_TRANSITION_KEY, style.keyBmpType, style.relatedKeyBmpType, style.keyAlign};
}

TransitionPainter::TransitionPainter(QPainter& painter, const RowView& view,
                                     const LineKeyTrackStyle& style)
    : m_painter(painter), m_view(view), m_style(style), m_glyphs(TransitionGlyphStyle(style)),
      m_handles(view.axis, m_glyphs, view.row.height())
{
}

void TransitionPainter::Draw(const DisplayKeyList& list)
{
    DrawPass(list, false);
    DrawPass(list, true);
}

void TransitionPainter::DrawPass(const DisplayKeyList& list, bool selected)
{
    const auto isDrawn = [&](const DisplayKey& key) {
        return key.selected == selected && key.frame < m_view.LastFrame();
    };
    // All keys without a transition have their handle in one place, where the last one covers the
    // others: only that one is drawn, for keys in a group and for the others.
    std::array<const DisplayKey*, 2> lastWithout = {nullptr, nullptr};
    for (const DisplayKey& key : list) {
        if (!isDrawn(key))
            continue;
        DrawTransition(key);
        if (!key.HasMask(kTransitionBits))
            lastWithout[key.IsGrouped() ? 1 : 0] = &key;
    }
    GlyphPainter glyphs(m_painter, m_view, m_glyphs);
    for (const DisplayKey& key : list) {
        if (!isDrawn(key))
            continue;
        glyphs.Draw(key);
        if (key.HasMask(kTransitionBits) || &key == lastWithout[key.IsGrouped() ? 1 : 0])
            DrawHandle(key);
    }
}

void TransitionPainter::DrawTransition(const DisplayKey& key)
{
    const FrameAxis& axis = m_view.axis;
    const int width = m_view.row.width();
    const int x = axis.FrameToPixel(key.frame);
    int farX = m_handles.EndX(key);
    if (key.HasMask(TL_KEY_TRANSITION_OUT)) {
        if (x > m_view.endX)
            return;
        farX = std::min(farX, width);
    } else if (key.HasMask(TL_KEY_TRANSITION_IN)) {
        if (x < 0)
            return;
        farX = std::max(farX, 0);
    } else {
        return;
    }
    const long long halfCell = CellCentre(axis, 0);
    // A transition out of a key that ends left of the row has nothing to show: clamping its end to
    // the row, as that of one into a key, would leave a line in the first column for each of them.
    if (m_style.line.lineHeight < 1 || farX + halfCell < 0)
        return;
    const long long from = std::clamp<long long>(farX + halfCell, 0, width);
    const long long to = CellCentre(axis, x);
    const int height = std::min(m_style.line.lineHeight, kHighestSpan);
    const int top = SpanTop(m_style.keyAlign, m_view.row.height(), height);
    // Keys of a group look like the others: the skin has no entries of their own for them.
    DrawSpan(m_painter, m_view, std::min(from, to), std::max(from, to), top, top + height,
             m_style.line.border[key.selected], m_style.line.fill[key.selected]);
}

void TransitionPainter::DrawHandle(const DisplayKey& key)
{
    const QRect box = m_handles.Box(key);
    if (box.x() + box.width() < 0 || box.x() >= m_view.endX)
        return;
    const int index = (key.selected ? 3 : 2) + (key.HasMask(TL_KEY_TRANSITION_OUT) ? 4 : 0);
    const int group = GlyphGroupOf(m_glyphs, key.IsGrouped());
    GlyphPainter(m_painter, m_view, m_glyphs)
        .DrawPicture(box.topLeft(), TimelineLibrary::Instance().images.Glyph(group, index));
}
