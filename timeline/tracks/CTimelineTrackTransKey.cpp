#include "tracks/CTimelineTrackTransKey.h"

CTimelineTrackTransKey::CTimelineTrackTransKey()
{
    setAccessibleName(QStringLiteral("CTimelineTrackTransKey"));
}

bool CTimelineTrackTransKey::Init(QWidget* parent)
{
    return InitAs(parent, TL_TRACK_TRANSITION_KEY, 10);
}

void CTimelineTrackTransKey::DrawKeys(QPainter*, QRect) {}
