#include "tracks/CTimelineTrackClip.h"

#include "axis/FrameAxis.h"
#include "model/MessageCodes.h"
#include "tracks/BarPainter.h"
#include "tracks/ClipPainter.h"
#include "tracks/TrackReport.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QPointer>

#include <algorithm>

namespace {

constexpr int kInitialClipWidth = 20;

QCursor CentredCursor(const QString& path)
{
    const QPixmap picture(path);
    return QCursor(picture, picture.width() / 2, picture.height() / 2);
}

} // namespace

CTimelineTrackClip::CTimelineTrackClip()
    : m_loopCursor(CentredCursor(QStringLiteral(":/Bitmap/loop.png"))),
      m_speedCursor(CentredCursor(QStringLiteral(":/Bitmap/speed.png")))
{
    setAccessibleName(QStringLiteral("CTimelineTrackClip"));
}

bool CTimelineTrackClip::Init(QWidget* parent)
{
    return InitAs(parent, TL_TRACK_CLIP, kInitialClipWidth);
}

void CTimelineTrackClip::MakeWave()
{
    m_trackType = TL_TRACK_WAVE;
}

void CTimelineTrackClip::DrawKeys(QPainter* painter, QRect rect)
{
    ResizeTo(rect.size());
    if (GetTrackType() == TL_TRACK_WAVE) {
        DrawOwnKeyBars(*painter, RowView(*painter, rect, Axis()));
        return;
    }
    const auto* style = StyleAs<ClipTrackStyle>();
    if (!style)
        return;
    painter->setFont(style->font);
    ClipPainter(*painter, RowView(*painter, rect, Axis()), *style)
        .Draw(Keys().Keys(), Facts().searchable);
}

ClipEdgeHit CTimelineTrackClip::HitTestEdge(QPoint point)
{
    const ClipEdgeModes modes{HasEditMode(TL_EDIT_CLIP_LOOP), HasEditMode(TL_EDIT_CLIP_SPEED),
                              HasEditMode(TL_EDIT_CLIP_TRIM)};
    return Edges().HitTest(point, modes, [this] { return Send(kTrackLoopOrSpeed); });
}

const QCursor* CTimelineTrackClip::CursorFor(int kind) const
{
    switch (kind) {
    case TL_EDIT_CLIP_LOOP:
        return &m_loopCursor;
    case TL_EDIT_CLIP_SPEED:
    case TL_EDIT_CLIP_TRIM:
        return &m_speedCursor;
    default:
        return nullptr;
    }
}

ClipEdges CTimelineTrackClip::Edges()
{
    int clipHeight = 0;
    if (const auto* style = StyleAs<ClipTrackStyle>())
        clipHeight = style->height;
    else if (GetTrackType() == TL_TRACK_WAVE)
        clipHeight = GetRowHeight() - kWaveBarMargin;
    return ClipEdges(Axis(), Keys(), Facts(), GetRowHeight(), clipHeight);
}

void CTimelineTrackClip::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        PressLeft(event);
        return;
    }
    const OpenGesture::Handling handling(Gesture());
    if (!handling.MayGoOn())
        return;
    if (GetEditModes().GetSize() == 0)
        GoToFrameAt(event->x());
    else
        CTimelineTrackBase::mousePressEvent(event);
}

void CTimelineTrackClip::PressLeft(QMouseEvent* event)
{
    const OpenGesture::PressHandling handling(Gesture());
    if (!handling.MayGoOn())
        return;
    if (GetEditModes().GetSize() == 0) {
        GoToFrameAt(event->x());
        return;
    }
    // The host may be asked which edge it is, and let the button go up meanwhile.
    const OpenGesture::Turn turn = Gesture().TakeTurn(OpenGesture::Until::NextPressOrEnd);
    const ClipEdgeHit edge = HitTestEdge(event->pos());
    if (!turn.IsOn())
        return;
    if (!edge.IsEdge()) {
        CTimelineTrackBase::mousePressEvent(event);
        return;
    }
    event->accept();
    TrackReport report = CommonGesture().GiveWay();
    m_edgeDrag.Press(edge, report);
    if (report.IsThere() && m_edgeDrag.IsOn())
        ShowCursorFor(edge.kind);
}

void CTimelineTrackClip::mouseMoveEvent(QMouseEvent* event)
{
    const OpenGesture::Handling handling(Gesture());
    if (!handling.MayGoOn())
        return;
    if (!m_edgeDrag.IsOn()) {
        const bool canEdit = GetEditModes().GetSize() > 0;
        const int kind = canEdit ? HitTestEdge(event->pos()).kind : -1;
        if (!handling.MayGoOn())
            return;
        ShowCursorFor(kind);
        CTimelineTrackBase::mouseMoveEvent(event);
        return;
    }
    event->accept();
    if (!(event->buttons() & Qt::LeftButton)) {
        EndGesture(); // the button went up where nobody saw it
        return;
    }
    ShowCursorFor(-1);
    TrackReport report(*this, OpenGesture::Turn(Gesture(), OpenGesture::Until::NextPressOrEnd));
    if (GetEditModes().GetSize() > 0)
        m_edgeDrag.DragTo(event->x(), report);
}

void CTimelineTrackClip::mouseReleaseEvent(QMouseEvent* event)
{
    const OpenGesture::Handling handling(Gesture());
    if (!handling.MayGoOn())
        return;
    if (event->button() != Qt::LeftButton || !m_edgeDrag.IsOn())
        CTimelineTrackBase::mouseReleaseEvent(event);
    else
        EndEdgeDrag();
}

void CTimelineTrackClip::EndGesture()
{
    if (!m_edgeDrag.IsOn()) {
        CTimelineTrackBase::EndGesture();
        return;
    }
    CommonGesture().PassOverRelease();
    EndEdgeDrag();
}

void CTimelineTrackClip::EndEdgeDrag()
{
    const QPointer<CTimelineTrackClip> self(this);
    const CallOut callOut;
    CommonGesture().ComeBack();
    clearFocus();
    m_edgeDrag.Release();
    // The host has changed the clip in place, with or without a word about it.
    if (self)
        InvalidateCaches();
}

/// What a press does in a row where nothing can be edited.
void CTimelineTrackClip::GoToFrameAt(int x)
{
    FrameAxis& axis = Axis();
    axis.currentFrame = std::max(std::min(PixelToFrame(x), axis.frameCount - 1), 0);
    TrackReport(*this).SendCurrentFrame();
}

void CTimelineTrackClip::ShowCursorFor(int kind)
{
    // Setting a cursor is an event each time; a pointer that moves on along an edge has it already.
    const bool hasCursor = testAttribute(Qt::WA_SetCursor);
    const QCursor* const edgeCursor = CursorFor(kind);
    if (edgeCursor && !(hasCursor && cursor() == *edgeCursor))
        setCursor(*edgeCursor);
    else if (!edgeCursor && hasCursor)
        unsetCursor();
}
