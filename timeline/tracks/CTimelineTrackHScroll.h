#pragma once

#include "axis/ScrollThumb.h"
#include "tracks/CTimelineTrackBase.h"

/// The scroll bar and zoom control under the timeline: a shell around ScrollThumb that hands it the
/// widget's size and the mouse, and announces changes of the view with message 1201. The thumb's
/// body scrolls, its edges zoom, a press beside it pages.
class CTimelineTrackHScroll : public CTimelineTrackBase
{
    Q_OBJECT
public:
    CTimelineTrackHScroll();
    bool Init(QWidget* parent) override;
    void DrawTrack(QPainter* painter, QRect rect) override;

    // The commands of ScrollThumb. Each announces the changed view to the owner but where it says
    // otherwise.

    /// Finds the thumb again after zoom, frame count, scroll offset or size were changed elsewhere.
    void SyncThumb(bool force);
    /// Rebuilds the shared frame info from the thumb; sends nothing.
    void PublishFrameInfo();
    /// Brings @p frame into view: to the middle (@p align 0), the right edge (above 0) or the left
    /// edge (below 0). Sends nothing for a frame that is inside the view already.
    /// @return always true.
    bool ScrollToFrame(int frame, int align);

    void UnZoom();
    void ZoomIn();
    void ZoomOut();
    void ZoomAll();
    bool CanUnZoom() const;
    bool CanZoomIn() const;
    bool CanZoomOut() const;
    bool CanZoomAll() const;

    /// The thumb's edges as fractions of the bar's width; 0 and 1 without width.
    void GetScrollInfo(float& left, float& right) const;
    /// Does nothing, and sends nothing, unless 0 <= @p left <= @p right <= 1.
    void SetScrollInfo(float left, float right);
    /// The thumb in the row's own pixels, edges inclusive.
    const ScrollThumb::Thumb& GetThumb() const { return m_thumb.GetThumb(); }
    void EndGesture() override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void Press(QPoint point);
    void DragTo(int x);
    void ShowCursorAt(QPoint point);
    void FitToWidget(ScrollThumb& thumb) const;
    /// The arithmetic, brought up to the widget's present size; a copy of it where nothing is to
    /// change.
    ScrollThumb& Thumb();
    ScrollThumb Thumb() const;

    ScrollThumb m_thumb;
};
