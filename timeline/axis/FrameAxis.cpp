#include "axis/FrameAxis.h"

#include <algorithm>
#include <limits>

namespace {

int Clamped(long long value)
{
    constexpr long long lowest = std::numeric_limits<int>::min();
    constexpr long long highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, lowest, highest));
}

} // namespace

long long FrameAxis::FramesPerPixel() const
{
    return std::max(info.framesPerPixel, 1);
}

double FrameAxis::Scale() const
{
    return IsFramesPerPixel() ? 1.0 / static_cast<double>(FramesPerPixel()) : info.pixelsPerFrame;
}

int FrameAxis::FrameToPixel(long long frame) const
{
    if (!IsFramesPerPixel())
        return Clamped(frame * info.pixelsPerFrame - scrollX);
    const long long k = FramesPerPixel();
    return Clamped((frame - scrollX * k) / k);
}

int FrameAxis::PixelToFrame(long long x) const
{
    const long long offset = x + scrollX;
    return Clamped(IsFramesPerPixel() ? offset * FramesPerPixel() : offset / info.pixelsPerFrame);
}

int FrameAxis::FrameToPixelPlus(long long frame, long long numerator, long long denominator) const
{
    if (!IsFramesPerPixel())
        return Clamped(((frame * info.pixelsPerFrame - scrollX) * denominator + numerator) /
                       denominator);
    const long long k = FramesPerPixel();
    return Clamped(((frame - scrollX * k) * denominator + numerator * k) / (k * denominator));
}

int FrameAxis::SpanToPixel(long long frames) const
{
    return Clamped(IsFramesPerPixel() ? frames / FramesPerPixel() : frames * info.pixelsPerFrame);
}
