#include "tracks/CTimelineTrackHScroll.h"

#include "model/MessageCodes.h"
#include "tracks/StripPainter.h"

#include <QMouseEvent>
#include <QPointer>

namespace {

constexpr int kInitialBarWidth = 10;
constexpr int kTroughBrush = 1;
constexpr int kThumbBrush = 9;

QRect RectOf(const ScrollThumb::Thumb& thumb)
{
    return QRect(QPoint(thumb.left, thumb.top), QPoint(thumb.right, thumb.bottom));
}

bool IsEdge(ScrollThumb::DragMode mode)
{
    return mode == ScrollThumb::kLeftEdge || mode == ScrollThumb::kRightEdge;
}

bool IsPage(ScrollThumb::DragMode mode)
{
    return mode == ScrollThumb::kPageLeft || mode == ScrollThumb::kPageRight;
}

} // namespace

CTimelineTrackHScroll::CTimelineTrackHScroll() : m_thumb(Axis())
{
    setAccessibleName(QStringLiteral("CTimelineTrackHScroll"));
}

bool CTimelineTrackHScroll::Init(QWidget* parent)
{
    m_thumb.SetSynchronisedWidth(kInitialBarWidth);
    return InitAs(parent, TL_TRACK_HSCROLL, kInitialBarWidth);
}

void CTimelineTrackHScroll::DrawTrack(QPainter* painter, QRect rect)
{
    ResizeTo(rect.size());
    const QRect thumb = RectOf(m_thumb.GetThumb()).translated(rect.topLeft());
    FillStrip(*painter, rect, kRulerBrushes, kTroughBrush, rect.topLeft());
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

void CTimelineTrackHScroll::mousePressEvent(QMouseEvent* event)
{
    const QPointer<CTimelineTrackHScroll> self(this);
    const OpenGesture::Handling handling(Gesture());
    if (event->button() == Qt::LeftButton)
        Press(event->pos());
    if (self)
        QWidget::mousePressEvent(event);
}

void CTimelineTrackHScroll::mouseMoveEvent(QMouseEvent* event)
{
    const QPointer<CTimelineTrackHScroll> self(this);
    const OpenGesture::Handling handling(Gesture());
    // The button may have gone up outside of every window of ours, without a release.
    if (!event->buttons().testFlag(Qt::LeftButton))
        EndGesture();
    const ScrollThumb::DragMode mode = m_thumb.GetDragMode();
    if (mode != ScrollThumb::kBody && !IsEdge(mode)) {
        ShowCursorAt(event->pos());
        return;
    }
    DragTo(event->x());
    if (self)
        QWidget::mouseMoveEvent(event);
}

void CTimelineTrackHScroll::mouseReleaseEvent(QMouseEvent* event)
{
    const OpenGesture::Handling handling(Gesture());
    EndGesture();
    unsetCursor();
    QWidget::mouseReleaseEvent(event);
}

/// Qt's own handling makes the second press of a double click an ordinary one: fast clicks page on.
void CTimelineTrackHScroll::mouseDoubleClickEvent(QMouseEvent* event)
{
    QWidget::mouseDoubleClickEvent(event);
}

void CTimelineTrackHScroll::Press(QPoint point)
{
    const QPointer<CTimelineTrackHScroll> self(this);
    EndGesture();
    // Watched from the start: what the host opens in the report takes the pointer away too.
    Gesture().Begin();
    Send(kTrackPressed);
    if (!self)
        return;
    if (!GetOwner())
        EndGesture();
    // A release or another press may have run inside the report.
    if (!Gesture().IsOn() || m_thumb.GetDragMode() != ScrollThumb::kNone)
        return;
    const ScrollThumb::DragMode mode = Thumb().HitTest(point.x(), point.y());
    if (mode == ScrollThumb::kNone) {
        EndGesture();
        return;
    }
    m_thumb.BeginDrag(mode, point.x());
    if (IsEdge(mode))
        setCursor(Qt::SizeHorCursor);
    if (!IsPage(mode))
        return;
    m_thumb.Page(point.x());
    Send(kTrackViewChanged);
}

void CTimelineTrackHScroll::DragTo(int x)
{
    if (IsEdge(m_thumb.GetDragMode()))
        setCursor(Qt::SizeHorCursor);
    Thumb().DragTo(x);
    Send(kTrackViewChanged);
}

void CTimelineTrackHScroll::ShowCursorAt(QPoint point)
{
    if (IsEdge(Thumb().HitTest(point.x(), point.y())))
        setCursor(Qt::SizeHorCursor);
    else
        unsetCursor();
}

void CTimelineTrackHScroll::EndGesture()
{
    if (!Gesture().IsOn())
        return;
    m_thumb.EndDrag();
    Gesture().End();
    unsetCursor();
}
