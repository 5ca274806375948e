#include "tracks/CTimelineTrackKey.h"

CTimelineTrackKey::CTimelineTrackKey()
{
    setAccessibleName(QStringLiteral("CTimelineTrackKey"));
}

bool CTimelineTrackKey::Init(QWidget* parent)
{
    return InitAs(parent, TL_TRACK_KEY, 10);
}

void CTimelineTrackKey::DrawKeys(QPainter* painter, QRect rect)
{
    DrawPointKeys(painter, rect);
}
