#include "tracks/StripPainter.h"

#include "library/TimelineLibrary.h"

#include <QPainter>
#include <QPixmap>

namespace {

/// The place of a coordinate in its repetition, 0 to period - 1, for coordinates left of the origin
/// too.
int Phase(int distance, int period)
{
    const int remainder = distance % period;
    return remainder < 0 ? remainder + period : remainder;
}

} // namespace

void FillStrip(QPainter& painter, const QRect& rect, BrushGroup group, long long index,
               QPoint origin)
{
    FillStrip(painter, rect, TimelineLibrary::Instance().images.WideStrip(group, index), origin);
}

void FillStrip(QPainter& painter, const QRect& rect, const QPixmap& strip, QPoint origin)
{
    if (rect.isEmpty() || strip.isNull())
        return;
    const QPoint start(Phase(rect.x() - origin.x(), strip.width()),
                       Phase(rect.y() - origin.y(), strip.height()));
    // Ticks and cells are small and many: one plain copy costs half of a tiled fill.
    const QRect piece(start, rect.size());
    if (strip.rect().contains(piece))
        painter.drawPixmap(rect.topLeft(), strip, piece);
    else
        painter.drawTiledPixmap(rect, strip, start);
}
