#pragma once

#include <QPoint>

class CTimelineTrackBase;

/// What a row shows for the pointer that moves over it: the name of the key under it, and whether a
/// range marker can be taken.
class PointerFeedback
{
public:
    explicit PointerFeedback(CTimelineTrackBase& track) : m_track(track) {}

    /// Shows the name of the key or sub-key under @p point at the pointer, or hides the tooltip
    /// where there is none. Does nothing until the pointer has moved on the screen.
    void ShowName(QPoint point, QPoint globalPoint);
    /// The resize cursor over a range marker, none of the row's own elsewhere. Clip rows, which
    /// show their edges by the cursor, are left alone.
    void ShowCursor(QPoint point);
    /// The resize cursor, for as long as a marker is dragged.
    void ShowResizeCursor();

private:
    CTimelineTrackBase& m_track;
    QPoint m_lastGlobalPoint; ///< where the tooltip was last brought up to date
};
