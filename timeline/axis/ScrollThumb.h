#pragma once

#include "axis/FrameAxis.h"

/// The arithmetic of the scroll-and-zoom bar, without a widget: a thumb whose position is the
/// scroll offset and whose width is the zoom. It reads and writes the frame axis that it was given,
/// which outlives it; it sends nothing. Every command but a refused one (see the results) is to be
/// announced as a change of the view, whether or not a number changed.
///
/// Lengths are pixels of the bar; edges are inclusive, so a thumb covers right - left + 1 pixels.
/// With no frames or no width every command makes the thumb fill the bar and scrolls to 0, and
/// leaves the zoom alone.
class ScrollThumb
{
public:
    enum DragMode
    {
        kNone = 0,
        kBody = 1,
        kLeftEdge = 2,
        kRightEdge = 3,
        kPageLeft = 4,
        kPageRight = 5
    };

    struct Thumb
    {
        int left = 0, top = 0, right = -1, bottom = -1;
    };

    /// The thumb's edges as fractions of the bar's width, in single precision, and that width.
    struct ScrollInfo
    {
        float left, right;
        int width;
    };

    explicit ScrollThumb(FrameAxis& axis) : m_axis(axis) {}

    /// The bar's size in pixels, which is also its row height until SetRowHeight says otherwise.
    /// A negative width counts as 0. The width that the last synchronisation saw is remembered
    /// apart.
    void SetSize(int width, int height);
    /// The height of the row, where a thumb shorter than the bar ends.
    void SetRowHeight(int height) { m_rowHeight = height; }
    /// The bar's width as the last synchronisation is to have seen it.
    void SetSynchronisedWidth(int width) { m_synchronisedWidth = width; }
    int SynchronisedWidth() const { return m_synchronisedWidth; }
    const Thumb& GetThumb() const { return m_thumb; }
    void SetThumb(const Thumb& thumb) { m_thumb = thumb; }

    /// The narrowest thumb, which caps the zoom near 10 pixels per frame; the whole bar when all
    /// frames fit at that zoom.
    int MinimumWidth() const;
    /// Sets the axis's zoom and scroll offset from the thumb.
    void Apply();
    /// Sets the axis's zoom alone from the thumb; nothing to announce.
    void PublishFrameInfo();

    /// What a press at (x, y) would take hold of. The edges reach 2 pixels to either side, the left
    /// one first; beside the thumb the bar pages; kNone above or below the thumb.
    DragMode HitTest(int x, int y) const;
    /// Scrolls by one thumb width toward @p x, seen from the thumb's middle. Against either end of
    /// the bar the thumb becomes one pixel wider; the zoom stays.
    void Page(int x);
    void BeginDrag(DragMode mode, int x);
    /// One step of the drag that began: the body follows the pointer and scrolls, an edge goes to
    /// the pointer and zooms. Nothing in the other modes.
    void DragTo(int x);
    void EndDrag() { m_dragMode = kNone; }
    DragMode GetDragMode() const { return m_dragMode; }

    /// Finds the thumb again after zoom, frame count, scroll offset or size were changed elsewhere.
    /// The left edge moves only when the width has changed since the last synchronisation, or with
    /// @p force.
    void SyncThumb(bool force);
    /// Brings @p frame (clamped to the valid ones) into view: to the middle (@p align 0), the right
    /// edge (above 0) or the left edge (below 0).
    /// @return false when the frame is strictly inside the view already and nothing was done.
    bool ScrollToFrame(int frame, int align);

    /// The narrowest thumb about the old centre.
    void UnZoom();
    /// Half the thumb width.
    void ZoomIn();
    /// Twice the thumb width.
    void ZoomOut();
    /// A thumb that fills the bar: all frames in view.
    void ZoomAll();
    // A difference of a single pixel counts as none.
    bool CanUnZoom() const;
    bool CanZoomIn() const;
    bool CanZoomOut() const;
    bool CanZoomAll() const;

    /// The edges are 0 and 1 for a bar without width.
    ScrollInfo GetScrollInfo() const;
    /// Sets the thumb's edges from fractions 0 to 1 of the bar's width and applies it.
    /// @return false, and nothing changes, outside that range or with left beyond right.
    bool SetScrollInfo(float left, float right);

private:
    bool HasView() const { return m_width > 0 && m_axis.frameCount > 0; }
    bool FillWithoutView();
    void ApplyThumb();
    void FillBar();
    void SetEdges(long long left, long long right);
    void SetThumbHeightOfRow();
    void ZoomFromThumb();
    void ScrollFromThumb();
    void DragBody(int x);
    void KeepLeftEdgeInLimits();
    void KeepRightEdgeInLimits();
    long long LeftOfScroll(long long total) const;
    int ShareInView(long long total) const;
    int ThumbWidth() const;
    bool FillsBarButForAPixel() const;

    FrameAxis& m_axis;
    Thumb m_thumb;
    int m_width = 0;
    int m_height = 0;
    int m_rowHeight = 0;
    int m_synchronisedWidth = 0;
    DragMode m_dragMode = kNone;
    int m_lastX = 0;
};
