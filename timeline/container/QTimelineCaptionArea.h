#pragma once

#include <QWidget>

/// The transparent widget over the caption column. It shows nothing and refuses every drag, so that
/// no file can be dropped on a caption; the mouse goes through to the container.
class QTimelineCaptionArea : public QWidget
{
    Q_OBJECT
public:
    explicit QTimelineCaptionArea(QWidget* parent);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
};
