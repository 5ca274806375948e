#include "GroundPainter.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace host {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr float kMeshesPerHeight = 4;
constexpr int kMeshes = 9; ///< of the grid, from the figure outwards
constexpr int kPieces = 2; ///< that a mesh's side is drawn in, each as bright as its place
constexpr int kGridAlpha = 120;
constexpr float kSlantAcross = 0.18F; ///< that the light moves a shadow for each unit of height
constexpr float kSlantAlong = -0.12F;
const QColor kGridColour(104, 118, 132);
const QColor kShadowColour(8, 9, 12, 150);

/// How bright the grid is at a place, 0 to 1.
double Brightness(float across, float along, float reach)
{
    const double distance = std::hypot(across, along) / reach;
    return std::clamp(1 - distance, 0.0, 1.0);
}

/// A side of the grid's meshes that runs along one axis, in pieces.
void PaintLine(QPainter& painter, const StageView& view, const Ground& ground,
               const QVector3D& from, const QVector3D& to, float reach)
{
    constexpr int kCount = 2 * kMeshes * kPieces;
    for (int piece = 0; piece < kCount; ++piece) {
        const QVector3D a = from + (to - from) * (static_cast<float>(piece) / kCount);
        const QVector3D b = from + (to - from) * (static_cast<float>(piece + 1) / kCount);
        const QVector3D away = (a + b) / 2 - ground.middle;
        QColor colour = kGridColour;
        colour.setAlpha(static_cast<int>(kGridAlpha * Brightness(away.x(), away.z(), reach)));
        if (colour.alpha() == 0)
            continue;
        painter.setPen(QPen(colour, 1));
        painter.drawLine(view.Project(a).place, view.Project(b).place);
    }
}

/// The outline on the ground of what lies between two discs, always in the same direction.
QPolygonF Outline(const QPointF& a, double aRadius, const QPointF& b, double bRadius)
{
    constexpr int kHalf = 8; // corners of a half disc
    const double way = std::atan2(b.y() - a.y(), b.x() - a.x());
    QPolygonF outline;
    for (int i = 0; i <= kHalf; ++i) {
        const double angle = way + kPi / 2 + kPi * i / kHalf;
        outline << a + QPointF(std::cos(angle), std::sin(angle)) * aRadius;
    }
    for (int i = 0; i <= kHalf; ++i) {
        const double angle = way - kPi / 2 + kPi * i / kHalf;
        outline << b + QPointF(std::cos(angle), std::sin(angle)) * bRadius;
    }
    return outline;
}

/// Where the light throws a point.
QPointF Thrown(const QVector3D& point, float level)
{
    const float rise = std::max(0.0F, point.y() - level);
    return {point.x() + kSlantAcross * rise, point.z() + kSlantAlong * rise};
}

} // namespace

void PaintGrid(QPainter& painter, const StageView& view, const Ground& ground)
{
    const float mesh = ground.height / kMeshesPerHeight;
    const float reach = mesh * kMeshes;
    const float across = std::round(ground.middle.x() / mesh) * mesh;
    const float along = std::round(ground.middle.z() / mesh) * mesh;
    for (int i = -kMeshes; i <= kMeshes; ++i) {
        const float offset = static_cast<float>(i) * mesh;
        PaintLine(painter, view, ground, {across - reach, ground.level, along + offset},
                  {across + reach, ground.level, along + offset}, reach);
        PaintLine(painter, view, ground, {across + offset, ground.level, along - reach},
                  {across + offset, ground.level, along + reach}, reach);
    }
}

void PaintShadow(QPainter& painter, const StageView& view, const Ground& ground,
                 const QVector<FigurePart>& parts)
{
    QPainterPath shadow;
    shadow.setFillRule(Qt::WindingFill); // where parts overlap it is no darker
    for (const FigurePart& part : parts) {
        QPolygonF seen;
        const QPolygonF outline =
            Outline(Thrown(part.from, ground.level), static_cast<double>(part.fromRadius),
                    Thrown(part.to, ground.level), static_cast<double>(part.toRadius));
        for (const QPointF& point : outline) {
            const QVector3D onGround(static_cast<float>(point.x()), ground.level,
                                     static_cast<float>(point.y()));
            seen << view.Project(onGround).place;
        }
        shadow.addPolygon(seen);
        shadow.closeSubpath();
    }
    painter.fillPath(shadow, kShadowColour);
}

} // namespace host
