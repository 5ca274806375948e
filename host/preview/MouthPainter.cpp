#include "MouthPainter.h"

#include "MouthPose.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace host {

namespace {

// All lengths are shares of half the mouth's width at rest.
constexpr double kOpening = 1.15;   ///< between the lips when the jaw is down
constexpr double kUpperShare = 0.3; ///< of the opening; the lower lip goes with the jaw
constexpr double kCornerLift = 0.26;
constexpr double kLipAtCorner = 0.1; ///< the opening ends this far before the lips do
constexpr double kToothGap = 0.04;
constexpr double kSeam = 0.035; ///< thickness of the line between closed lips

const QColor kUpperLip(166, 84, 82);
const QColor kLowerLip(190, 103, 98);
const QColor kSeamColour(84, 36, 40);
const QColor kInside(48, 18, 24);
const QColor kTongue(186, 96, 104);
const QColor kTongueShade(158, 74, 84);
const QColor kUpperTeeth(238, 234, 224);
const QColor kLowerTeeth(214, 208, 198);

/// The lines that a pose gives the mouth.
struct MouthLines
{
    explicit MouthLines(const MouthPose& pose)
        : halfWidth(pose.width), corner(-kCornerLift * pose.smile),
          top(-kUpperShare * kOpening * pose.jaw),
          bottom((1 - kUpperShare) * kOpening * pose.jaw * (1 - 0.7 * pose.bite)),
          upperLip(0.17 + 0.15 * pose.pucker - 0.10 * pose.press),
          lowerLip(0.22 + 0.16 * pose.pucker - 0.13 * pose.press - 0.08 * pose.bite),
          roundness(0.5 + 0.3 * pose.pucker)
    {
    }

    /// The opening between the lips.
    QPainterPath Opening() const
    {
        const double side = std::max(0.05, halfWidth - kLipAtCorner);
        return Oval(side, top, bottom);
    }

    /// The line between the lips when they are closed, and the opening's edge when they are not.
    QPainterPath Oval(double side, double upper, double lower) const
    {
        const double bend = side * roundness;
        QPainterPath path(QPointF(-side, corner));
        path.cubicTo(-side + (side - bend) * 0.6, Between(corner, upper), -bend, upper, 0, upper);
        path.cubicTo(bend, upper, side - (side - bend) * 0.6, Between(corner, upper), side, corner);
        path.cubicTo(side - (side - bend) * 0.6, Between(corner, lower), bend, lower, 0, lower);
        path.cubicTo(-bend, lower, -side + (side - bend) * 0.6, Between(corner, lower), -side,
                     corner);
        path.closeSubpath();
        return path;
    }

    QPainterPath UpperLip() const
    {
        const double edge = top - upperLip;
        const double dip = upperLip * 0.28; // the bow in the middle of the upper lip
        QPainterPath path(QPointF(-halfWidth, corner));
        path.cubicTo(-halfWidth * 0.7, Between(corner, edge), -halfWidth * 0.45, edge - dip * 0.4,
                     -halfWidth * 0.2, edge - dip * 0.4);
        path.quadTo(-halfWidth * 0.08, edge - dip * 0.4, 0, edge + dip * 0.6);
        path.quadTo(halfWidth * 0.08, edge - dip * 0.4, halfWidth * 0.2, edge - dip * 0.4);
        path.cubicTo(halfWidth * 0.45, edge - dip * 0.4, halfWidth * 0.7, Between(corner, edge),
                     halfWidth, corner);
        path.quadTo(0, Between(top, bottom) * 2 - corner, -halfWidth, corner);
        path.closeSubpath();
        return path;
    }

    QPainterPath LowerLip() const
    {
        const double edge = bottom + lowerLip;
        QPainterPath path(QPointF(-halfWidth, corner));
        path.quadTo(0, Between(top, bottom) * 2 - corner, halfWidth, corner);
        path.cubicTo(halfWidth * 0.8, Between(corner, edge) + lowerLip * 0.3, halfWidth * 0.5, edge,
                     0, edge);
        path.cubicTo(-halfWidth * 0.5, edge, -halfWidth * 0.8,
                     Between(corner, edge) + lowerLip * 0.3, -halfWidth, corner);
        path.closeSubpath();
        return path;
    }

    static double Between(double a, double b) { return (a + b) / 2; }

    double halfWidth;
    double corner; ///< height of the corners
    double top;    ///< of the opening, in the middle
    double bottom;
    double upperLip; ///< thickness
    double lowerLip;
    double roundness; ///< how square (towards 1) the opening is
};

void PaintTeeth(QPainter& painter, const MouthLines& lines, const MouthPose& pose)
{
    const double side = lines.halfWidth * 0.86;
    if (pose.upperTeeth > 0) {
        // Where both rows are seen they meet, and a gap stays between them.
        const double room = (lines.bottom - lines.top) * (1 - 0.45 * pose.lowerTeeth) - kToothGap;
        const double depth = std::min(0.3 * pose.upperTeeth, std::max(0.0, room));
        const double from = std::min(lines.top, lines.corner) - 0.1;
        QPainterPath row;
        row.addRoundedRect(QRectF(QPointF(-side, from), QPointF(side, lines.top + depth)), 0.14,
                           0.12);
        painter.fillPath(row, kUpperTeeth);
    }
}

void PaintLowerTeeth(QPainter& painter, const MouthLines& lines, const MouthPose& pose)
{
    if (pose.lowerTeeth <= 0)
        return;
    const double side = lines.halfWidth * 0.74;
    const double room = (lines.bottom - lines.top) * 0.45;
    const double height = std::min(0.2, room) * pose.lowerTeeth;
    QPainterPath row;
    row.addRoundedRect(
        QRectF(QPointF(-side, lines.bottom - height), QPointF(side, lines.bottom + 0.3)), 0.12,
        0.1);
    painter.fillPath(row, kLowerTeeth);
}

void PaintTongue(QPainter& painter, const MouthLines& lines, const MouthPose& pose)
{
    if (pose.tongue <= 0)
        return;
    const double low = lines.bottom - 0.06;
    const double high = lines.top + 0.16;
    const double tip = low + (high - low) * pose.tongue;
    const double side = lines.halfWidth * (0.62 - 0.16 * pose.tongue);
    QPainterPath tongue;
    tongue.addRoundedRect(QRectF(QPointF(-side, tip), QPointF(side, lines.bottom + 0.8)),
                          side * 0.95, std::min(0.42, side));
    painter.fillPath(tongue, kTongue);
    painter.setPen(QPen(kTongueShade, 0.05, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(0, tip + 0.16), QPointF(0, lines.bottom + 0.4));
}

} // namespace

void PaintMouth(QPainter& painter, const MouthPose& pose)
{
    const MouthLines lines(pose);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.fillPath(lines.LowerLip(), kLowerLip);
    painter.fillPath(lines.UpperLip(), kUpperLip);

    const QPainterPath opening = lines.Opening();
    painter.fillPath(opening, kInside);
    painter.save();
    painter.setClipPath(opening, Qt::IntersectClip);
    PaintLowerTeeth(painter, lines, pose);
    PaintTongue(painter, lines, pose);
    PaintTeeth(painter, lines, pose);
    painter.restore();
    painter.strokePath(opening, QPen(kSeamColour, kSeam, Qt::SolidLine, Qt::RoundCap));
    painter.restore();
}

} // namespace host
