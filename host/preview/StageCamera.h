#pragma once

#include <QPointF>
#include <QRectF>
#include <QVector3D>

namespace host {

/// From where a figure is looked at.
struct StageCamera
{
    float turn = 35; ///< degrees around the upright axis; 0 looks at the figure's front
    float rise = 10; ///< degrees above the ground, see kLowestRise and kHighestRise
    float zoom = 1;  ///< 1 shows the whole figure, more brings it closer

    /// Turns the camera as a drag by that many pixels asks for.
    void Drag(const QPointF& way);
    /// Brings the figure closer by that many notches of the wheel, or further away when negative.
    void Zoom(double notches);
};

bool operator==(const StageCamera& a, const StageCamera& b);

constexpr float kLowestRise = -5;
constexpr float kHighestRise = 80;
constexpr float kFurthestZoom = 0.4F;
constexpr float kClosestZoom = 5;

/// Where a point of the world comes to lie in a picture.
struct Projected
{
    QPointF place;
    double scale = 0; ///< pixels for a unit of the world
    double depth = 0; ///< grows away from the eye
};

/// Maps the world into a picture, as a camera sees it that looks at a target.
class StageView
{
public:
    /// @param target what comes to lie in the middle of @p area. @param height of the figure.
    StageView(const StageCamera& camera, const QVector3D& target, float height, const QRectF& area);

    Projected Project(const QVector3D& point) const;

private:
    QVector3D m_target;
    QPointF m_middle;
    double m_turnSine;
    double m_turnCosine;
    double m_riseSine;
    double m_riseCosine;
    double m_distance; ///< of the eye from the target
    double m_scale;    ///< pixels for a unit at the target
};

} // namespace host
