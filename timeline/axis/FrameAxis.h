#pragma once

#include "axis/CFrameInfo.h"

/// The one frame axis that every row shares: how many frames there are, which is current, how they
/// are scaled and scrolled. Positions are whole pixels from a row's left edge, computed exactly: in
/// frames-per-pixel mode by integer quotients, never through a rounded 1 / k. Every operation takes
/// any frame and any pixel: results beyond the range of int are clamped to it, and an axis that was
/// given senseless values counts one frame per pixel.
class FrameAxis
{
public:
    int frameCount = 0; ///< frames 0 to frameCount - 1 are valid
    int currentFrame = 0;
    int scrollX = 0; ///< pixels scrolled out at the left
    CFrameInfo info;

    /// Pixels per frame as a real number: the whole pixels, or 1 / frames per pixel; never 0.
    double Scale() const;
    bool IsFramesPerPixel() const { return info.pixelsPerFrame <= 0; }

    /// trunc(frame * scale - scrollX), toward zero.
    int FrameToPixel(long long frame) const;
    /// trunc((x + scrollX) / scale), toward zero.
    int PixelToFrame(long long x) const;
    /// trunc(frame * scale - scrollX + numerator / denominator): a position and a fraction of a
    /// pixel in one truncation. @p denominator is 1 to 2^32.
    int FrameToPixelPlus(long long frame, long long numerator, long long denominator) const;
    /// The pixels that @p frames cover from the axis's start, trunc(frames * scale).
    int SpanToPixel(long long frames) const;
    /// The frames that lie between two places @p pixels (at most 2^32) apart: trunc(pixels /
    /// scale).
    long long PixelsToFrames(long long pixels) const;

private:
    long long FramesPerPixel() const;
};
