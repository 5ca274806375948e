#pragma once

#include <QPainter>

#include <climits>

/// The columns of pixels that a paint can reach, in the painter's coordinates, both inclusive.
/// Painters leave out what lies beyond them, so that a repaint of a few columns costs only those.
struct PaintedColumns
{
    int left = INT_MIN / 2;
    int right = INT_MAX / 2;

    /// The columns of the painter's clip, or of its whole device when nothing is clipped.
    explicit PaintedColumns(const QPainter& painter);

    bool Reach(long long from, long long to) const { return to >= left && from <= right; }
};
