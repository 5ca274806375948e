#include "tracks/CTimelineTrackTick.h"

#include "library/TimelineLibrary.h"
#include "tracks/RangeMarkers.h"
#include "tracks/RulerPainter.h"

namespace {

constexpr int kInitialWidth = 10;

} // namespace

CTimelineTrackTick::CTimelineTrackTick()
{
    setAccessibleName(QStringLiteral("CTimelineTrackTick"));
}

bool CTimelineTrackTick::Init(QWidget* parent)
{
    return InitAs(parent, TL_TRACK_TICK, kInitialWidth);
}

void CTimelineTrackTick::SetTimeMark(int start, int end)
{
    m_timeMarkStart = start;
    m_timeMarkEnd = end;
}

void CTimelineTrackTick::DrawTrack(QPainter* painter, QRect rect)
{
    ResizeTo(rect.size());
    static const TickTrackStyle plain; // while no style is loaded: no visible numbers
    const auto* style = StyleAs<TickTrackStyle>();
    RulerPainter ruler(*painter, rect, style ? *style : plain, Axis(),
                       TimelineLibrary::Instance().images);
    ruler.Paint(m_timeMarkStart, m_timeMarkEnd);
}

int CTimelineTrackTick::HitTestRangeMarker(QPoint point)
{
    const QSize size =
        TimelineLibrary::Instance().images.Glyph(kTimeMarkGlyphs, kStartMarker).size();
    const auto hits = [&](long long left) {
        return point.x() >= left && point.x() < left + size.width() && point.y() >= 0 &&
               point.y() < size.height();
    };
    if (hits(1LL * FrameToPixel(m_timeMarkEnd + 1LL) - size.width()))
        return kEndMarker;
    if (hits(FrameToPixel(m_timeMarkStart)))
        return kStartMarker;
    return kNoMarker;
}

bool CTimelineTrackTick::HitTestCurrentFrame(QPoint point) const
{
    const FrameAxis& axis = Axis();
    if (axis.IsFramesPerPixel())
        return false;
    const long long first = axis.FrameToPixel(axis.currentFrame);
    const long long last = first + axis.info.pixelsPerFrame;
    return point.x() >= first && point.x() <= last && point.y() >= 0 && point.y() < GetRowHeight();
}
