#pragma once

#include "tracks/CTimelineTrackBase.h"

/// The frame ruler: ticks, frame numbers, the time-mark markers and the current frame.
class CTimelineTrackTick : public CTimelineTrackBase
{
    Q_OBJECT
public:
    CTimelineTrackTick();
    bool Init(QWidget* parent) override;
    void DrawTrack(QPainter* painter, QRect rect) override;
    /// Which time-mark marker covers @p point: 1 the end marker, which is tested first, 0 the start
    /// marker, -1 none.
    int HitTestRangeMarker(QPoint point) override;
    /// Whether @p point is in the cell of the current frame, both of its edges included. Never in
    /// frames-per-pixel mode, where a frame has no cell.
    bool HitTestCurrentFrame(QPoint point) const;

    int TimeMarkStart() const { return m_timeMarkStart; }
    int TimeMarkEnd() const { return m_timeMarkEnd; }
    /// Stores both frames as they are, in any order and beyond the axis.
    void SetTimeMark(int start, int end);

private:
    int m_timeMarkStart = 0;
    int m_timeMarkEnd = 1;
};
