#include "tracks/CTimelineTrackHScroll.h"

#include "tracks/StripPainter.h"

namespace {

constexpr int kInitialWidth = 10;
constexpr int kViewChanged = 1201; // message: zoom or scroll offset changed
constexpr int kGroundBrush = 1;
constexpr int kThumbBrush = 9;

QRect RectOf(const ScrollThumb::Thumb& thumb)
{
    return QRect(QPoint(thumb.left, thumb.top), QPoint(thumb.right, thumb.bottom));
}

} // namespace

CTimelineTrackHScroll::CTimelineTrackHScroll() : m_thumb(Axis())
{
    setAccessibleName(QStringLiteral("CTimelineTrackHScroll"));
}

bool CTimelineTrackHScroll::Init(QWidget* parent)
{
    m_thumb.SetSynchronisedWidth(kInitialWidth);
    return InitAs(parent, TL_TRACK_HSCROLL, kInitialWidth);
}

void CTimelineTrackHScroll::DrawTrack(QPainter* painter, QRect rect)
{
    resize(rect.size());
    const QRect thumb = RectOf(m_thumb.GetThumb()).translated(rect.topLeft());
    FillStrip(*painter, rect, kRulerBrushes, kGroundBrush, rect.topLeft());
    FillStrip(*painter, thumb, kRulerBrushes, kThumbBrush, rect.topLeft());
}

ScrollThumb& CTimelineTrackHScroll::Thumb()
{
    m_thumb.SetSize(width(), height());
    m_thumb.SetRowHeight(GetRowHeight());
    return m_thumb;
}

void CTimelineTrackHScroll::SyncThumb(bool force)
{
    Thumb().SyncThumb(force);
    Send(kViewChanged);
}

void CTimelineTrackHScroll::PublishFrameInfo()
{
    Thumb().PublishFrameInfo();
}

bool CTimelineTrackHScroll::ScrollToFrame(int frame, int align)
{
    if (Thumb().ScrollToFrame(frame, align))
        Send(kViewChanged);
    return true;
}

void CTimelineTrackHScroll::UnZoom()
{
    Thumb().UnZoom();
    Send(kViewChanged);
}

void CTimelineTrackHScroll::ZoomIn()
{
    Thumb().ZoomIn();
    Send(kViewChanged);
}

void CTimelineTrackHScroll::ZoomOut()
{
    Thumb().ZoomOut();
    Send(kViewChanged);
}

void CTimelineTrackHScroll::ZoomAll()
{
    Thumb().ZoomAll();
    Send(kViewChanged);
}

bool CTimelineTrackHScroll::CanUnZoom()
{
    return Thumb().CanUnZoom();
}

bool CTimelineTrackHScroll::CanZoomIn()
{
    return Thumb().CanZoomIn();
}

bool CTimelineTrackHScroll::CanZoomOut()
{
    return Thumb().CanZoomOut();
}

bool CTimelineTrackHScroll::CanZoomAll()
{
    return Thumb().CanZoomAll();
}

void CTimelineTrackHScroll::GetScrollInfo(float& left, float& right)
{
    Thumb().GetScrollInfo(left, right);
}

void CTimelineTrackHScroll::SetScrollInfo(float left, float right)
{
    if (Thumb().SetScrollInfo(left, right))
        Send(kViewChanged);
}
