#pragma once

#include "tracks/BackgroundPainter.h"

#include <QPoint>

class FrameAxis;
class QColor;
class QPainter;
struct RowView;

/// What a hit on the end markers of a time range answers.
enum RangeMarkerHit : int
{
    kNoMarker = -1,
    kStartMarker = 0,
    kEndMarker = 1
};

/// Draws the pair of markers at the ends of a range that has both: the start marker right of its
/// frame's left edge, the end marker left of the edge after its frame.
void DrawRangeMarkers(QPainter& painter, const RowView& view, const TimeRange& range);

/// The marker under @p point (row coordinates); the end marker wins where both stand.
RangeMarkerHit HitRangeMarker(const FrameAxis& axis, const TimeRange& range, QPoint point);

/// Draws the current-frame line over the row's height in @p colour, when the current frame is in 0
/// to the frame count, the count included.
void DrawCurrentFrameLine(QPainter& painter, const RowView& view, const QColor& colour);
