#include "ViewCommand.h"

#include "DrawnIcon.h"

#include <initializer_list>

namespace host {

namespace {

constexpr double kLine = 1.6;
constexpr double kMiddle = kIconUnits / 2;
constexpr double kBar = 1.8;
constexpr double kTop = 3;
constexpr double kHeight = 10;

QPainterPath Polygon(std::initializer_list<QPointF> points)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(QVector<QPointF>(points)));
    path.closeSubpath();
    return path;
}

/// An arrowhead with its tip at @p tip, which points away from @p base.
QPainterPath Head(double base, double tip)
{
    constexpr double kHalf = 3;
    return Polygon({{base, kMiddle - kHalf}, {tip, kMiddle}, {base, kMiddle + kHalf}});
}

QPainterPath Box(double x, double y, double width, double height)
{
    QPainterPath path;
    path.addRect(x, y, width, height);
    return path;
}

/// A magnifying glass with a minus in it, or a plus.
QPainterPath Glass(bool isPlus)
{
    constexpr QPointF kCentre(6.5, 6.5);
    QPainterPath lines;
    lines.addEllipse(kCentre, 4.6, 4.6);
    lines.moveTo(10, 10);
    lines.lineTo(14, 14);
    lines.moveTo(4.4, kCentre.y());
    lines.lineTo(8.6, kCentre.y());
    if (isPlus) {
        lines.moveTo(kCentre.x(), 4.4);
        lines.lineTo(kCentre.x(), 8.6);
    }
    QPainterPathStroker pen;
    pen.setWidth(kLine);
    pen.setCapStyle(Qt::RoundCap);
    QPainterPath path = pen.createStroke(lines);
    path.setFillRule(Qt::WindingFill);
    return path.simplified();
}

/// Two ends with an arrow from one to the other and back.
QPainterPath AllFrames()
{
    return Box(1, kTop, kBar, kHeight) | Box(13.2, kTop, kBar, kHeight) | Head(6.5, 3.4) |
           Head(9.5, 12.6) | Box(6, kMiddle - kLine / 2, 4, kLine);
}

/// Two arrows that meet at a frame.
QPainterPath Closest()
{
    return Box(kMiddle - kBar / 2, kTop, kBar, kHeight) | Head(2.5, 6.3) | Head(13.5, 9.7);
}

/// A key, and the way to it.
QPainterPath Key(double centre, double base, double tip)
{
    constexpr double kHalf = 3.8;
    return Polygon({{centre - kHalf, kMiddle},
                    {centre, kMiddle - kHalf},
                    {centre + kHalf, kMiddle},
                    {centre, kMiddle + kHalf}}) |
           Head(base, tip);
}

QPainterPath ShapeOf(ViewCommand command)
{
    switch (command) {
    case ViewCommand::ZoomIn:
        return Glass(true);
    case ViewCommand::ZoomOut:
        return Glass(false);
    case ViewCommand::ShowAll:
        return AllFrames();
    case ViewCommand::ShowClosest:
        return Closest();
    case ViewCommand::PreviousKey:
        return Key(10.7, 5.5, 1.5);
    case ViewCommand::NextKey:
        return Key(5.3, 10.5, 14.5);
    }
    return {};
}

} // namespace

QIcon IconOf(ViewCommand command)
{
    return DrawnIcon(ShapeOf(command));
}

} // namespace host
