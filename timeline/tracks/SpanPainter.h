#pragma once

class QBrush;
class QPainter;
class QPen;
struct RowView;

/// Pixels; higher than any row. Skins' heights are cut here, to keep within arithmetic.
constexpr int kHighestSpan = 1 << 20;

/// Fills a rectangle and outlines it with one pixel. The outline's lines stand at the columns
/// @p left and @p right and at the rows @p top and @p bottom, counted from the row's corner. Pen
/// and brush are the solid ones of the skin.
void DrawSpan(QPainter& painter, const RowView& view, long long left, long long right, int top,
              int bottom, const QPen& pen, const QBrush& brush);
