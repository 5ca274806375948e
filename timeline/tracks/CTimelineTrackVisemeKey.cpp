#include "tracks/CTimelineTrackVisemeKey.h"

CTimelineTrackVisemeKey::CTimelineTrackVisemeKey()
{
    setAccessibleName(QStringLiteral("CTimelineTrackVisemeKey"));
}

bool CTimelineTrackVisemeKey::Init(QWidget* parent)
{
    return InitAs(parent, TL_TRACK_VISEME_KEY, 10);
}

void CTimelineTrackVisemeKey::DrawKeys(QPainter* painter, QRect rect)
{
    DrawPointKeys(painter, rect);
}
