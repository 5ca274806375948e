#include "tracks/CTimelineTrackClip.h"

#include "axis/FrameAxis.h"
#include "model/MessageCodes.h"
#include "tracks/ClipPainter.h"

#include <QPainter>
#include <QPixmap>

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
    return ClipEdges(Axis(), Keys().Keys(), Facts().searchable, GetRowHeight(), clipHeight);
}
