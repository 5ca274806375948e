#pragma once

#include "FacePainter.h"

#include <QWidget>

namespace host {

/// Shows a face. Paints only when the face is another than before.
class FaceView : public QWidget
{
    Q_OBJECT
public:
    explicit FaceView(QWidget* parent = nullptr);

    void Show(const FacePose& pose);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    FacePose m_pose;
};

} // namespace host
