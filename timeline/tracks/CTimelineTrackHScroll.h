#pragma once

#include "axis/ScrollThumb.h"
#include "tracks/CTimelineTrackBase.h"

/// The scroll bar and zoom control under the timeline: a shell around ScrollThumb that hands it the
/// widget's size and announces changes of the view with message 1201.
class CTimelineTrackHScroll : public CTimelineTrackBase
{
    Q_OBJECT
public:
    CTimelineTrackHScroll();
    bool Init(QWidget* parent) override;
    void DrawTrack(QPainter* painter, QRect rect) override;

    void SyncThumb(bool force);
    /// Rebuilds the shared frame info from the thumb; sends nothing.
    void PublishFrameInfo();
    bool ScrollToFrame(int frame, int align); ///< always true

    void UnZoom();
    void ZoomIn();
    void ZoomOut();
    void ZoomAll();
    bool CanUnZoom();
    bool CanZoomIn();
    bool CanZoomOut();
    bool CanZoomAll();

    /// The thumb's edges as fractions of the bar's width.
    void GetScrollInfo(float& left, float& right);
    void SetScrollInfo(float left, float right);

private:
    /// The arithmetic, brought up to the widget's present size.
    ScrollThumb& Thumb();

    ScrollThumb m_thumb;
};
