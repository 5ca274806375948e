#include "axis/FrameAxis.h"

#include "axis/ClampedInt.h"

#include <algorithm>

namespace {

using Wide = long long;

/// Pixels further out than this lie beyond the range of int wherever the axis is scrolled, and
/// frames at every scale, which is at most 10 pixels per frame; clamped to it, products and sums
/// fit.
constexpr Wide kFarPixel = Wide{1} << 61;
constexpr Wide kFarFrame = kFarPixel / 16;

Wide Within(Wide limit, Wide value)
{
    return std::clamp(value, -limit, limit);
}

/// A quotient as the whole number below it and the remainder above that, 0 to divisor - 1.
struct FloorQuotient
{
    FloorQuotient(Wide dividend, Wide divisor)
        : whole(dividend / divisor), remainder(dividend % divisor)
    {
        if (remainder < 0) {
            --whole;
            remainder += divisor;
        }
    }

    Wide whole;
    Wide remainder;
};

/// Truncates @p floor plus a fraction of less than 1 toward zero.
Wide Truncated(Wide floor, bool hasFraction)
{
    return floor < 0 && hasFraction ? floor + 1 : floor;
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
        return ClampedInt(Within(kFarFrame, frame) * info.pixelsPerFrame - scrollX);
    const FloorQuotient position(frame, FramesPerPixel());
    return ClampedInt(
        Truncated(Within(kFarPixel, position.whole) - scrollX, position.remainder != 0));
}

int FrameAxis::PixelToFrame(long long x) const
{
    const Wide offset = Within(kFarPixel, x) + scrollX;
    if (!IsFramesPerPixel())
        return ClampedInt(offset / info.pixelsPerFrame);
    // An offset beyond the range of int stays there when multiplied.
    return ClampedInt(Wide{ClampedInt(offset)} * FramesPerPixel());
}

int FrameAxis::FrameToPixelPlus(long long frame, long long numerator, long long denominator) const
{
    const Wide divisor = IsFramesPerPixel() ? FramesPerPixel() : 1;
    const Wide pixels = IsFramesPerPixel() ? frame : Within(kFarFrame, frame) * info.pixelsPerFrame;
    const FloorQuotient position(pixels, divisor);
    const FloorQuotient extra(numerator, denominator);

    // The two fractions may make up one more pixel; compared by cross products of at most 2^63.
    using Unsigned = unsigned long long;
    const Unsigned fraction =
        static_cast<Unsigned>(position.remainder) * static_cast<Unsigned>(denominator);
    const Unsigned missing =
        static_cast<Unsigned>(divisor) * static_cast<Unsigned>(denominator - extra.remainder);
    const Wide whole = Within(kFarPixel, position.whole) - scrollX +
                       Within(kFarPixel, extra.whole) + (fraction >= missing);
    const bool isWhole = fraction == missing || (position.remainder == 0 && extra.remainder == 0);
    return ClampedInt(Truncated(whole, !isWhole));
}

int FrameAxis::SpanToPixel(long long frames) const
{
    return ClampedInt(IsFramesPerPixel() ? frames / FramesPerPixel()
                                         : Within(kFarFrame, frames) * info.pixelsPerFrame);
}

long long FrameAxis::PixelsToFrames(long long pixels) const
{
    return IsFramesPerPixel() ? pixels * FramesPerPixel() : pixels / info.pixelsPerFrame;
}
