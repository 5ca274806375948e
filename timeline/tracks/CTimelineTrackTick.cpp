#include "tracks/CTimelineTrackTick.h"

#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "tracks/RulerPainter.h"

#include <QMouseEvent>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace {

constexpr int kInitialRulerWidth = 10;

} // namespace

CTimelineTrackTick::CTimelineTrackTick()
{
    setAccessibleName(QStringLiteral("CTimelineTrackTick"));
}

bool CTimelineTrackTick::Init(QWidget* parent)
{
    return InitAs(parent, TL_TRACK_TICK, kInitialRulerWidth);
}

void CTimelineTrackTick::SetTimeMark(int start, int end)
{
    m_timeMark = {start, end};
}

void CTimelineTrackTick::DrawTrack(QPainter* painter, QRect rect)
{
    ResizeTo(rect.size());
    RulerPainter(*painter, rect, Style(), Axis(), TimelineLibrary::Instance().images)
        .Paint(m_timeMark.start, m_timeMark.end);
}

void CTimelineTrackTick::DrawCurrentFrame(QPainter& painter, const QRect& rect) const
{
    RulerPainter(painter, rect, Style(), Axis(), TimelineLibrary::Instance().images)
        .PaintCurrentFrame();
}

const TickTrackStyle& CTimelineTrackTick::Style() const
{
    static const TickTrackStyle plain; // while no style is loaded: no visible numbers
    const auto* style = StyleAs<TickTrackStyle>();
    return style ? *style : plain;
}

int CTimelineTrackTick::HitTestRangeMarker(QPoint point)
{
    const QSize size =
        TimelineLibrary::Instance().images.Glyph(kTimeMarkGlyphs, kStartMarker).size();
    const auto hits = [&](long long left) {
        return point.x() >= left && point.x() < left + size.width() && point.y() >= 0 &&
               point.y() < size.height();
    };
    if (hits(1LL * FrameToPixel(m_timeMark.end + 1LL) - size.width()))
        return kEndMarker;
    if (hits(FrameToPixel(m_timeMark.start)))
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

// The host may delete the window in any answer to a message, also in those of a lost gesture, which
// a handler finishes first of all. What goes on after one asks first.

void CTimelineTrackTick::mousePressEvent(QMouseEvent* event)
{
    const QPointer<CTimelineTrackTick> self(this);
    const OpenGesture::Handling handling(Gesture());
    if (self && event->button() == Qt::LeftButton)
        Press(event->pos());
    if (self)
        QWidget::mousePressEvent(event);
}

void CTimelineTrackTick::mouseMoveEvent(QMouseEvent* event)
{
    const QPointer<CTimelineTrackTick> self(this);
    const OpenGesture::Handling handling(Gesture());
    // The button may have gone up outside of every window of ours, without a release.
    const bool released =
        event->button() == Qt::LeftButton || !event->buttons().testFlag(Qt::LeftButton);
    if (!self)
        return;
    if (released)
        EndGesture();
    else
        DragTo(event->x());
    if (self)
        QWidget::mouseMoveEvent(event);
}

void CTimelineTrackTick::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointer<CTimelineTrackTick> self(this);
    const OpenGesture::Handling handling(Gesture());
    if (self && event->button() == Qt::LeftButton)
        EndGesture();
    if (self)
        QWidget::mouseReleaseEvent(event);
}

void CTimelineTrackTick::Press(QPoint point)
{
    const QPointer<CTimelineTrackTick> self(this);
    EndGesture();
    if (!self)
        return;
    // Watched from the start: what the host opens in the report takes the pointer away too.
    Gesture().Begin();
    Send(kTrackPressed);
    if (!self)
        return;
    if (!GetOwner())
        Gesture().End();
    // A release or another press may have run inside the report.
    if (!Gesture().IsOn() || m_held.IsOn())
        return;
    const int marker = HitTestRangeMarker(point);
    if (marker == kNoMarker || HitTestCurrentFrame(point))
        GrabCurrentFrame(point.x());
    else
        GrabMarker(marker);
}

void CTimelineTrackTick::GrabMarker(int marker)
{
    m_held.HoldMarker(marker);
    SendMarker(kTrackTimeMarkMoved, marker);
}

void CTimelineTrackTick::GrabCurrentFrame(int x)
{
    m_held.HoldCurrentFrame();
    MoveCurrentFrame(x);
}

void CTimelineTrackTick::DragTo(int x)
{
    switch (m_held.Holds()) {
    case RulerGesture::Hold::kNothing:
        return;
    case RulerGesture::Hold::kCurrentFrame:
        MoveCurrentFrame(x);
        return;
    case RulerGesture::Hold::kMarker:
        m_timeMark.Drag(m_held.Marker(), ValidFrameAt(x));
        SendMarker(kTrackTimeMarkMoved, m_held.Marker());
        return;
    }
}

void CTimelineTrackTick::EndGesture()
{
    Gesture().End();
    if (!m_held.IsOn())
        return;
    const QPointer<CTimelineTrackTick> self(this);
    const RulerGesture held = std::exchange(m_held, {});
    clearFocus();
    if (!self)
        return;
    if (held.Holds() == RulerGesture::Hold::kMarker)
        SendMarker(kTrackTimeMarkSet, held.Marker());
    else
        Send(kTrackFrameSet);
}

/// The frame at @p x, at least 0 and then at most the last one; -1 without any frame.
int CTimelineTrackTick::ValidFrameAt(int x) const
{
    return std::min(std::max(PixelToFrame(x), 0), std::max(Axis().frameCount, 0) - 1);
}

void CTimelineTrackTick::MoveCurrentFrame(int x)
{
    Axis().currentFrame = ValidFrameAt(x);
    Send(kTrackFrameMoved);
}

void CTimelineTrackTick::SendMarker(int code, int marker)
{
    Send(code, QVariant(marker), QVariant(m_timeMark.FrameOf(marker)));
}
