#pragma once

#include "FigurePose.h"
#include "StageCamera.h"

class QPainter;

namespace host {

/// Paints a figure on its stage: a backdrop, the ground with its grid and the figure's shadow, and
/// the figure as rounded limbs, the left ones and the right ones each in a colour of their own. The
/// camera goes with the figure.
class FigurePainter
{
public:
    /// @param motion is not kept beyond the painter.
    FigurePainter(const Motion& motion, const FigurePose& pose);

    void Paint(QPainter& painter, const QRectF& area, const StageCamera& camera) const;

private:
    const Motion& m_motion;
    const FigurePose& m_pose;
};

} // namespace host
