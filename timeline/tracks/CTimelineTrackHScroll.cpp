#include "tracks/CTimelineTrackHScroll.h"

#include "model/MessageCodes.h"
#include "tracks/StripPainter.h"

namespace {

constexpr int kInitialWidth = 10;
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
    ResizeTo(rect.size());
    const QRect thumb = RectOf(m_thumb.GetThumb()).translated(rect.topLeft());
    FillStrip(*painter, rect, kRulerBrushes, kGroundBrush, rect.topLeft());
    FillStrip(*painter, thumb, kRulerBrushes, kThumbBrush, rect.topLeft());
}

void CTimelineTrackHScroll::FitToWidget(ScrollThumb& thumb) const
{
    thumb.SetSize(width(), height());
    thumb.SetRowHeight(GetRowHeight());
}

ScrollThumb& CTimelineTrackHScroll::Thumb()
{
    FitToWidget(m_thumb);
    return m_thumb;
}

ScrollThumb CTimelineTrackHScroll::Thumb() const
{
    ScrollThumb thumb = m_thumb;
    FitToWidget(thumb);
    return thumb;
}

void CTimelineTrackHScroll::SyncThumb(bool force)
{
    Thumb().SyncThumb(force);
    Send(kTrackViewChanged);
}

void CTimelineTrackHScroll::PublishFrameInfo()
{
    Thumb().PublishFrameInfo();
}

bool CTimelineTrackHScroll::ScrollToFrame(int frame, int align)
{
    if (Thumb().ScrollToFrame(frame, align))
        Send(kTrackViewChanged);
    return true;
}

void CTimelineTrackHScroll::UnZoom()
{
    Thumb().UnZoom();
    Send(kTrackViewChanged);
}

void CTimelineTrackHScroll::ZoomIn()
{
    Thumb().ZoomIn();
    Send(kTrackViewChanged);
}

void CTimelineTrackHScroll::ZoomOut()
{
    Thumb().ZoomOut();
    Send(kTrackViewChanged);
}

void CTimelineTrackHScroll::ZoomAll()
{
    Thumb().ZoomAll();
    Send(kTrackViewChanged);
}

bool CTimelineTrackHScroll::CanUnZoom() const
{
    return Thumb().CanUnZoom();
}

bool CTimelineTrackHScroll::CanZoomIn() const
{
    return Thumb().CanZoomIn();
}

bool CTimelineTrackHScroll::CanZoomOut() const
{
    return Thumb().CanZoomOut();
}

bool CTimelineTrackHScroll::CanZoomAll() const
{
    return Thumb().CanZoomAll();
}

void CTimelineTrackHScroll::GetScrollInfo(float& left, float& right) const
{
    const ScrollThumb::ScrollInfo info = Thumb().GetScrollInfo();
    left = info.left;
    right = info.right;
}

void CTimelineTrackHScroll::SetScrollInfo(float left, float right)
{
    if (Thumb().SetScrollInfo(left, right))
        Send(kTrackViewChanged);
}
