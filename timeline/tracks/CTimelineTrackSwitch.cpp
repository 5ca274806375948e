#include "tracks/CTimelineTrackSwitch.h"

CTimelineTrackSwitch::CTimelineTrackSwitch()
{
    setAccessibleName(QStringLiteral("CTimelineTrackSwitch"));
}

bool CTimelineTrackSwitch::Init(QWidget* parent)
{
    return InitAs(parent, TL_TRACK_SWITCH, 10);
}

void CTimelineTrackSwitch::DrawKeys(QPainter*, QRect) {}

void CTimelineTrackSwitch::RefreshButtonState() {}
