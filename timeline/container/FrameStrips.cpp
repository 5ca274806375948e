#include "container/FrameStrips.h"

#include "tracks/CellGeometry.h"

#include <algorithm>

void FrameStrips::AddRow(const QRect& row)
{
    if (!rows.empty() && rows.back().left() == row.left() && rows.back().right() == row.right() &&
        rows.back().bottom() + 1 == row.top())
        rows.back().setBottom(row.bottom());
    else
        rows.push_back(row);
}

QRect FrameStrips::Cell(const FrameAxis& axis) const
{
    const CurrentFrameCell cell(axis);
    const long long first = std::max(cell.first, 0LL);
    const long long last = std::min(cell.last, ruler.width() - 1LL);
    if (first > last)
        return QRect();
    return QRect(ruler.left() + static_cast<int>(first), ruler.top(),
                 static_cast<int>(last - first + 1), ruler.height());
}

std::vector<QRect> FrameStrips::Lines(const FrameAxis& axis) const
{
    std::vector<QRect> lines;
    if (axis.currentFrame < 0 || axis.currentFrame > axis.frameCount)
        return lines;
    const int x = CurrentFrameLineX(axis);
    for (const QRect& row : rows) {
        if (x >= 0 && x < row.width())
            lines.emplace_back(row.left() + x, row.top(), 1, row.height());
    }
    return lines;
}

QRegion FrameStrips::Region(const FrameAxis& axis) const
{
    QRegion region(Cell(axis));
    for (const QRect& line : Lines(axis))
        region += line;
    return region;
}
