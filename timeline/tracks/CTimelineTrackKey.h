#pragma once

#include "tracks/CTimelineTrackBase.h"

/// A row of point keys.
class CTimelineTrackKey : public CTimelineTrackBase
{
    Q_OBJECT
public:
    CTimelineTrackKey();
    bool Init(QWidget* parent) override;
    void DrawKeys(QPainter* painter, QRect rect) override;
};
