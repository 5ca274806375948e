#include "TimelinePane.h"

#include <QActionGroup>
#include <QEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

namespace host {

namespace {

constexpr int kLabelMargin = 8; ///< pixels between the frame display and the edge
constexpr int kRowHeight = 20;  ///< pixels that a notch of the wheel scrolls a third of

} // namespace

TimelinePane::TimelinePane(QWidget* parent)
    : QWidget(parent), m_toolBar(new QToolBar(this)), m_frameLabel(new QLabel(this)),
      m_view(new QScrollArea(this))
{
    constexpr int kIconSide = 16; // pixels
    m_toolBar->setIconSize({kIconSide, kIconSide});
    m_modesOfClips = m_toolBar->addWidget(new QLabel(tr("Clip ends:")));
    auto* const modes = new QActionGroup(this);
    m_clipLoop = AddMode(*modes, tr("Loop"), tr("Let the end of a clip change its loops"));
    m_clipSpeed = AddMode(*modes, tr("Speed"), tr("Let the end of a clip change its speed"));
    m_clipLoop->setChecked(true);
    connect(m_clipSpeed, &QAction::toggled, this, &TimelinePane::ClipSpeedToggled);
    m_frameLabel->setContentsMargins(0, 0, kLabelMargin, 0);

    m_view->verticalScrollBar()->setSingleStep(kRowHeight);
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // the timeline has its own
    m_view->viewport()->installEventFilter(this);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    // The frame has a place of its own, which no tool takes from it in a narrow window.
    auto* const tools = new QHBoxLayout;
    tools->addWidget(m_toolBar, 1);
    tools->addWidget(m_frameLabel);
    layout->addLayout(tools);
    layout->addWidget(m_view, 1);
}

void TimelinePane::AdoptTimeline()
{
    const auto children = findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget* const child : children) {
        if (child == m_toolBar || child == m_view || child == m_frameLabel)
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

QAction* TimelinePane::AddTool(const QIcon& icon, const QString& text, const QString& tip)
{
    auto* const tool = new QAction(icon, text, this);
    tool->setToolTip(tip);
    m_toolBar->insertAction(m_modesOfClips, tool);
    return tool;
}

QAction* TimelinePane::AddMode(QActionGroup& modes, const QString& text, const QString& tip)
{
    QAction* const mode = m_toolBar->addAction(text);
    mode->setToolTip(tip);
    mode->setCheckable(true);
    modes.addAction(mode);
    return mode;
}

void TimelinePane::AddSeparator()
{
    m_toolBar->insertSeparator(m_modesOfClips);
}

void TimelinePane::SetClipSpeed(bool isSpeed)
{
    (isSpeed ? m_clipSpeed : m_clipLoop)->setChecked(true);
}

int TimelinePane::RowWidth() const
{
    const QWidget* const timeline = m_view->widget();
    if (!timeline)
        return 0;
    int left = 0; // of the ruler, which is at the top and starts where the rows do
    for (const QWidget* const child :
         timeline->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!child->isHidden() && child->y() == 0)
            left = std::max(left, child->x());
    }
    return timeline->width() - left;
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
