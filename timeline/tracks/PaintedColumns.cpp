#include "tracks/PaintedColumns.h"

#include <QPaintDevice>
#include <QTransform>

PaintedColumns::PaintedColumns(const QPainter& painter)
{
    const QPaintDevice* device = painter.device();
    QRectF reached(0, 0, device->width(), device->height());
    reached = painter.combinedTransform().inverted().mapRect(reached);
    if (painter.hasClipping())
        reached &= painter.clipBoundingRect();
    const QRect whole = reached.toAlignedRect();
    left = whole.left();
    right = whole.right();
}
