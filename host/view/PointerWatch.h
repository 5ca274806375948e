#pragma once

#include <QObject>
#include <QPoint>

#include <functional>

class QWidget;

namespace host {

/// Hears of the pointer over a part of the window, whatever widget of it the events go to.
class PointerWatch : public QObject
{
    Q_OBJECT
public:
    explicit PointerWatch(QObject* parent);

    /// @param area from now on it is this one; null for none.
    void Watch(QWidget* area);

    /// Gives the tip for a place of the screen over the area; an empty one leaves it to the widget
    /// there. Not set: none.
    std::function<QString(QPoint place)> tip;

signals:
    /// The pointer, with no button down, is at this place of the screen, or what is there may have
    /// changed.
    void Moved(QPoint place);
    void Left();
    /// A button goes down; the widget below does not know of it yet.
    void Pressed();
    /// A button that went down over the area has come up, and that has been handled.
    void Released();
    /// The hand begins a gesture on the area, with a button or by dropping a file: nothing has
    /// followed from it yet.
    void Grasped();
    /// The gesture is over, and all that followed from it at once is done.
    void LetGo();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void WatchHand(const QEvent& event);
    void Grasp();
    void LetGoLater();
    void TellMove(QPoint place);
    bool ShowTip(QWidget* widget, QPoint place);
    void TellAgain();

    QWidget* m_area = nullptr;
    QPoint m_place;
    bool m_isInside = false;
    int m_grasp = 0; ///< the number of the last gesture
};

} // namespace host
