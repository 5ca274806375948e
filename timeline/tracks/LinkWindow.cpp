#include "tracks/LinkWindow.h"

#include "tracks/CellGeometry.h"
#include "tracks/GlyphPainter.h"
#include "tracks/LinkPainter.h"
#include "tracks/LinkThinning.h"

#include <algorithm>
#include <limits>

namespace {

using Frames = std::numeric_limits<int>;

/// The last key drawn in front of @p frame, alone in a list, or an empty list. Spans that double
/// until they hold a key find it without a look at all keys.
DisplayKeyList KeyBefore(const CTimelineKeyArray& keys, const KeyFacts& facts,
                         const DisplayScope& scope, int frame)
{
    for (long long span = 1; frame > Frames::min(); span *= 2) {
        const long long first = std::max<long long>(frame - span, Frames::min());
        DisplayKeyList list =
            CollectWindow(keys, facts, scope, {static_cast<int>(first), frame - 1});
        if (!list.empty())
            return {list.back()};
        if (first == Frames::min())
            break;
    }
    return {};
}

/// The first key drawn after @p frame, likewise.
DisplayKeyList KeyAfter(const CTimelineKeyArray& keys, const KeyFacts& facts,
                        const DisplayScope& scope, int frame)
{
    for (long long span = 1; frame < Frames::max(); span *= 2) {
        const long long last = std::min<long long>(frame + span, Frames::max());
        DisplayKeyList list =
            CollectWindow(keys, facts, scope, {frame + 1, static_cast<int>(last)});
        if (!list.empty())
            return {list.front()};
        if (last == Frames::max())
            break;
    }
    return {};
}

/// Rows with sub-keys, of which one origin's keys are drawn, so that none hides another.
DisplayKeyList CollectWithSubKeys(const CTimelineKeyArray& keys, const KeyFacts& facts,
                                  const DisplayScope& scope, const RowView& view,
                                  const GlyphStyle& glyphs)
{
    // Runs of crowded glyphs begin at the row's left edge at the earliest.
    const RowView row(view.row, view.axis, 0, view.lastColumn);
    const FrameWindow window = GlyphPainter::Window(row, glyphs, facts);
    // One key more on each side, for the bars that reach in from there.
    DisplayKeyList list = KeyBefore(keys, facts, scope, window.first);
    const DisplayKeyList inside = CollectWindow(keys, facts, scope, window);
    const DisplayKeyList after = KeyAfter(keys, facts, scope, window.last);
    list.insert(list.end(), inside.begin(), inside.end());
    list.insert(list.end(), after.begin(), after.end());
    return list;
}

/// Rows without sub-keys, of which the drawn keys are known.
DisplayKeyList CollectDrawn(const CTimelineKeyArray& keys, const KeyFacts& facts,
                            const RowView& view, const GlyphStyle& glyphs)
{
    const int width = LinkGlyphSize(glyphs).width();
    const int crowd = LinkCrowd(width);
    const FrameWindow window = GlyphPainter::Window(view, glyphs, facts);
    const DrawnKeys drawn(keys, facts);
    int first = drawn.FirstFrom(window.first);
    int end = drawn.FirstFrom(window.last + 1LL);

    // Runs of crowded glyphs begin after a gap, or at the row's left edge.
    const auto glyphX = [&](int place) {
        return 1LL * CentredOnFrame(view.axis, drawn.At(place)->frame, width);
    };
    while (first > 0 && first < drawn.Size() && glyphX(first - 1) + width >= 0 &&
           glyphX(first) - glyphX(first - 1) <= crowd)
        --first;
    // One key more on each side, for the bars that reach in from there.
    first = std::max(first - 1, 0);
    end = std::min(end + 1, drawn.Size());

    DisplayKeyList list;
    list.reserve(static_cast<std::size_t>(std::max(end - first, 0)));
    for (int place = first; place < end; ++place)
        list.emplace_back(drawn.At(place));
    return list;
}

} // namespace

DisplayKeyList CollectLinkWindow(const CTimelineKeyArray& keys, const KeyFacts& facts,
                                 const DisplayScope& scope, const RowView& view,
                                 const LineKeyTrackStyle& style)
{
    const bool ordered = facts.searchable && facts.subKeysInOrder;
    if (!ordered || facts.mixedCopies) {
        DisplayKeyList list = CollectAll(keys, scope);
        ThinLinkKeys(list);
        return list;
    }
    return facts.hasSubKeys ? CollectWithSubKeys(keys, facts, scope, view, LinkGlyphs(style))
                            : CollectDrawn(keys, facts, view, LinkGlyphs(style));
}
