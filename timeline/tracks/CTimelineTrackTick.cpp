#include "tracks/CTimelineTrackTick.h"

CTimelineTrackTick::CTimelineTrackTick()
{
    setAccessibleName(QStringLiteral("CTimelineTrackTick"));
}

bool CTimelineTrackTick::Init(QWidget* parent)
{
    return InitAs(parent, TL_TRACK_TICK, 10);
}

void CTimelineTrackTick::SetTimeMark(int start, int end)
{
    m_timeMarkStart = start;
    m_timeMarkEnd = end;
}

void CTimelineTrackTick::DrawTrack(QPainter*, QRect) {}
int CTimelineTrackTick::HitTestRangeMarker(QPoint)
{
    return -1;
}
