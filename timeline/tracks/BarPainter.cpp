#include "tracks/BarPainter.h"

#include "TimelineEnums.h"

#include <QPainter>

#include <algorithm>

namespace {

/// Higher than any row; keeps a skin's wildest height within arithmetic.
constexpr int kHighestBar = 1 << 20;

/// A bar as columns of its row, from left up to and without right, and as rows of pixels.
struct Bar
{
    long long left;
    long long right;
    int top;
    int height;
};

int BarTop(const RowView& view, int height)
{
    return (view.row.height() - height) / 2;
}

/// What is left of a bar between the row's start and the end of the timeline; none when it lies
/// outside.
std::optional<Bar> BarOf(const RowView& view, const CTimelineKey& key, int height)
{
    const FrameAxis& axis = view.axis;
    const int left = axis.FrameToPixel(key.frame);
    const int end = std::min(axis.FrameToPixel(1LL + key.frame + key.displayLength), view.endX);
    const long long right = left == end ? end + 1LL : end;
    if (right < 0 || left > view.endX)
        return std::nullopt;
    return Bar{left, right, BarTop(view, height), height};
}

class OutlinePainter
{
public:
    OutlinePainter(QPainter& painter, const RowView& view, const QColor& colour)
        : m_painter(painter), m_view(view), m_colour(colour)
    {
    }

    void Horizontal(long long left, long long right, int y) const
    {
        m_painter.fillRect(m_view.Part(left, right, y, 1), m_colour);
    }
    void Vertical(long long x, int top, int height) const
    {
        if (m_view.Shows(x, x))
            m_painter.fillRect(m_view.Part(x, x, top, height), m_colour);
    }
    void Outline(const Bar& bar) const
    {
        const long long lastColumn = bar.right - 1;
        Horizontal(bar.left, lastColumn, bar.top);
        Vertical(lastColumn, bar.top, bar.height);
        Horizontal(bar.left, lastColumn, bar.top + bar.height - 1);
        Vertical(bar.left, bar.top, bar.height);
    }

private:
    QPainter& m_painter;
    const RowView& m_view;
    const QColor& m_colour;
};

/// One more than the last pass that can have a divider in the bar: passes beyond the drawn length
/// have none, however many there are.
long long DividerLimit(const CTimelineKey& key)
{
    const long long drawnPasses = std::max(0, key.displayLength) / key.clipLength + 2LL;
    return std::min<long long>(key.loopCount, drawnPasses);
}

int DividerX(const FrameAxis& axis, const CTimelineKey& key, long long pass)
{
    return axis.FrameToPixel(1LL + key.frame + pass * key.clipLength);
}

/// The first pass from 1 whose divider stands at column @p x or right of it; @p limit without one.
long long FirstPassFrom(const FrameAxis& axis, const CTimelineKey& key, long long x,
                        long long limit)
{
    long long low = 1;
    long long high = std::max(limit, 1LL);
    while (low < high) {
        const long long middle = low + (high - low) / 2;
        if (DividerX(axis, key, middle) < x)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

void DrawDividers(const OutlinePainter& outline, const RowView& view, const CTimelineKey& key,
                  const Bar& bar)
{
    // Passes narrower than a pixel share columns; each column is drawn once, and what lies out of
    // the painted columns is skipped.
    const long long limit = DividerLimit(key);
    long long x = view.firstColumn;
    while (x <= view.lastColumn) {
        const long long pass = FirstPassFrom(view.axis, key, x, limit);
        if (pass >= limit)
            return;
        const int dividerX = DividerX(view.axis, key, pass);
        if (dividerX >= bar.right)
            return;
        outline.Vertical(dividerX, bar.top, bar.height);
        x = dividerX + 1LL;
    }
}

} // namespace

std::optional<BarStyle> BarStyleOf(int trackType, const StyleRecord* style, int rowHeight)
{
    if (trackType == TL_TRACK_LINK_KEY) {
        if (const auto* link = dynamic_cast<const LineKeyTrackStyle*>(style))
            return BarStyle{link->line.clipHeight, &link->line.clipBorder};
        return std::nullopt;
    }
    if (const auto* key = dynamic_cast<const KeyTrackStyle*>(style))
        return BarStyle{key->clipHeight, &key->clipBorder};
    if (const auto* wave = dynamic_cast<const WaveTrackStyle*>(style))
        return BarStyle{rowHeight - 1, &wave->clipBorder};
    if (const auto* clip = dynamic_cast<const ClipTrackStyle*>(style))
        return BarStyle{clip->height, nullptr};
    return std::nullopt;
}

void DrawKeyBars(QPainter& painter, const RowView& view, const BarStyle& style,
                 const CTimelineKeyArray& keys, const KeyFacts& facts)
{
    if (!style.border || style.height < 1 || view.IsEmpty())
        return;
    const int height = std::min(style.height, kHighestBar);
    const QColor colours[] = {(*style.border)[false].color(), (*style.border)[true].color()};
    const KeyRange range = KeysReaching(keys.Keys(), facts, view.Frames(1, 1));
    for (std::size_t i = range.begin; i < range.end; ++i) {
        const CTimelineKey& key = *keys.Keys()[i];
        if (key.clipLength < 1 || !key.hostSwitch || key.frame >= view.LastFrame())
            continue;
        const auto bar = BarOf(view, key, height);
        if (!bar || !view.Shows(bar->left, bar->right))
            continue;
        const OutlinePainter outline(painter, view, colours[key.selected ? 1 : 0]);
        outline.Outline(*bar);
        DrawDividers(outline, view, key, *bar);
    }
}

void DrawRelatedBars(QPainter& painter, const RowView& view, int height,
                     const RelatedBarColours& colours, const CTimelineKeyArray& sourceKeys,
                     const KeyFacts& sourceFacts)
{
    if (height < 1 || view.IsEmpty())
        return;
    height = std::min(height, kHighestBar);
    const KeyRange range = KeysReaching(sourceKeys.Keys(), sourceFacts, view.Frames(1, 1));
    for (std::size_t i = range.begin; i < range.end; ++i) {
        const CTimelineKey& key = *sourceKeys.Keys()[i];
        if (key.clipLength < 1 || key.alternateStyle || key.frame > view.LastFrame())
            continue;
        const long long left = view.axis.FrameToPixel(key.frame);
        const long long width = std::max(1, view.axis.SpanToPixel(key.displayLength + 1LL));
        const long long right = std::max(std::min<long long>(left + width, view.endX), left + 1);
        painter.fillRect(view.Part(left, right - 1, BarTop(view, height), height),
                         key.selected ? colours.selected : colours.normal);
    }
}
