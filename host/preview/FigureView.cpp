#include "FigureView.h"

#include "FigurePainter.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

namespace host {

namespace {

constexpr QSize kBestSize(520, 260);
constexpr QSize kLeastSize(120, 60);
constexpr double kAngleOfNotch = 120; ///< as wheels report it

} // namespace

FigureView::FigureView(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::OpenHandCursor);
    setToolTip(tr("Drag to turn the figure, use the wheel to bring it closer, double-click to look "
                  "from the start again"));
}

void FigureView::Show(const Motion& motion, const FigurePose& pose)
{
    const bool isSame = pose == m_pose && motion.joints == m_motion.joints;
    m_motion = motion;
    if (isSame)
        return;
    m_pose = pose;
    update();
}

QSize FigureView::sizeHint() const
{
    return kBestSize;
}

QSize FigureView::minimumSizeHint() const
{
    return kLeastSize;
}

void FigureView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    FigurePainter(m_motion, m_pose).Paint(painter, rect(), m_camera);
}

void FigureView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    m_dragged = event->pos();
    setCursor(Qt::ClosedHandCursor);
}

void FigureView::mouseMoveEvent(QMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton))
        return;
    StageCamera camera = m_camera;
    camera.Drag(event->pos() - m_dragged);
    m_dragged = event->pos();
    LookFrom(camera);
}

void FigureView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        setCursor(Qt::OpenHandCursor);
}

void FigureView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    m_dragged = event->pos();
    LookFrom(StageCamera());
}

void FigureView::wheelEvent(QWheelEvent* event)
{
    StageCamera camera = m_camera;
    camera.Zoom(event->angleDelta().y() / kAngleOfNotch);
    LookFrom(camera);
    event->accept();
}

void FigureView::LookFrom(const StageCamera& camera)
{
    if (camera == m_camera)
        return;
    m_camera = camera;
    update();
}

} // namespace host
