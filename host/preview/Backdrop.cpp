#include "Backdrop.h"

#include <QPainter>
#include <QRadialGradient>

#include <algorithm>

namespace host {

void PaintBackdrop(QPainter& painter, const QRectF& area)
{
    const QPointF middle(area.center().x(), area.top() + area.height() * 0.42);
    QRadialGradient light(middle, std::max({1.0, area.width(), area.height()}) * 0.62);
    light.setColorAt(0, QColor(50, 55, 63));
    light.setColorAt(1, QColor(27, 30, 35));
    painter.fillRect(area, light);
}

} // namespace host
