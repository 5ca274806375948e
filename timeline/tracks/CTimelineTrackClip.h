#pragma once

#include "tracks/CTimelineTrackBase.h"

/// A row of clips.
class CTimelineTrackClip : public CTimelineTrackBase
{
    Q_OBJECT
public:
    CTimelineTrackClip();
    bool Init(QWidget* parent) override;
    void DrawKeys(QPainter* painter, QRect rect) override;
};
