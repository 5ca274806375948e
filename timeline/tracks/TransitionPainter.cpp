#include "tracks/TransitionPainter.h"

#include "TimelineEnums.h"
#include "library/TimelineLibrary.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CellGeometry.h"
#include "tracks/SpanPainter.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

constexpr int kTransitionBits = TL_KEY_TRANSITION_IN | TL_KEY_TRANSITION_OUT;

GlyphStyle TransitionGlyphStyle(const LineKeyTrackStyle& style)
{
    return {TL_TRACK_TRANSITION_KEY, style.keyBmpType, style.relatedKeyBmpType, style.keyAlign};
}

/// The top of a span of @p height in a row: spans stand one pixel lower than glyphs.
int SpanTop(int align, int rowHeight, int height)
{
    return align == kAlignTop ? 0 : AlignedTop(align, rowHeight + 1, height);
}

} // namespace

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
    // A span that ends left of the row must not leave the line of its clamped end there.
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

DisplayKeyList CollectTransitionWindow(const CTimelineKeyArray& keys, const KeyFacts& facts,
                                       const DisplayScope& scope, const RowView& view,
                                       const LineKeyTrackStyle& style)
{
    if (!facts.searchable || facts.hasSubKeys)
        return CollectAll(keys, scope);

    const FrameWindow window = Widened(
        GlyphPainter::Window(view, TransitionGlyphStyle(style), facts), facts.longestTransition);
    const DrawnKeys drawn(keys, facts);
    const int first = drawn.FirstFrom(window.first);
    const int end = std::max(first, drawn.FirstFrom(window.last + 1LL));

    // Handles of keys without a transition stand at the row's left edge, however far their keys.
    std::vector<int> before;
    std::vector<int> after;
    for (const int place : facts.lastWithoutTransition) {
        if (place >= 0 && place < first)
            before.push_back(place);
        else if (place >= end && place < drawn.Size())
            after.push_back(place);
    }
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());

    DisplayKeyList list;
    list.reserve(static_cast<std::size_t>(end - first) + before.size() + after.size());
    for (const int place : before)
        list.emplace_back(drawn.At(place));
    for (int place = first; place < end; ++place)
        list.emplace_back(drawn.At(place));
    for (const int place : after)
        list.emplace_back(drawn.At(place));
    return list;
}

long long LongestTransition(const DisplayKeyList& list)
{
    long long longest = 0;
    for (const DisplayKey& key : list) {
        if (key.HasMask(kTransitionBits))
            longest = std::max(longest, std::abs(1LL * key.key->transitionFrames));
    }
    return longest;
}
