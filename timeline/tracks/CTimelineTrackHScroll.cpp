#include "tracks/CTimelineTrackHScroll.h"

CTimelineTrackHScroll::CTimelineTrackHScroll() : m_thumb(Axis())
{
    setAccessibleName(QStringLiteral("CTimelineTrackHScroll"));
}
