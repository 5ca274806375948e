#pragma once

#include <QApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QUrl>
#include <QWidget>
#include <QWindow>

namespace KestovaTest {

/// Something dragged into a window from another program. Its events enter where those of the
/// windowing system do, so that Qt itself finds the widget that takes them. Points are pixels of
/// the widget that is named. A drag that was not dropped leaves the window in the end.
class FileDrag
{
public:
    /// A drag of one file of this machine.
    FileDrag(QWidget* inWindow, const QString& path)
        : FileDrag(inWindow, QList<QUrl>{QUrl::fromLocalFile(path)})
    {
    }
    FileDrag(QWidget* inWindow, const QList<QUrl>& urls) : m_window(inWindow->window())
    {
        if (!urls.isEmpty())
            data.setUrls(urls);
    }
    ~FileDrag()
    {
        if (m_isInside && m_window)
            Leave();
    }
    FileDrag(const FileDrag&) = delete;
    FileDrag& operator=(const FileDrag&) = delete;

    QMimeData data;
    Qt::DropAction action = Qt::IgnoreAction; ///< that the last event was answered with
    Qt::DropAction proposed = Qt::IgnoreAction;

    /// @return whether the drag was accepted, as in the next two.
    bool EnterAt(QWidget* widget, QPoint point)
    {
        m_point = widget->mapTo(m_window, point);
        QDragEnterEvent event(m_point, kActions, &data, Qt::LeftButton, Qt::NoModifier);
        return Send(event);
    }
    bool MoveTo(QWidget* widget, QPoint point)
    {
        m_point = widget->mapTo(m_window, point);
        QDragMoveEvent event(m_point, kActions, &data, Qt::LeftButton, Qt::NoModifier);
        return Send(event);
    }
    /// Lets go where the pointer is.
    bool Drop()
    {
        QDropEvent event(m_point, kActions, &data, Qt::NoButton, Qt::NoModifier);
        const bool isAccepted = Send(event);
        m_isInside = false;
        return isAccepted;
    }
    void Leave()
    {
        m_isInside = false;
        QDragLeaveEvent event;
        QCoreApplication::sendEvent(m_window->windowHandle(), &event);
    }

private:
    static constexpr Qt::DropActions kActions = Qt::CopyAction | Qt::MoveAction;

    bool Send(QDropEvent& event)
    {
        m_isInside = true;
        event.ignore();
        proposed = event.proposedAction();
        QCoreApplication::sendEvent(m_window->windowHandle(), &event);
        action = event.dropAction();
        return event.isAccepted();
    }

    QPointer<QWidget> m_window;
    QPoint m_point;
    bool m_isInside = false;
};

} // namespace KestovaTest
