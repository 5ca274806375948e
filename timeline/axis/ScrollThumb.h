#pragma once

#include "axis/FrameAxis.h"

/// The arithmetic of the scroll-and-zoom bar, without a widget: a thumb whose position is the
/// scroll offset and whose width is the zoom. It reads and writes the frame axis that it was given;
/// it sends nothing, but every command says whether the view (zoom or scroll) is to be announced.
/// Lengths are pixels of the bar; edges are inclusive, so a thumb covers right - left + 1 pixels.
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

    explicit ScrollThumb(FrameAxis& axis) : m_axis(axis) {}

    /// The bar's size in pixels. The width that the last synchronisation saw is remembered apart.
    void SetSize(int width, int height);
    /// The bar's geometry as the last synchronisation is to have seen it.
    void SetSynchronisedWidth(int width) { m_synchronisedWidth = width; }
    const Thumb& GetThumb() const { return m_thumb; }
    void SetThumb(const Thumb& thumb) { m_thumb = thumb; }
    int Width() const { return m_width; }
    int Height() const { return m_height; }

    int MinimumWidth() const;
    void Apply();
    void PublishFrameInfo();

    DragMode HitTest(int x, int y) const;
    void Page(int x);
    void BeginDrag(DragMode mode, int x);
    void DragTo(int x);
    void EndDrag() { m_dragMode = kNone; }
    DragMode GetDragMode() const { return m_dragMode; }

    void SyncThumb(bool force);
    void ScrollToFrame(int frame, int align);

    void UnZoom();
    void ZoomIn();
    void ZoomOut();
    void ZoomAll();
    bool CanUnZoom() const;
    bool CanZoomIn() const;
    bool CanZoomOut() const;
    bool CanZoomAll() const;

    void GetScrollInfo(float& left, float& right) const;
    bool SetScrollInfo(float left, float right);

private:
    FrameAxis& m_axis;
    Thumb m_thumb;
    int m_width = 0;
    int m_height = 0;
    int m_synchronisedWidth = 10;
    DragMode m_dragMode = kNone;
    int m_lastX = 0;
};
