#pragma once

#include "container/CaptionHitTest.h"

#include <QPoint>
#include <QPointer>

class CTimelineTrackBase;

/// The mouse over the caption buttons: which one is pressed, which one is under the pointer, and
/// the states that they show for it. It tells nobody and repaints nothing. Tracks may go away and
/// their styles may be read anew at any time: buttons are remembered by track and index.
class CaptionPointer
{
public:
    /// The pointer is at @p point, where @p hit is. @return whether a button looks different.
    bool MoveTo(QPoint point, const CaptionHit& hit);
    /// The pointer has left the column. @return whether a button looks different.
    bool Leave();

    /// The button of @p hit goes down.
    void Press(const CaptionHit& hit);
    /// The button that was pressed is let go at @p hit. When it is the same one, a toggle button
    /// changes over; otherwise the buttons of the pressed one's track go back to rest.
    /// @return whether it is the same one.
    bool Release(const CaptionHit& hit);
    /// As a release beside the buttons.
    void Cancel() { Release(CaptionHit()); }

    bool IsPressed() const { return m_pressed.button != kNoCaptionButton; }
    /// Where the last move went, in pixels of the container; (-1, -1) before the first.
    QPoint LastPosition() const { return m_lastPosition; }

private:
    struct Button
    {
        QPointer<CTimelineTrackBase> track;
        int button = kNoCaptionButton;
    };

    Button m_pressed;
    /// The track whose button is under the pointer; all its buttons go back to rest at the next
    /// move.
    QPointer<CTimelineTrackBase> m_hoveredTrack;
    QPoint m_lastPosition{-1, -1};
};
