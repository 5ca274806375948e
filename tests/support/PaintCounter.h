#pragma once

#include <QEvent>
#include <QObject>
#include <QWidget>

namespace KestovaTest {

/// Counts the paints of a widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }

    int paints = 0;

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }
};

} // namespace KestovaTest
