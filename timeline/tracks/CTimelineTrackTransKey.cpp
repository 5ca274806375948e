#include "tracks/CTimelineTrackTransKey.h"

#include "tracks/TrackReport.h"
#include "tracks/TransitionPainter.h"
#include "tracks/TransitionWindow.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

namespace {

constexpr int kMostParts = 4; // that are worth a look at the keys each

} // namespace

CTimelineTrackTransKey::CTimelineTrackTransKey()
{
    setAccessibleName(QStringLiteral("CTimelineTrackTransKey"));
}

bool CTimelineTrackTransKey::Init(QWidget* parent)
{
    return InitAs(parent, TL_TRACK_TRANSITION_KEY, 10);
}

void CTimelineTrackTransKey::DrawKeys(QPainter* painter, QRect rect)
{
    const bool resized = ResizeTo(rect.size());
    if (resized || !CoversRow(*painter, rect))
        update();
}

bool CTimelineTrackTransKey::CoversRow(const QPainter& painter, const QRect& rect) const
{
    if (!painter.hasClipping())
        return true;
    // What is hidden from view is never part of a paint: asking for it would go on for ever.
    const QRegion seen = visibleRegion().translated(rect.topLeft()) & rect;
    return (seen - painter.clipRegion()).isEmpty();
}

void CTimelineTrackTransKey::paintEvent(QPaintEvent* event)
{
    const auto* style = StyleAs<LineKeyTrackStyle>();
    if (!style)
        return;
    QPainter painter(this);
    // A current frame that moves far leaves two strips to paint, with much between them. Parts are
    // clipped one by one, since what reaches into two of them must not be painted twice in either.
    const QRegion region = event->region();
    if (region.rectCount() > kMostParts) {
        PaintColumns(painter, *style, region.boundingRect());
        return;
    }
    for (const QRect& part : region) {
        painter.setClipRect(part);
        PaintColumns(painter, *style, part);
    }
}

void CTimelineTrackTransKey::PaintColumns(QPainter& painter, const LineKeyTrackStyle& style,
                                          const QRect& columns)
{
    const RowView view(rect(), Axis(), columns.left(), columns.right());
    if (view.IsEmpty())
        return;
    const DisplayKeyList list = CollectTransitionWindow(Keys(), Facts(), Scope(), view, style);
    NoteTransition(LongestTransition(list));
    TransitionPainter(painter, view, style).Draw(list);
    DrawOwnKeyBars(painter, view);
}

int CTimelineTrackTransKey::HitTestHandle(QPoint point)
{
    const auto style = GlyphStyleOf(GetTrackType(), GetStyle());
    if (!style)
        return -1;
    return TransitionHandles(Axis(), *style, GetRowHeight()).Find(Keys(), Facts(), point);
}

void CTimelineTrackTransKey::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        CTimelineTrackBase::mousePressEvent(event);
        return;
    }
    const OpenGesture::PressHandling handling(Gesture());
    if (!handling.MayGoOn())
        return;
    const int key = HitTestHandle(event->pos());
    if (key < 0) {
        CTimelineTrackBase::mousePressEvent(event);
        return;
    }
    TrackReport report = CommonGesture().GiveWay();
    m_handleDrag.Press(key, report);
}

void CTimelineTrackTransKey::mouseMoveEvent(QMouseEvent* event)
{
    const OpenGesture::Handling handling(Gesture());
    if (!handling.MayGoOn())
        return;
    if (m_handleDrag.IsOn() && event->buttons() & Qt::LeftButton) {
        TrackReport report(*this, OpenGesture::Turn(Gesture(), OpenGesture::Until::NextPressOrEnd));
        m_handleDrag.DragTo(event->x(), report);
    } else if (m_handleDrag.IsOn()) {
        EndGesture(); // the button went up where nobody saw it
    }
    if (handling.MayGoOn())
        CTimelineTrackBase::mouseMoveEvent(event);
}

void CTimelineTrackTransKey::mouseReleaseEvent(QMouseEvent* event)
{
    const OpenGesture::Handling handling(Gesture());
    if (!handling.MayGoOn())
        return;
    if (event->button() != Qt::LeftButton || !m_handleDrag.IsOn())
        CTimelineTrackBase::mouseReleaseEvent(event);
    else
        EndHandleDrag();
}

void CTimelineTrackTransKey::EndGesture()
{
    if (!m_handleDrag.IsOn()) {
        CTimelineTrackBase::EndGesture();
        return;
    }
    CommonGesture().PassOverRelease();
    EndHandleDrag();
}

void CTimelineTrackTransKey::EndHandleDrag()
{
    const CallOut callOut;
    CommonGesture().ComeBack();
    m_handleDrag.Release();
}
