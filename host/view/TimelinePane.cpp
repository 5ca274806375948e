#include "TimelinePane.h"

#include <QAction>
#include <QEvent>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolBar>
#include <QVBoxLayout>

namespace host {

namespace {

constexpr int kLabelMargin = 8; ///< pixels between the frame display and the edge
constexpr int kRowHeight = 20;  ///< pixels that a notch of the wheel scrolls a third of

} // namespace

TimelinePane::TimelinePane(QWidget* parent)
    : QWidget(parent), m_toolBar(new QToolBar(this)), m_frameLabel(new QLabel),
      m_view(new QScrollArea(this))
{
    m_clipSpeed =
        AddTool(tr("Clip Speed"),
                tr("Let the end of a clip change its speed instead of its loops (Ctrl+E)"));
    m_clipSpeed->setCheckable(true);
    connect(m_clipSpeed, &QAction::toggled, this, &TimelinePane::ClipSpeedToggled);
    auto* const space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_space = m_toolBar->addWidget(space);
    m_frameLabel->setContentsMargins(0, 0, kLabelMargin, 0);
    m_toolBar->addWidget(m_frameLabel);

    m_view->verticalScrollBar()->setSingleStep(kRowHeight);
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // the timeline has its own
    m_view->viewport()->installEventFilter(this);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_toolBar);
    layout->addWidget(m_view, 1);
}

void TimelinePane::AdoptTimeline()
{
    const auto children = findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget* const child : children) {
        if (child == m_toolBar || child == m_view)
            continue;
        m_view->setWidget(child);
        child->setAutoFillBackground(false); // the timeline paints all of itself
        return;
    }
}

void TimelinePane::ReleaseTimeline()
{
    m_view->takeWidget();
}

void TimelinePane::SetTimelineHeight(int height)
{
    if (QWidget* const timeline = m_view->widget())
        timeline->resize(m_view->viewport()->width(), height);
}

void TimelinePane::SetFrameText(const QString& text)
{
    m_frameLabel->setText(text);
}

QAction* TimelinePane::AddTool(const QString& text, const QString& tip)
{
    auto* const tool = new QAction(text, this);
    tool->setToolTip(tip);
    m_toolBar->insertAction(m_clipSpeed ? m_clipSpeed : m_space, tool);
    return tool;
}

void TimelinePane::AddSeparator()
{
    m_toolBar->insertSeparator(m_clipSpeed);
}

void TimelinePane::SetClipSpeed(bool isSpeed)
{
    m_clipSpeed->setChecked(isSpeed);
}

int TimelinePane::VerticalScroll() const
{
    return m_view->verticalScrollBar()->value();
}

void TimelinePane::SetVerticalScroll(int pixels)
{
    m_view->verticalScrollBar()->setValue(pixels);
}

QWidget* TimelinePane::Timeline() const
{
    return m_view->widget();
}

QWidget* TimelinePane::Viewport() const
{
    return m_view->viewport();
}

QSize TimelinePane::sizeHint() const
{
    constexpr double kShareOfWindow = 0.56;
    const QSize best = QWidget::sizeHint();
    return {best.width(), static_cast<int>(window()->height() * kShareOfWindow)};
}

bool TimelinePane::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_view->viewport() && event->type() == QEvent::Resize)
        emit ViewResized();
    return QWidget::eventFilter(watched, event);
}

} // namespace host
