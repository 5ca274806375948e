#pragma once

#include "FigurePose.h"
#include "StageCamera.h"
#include "document/Motion.h"

#include <QWidget>

namespace host {

/// Shows a figure on its stage. A drag with the left button turns it, the wheel brings it closer, a
/// double click shows it as at the start. Paints only when what it shows has changed.
class FigureView : public QWidget
{
    Q_OBJECT
public:
    explicit FigureView(QWidget* parent = nullptr);

    /// Shows a pose of the motion's skeleton.
    void Show(const Motion& motion, const FigurePose& pose);
    const StageCamera& Camera() const { return m_camera; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void LookFrom(const StageCamera& camera);

    Motion m_motion; ///< shares its samples with the scene's
    FigurePose m_pose;
    StageCamera m_camera;
    QPoint m_dragged; ///< where the drag under way has come to
};

} // namespace host
