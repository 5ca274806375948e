#pragma once

#include "tracks/CTimelineTrackBase.h"
#include "tracks/ClipEdgeGesture.h"
#include "tracks/ClipEdges.h"

#include <QCursor>

/// A row of clips: bars with a name, loop dividers and, when selected, the trimmed lead-in. The
/// same class is the wave row, whose clips are plain outlines over a wave background. Clips are
/// drawn and their edges dragged; what a drag changes is the owner's business.
class CTimelineTrackClip : public CTimelineTrackBase
{
    Q_OBJECT
public:
    CTimelineTrackClip();
    bool Init(QWidget* parent) override;
    void DrawKeys(QPainter* painter, QRect rect) override;

    /// Turns the row into the wave row. To be called after Init and before LoadStyle, since the
    /// type decides which style is read.
    void MakeWave();

    /// The clip edge under @p point (row coordinates) that may be dragged in the track's edit
    /// modes. Asks the owner (message 1212) when both loop and speed editing are allowed.
    ClipEdgeHit HitTestEdge(QPoint point);

    /// The drag of a clip's edge, which is idle while none is dragged.
    const ClipEdgeGesture& GetEdgeDrag() const { return m_edgeDrag; }
    /// The cursors over an edge: a picture each, with the hot spot at its centre.
    const QCursor& LoopCursor() const { return m_loopCursor; }
    const QCursor& SpeedCursor() const { return m_speedCursor; } ///< of trim edges too
    /// The cursor that announces a drag of @p kind: loop for loop edges, speed for speed and trim
    /// edges, null where there is no edge.
    const QCursor* CursorFor(int kind) const;

    /// Ends a drag of an edge, or else the gesture that is common to all rows.
    void EndGesture() override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    ClipEdges Edges();
    void PressLeft(QMouseEvent* event);
    void EndEdgeDrag();
    void GoToFrameAt(int x);
    void ShowCursorFor(int kind);

    ClipEdgeGesture m_edgeDrag{*this};
    QCursor m_loopCursor;
    QCursor m_speedCursor;
};
