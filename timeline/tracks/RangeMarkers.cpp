#include "tracks/RangeMarkers.h"

#include "library/TimelineLibrary.h"
#include "tracks/CellGeometry.h"
#include "tracks/RowView.h"

#include <QPainter>

#include <algorithm>

namespace {

const QPixmap& MarkerPicture(RangeMarkerHit marker)
{
    return TimelineLibrary::Instance().images.Picture(kRangeMarkerPictures, marker);
}

/// The marker's box in the row: the start marker begins at its frame, the end marker ends before
/// the frame after its own.
QRect MarkerBox(const FrameAxis& axis, const TimeRange& range, RangeMarkerHit marker)
{
    const QSize size = MarkerPicture(marker).size();
    const long long x = marker == kStartMarker
                            ? axis.FrameToPixel(range.lo)
                            : 1LL * axis.FrameToPixel(range.hi + 1LL) - size.width();
    // Far outside any row the exact place does not matter, only that nothing overflows.
    constexpr long long kFar = 1 << 30;
    return QRect(QPoint(static_cast<int>(std::clamp(x, -kFar, kFar)), 0), size);
}

} // namespace

void DrawRangeMarkers(QPainter& painter, const RowView& view, const TimeRange& range)
{
    if (!range.HasBothEnds())
        return;
    for (const RangeMarkerHit marker : {kStartMarker, kEndMarker}) {
        const QRect box = MarkerBox(view.axis, range, marker);
        if (view.Shows(box.left(), box.right()))
            painter.drawPixmap(view.row.topLeft() + box.topLeft(), MarkerPicture(marker));
    }
}

RangeMarkerHit HitRangeMarker(const FrameAxis& axis, const TimeRange& range, QPoint point)
{
    if (!range.HasBothEnds())
        return kNoMarker;
    for (const RangeMarkerHit marker : {kEndMarker, kStartMarker}) {
        if (MarkerBox(axis, range, marker).contains(point))
            return marker;
    }
    return kNoMarker;
}

void DrawCurrentFrameLine(QPainter& painter, const RowView& view, const QColor& colour)
{
    const int current = view.axis.currentFrame;
    if (current < 0 || current > view.LastFrame())
        return;
    const int x = CurrentFrameLineX(view.axis);
    painter.fillRect(view.Part(x, x), colour);
}
