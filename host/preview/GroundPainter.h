#pragma once

#include "FigureParts.h"
#include "StageCamera.h"

class QPainter;

namespace host {

/// The ground that a figure stands on.
struct Ground
{
    float level = 0;  ///< height in the world
    float height = 1; ///< of the figure, from which the grid's meshes follow
    QVector3D middle; ///< where the figure is
};

/// Paints a grid that stays where it is in the world and fades away around the figure.
void PaintGrid(QPainter& painter, const StageView& view, const Ground& ground);

/// Paints the shadow of all parts as one, under a light from above.
void PaintShadow(QPainter& painter, const StageView& view, const Ground& ground,
                 const QVector<FigurePart>& parts);

} // namespace host
