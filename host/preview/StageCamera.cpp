#include "StageCamera.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

constexpr double kDegreesPerPixel = 0.5;
constexpr double kZoomPerNotch = 1.15;
constexpr double kDistance = 5.0;  ///< of the eye, in heights of the figure
constexpr double kShare = 0.86;    ///< of the picture's height that the figure takes
constexpr double kSlimmest = 0.62; ///< a picture narrower than this share of its height is filled
constexpr double kNearest = 0.15;  ///< of the distance: what comes closer to the eye is held there
constexpr double kRadians = 3.14159265358979323846 / 180;

} // namespace

void StageCamera::Drag(const QPointF& way)
{
    turn = static_cast<float>(std::remainder(turn - way.x() * kDegreesPerPixel, 360.0));
    rise = std::clamp(static_cast<float>(rise + way.y() * kDegreesPerPixel), kLowestRise,
                      kHighestRise);
}

void StageCamera::Zoom(double notches)
{
    zoom = std::clamp(static_cast<float>(zoom * std::pow(kZoomPerNotch, notches)), kFurthestZoom,
                      kClosestZoom);
}

bool operator==(const StageCamera& a, const StageCamera& b)
{
    return a.turn == b.turn && a.rise == b.rise && a.zoom == b.zoom;
}

StageView::StageView(const StageCamera& camera, const QVector3D& target, float height,
                     const QRectF& area)
    : m_target(target), m_middle(area.center()), m_turnSine(std::sin(camera.turn * kRadians)),
      m_turnCosine(std::cos(camera.turn * kRadians)), m_riseSine(std::sin(camera.rise * kRadians)),
      m_riseCosine(std::cos(camera.rise * kRadians)), m_distance(kDistance * height)
{
    const double room = std::min(area.height(), area.width() / kSlimmest);
    m_scale = height > 0 ? kShare * room / height * camera.zoom : 0;
}

Projected StageView::Project(const QVector3D& point) const
{
    const QVector3D way = point - m_target;
    const double right = m_turnCosine * way.x() - m_turnSine * way.z();
    const double ahead = m_turnSine * way.x() + m_turnCosine * way.z();
    const double up = m_riseCosine * way.y() - m_riseSine * ahead;
    const double nearer = m_riseSine * way.y() + m_riseCosine * ahead;
    const double away = std::max(kNearest * m_distance, m_distance - nearer);
    const double scale = away > 0 ? m_scale * m_distance / away : 0;
    return {m_middle + QPointF(right * scale, -up * scale), scale, -nearer};
}

} // namespace host
