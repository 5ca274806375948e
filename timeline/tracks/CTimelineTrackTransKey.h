#pragma once

#include "tracks/CTimelineTrackBase.h"

/// A row of keys with transitions.
class CTimelineTrackTransKey : public CTimelineTrackBase
{
    Q_OBJECT
public:
    CTimelineTrackTransKey();
    bool Init(QWidget* parent) override;
    void DrawKeys(QPainter* painter, QRect rect) override;
};
