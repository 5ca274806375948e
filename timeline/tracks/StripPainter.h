#pragma once

#include "skin/ImageTables.h"

class QPainter;
class QPixmap;
class QPoint;
class QRect;

/// Fills @p rect with a texture of the brush table, laid out from @p origin (its top left corner is
/// a corner of the texture): the same pixels as QPainter::fillRect with the texture brush and the
/// painter's brush origin at @p origin, but many times faster for the one-pixel-wide textures,
/// since the table's wide strip is copied instead. The painter's brush origin plays no part and
/// stays. A group or an index outside the table, and an empty rectangle, paint nothing.
void FillStrip(QPainter& painter, const QRect& rect, BrushGroup group, long long index,
               QPoint origin);

/// The same with a strip at hand: @p strip is repeated in both directions from @p origin.
void FillStrip(QPainter& painter, const QRect& rect, const QPixmap& strip, QPoint origin);
