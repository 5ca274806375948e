#pragma once

#include "FigurePose.h"

namespace host {

enum class BodySide
{
    Middle,
    Left,
    Right
};

/// A part of a body: what lies between two balls, with the balls.
struct FigurePart
{
    QVector3D from;
    QVector3D to;
    float fromRadius = 0;
    float toRadius = 0;
    BodySide side = BodySide::Middle;
};

/// The flesh on a figure's bones: a part for each bone, and one more for a head, for feet without
/// toes and for hands. How thick it is follows from the joints' names and the figure's height.
QVector<FigurePart> PartsOf(const Motion& motion, const FigureBuild& build, const FigurePose& pose);

/// How far the soles lie below the lowest joint.
float SoleDepth(const FigureBuild& build);

} // namespace host
