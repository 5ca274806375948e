#include "tracks/SpanPainter.h"

#include "tracks/RowView.h"

#include <QBrush>
#include <QPainter>
#include <QPen>

void DrawSpan(QPainter& painter, const RowView& view, long long left, long long right, int top,
              int bottom, const QPen& pen, const QBrush& brush)
{
    if (!view.Shows(left, right))
        return;
    // Plain fills of what is in view: a pen would walk a span that is a million columns long.
    const QColor line = pen.color();
    const int height = bottom - top + 1;
    painter.fillRect(view.Part(left + 1, right - 1, top + 1, height - 2), brush);
    painter.fillRect(view.Part(left, right, top, 1), line);
    painter.fillRect(view.Part(left, right, bottom, 1), line);
    painter.fillRect(view.Part(left, left, top, height), line);
    painter.fillRect(view.Part(right, right, top, height), line);
}
