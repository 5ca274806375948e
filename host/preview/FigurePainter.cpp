#include "FigurePainter.h"

#include "Backdrop.h"
#include "GroundPainter.h"
#include "document/Motion.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>

namespace host {

namespace {

constexpr double kDegrees = 180 / 3.14159265358979323846;
constexpr double kOutline = 1.1; ///< pixels
constexpr float kAnyHeight = 1;  ///< of a stage without a figure

struct LimbColours
{
    QRgb light;
    QRgb middle;
    QRgb dark;
};

// In the order of BodySide. The sides differ enough to tell the legs of a walk apart.
constexpr std::array<LimbColours, 3> kColours{
    {{qRgb(214, 220, 226), qRgb(158, 168, 178), qRgb(92, 102, 114)},
     {qRgb(166, 224, 212), qRgb(92, 174, 160), qRgb(46, 106, 100)},
     {qRgb(240, 210, 162), qRgb(204, 158, 98), qRgb(132, 94, 54)}}};

/// A disc of the picture.
struct Disc
{
    QPointF middle;
    double radius;

    QRectF Rect() const
    {
        return {middle - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius)};
    }
};

/// A part as the camera sees it.
struct SeenPart
{
    Disc from;
    Disc to;
    double depth;
    BodySide side;
};

SeenPart Seen(const StageView& view, const FigurePart& part)
{
    const Projected from = view.Project(part.from);
    const Projected to = view.Project(part.to);
    return {{from.place, from.scale * static_cast<double>(part.fromRadius)},
            {to.place, to.scale * static_cast<double>(part.toRadius)},
            (from.depth + to.depth) / 2,
            part.side};
}

/// The outline of two discs and what lies between them.
QPainterPath Hull(const Disc& a, const Disc& b)
{
    const QPointF way = b.middle - a.middle;
    const double distance = std::hypot(way.x(), way.y());
    QPainterPath path;
    if (distance <= std::abs(a.radius - b.radius)) { // one hides the other
        path.addEllipse((a.radius > b.radius ? a : b).Rect());
        return path;
    }
    // Angles as arcs take them: against the clock, from the right.
    const double along = std::atan2(-way.y(), way.x()) * kDegrees;
    const double touch = std::acos((a.radius - b.radius) / distance) * kDegrees;
    path.arcMoveTo(a.Rect(), along + touch);
    path.arcTo(a.Rect(), along + touch, 360 - 2 * touch);
    path.arcTo(b.Rect(), along - touch, 2 * touch);
    path.closeSubpath();
    return path;
}

void PaintPart(QPainter& painter, const SeenPart& part)
{
    const LimbColours& colours = kColours[static_cast<std::size_t>(part.side)];
    const QPainterPath hull = Hull(part.from, part.to);
    const double radius = std::max(part.from.radius, part.to.radius);
    // Across the part, lit from above on the left.
    const QPointF way = part.to.middle - part.from.middle;
    const double distance = std::hypot(way.x(), way.y());
    QPointF across = distance > 0 ? QPointF(way.y(), -way.x()) / distance : QPointF(-0.7, -0.7);
    if (across.x() + across.y() > 0)
        across = -across;
    const QPointF middle = (part.from.middle + part.to.middle) / 2;
    QLinearGradient light(middle + across * radius, middle - across * radius);
    light.setColorAt(0, QColor(colours.light));
    light.setColorAt(0.45, QColor(colours.middle));
    light.setColorAt(1, QColor(colours.dark));
    painter.fillPath(hull, light);
    painter.strokePath(hull, QPen(QColor(colours.dark).darker(150), kOutline));
}

/// The middle of the roots: where the figure is.
QVector3D PlaceOf(const Motion& motion, const FigurePose& pose)
{
    QVector3D sum;
    int count = 0;
    for (int i = 0; i < pose.positions.size(); ++i) {
        if (motion.joints[i].parent >= 0)
            continue;
        sum += pose.positions[i];
        ++count;
    }
    return count > 0 ? sum / static_cast<float>(count) : QVector3D();
}

Ground GroundOf(const FigureBuild& build, const QVector3D& place)
{
    Ground ground;
    ground.height = build.height > 0 ? build.height : kAnyHeight;
    ground.level = build.ground - SoleDepth(build);
    ground.middle = QVector3D(place.x(), ground.level, place.z());
    return ground;
}

} // namespace

FigurePainter::FigurePainter(const Motion& motion, const FigurePose& pose)
    : m_motion(motion), m_pose(pose)
{
}

void FigurePainter::Paint(QPainter& painter, const QRectF& area, const StageCamera& camera) const
{
    const FigureBuild build = BuildOf(m_motion);
    const Ground ground = GroundOf(build, PlaceOf(m_motion, m_pose));
    constexpr float kCrown = 0.14F; // what a head adds to the height of the joints
    const float height = ground.height * (1 + kCrown);
    const StageView view(camera, ground.middle + QVector3D(0, height / 2, 0), height, area);
    const QVector<FigurePart> parts = PartsOf(m_motion, build, m_pose);

    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(area, Qt::IntersectClip);
    PaintBackdrop(painter, area);
    PaintGrid(painter, view, ground);
    PaintShadow(painter, view, ground, parts);
    QVector<SeenPart> seen;
    seen.reserve(parts.size());
    for (const FigurePart& part : parts)
        seen.append(Seen(view, part));
    std::stable_sort(seen.begin(), seen.end(),
                     [](const SeenPart& a, const SeenPart& b) { return a.depth > b.depth; });
    for (const SeenPart& part : qAsConst(seen))
        PaintPart(painter, part);
    painter.restore();
}

} // namespace host
