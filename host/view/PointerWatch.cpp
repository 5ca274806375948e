#include "PointerWatch.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <QWidget>
#include <QWindow>

namespace host {

PointerWatch::PointerWatch(QObject* parent) : QObject(parent)
{
    qApp->installEventFilter(this);
}

void PointerWatch::Watch(QWidget* area)
{
    if (m_isInside)
        emit Left();
    m_isInside = false;
    m_area = area;
    if (area)
        connect(area, &QObject::destroyed, this, [this, area] {
            if (m_area == area)
                Watch(nullptr);
        });
}

bool PointerWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (m_area && watched == m_area->window()->windowHandle())
        WatchHand(*event); // before any widget hears of it
    if (!m_area || !watched->isWidgetType())
        return false;
    switch (event->type()) {
    case QEvent::MouseMove: {
        const auto* const move = static_cast<QMouseEvent*>(event);
        m_place = move->globalPos(); // looked at again when a drag is over
        if (move->buttons() == Qt::NoButton)
            TellMove(m_place);
        break;
    }
    case QEvent::MouseButtonPress:
        if (m_area->isAncestorOf(static_cast<QWidget*>(watched)))
            emit Pressed();
        break;
    case QEvent::MouseButtonRelease:
        if (m_area->isAncestorOf(static_cast<QWidget*>(watched)))
            QMetaObject::invokeMethod(this, &PointerWatch::Released, Qt::QueuedConnection);
        [[fallthrough]];
    case QEvent::KeyPress:
    case QEvent::Wheel:
        // When it has been handled something else may be there.
        if (m_isInside)
            QMetaObject::invokeMethod(this, &PointerWatch::TellAgain, Qt::QueuedConnection);
        break;
    case QEvent::ToolTip:
        return ShowTip(static_cast<QWidget*>(watched),
                       static_cast<QHelpEvent*>(event)->globalPos());
    case QEvent::Leave:
        if (watched == m_area && m_isInside) {
            m_isInside = false;
            emit Left();
        }
        break;
    case QEvent::Drop:
        if (m_area->isAncestorOf(static_cast<QWidget*>(watched))) {
            Grasp();
            LetGoLater();
        }
        break;
    default:
        break;
    }
    return false;
}

void PointerWatch::WatchHand(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const auto& press = static_cast<const QMouseEvent&>(event);
        const bool isFirst = press.buttons() == press.button();
        if (isFirst && m_area->rect().contains(m_area->mapFromGlobal(press.globalPos())))
            Grasp();
        break;
    }
    case QEvent::MouseButtonRelease:
        if (static_cast<const QMouseEvent&>(event).buttons() == Qt::NoButton)
            LetGoLater();
        break;
    default:
        break;
    }
}

void PointerWatch::Grasp()
{
    ++m_grasp;
    emit Grasped();
}

void PointerWatch::LetGoLater()
{
    const int grasp = m_grasp;
    const auto tell = [this, grasp] {
        if (grasp == m_grasp) // else the hand is at its next gesture already
            emit LetGo();
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

void PointerWatch::TellMove(QPoint place)
{
    const bool wasInside = m_isInside;
    m_place = place;
    m_isInside = m_area->rect().contains(m_area->mapFromGlobal(place));
    if (m_isInside)
        emit Moved(place);
    else if (wasInside)
        emit Left();
}

/// Whether there was one.
bool PointerWatch::ShowTip(QWidget* widget, QPoint place)
{
    const QString text = tip && m_area->isAncestorOf(widget) ? tip(place) : QString();
    if (!text.isEmpty())
        QToolTip::showText(place, text, widget);
    return !text.isEmpty();
}

void PointerWatch::TellAgain()
{
    if (m_area && m_isInside && QApplication::mouseButtons() == Qt::NoButton)
        emit Moved(m_place);
}

} // namespace host
