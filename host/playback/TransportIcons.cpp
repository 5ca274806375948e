#include "TransportIcons.h"

#include "view/DrawnIcon.h"

namespace host {

namespace {

// Units of the square that icons are drawn on.
constexpr double kTop = 3;
constexpr double kBottom = 13;
constexpr double kMiddle = 8;
constexpr double kBar = 2; ///< the width of a bar
constexpr double kLine = 1.6;

void AddTriangle(QPainterPath& path, double base, double tip)
{
    path.moveTo(base, kTop);
    path.lineTo(tip, kMiddle);
    path.lineTo(base, kBottom);
    path.closeSubpath();
}

void AddBar(QPainterPath& path, double left, double width = kBar)
{
    path.addRect(left, kTop, width, kBottom - kTop);
}

/// The outline of an oval track with an arrowhead on its upper side.
QPainterPath Loop()
{
    QPainterPath track;
    track.addRoundedRect(QRectF(2, 5, 12, 7), 3.5, 3.5);
    QPainterPathStroker pen;
    pen.setWidth(kLine);
    QPainterPath path = pen.createStroke(track);
    path.setFillRule(Qt::WindingFill);
    QPainterPath head;
    head.moveTo(7, 2);
    head.lineTo(11, 5);
    head.lineTo(7, 8);
    head.closeSubpath();
    return path.united(head);
}

QPainterPath PathOf(TransportSymbol symbol)
{
    QPainterPath path;
    switch (symbol) {
    case TransportSymbol::Start:
        AddBar(path, 3);
        AddTriangle(path, 13, 6);
        break;
    case TransportSymbol::StepBack:
        AddTriangle(path, 8, 3);
        AddBar(path, 10);
        break;
    case TransportSymbol::Play:
        AddTriangle(path, 4, 13);
        break;
    case TransportSymbol::Pause:
        AddBar(path, 4, 3);
        AddBar(path, 9, 3);
        break;
    case TransportSymbol::Stop:
        path.addRect(3.5, 3.5, 9, 9);
        break;
    case TransportSymbol::StepForward:
        AddBar(path, 4);
        AddTriangle(path, 8, 13);
        break;
    case TransportSymbol::End:
        AddTriangle(path, 3, 10);
        AddBar(path, 11);
        break;
    case TransportSymbol::Loop:
        return Loop();
    }
    return path;
}

} // namespace

QIcon TransportIcon(TransportSymbol symbol)
{
    return DrawnIcon(PathOf(symbol));
}

} // namespace host
