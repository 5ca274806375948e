#include "FaceView.h"

#include <QPainter>

namespace host {

namespace {

constexpr QSize kBestSize(280, 260);
constexpr QSize kLeastSize(90, 60);

} // namespace

FaceView::FaceView(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void FaceView::Show(const FacePose& pose)
{
    if (pose == m_pose)
        return;
    m_pose = pose;
    update();
}

QSize FaceView::sizeHint() const
{
    return kBestSize;
}

QSize FaceView::minimumSizeHint() const
{
    return kLeastSize;
}

void FaceView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    PaintFace(painter, rect(), m_pose);
}

} // namespace host
