#pragma once

#include <QQuaternion>
#include <QVector>

namespace host {

/// A place where a curve turns back.
struct TurningPoint
{
    int frame = 0;
    double swing = 0; ///< how far the curve came and how far it goes back, the lesser of the two
};

/// The frames where @p curve, one value a frame, turns from rising to falling or back and has moved
/// by @p threshold or more on both sides. Of a flat top or bottom its first frame counts. The
/// curve's ends are no turning points.
QVector<TurningPoint> FindTurningPoints(const QVector<double>& curve, double threshold);

/// The frames worth a key on a joint's row: its first and last frame, and those where its rotation
/// changes direction by more than jitter. A joint that does not move has its first frame only.
QVector<int> RotationKeyFrames(const QVector<QQuaternion>& rotations);

} // namespace host
