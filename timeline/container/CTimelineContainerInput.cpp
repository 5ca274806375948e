// The container's own input: hotkeys, the mouse over the caption column, and tooltips.

#include "container/CTimelineContainer.h"

#include "container/EditCommands.h"
#include "container/KeyNavigation.h"
#include "container/QTimelineCaptionArea.h"
#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPointer>

#include <algorithm>

// ---- Hotkeys ----

void CTimelineContainer::OnHKShiftTab()
{
    SelectPreviousKey(*this, nullptr);
}

void CTimelineContainer::OnHKTab()
{
    SelectNextKey(*this, nullptr);
}

void CTimelineContainer::OnHKRight()
{
    GotoFrame(GetCurrentFrame() + 1);
}

void CTimelineContainer::OnHKLeft()
{
    GotoFrame(GetCurrentFrame() - 1);
}

void CTimelineContainer::OnHKEnd()
{
    // Without any frame that is 0, as every frame is then.
    GotoFrame(std::max(0, TimelineLibrary::Instance().axis.frameCount) - 1);
}

void CTimelineContainer::OnHKHome()
{
    GotoFrame(0);
}

void CTimelineContainer::OnHKPlus()
{
    DoZoomIn();
    NotifyTimelineRefreshed();
}

void CTimelineContainer::OnHKMinus()
{
    DoZoomOut();
    NotifyTimelineRefreshed();
}

void CTimelineContainer::OnHKAsterisk()
{
    DoZoomAll();
    NotifyTimelineRefreshed();
}

void CTimelineContainer::OnHKSlash()
{
    DoUnZoom();
    NotifyTimelineRefreshed();
}

// ---- The mouse over the caption column ----
// Events that the ruler and the scroll bar leave alone arrive here as well, at points where no
// caption is.

/// The pressed button comes up without having been clicked: the pointer was lost. @return whether
/// the container outlived it.
bool CTimelineContainer::CancelCaptionPress()
{
    if (!m_captionPress.IsOn())
        return true;
    m_captionPress.End();
    m_captionPointer.Cancel();
    return UpdateAndNotify();
}

void CTimelineContainer::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPointer<CTimelineContainer> self(this);
    const OpenGesture::Handling handling(m_captionPress);
    if (!self || !CancelCaptionPress())
        return;
    const CaptionHit hit = HitTestCaption(*this, event->pos());
    if (hit.button != kNoCaptionButton) {
        m_captionPointer.Press(hit);
        m_captionPress.Begin();
        update();
    } else if (hit.track) {
        ActivateTrack(hit.track);
    }
    if (self)
        QWidget::mousePressEvent(event);
}

void CTimelineContainer::mouseMoveEvent(QMouseEvent* event)
{
    const QPointer<CTimelineContainer> self(this);
    const OpenGesture::Handling handling(m_captionPress);
    if (!self)
        return;
    if (!event->buttons().testFlag(Qt::LeftButton) && !CancelCaptionPress())
        return;
    const bool changed = m_captionPointer.MoveTo(event->pos(), HitTestCaption(*this, event->pos()));
    // A move over the ruler or the scroll bar changes nothing here, and a scrub must not repaint
    // everything.
    if (changed || event->x() < m_layout.TickCaptionSize().width())
        update();
    QWidget::mouseMoveEvent(event);
}

void CTimelineContainer::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointer<CTimelineContainer> self(this);
    const OpenGesture::Handling handling(m_captionPress);
    if (!self)
        return;
    const CaptionHit hit = HitTestCaption(*this, event->pos());
    const bool clicked = m_captionPointer.Release(hit);
    m_captionPress.End();
    update();
    if (clicked)
        SendToHost(kHostCaptionButton, hit.track, nullptr, QVariant(0),
                   QVariant(FindCaptionButton(*hit.track, hit.button)->buttonId),
                   QVariant(event->globalPos()));
    if (self && NotifyTimelineRefreshed())
        QWidget::mouseReleaseEvent(event);
}

void CTimelineContainer::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPointer<CTimelineContainer> self(this);
    const OpenGesture::Handling handling(m_captionPress);
    if (!self)
        return;
    const CaptionHit hit = HitTestCaption(*this, event->pos());
    if (hit.track && hit.track != m_scrollTrack && hit.track != m_tickTrack)
        SelectRow(hit.track, event->modifiers().testFlag(Qt::ControlModifier));
    // Qt's own handler takes the second press of a double click for one of its own, so that quick
    // clicks on a button all count.
    if (self)
        QWidget::mouseDoubleClickEvent(event);
}

void CTimelineContainer::SelectRow(CTimelineTrackBase* track, bool keepOthers)
{
    const QPointer<CTimelineContainer> self(this);
    const QPointer<CTimelineTrackBase> row(track);
    const auto isThere = [&] { return self && row && m_tree.Contains(row); };
    ActivateTrack(track);
    if (isThere() && !keepOthers)
        ClearKeySelectionExcept(track);
    if (isThere())
        SelectRowKeys(*this, *track);
    // A lips row changes its keys without a word.
    if (self)
        UpdateAndNotify();
}

void CTimelineContainer::enterEvent(QEvent* event)
{
    if (!testAttribute(Qt::WA_MouseTracking))
        setMouseTracking(true);
    QWidget::enterEvent(event);
}

void CTimelineContainer::leaveEvent(QEvent* event)
{
    if (testAttribute(Qt::WA_MouseTracking))
        setMouseTracking(false);
    m_captionPointer.Leave();
    update();
    QWidget::leaveEvent(event);
}

bool CTimelineContainer::eventFilter(QObject* watched, QEvent* event)
{
    // Straight from a button onto a row the pointer never leaves the container, and the row keeps
    // its moves to itself.
    if (watched == m_captionArea && event->type() == QEvent::Leave && m_captionPointer.Leave())
        update();
    return QWidget::eventFilter(watched, event);
}

bool CTimelineContainer::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip)
        setToolTip(m_captions.TooltipAt(static_cast<QHelpEvent*>(event)->pos()));
    return QWidget::event(event);
}
