#include "tracks/RowView.h"

#include "axis/ClampedInt.h"

#include <QPainter>

#include <algorithm>

namespace {

FrameWindow ClampedWindow(long long first, long long last)
{
    return {ClampedInt(first), ClampedInt(last)};
}

} // namespace

RowView::RowView(const QRect& rowRect, const FrameAxis& frameAxis, int first, int last)
    : row(rowRect), axis(frameAxis), firstColumn(std::max(first, 0)),
      lastColumn(std::max(std::min(last, rowRect.width() - 1), firstColumn - 1)),
      endX(frameAxis.FrameToPixel(frameAxis.frameCount))
{
}

RowView::RowView(const QPainter& painter, const QRect& rowRect, const FrameAxis& frameAxis)
    : RowView(rowRect, frameAxis, 0, rowRect.width() - 1)
{
    if (!painter.hasClipping())
        return;
    const QRect clip = painter.clipBoundingRect().toAlignedRect() & row;
    firstColumn = clip.isEmpty() ? 0 : clip.left() - row.left();
    lastColumn = clip.isEmpty() ? -1 : clip.right() - row.left();
}

QRect RowView::Part(long long from, long long to, int top, int height) const
{
    const int first = static_cast<int>(std::clamp<long long>(from, firstColumn, lastColumn + 1LL));
    const int last = static_cast<int>(std::clamp<long long>(to, firstColumn - 1LL, lastColumn));
    return QRect(row.left() + first, row.top() + top, std::max(last - first + 1, 0), height);
}

FrameWindow RowView::Frames(long long before, long long after) const
{
    // A column holds several frames when zoomed out, and truncation is toward zero: one column more
    // on each side covers both.
    const long long slack = std::max(axis.info.framesPerPixel, 0) + 1LL;
    return ClampedWindow(axis.PixelToFrame(firstColumn - before - 1) - slack,
                         axis.PixelToFrame(lastColumn + after + 1) + slack);
}

FrameWindow Widened(const FrameWindow& window, long long frames)
{
    return ClampedWindow(window.first - frames, window.last + frames);
}
