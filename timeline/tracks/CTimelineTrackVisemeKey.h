#pragma once

#include "tracks/CTimelineTrackBase.h"

/// A row of mouth shapes.
class CTimelineTrackVisemeKey : public CTimelineTrackBase
{
    Q_OBJECT
public:
    CTimelineTrackVisemeKey();
    bool Init(QWidget* parent) override;
    void DrawKeys(QPainter* painter, QRect rect) override;
};
