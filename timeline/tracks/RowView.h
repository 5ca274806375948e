#pragma once

#include "axis/FrameAxis.h"

#include <QRect>

class QPainter;

/// Frames from first to last, both included.
struct FrameWindow
{
    int first = 0;
    int last = -1;
};

/// The part of one row that a paint has to produce: the row's rectangle in the painter's
/// coordinates, the axis, and the columns that can come out at all. Columns are counted from the
/// row's left edge. What painters leave out beyond those columns makes a repaint of a few of them
/// cheap, and never changes a pixel.
struct RowView
{
    RowView(const QRect& rowRect, const FrameAxis& frameAxis, int first, int last);
    /// The columns of the row that lie inside the painter's clip; all of them without one.
    RowView(const QPainter& painter, const QRect& rowRect, const FrameAxis& frameAxis);

    QRect row;
    const FrameAxis& axis;
    int firstColumn;
    int lastColumn; ///< included; less than firstColumn when nothing is to be painted
    int endX;       ///< the column of the frame count: where the timeline ends

    bool IsEmpty() const { return firstColumn > lastColumn; }
    int LastFrame() const { return axis.frameCount; }
    /// Whether any of the columns @p from to @p to is to be painted.
    bool Shows(long long from, long long to) const
    {
        return from <= lastColumn && to >= firstColumn;
    }
    /// The columns @p from to @p to (both included) as far as they are to be painted, from @p top
    /// on (counted from the row's top), @p height pixels high; empty when none is.
    QRect Part(long long from, long long to, int top, int height) const;
    /// The same over the whole height of the row.
    QRect Part(long long from, long long to) const { return Part(from, to, 0, row.height()); }

    /// The frames that stand within @p before columns left and @p after columns right of the
    /// columns to be painted, or a few more.
    FrameWindow Frames(long long before, long long after) const;
};

/// The frames that stand in the columns @p firstX to @p lastX of a row, or a few more. The columns
/// may lie outside of the row.
FrameWindow FramesAround(const FrameAxis& axis, long long firstX, long long lastX);

/// @p window grown by @p frames at both ends.
FrameWindow Widened(const FrameWindow& window, long long frames);
