#include "tracks/CTimelineTrackClip.h"

CTimelineTrackClip::CTimelineTrackClip()
{
    setAccessibleName(QStringLiteral("CTimelineTrackClip"));
}

bool CTimelineTrackClip::Init(QWidget* parent)
{
    return InitAs(parent, TL_TRACK_CLIP, 20);
}

void CTimelineTrackClip::DrawKeys(QPainter*, QRect) {}
