#include "tracks/CTimelineTrackClip.h"

#include "axis/FrameAxis.h"
#include "model/MessageCodes.h"
#include "tracks/ClipPainter.h"
#include "tracks/TrackReport.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QPointer>

#include <algorithm>

namespace {

constexpr int kInitialWidth = 20;
constexpr int kWaveBarMargin = 2; ///< pixels of a wave row that its bars leave free

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
    return InitAs(parent, TL_TRACK_CLIP, kInitialWidth);
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
    return ClipEdges(Axis(), Keys(), Facts().searchable, GetRowHeight(), clipHeight);
}

void CTimelineTrackClip::mousePressEvent(QMouseEvent* event)
{
    const QPointer<CTimelineTrackClip> self(this);
    const OpenGesture::Handling handling(Gesture());
    const bool isLeft = event->button() == Qt::LeftButton;
    if (self && isLeft)
        EndGesture();
    if (!self)
        return;

    if (GetEditModes().GetSize() == 0) {
        GoToFrameAt(event->x());
        return;
    }
    const ClipEdgeHit edge = isLeft ? HitTestEdge(event->pos()) : ClipEdgeHit();
    if (!edge.IsEdge()) {
        CTimelineTrackBase::mousePressEvent(event);
        return;
    }
    CommonGesture().GiveWay();
    m_edgeDrag.Press(edge);
    event->accept();
    if (self && m_edgeDrag.IsOn())
        ShowCursorFor(edge.kind);
}

void CTimelineTrackClip::mouseMoveEvent(QMouseEvent* event)
{
    const QPointer<CTimelineTrackClip> self(this);
    const OpenGesture::Handling handling(Gesture());
    if (!self)
        return;
    if (!m_edgeDrag.IsOn()) {
        const bool canEdit = GetEditModes().GetSize() > 0;
        ShowCursorFor(canEdit ? HitTestEdge(event->pos()).kind : -1);
        CTimelineTrackBase::mouseMoveEvent(event);
        return;
    }
    event->accept();
    if (!(event->buttons() & Qt::LeftButton)) {
        EndGesture(); // the button went up where nobody saw it
        return;
    }
    ShowCursorFor(-1);
    if (GetEditModes().GetSize() > 0)
        m_edgeDrag.DragTo(event->x());
}

void CTimelineTrackClip::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointer<CTimelineTrackClip> self(this);
    const OpenGesture::Handling handling(Gesture());
    if (!self)
        return;
    if (event->button() == Qt::LeftButton && m_edgeDrag.IsOn())
        EndGesture();
    if (self)
        CTimelineTrackBase::mouseReleaseEvent(event);
}

void CTimelineTrackClip::EndGesture()
{
    if (!m_edgeDrag.IsOn()) {
        CTimelineTrackBase::EndGesture();
        return;
    }
    const CallOut callOut;
    CommonGesture().ComeBack();
    clearFocus();
    m_edgeDrag.Release();
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
