// The container's sizes: layout of the rows, and the window's height queries.

#include "container/CTimelineContainer.h"

#include "container/QTimelineCaptionArea.h"
#include "library/CallOut.h"
#include "library/TimelineLibrary.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackSwitch.h"
#include "tracks/CTimelineTrackTick.h"

#include <QMutexLocker>
#include <QPointer>
#include <QResizeEvent>

#include <utility>

namespace {

// A layout resizes the container, and a host that resizes back or asks for another layout from its
// notification would start over without end.
constexpr int kDeepestLayout = 4;

// The caption picture whose width rows leave free at the right when they are placed again.
constexpr int kRightMarginPicture = 0;

/// Counts a layout for as long as it lasts, unless the container goes away in it.
class DepthGuard
{
public:
    DepthGuard(const CTimelineContainer* container, int& depth)
        : m_container(container), m_depth(depth)
    {
        ++m_depth;
    }
    ~DepthGuard()
    {
        if (m_container)
            --m_depth;
    }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;

private:
    QPointer<const CTimelineContainer> m_container;
    int& m_depth;
};

} // namespace

bool CTimelineContainer::Layout(bool fit)
{
    if (!m_scrollTrack || !m_tickTrack || m_layoutDepth >= kDeepestLayout)
        return true;
    const CallOut callOut;
    const DepthGuard guard(this, m_layoutDepth);
    if (!m_captionArea) {
        m_captionArea = new QTimelineCaptionArea(this);
        m_captionArea->installEventFilter(this);
        m_captionArea->show();
    }
    m_scrollTrack->raise();
    m_tickTrack->raise();

    if (fit) {
        for (const auto& record : m_tree.Records()) {
            if (auto* const switchTrack = qobject_cast<CTimelineTrackSwitch*>(record->root))
                switchTrack->RefreshButtonState();
        }
    }
    const RowLayout::Plan plan = m_layout.Compute(m_tree, size(), fit);
    m_scrollTrack->SetRowHeight(plan.scrollRect.height());
    m_scrollTrack->setGeometry(plan.scrollRect);
    m_scrollTrack->SyncThumb(false);
    m_tickTrack->SetRowHeight(plan.tickRect.height());
    m_tickTrack->setGeometry(plan.tickRect);
    m_captionArea->setGeometry(plan.captionRect);
    for (const RowLayout::Row& row : plan.rows) {
        row.track->SetRowHeight(row.rect.height());
        row.track->setGeometry(row.rect);
        row.track->setVisible(row.shown);
    }
    if (!m_isResizing)
        return ResizeAndNotify(plan.height);
    // Another layout resizes the container and is waiting for Qt to come back. The window hears of
    // this one after that: it may delete the container, which Qt's resizing does not survive.
    ++m_owedRefreshes;
    update();
    return true;
}

bool CTimelineContainer::ResizeAndNotify(int layoutHeight)
{
    m_isResizing = true;
    // One pixel more than the layout: the bottom line below the scroll bar.
    resize(width(), layoutHeight + 1);
    m_isResizing = false;
    for (int owed = std::exchange(m_owedRefreshes, 0); owed > 0; --owed) {
        if (!NotifyTimelineRefreshed())
            return false;
    }
    return UpdateAndNotify();
}

void CTimelineContainer::RefreshRows()
{
    if (!m_scrollTrack || !m_tickTrack)
        return;
    const int right =
        rect().right() - rect().left() -
        TimelineLibrary::Instance().images.Picture(kCaptionPictures, kRightMarginPicture).width();
    const int top = m_layout.TickCaptionSize().height();
    int y = top;
    for (CTimelineTrackBase* const track : m_tree.Rows()) {
        const int h = m_layout.RowHeight(*track);
        track->setGeometry(
            QRect(QPoint(m_layout.CaptionSize(*track).width(), y), QPoint(right - 1, y + h - 1)));
        const bool shown = y + h >= top && y <= rect().bottom() - rect().top();
        track->setVisible(shown);
        track->SetAttached(shown);
        y += h;
    }
}

void CTimelineContainer::Refresh(bool immediately)
{
    if (immediately)
        repaint();
    else
        update();
}

void CTimelineContainer::InvalidateTimeline()
{
    // A host that asks for it from a layout's own notice gets a repaint: the layout is under way.
    if (m_layoutDepth > 0)
        update();
    else
        Layout(false);
}

bool CTimelineContainer::WndSizeChanged(int width, int height)
{
    if (width < 0 || height < 0)
        return false;
    m_layout.FitVariableRow(m_tree, height);
    Layout(false);
    return true;
}

void CTimelineContainer::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    // A back buffer of another size is never kept; showing the widget makes a new one.
    {
        const QMutexLocker locker(&m_paintMutex);
        if (m_backBuffer && m_backBuffer->size() != size())
            m_backBuffer.reset();
    }
    m_layout.FitVariableRow(m_tree, event->size().height());
    Layout(true);
}

void CTimelineContainer::showEvent(QShowEvent* event)
{
    const QMutexLocker locker(&m_paintMutex);
    if (!m_backBuffer || m_backBuffer->size() != size())
        m_backBuffer = std::make_unique<QPixmap>(size());
    m_backBuffer->fill(Qt::white);
    QWidget::showEvent(event);
}

void CTimelineContainer::hideEvent(QHideEvent* event)
{
    DropScrubPictures(); // two whole pictures that nobody sees
    QWidget::hideEvent(event);
}

int CTimelineContainer::GetTrackHeight() const
{
    return m_layout.TrackHeight();
}
int CTimelineContainer::GetWndMinRestraint() const
{
    return m_layout.FixedHeight();
}

int CTimelineContainer::GetWndMinHeight()
{
    const int height = m_layout.MinimumHeight(m_tree);
    setMinimumHeight(height);
    return height;
}

int CTimelineContainer::GetWndMaxHeight(bool withWave)
{
    return m_layout.MaximumHeight(m_tree, withWave);
}

int CTimelineContainer::GetWndNeedHeight() const
{
    return m_layout.NeededHeight(m_tree);
}

void CTimelineContainer::GetWndCurrSize(int& width, int& height) const
{
    width = this->width();
    height = this->height();
}
