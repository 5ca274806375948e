#pragma once

/// A zoom of the frame axis in whole numbers: either a pixel count per frame or, zoomed out below
/// one pixel per frame, a frame count per pixel, and the ruler steps that follow from it.
class CFrameInfo
{
public:
    /// One pixel per frame, all steps 1: the axis before its first computation.
    CFrameInfo() = default;
    /// From a scale in pixels per frame. From 2 up it is rounded down to whole pixels, at most 10;
    /// below, the axis counts frames per pixel: the fewest k for which 1 / k is less than the scale
    /// (1.5 gives 1, 1.0 gives 2, 0.5 gives 3, 0.3 gives 4), at most the largest int. A scale of 0
    /// or less, or not a number, gives one frame per pixel.
    explicit CFrameInfo(double scale);
    CFrameInfo(const CFrameInfo&) = default;
    CFrameInfo& operator=(const CFrameInfo&) = default;
    virtual ~CFrameInfo() = default;

    int pixelsPerFrame = 0; ///< 0 when a pixel holds several frames
    int framesPerPixel = 1; ///< 0 when pixelsPerFrame is set
    int step1 = 1;          ///< frames between grid ticks
    int step2 = 1;          ///< frames between ruler ticks
    int step3 = 1;          ///< frames the ruler and the grid advance at a time
    int step4 = 1;          ///< advances that a grid band is wide
};
