#include "tracks/CellGeometry.h"

#include "axis/ClampedInt.h"

#include <algorithm>

namespace {

constexpr int kNarrowestCell = 3; // a current-frame cell below this is a plain column

/// Frames per pixel; 1 before the axis was first computed.
long long FramesPerPixel(const FrameAxis& axis)
{
    return std::max(axis.info.framesPerPixel, 1);
}

/// trunc((doubled + scale) / 2) without a division by the frames per pixel: below one pixel per
/// frame the scale is a fraction that only decides on which side of a whole number the sum lies.
int HalfWithCell(const FrameAxis& axis, long long doubled)
{
    if (!axis.IsFramesPerPixel())
        return ClampedInt((doubled + axis.info.pixelsPerFrame) / 2);
    const bool wholePixel = FramesPerPixel(axis) == 1;
    return ClampedInt(doubled < 0 || wholePixel ? (doubled + 1) / 2 : doubled / 2);
}

} // namespace

int CentredInCell(const FrameAxis& axis, int frameX, int width)
{
    return HalfWithCell(axis, 2LL * frameX - width);
}

int CellCentre(const FrameAxis& axis, int frameX)
{
    return HalfWithCell(axis, 2LL * frameX);
}

int CentredOnFrame(const FrameAxis& axis, long long frame, int width)
{
    const long long scrollX = axis.scrollX;
    if (!axis.IsFramesPerPixel()) {
        const long long scale = axis.info.pixelsPerFrame;
        return ClampedInt((2 * (frame * scale - scrollX) + scale - width) / 2);
    }
    const long long k = FramesPerPixel(axis);
    return ClampedInt((2 * (frame - scrollX * k) + 1 - width * k) / (2 * k));
}

int CurrentFrameLineX(const FrameAxis& axis)
{
    if (!axis.IsFramesPerPixel())
        return axis.FrameToPixel(axis.currentFrame);
    const long long k = FramesPerPixel(axis);
    return ClampedInt((2 * (axis.currentFrame - axis.scrollX * k) + 1 + k) / (2 * k));
}

CurrentFrameCell::CurrentFrameCell(const FrameAxis& axis)
{
    if (axis.currentFrame < 0 || axis.currentFrame >= axis.frameCount)
        return;
    first = axis.FrameToPixel(axis.currentFrame);
    const long long end = first + axis.info.pixelsPerFrame + 1;
    isPlain = axis.IsFramesPerPixel() || end - first < kNarrowestCell;
    last = isPlain ? first + 1 : end;
}

int AlignedTop(int align, int rowHeight, int height)
{
    switch (align) {
    case kAlignTop:
        return 0;
    case kAlignBottom:
        return rowHeight - height;
    default:
        return (rowHeight - height) / 2;
    }
}
