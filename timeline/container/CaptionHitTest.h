#pragma once

#include "container/CaptionButtons.h"

#include <QRect>

class CTimelineContainer;
class CTimelineTrackBase;
struct CaptionButtonStyle;

/// What is under a point of the caption column.
struct CaptionHit
{
    /// Whose caption: a row's, the ruler's or the scroll bar's; null for none.
    CTimelineTrackBase* track = nullptr;
    /// Index among the caption buttons of the track's style, or kNoCaptionButton.
    int button = kNoCaptionButton;
    QRect buttonRect; ///< empty without a button
};

/// @p point in pixels of the container.
CaptionHit HitTestCaption(const CTimelineContainer& container, QPoint point);

/// The record of a caption button; null when the track's style has no such index (any more).
CaptionButtonStyle* FindCaptionButton(CTimelineTrackBase& track, int button);
