#pragma once

#include <QRect>
#include <QRegion>

#include <vector>

class FrameAxis;

/// Where a timeline shows the current frame, in pixels of the container: as a cell of the ruler and
/// as a line through the rows. What a step of the current frame changes is what lies in these
/// strips, at the frame's old and new place; nothing else depends on it.
struct FrameStrips
{
    QRect ruler;
    std::vector<QRect> rows; ///< rows that begin at the same column and stand together as one

    /// Adds a row below those that are there.
    void AddRow(const QRect& row);

    /// The cell of the current frame; empty when it is out of view or no valid frame.
    QRect Cell(const FrameAxis& axis) const;
    /// The line of the current frame, as one piece for each of the rows in view.
    std::vector<QRect> Lines(const FrameAxis& axis) const;
    /// All that shows the current frame.
    QRegion Region(const FrameAxis& axis) const;
};
