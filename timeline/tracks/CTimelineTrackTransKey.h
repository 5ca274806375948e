#pragma once

#include "tracks/CTimelineTrackBase.h"
#include "tracks/TransitionGesture.h"

/// A row of keys with transitions: spans that end or start at a key, with a handle at the far end.
class CTimelineTrackTransKey : public CTimelineTrackBase
{
    Q_OBJECT
public:
    CTimelineTrackTransKey();
    bool Init(QWidget* parent) override;
    /// Gives the widget the size of @p rect; the keys are painted by the widget's own paint event.
    /// Asks for that when the size changed or when the paint under way does not reach the whole
    /// visible row, which the paint asked for then does: nothing is left pending after it.
    void DrawKeys(QPainter* painter, QRect rect) override;

    /// The index of the key whose transition handle is under @p point (row coordinates); selected
    /// keys come first, later ones before earlier ones; -1 without one.
    int HitTestHandle(QPoint point);

    /// Ends a drag of a handle, or else the gesture that is common to all rows.
    void EndGesture() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void PaintColumns(QPainter& painter, const LineKeyTrackStyle& style, const QRect& columns);
    bool CoversRow(const QPainter& painter, const QRect& rect) const;
    void EndHandleDrag();

    TransitionGesture m_handleDrag{*this};
};
