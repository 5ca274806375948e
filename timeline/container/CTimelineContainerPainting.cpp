// The container's painting: whole, in part, and the strips that a step of the current frame
// changes.

#include "container/CTimelineContainer.h"

#include "container/QTimelineCaptionArea.h"
#include "library/TimelineLibrary.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

#include <QApplication>
#include <QBackingStore>
#include <QMutexLocker>
#include <QPaintEngine>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>

#include <utility>

namespace {

FrameAxis& PaintedAxis()
{
    return TimelineLibrary::Instance().axis;
}

/// Leaves the timeline without a current frame for as long as it is painted so.
class HiddenFrame
{
public:
    HiddenFrame() : m_frame(std::exchange(PaintedAxis().currentFrame, -1)) {}
    ~HiddenFrame() { PaintedAxis().currentFrame = m_frame; }
    HiddenFrame(const HiddenFrame&) = delete;
    HiddenFrame& operator=(const HiddenFrame&) = delete;

private:
    const int m_frame;
};

/// Whether the painter paints what is on screen, and not a picture that somebody asked for.
bool IsOnScreen(const QPainter& painter, const QWidget& widget)
{
    QBackingStore* const store = widget.backingStore();
    return store && painter.paintEngine()->paintDevice() == store->paintDevice();
}

} // namespace

void CTimelineContainer::ShowCurrentFrame()
{
    const QPointer<CTimelineContainer> self(this);
    PaintPending();
    if (!self)
        return;
    const bool isKnown = m_inHostsHands == 0 && m_onScreen.state == PaintedState(*this);
    if (isKnown && m_onScreen.frame == PaintedAxis().currentFrame)
        return;
    // The pictures take longer than a repaint: they are worth while when one step follows another,
    // and not for a host that has everything painted in between.
    const int steps = m_steps + 1;
    const bool areWorthWhile = isKnown && (m_areStepsRepeated || steps > 1);
    if (areWorthWhile && m_arePicturesPossible && !m_scrubPictures.AreReady())
        m_arePicturesPossible = MakeScrubPictures();
    if (!isKnown || !m_scrubPictures.AreReady()) {
        repaint();
        if (self)
            m_steps = isKnown ? steps : 0;
        return;
    }
    m_steps = steps;
    FrameAxis before = PaintedAxis();
    before.currentFrame = m_onScreen.frame;
    m_step = m_strips.Region(before) + m_strips.Region(PaintedAxis());
    if (m_step.isEmpty())
        m_onScreen.frame = PaintedAxis().currentFrame;
    else
        RepaintStep();
}

void CTimelineContainer::RepaintStep()
{
    const QPointer<CTimelineContainer> self(this);
    // The pictures cover their strips, which spares Qt to paint the whole window below them: its
    // grounds and the frames of docks take longer than the strips themselves.
    const bool wasOpaque = testAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_OpaquePaintEvent);
    repaint(m_step);
    if (!self)
        return;
    setAttribute(Qt::WA_OpaquePaintEvent, wasOpaque);
    m_step = QRegion();
}

/// Has what was asked for by update() painted before it returns, as a repaint would.
void CTimelineContainer::PaintPending()
{
    QEvent request(QEvent::UpdateRequest);
    QApplication::sendEvent(window(), &request);
}

bool CTimelineContainer::MakeScrubPictures()
{
    const QMutexLocker locker(&m_paintMutex);
    m_strips = Strips();
    return m_tickTrack && m_scrollTrack &&
           !m_tickTrack->geometry().intersects(m_scrollTrack->geometry()) &&
           m_scrubPictures.Make(*this, m_strips, [this](QPainter& painter, FramePaint frame) {
               const HiddenFrame hidden;
               Paint(painter, frame);
           });
}

void CTimelineContainer::DropScrubPictures()
{
    m_scrubPictures.Drop();
    if (m_steps > 0)
        m_areStepsRepeated = m_steps > 1;
    m_steps = 0;
}

/// Where Paint puts the ruler and the rows.
FrameStrips CTimelineContainer::Strips() const
{
    FrameStrips strips;
    strips.ruler = RulerRect();
    int y = strips.ruler.height();
    for (const CTimelineTrackBase* const track : m_tree.Rows()) {
        if (!track->testAttribute(Qt::WA_WState_Visible))
            continue;
        const QRect row = RowRect(*track, y);
        strips.AddRow(row);
        y += row.height();
    }
    return strips;
}

QRect CTimelineContainer::RulerRect() const
{
    const QSize caption = m_layout.TickCaptionSize();
    return QRect(QPoint(caption.width(), 0), QPoint(width() - 1, caption.height() - 1));
}

QRect CTimelineContainer::RowRect(const CTimelineTrackBase& track, int y) const
{
    const QSize caption = m_captions.CaptionPicture(track).size();
    const bool isWave = track.GetTrackType() == TL_TRACK_WAVE;
    const int h = isWave ? m_layout.VariableRowHeight() : caption.height();
    return QRect(QPoint(caption.width(), y), QPoint(width() - 1, y + h - 1));
}

void CTimelineContainer::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    // Held for the whole paint; nothing below may repaint or call the host. Rows go straight to the
    // widget, which is a copy of the whole picture faster than through the back buffer.
    const QMutexLocker locker(&m_paintMutex);
    const QRegion& region = event->region();
    const bool onScreen = IsOnScreen(painter, *this);
    if (onScreen && !m_step.isEmpty() && (region - m_step).isEmpty()) {
        PaintStep(painter);
        return;
    }
    painter.setBackground(QBrush(Qt::white));
    painter.setClipRegion(region);
    Paint(painter, FramePaint::kShown);
    if (onScreen)
        RememberPainted(region);
}

/// Only the strips of a step: nothing else has changed since the pictures were made.
void CTimelineContainer::PaintStep(QPainter& painter)
{
    FrameAxis before = PaintedAxis();
    before.currentFrame = m_onScreen.frame;
    for (const QRect& line : m_strips.Lines(before))
        m_scrubPictures.CopyWithout(painter, line);
    for (const QRect& line : m_strips.Lines(PaintedAxis()))
        m_scrubPictures.CopyLine(painter, line);
    m_scrubPictures.CopyWithout(painter, m_strips.Cell(before));
    m_scrubPictures.CopyWithout(painter, m_strips.Cell(PaintedAxis()));
    painter.setClipRect(m_strips.Cell(PaintedAxis()));
    m_tickTrack->DrawCurrentFrame(painter, m_strips.ruler);
    m_onScreen.frame = PaintedAxis().currentFrame;
}

/// A paint in part shows the timeline as it is now; the rest of the picture stays as it was, so
/// that all of it is known only when it was the same then.
void CTimelineContainer::RememberPainted(const QRegion& region)
{
    DropScrubPictures();
    const OnScreen now{PaintedState(*this), PaintedAxis().currentFrame};
    const bool isWhole = (visibleRegion() - region).isEmpty();
    const bool isConsistent = m_onScreen.state == now.state && m_onScreen.frame == now.frame;
    if (!(m_onScreen.state == now.state))
        m_arePicturesPossible = true;
    m_onScreen = isWhole || isConsistent ? now : OnScreen();
}

void CTimelineContainer::Paint(QPainter& painter, FramePaint frame)
{
    m_captions.BeginPaint();
    if (!m_scrollTrack || !m_tickTrack)
        return;
    if (m_captionArea)
        m_captionArea->raise();
    const QFont font = painter.font();
    painter.setBackgroundMode(Qt::TransparentMode);

    const QRect ruler = RulerRect();
    int y = ruler.height();
    for (CTimelineTrackBase* const track : m_tree.Rows()) {
        // A row that is not shown takes no room.
        if (!track->testAttribute(Qt::WA_WState_Visible))
            continue;
        const QRect row = RowRect(*track, y);
        PaintRow(painter, *track, row, frame);
        y += row.height();
    }
    painter.setFont(font);

    const QSize scrollCaption = m_layout.ScrollCaptionSize();
    m_tickTrack->DrawTrack(&painter, ruler);
    m_scrollTrack->DrawTrack(
        &painter, QRect(QPoint(scrollCaption.width(), height() - 1 - scrollCaption.height()),
                        QPoint(width() - 1, height() - 2)));
    painter.drawPixmap(0, 0,
                       TimelineLibrary::Instance().images.Picture(kCaptionPictures, kTickCaption));
}

void CTimelineContainer::PaintRow(QPainter& painter, CTimelineTrackBase& track, const QRect& row,
                                  FramePaint frame)
{
    const QRect exposed = painter.clipBoundingRect().toAlignedRect();
    if (exposed.intersects(row))
        track.DrawTrack(&painter, row);
    if (frame == FramePaint::kEverywhere)
        painter.fillRect(row, TimelineLibrary::Instance().currentFrameLine);
    m_captions.PaintRow(painter, track, row.top(), row.height());
}
