#pragma once

#include "tracks/CTimelineTrackBase.h"

/// A row of keys joined by link bars.
class CTimelineTrackLinkKey : public CTimelineTrackBase
{
    Q_OBJECT
public:
    CTimelineTrackLinkKey();
    bool Init(QWidget* parent) override;
    void DrawKeys(QPainter* painter, QRect rect) override;
};
