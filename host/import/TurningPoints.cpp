#include "TurningPoints.h"

#include <QVector3D>
#include <QtMath>

#include <algorithm>
#include <array>
#include <cmath>

namespace host {

namespace {

constexpr double kJitterDegrees = 3.0; ///< swings below this are the capture's noise
constexpr int kClosestKeys = 3;        ///< frames; of turns closer together the widest swing stays

/// The turn from one rotation to the next about the joint's own axes, in degrees an axis.
QVector3D TurnBetween(const QQuaternion& from, const QQuaternion& to)
{
    QQuaternion turn = from.conjugated() * to;
    if (turn.scalar() < 0)
        turn = -turn;
    const QVector3D axis = turn.vector();
    const float sine = axis.length();
    if (sine <= 0)
        return {};
    const double degrees = qRadiansToDegrees(2 * std::atan2(sine, turn.scalar()));
    return axis * static_cast<float>(degrees / sine);
}

using AxisCurves = std::array<QVector<double>, 3>;

/// How far the joint has turned about each of its axes up to every frame. Adding up small turns
/// keeps the curves free of the jumps that angles make at 180 degrees.
AxisCurves AccumulatedTurns(const QVector<QQuaternion>& rotations)
{
    AxisCurves curves;
    std::array<double, 3> sums{};
    for (int frame = 0; frame < rotations.size(); ++frame) {
        const QVector3D turn =
            frame == 0 ? QVector3D() : TurnBetween(rotations[frame - 1], rotations[frame]);
        for (std::size_t axis = 0; axis < curves.size(); ++axis) {
            sums[axis] += static_cast<double>(turn[static_cast<int>(axis)]);
            curves[axis].append(sums[axis]);
        }
    }
    return curves;
}

bool Moves(const QVector<double>& curve)
{
    const auto [least, most] = std::minmax_element(curve.cbegin(), curve.cend());
    return *most - *least >= kJitterDegrees;
}

bool IsNearAny(int frame, const QVector<int>& frames)
{
    return std::any_of(frames.cbegin(), frames.cend(),
                       [frame](int other) { return std::abs(frame - other) < kClosestKeys; });
}

} // namespace

QVector<TurningPoint> FindTurningPoints(const QVector<double>& curve, double threshold)
{
    QVector<TurningPoint> turns;
    if (curve.isEmpty())
        return turns;
    // Runs along the curve with the highest and the lowest place since the last turn; once the
    // curve is a threshold away from one of them, that place was a turn.
    int highest = 0;
    int lowest = 0;
    int direction = 0; // +1 rising, -1 falling, 0 not known yet
    double lastTurn = curve[0];
    const auto turnAt = [&](int extreme, int frame, int newDirection) {
        if (direction != 0)
            turns.append({extreme, std::abs(curve[extreme] - lastTurn)});
        lastTurn = curve[extreme];
        direction = newDirection;
        highest = lowest = frame;
    };
    for (int frame = 1; frame < curve.size(); ++frame) {
        if (curve[frame] > curve[highest])
            highest = frame;
        if (curve[frame] < curve[lowest])
            lowest = frame;
        if (direction >= 0 && curve[highest] - curve[frame] >= threshold)
            turnAt(highest, frame, -1);
        else if (direction <= 0 && curve[frame] - curve[lowest] >= threshold)
            turnAt(lowest, frame, 1);
    }
    // The way back from each turn is known only now.
    const double end = direction > 0 ? curve[highest] : curve[lowest];
    for (int i = 0; i < turns.size(); ++i) {
        const double next = i + 1 < turns.size() ? curve[turns[i + 1].frame] : end;
        turns[i].swing = std::min(turns[i].swing, std::abs(next - curve[turns[i].frame]));
    }
    return turns;
}

QVector<int> RotationKeyFrames(const QVector<QQuaternion>& rotations)
{
    if (rotations.isEmpty())
        return {};
    const AxisCurves curves = AccumulatedTurns(rotations);
    const int last = rotations.size() - 1;
    if (std::none_of(curves.cbegin(), curves.cend(), Moves) || last == 0)
        return {0};

    QVector<TurningPoint> turns;
    for (const QVector<double>& curve : curves)
        turns += FindTurningPoints(curve, kJitterDegrees);
    std::stable_sort(turns.begin(), turns.end(), [](const TurningPoint& a, const TurningPoint& b) {
        return a.swing > b.swing;
    });
    QVector<int> frames{0, last};
    for (const TurningPoint& turn : qAsConst(turns)) {
        if (!IsNearAny(turn.frame, frames))
            frames.append(turn.frame);
    }
    std::sort(frames.begin(), frames.end());
    return frames;
}

} // namespace host
