#pragma once

#include "tracks/CTimelineTrackBase.h"

/// A row of toggle buttons.
class CTimelineTrackSwitch : public CTimelineTrackBase
{
    Q_OBJECT
public:
    CTimelineTrackSwitch();
    bool Init(QWidget* parent) override;
    void DrawKeys(QPainter* painter, QRect rect) override;
};
