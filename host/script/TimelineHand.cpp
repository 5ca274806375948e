#include "TimelineHand.h"

#include "view/FrameProbe.h"
#include "view/MainWindow.h"
#include "view/TimelinePane.h"
#include "view/ViewFractions.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace host {

QPoint FrameCell::Middle() const
{
    return {left + (right - left) / 2, row->height() / 2};
}

QPoint FrameCell::Start() const
{
    return {left, row->height() / 2};
}

QPoint FrameCell::End() const
{
    return {right, row->height() / 2};
}

/// What has frames, from the top: the ruler, the rows, the scroll bar.
QList<QWidget*> TimelineHand::ShownRows()
{
    QList<QWidget*> rows;
    const auto* const pane = m_window.findChild<TimelinePane*>();
    const QWidget* const timeline = pane ? pane->Timeline() : nullptr;
    if (!timeline)
        return rows;
    for (QWidget* const row :
         timeline->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (row->isVisible() && !row->size().isEmpty() && FrameAt(*row, 0))
            rows.append(row);
    }
    std::sort(rows.begin(), rows.end(),
              [](const QWidget* a, const QWidget* b) { return a->y() < b->y(); });
    return rows;
}

/// The timeline names its rows when it is asked what lies at a point of them.
QWidget* TimelineHand::WidgetOf(TrackId row)
{
    const CTimelineTrackBase* const track = m_window.Tracks().TrackOf(row);
    for (QWidget* const widget : ShownRows()) {
        const auto place = m_window.Probe().At(*widget, {0, widget->height() / 2});
        if (place && place->track == track)
            return widget;
    }
    return nullptr;
}

QWidget* TimelineHand::Ruler()
{
    return ShownRows().value(0);
}

void TimelineHand::ScrollTo(const QWidget& row)
{
    auto* const pane = m_window.findChild<TimelinePane*>();
    const int shown = pane->Viewport()->height();
    const int top = row.y();
    const int bottom = top + row.height();
    if (top < pane->VerticalScroll())
        pane->SetVerticalScroll(top);
    else if (bottom > pane->VerticalScroll() + shown)
        pane->SetVerticalScroll(bottom - shown);
    QCoreApplication::processEvents();
}

std::optional<int> TimelineHand::FrameAt(QWidget& row, int x)
{
    const auto place = m_window.Probe().At(row, {x, row.height() / 2});
    return place ? std::optional<int>(place->frame) : std::nullopt;
}

/// The first pixel of the row that shows @p frame or a later one; the row's width when none does.
int TimelineHand::FirstPixelFrom(QWidget& row, int frame)
{
    int low = 0;
    int high = row.width();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        const std::optional<int> there = FrameAt(row, middle);
        if (there && *there < frame)
            low = middle + 1;
        else
            high = middle; // beyond the last frame nothing is there
    }
    return low;
}

std::optional<FrameCell> TimelineHand::CellOn(QWidget& row, int frame, QString& error)
{
    if (frame >= m_window.CurrentScene().frameCount) {
        error = QStringLiteral("the last frame is %1").arg(m_window.CurrentScene().frameCount - 1);
        return std::nullopt;
    }
    const FrameCell cell{&row, FirstPixelFrom(row, frame), FirstPixelFrom(row, frame + 1)};
    const std::optional<int> there = FrameAt(row, cell.left);
    if (there && *there == frame && cell.left < cell.right)
        return cell;
    const bool isBetween = there && cell.left > 0 && cell.left < row.width();
    error = isBetween ? QStringLiteral("frame %1 has no pixel of its own: zoom in").arg(frame)
                      : QStringLiteral("frame %1 is out of view").arg(frame);
    return std::nullopt;
}

std::optional<FrameCell> TimelineHand::Cell(TrackId row, int frame, QString& error)
{
    QWidget* const widget = WidgetOf(row);
    if (!widget) {
        error = QStringLiteral("the row \"%1\" is not shown")
                    .arg(m_window.CurrentScene().FindTrack(row)->caption);
        return std::nullopt;
    }
    ScrollTo(*widget);
    return CellOn(*widget, frame, error);
}

std::optional<FrameCell> TimelineHand::RulerCell(int frame, QString& error)
{
    QWidget* const ruler = Ruler();
    if (!ruler) {
        error = QStringLiteral("the timeline is not shown");
        return std::nullopt;
    }
    ScrollTo(*ruler);
    return CellOn(*ruler, frame, error);
}

void TimelineHand::Drag(QWidget& row, QPoint from, QPoint to, Qt::KeyboardModifiers modifiers)
{
    const QPointer<QWidget> dragged(&row);
    m_hand.Press(row, from, modifiers);
    for (const QPoint point : {(from + to) / 2, to}) {
        if (dragged)
            m_hand.MoveTo(*dragged, point);
    }
    m_hand.Release();
}

bool TimelineHand::DropFile(QWidget& widget, QPoint point, const QStringList& files)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& file : files)
        urls.append(QUrl::fromLocalFile(file));
    data.setUrls(urls);
    QDragEnterEvent enter(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &enter);
    QDragMoveEvent move(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &move);
    if (!move.isAccepted())
        return false;
    QDropEvent drop(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &drop);
    return drop.isAccepted();
}

void TimelineHand::GoToFrame(int frame)
{
    constexpr int kToTheMiddle = 0;
    CTimelineManager& timeline = m_window.Timeline();
    timeline.ScrollToFrame(frame, kToTheMiddle);
    QString error;
    const auto target = RulerCell(frame, error);
    // The mark of the current frame is taken even where a marker of the time mark lies over it.
    const auto current = RulerCell(timeline.GetCurrentFrame(), error);
    if (target && current)
        Drag(*target->row, current->Middle(), target->Middle());
    else if (target)
        m_hand.Click(*target->row, target->Middle());
    if (timeline.GetCurrentFrame() == frame)
        return;
    timeline.SetCurrentFrame(frame);
    timeline.ScrollToFrame(frame, kToTheMiddle);
}

bool TimelineHand::IsInView(int frame)
{
    QWidget* const ruler = Ruler();
    const auto first = ruler ? FrameAt(*ruler, 0) : std::nullopt;
    const auto last = ruler ? FrameAt(*ruler, ruler->width() - 1) : std::nullopt;
    return first && frame >= *first && (!last || frame <= *last);
}

void TimelineHand::ShowFrames(int first, int last)
{
    constexpr double kStep = 1.05; // frames are drawn by whole pixels: not every view can be had
    const double count = std::max(1, m_window.CurrentScene().frameCount);
    const double left = first / count;
    for (double share = (last - first + 1) / count; share < kStep; share *= kStep) {
        const double right = std::min(1.0, left + share);
        ShowView(m_window.Timeline(), {static_cast<float>(left), static_cast<float>(right)});
        if (IsInView(last))
            break;
    }
    m_window.Timeline().ScrollToFrame(first, -1);
    QCoreApplication::processEvents();
}

} // namespace host
