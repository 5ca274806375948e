#include "axis/CFrameInfo.h"

#include "axis/ClampedInt.h"

#include <algorithm>
#include <limits>

namespace {

constexpr double kLargestScale = 10.0;
constexpr int kTicksPerBand = 10;

/// The smallest k above 1 with 1 / k < scale, for 0 < scale <= 1. A whole reciprocal counts one
/// frame a pixel more.
int FramesPerPixelBelow(double scale)
{
    const double reciprocal = 1.0 / scale;
    constexpr int largest = std::numeric_limits<int>::max();
    if (!(reciprocal < largest - 1))
        return largest;
    int k = std::max(2, static_cast<int>(reciprocal));
    while (k > 2 && 1.0 / (k - 1) < scale)
        --k;
    while (!(1.0 / k < scale))
        ++k;
    return k;
}

int SaturatedProduct(int a, int b)
{
    return ClampedInt(static_cast<long long>(a) * b);
}

} // namespace

CFrameInfo::CFrameInfo(double scale)
{
    if (scale > kLargestScale) {
        pixelsPerFrame = static_cast<int>(kLargestScale);
        framesPerPixel = 0;
    } else if (scale >= 2.0) {
        pixelsPerFrame = static_cast<int>(scale);
        framesPerPixel = 0;
    } else if (scale > 0.0 && scale <= 1.0) {
        framesPerPixel = FramesPerPixelBelow(scale);
    }

    // Below 2 pixels per frame the axis always counts frames per pixel, so the remaining
    // distinction is between "5 pixels and more" and "2 to 4 pixels".
    if (pixelsPerFrame == 0) {
        step4 = kTicksPerBand;
        step1 = SaturatedProduct(framesPerPixel, kTicksPerBand);
        step2 = SaturatedProduct(framesPerPixel, step4);
        step3 = framesPerPixel;
    } else {
        step2 = pixelsPerFrame >= 5 ? 1 : 5;
    }
}
