#include "tracks/CTimelineTrackLinkKey.h"

CTimelineTrackLinkKey::CTimelineTrackLinkKey()
{
    setAccessibleName(QStringLiteral("CTimelineTrackLinkKey"));
}

bool CTimelineTrackLinkKey::Init(QWidget* parent)
{
    return InitAs(parent, TL_TRACK_LINK_KEY, 10);
}

void CTimelineTrackLinkKey::DrawKeys(QPainter*, QRect) {}
