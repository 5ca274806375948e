#pragma once

#include "tracks/CTimelineTrackBase.h"
#include "tracks/RulerGesture.h"

/// The frame ruler: ticks, frame numbers, the time-mark markers and the current frame. The left
/// button drags either marker, or the current frame from anywhere else.
class CTimelineTrackTick : public CTimelineTrackBase
{
    Q_OBJECT
public:
    CTimelineTrackTick();
    bool Init(QWidget* parent) override;
    void DrawTrack(QPainter* painter, QRect rect) override;
    /// Paints the current frame alone into the ruler that stands in @p rect.
    void DrawCurrentFrame(QPainter& painter, const QRect& rect) const;
    /// Which time-mark marker covers @p point: 1 the end marker, which is tested first, 0 the start
    /// marker, -1 none.
    int HitTestRangeMarker(QPoint point) override;
    /// Whether @p point is in the cell of the current frame, both of its edges included. Never in
    /// frames-per-pixel mode, where a frame has no cell.
    bool HitTestCurrentFrame(QPoint point) const;
    void EndGesture() override;

    int TimeMarkStart() const { return m_timeMark.start; }
    int TimeMarkEnd() const { return m_timeMark.end; }
    /// Stores both frames as they are, in any order and beyond the axis.
    void SetTimeMark(int start, int end);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    const TickTrackStyle& Style() const;
    void Press(QPoint point);
    void GrabMarker(int marker);
    void GrabCurrentFrame(int x);
    void DragTo(int x);
    int ValidFrameAt(int x) const;
    void MoveCurrentFrame(int x);
    void SendMarker(int code, int marker);

    TimeMark m_timeMark;
    RulerGesture m_held;
};
