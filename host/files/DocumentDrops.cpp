#include "DocumentDrops.h"

#include "storage/DocumentFile.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace host {

namespace {

/// The document that is dragged; empty for anything else, and for several files at once.
QString DocumentIn(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    const QString path = urls.size() == 1 ? urls.first().toLocalFile() : QString();
    return IsDocument(path) ? path : QString();
}

} // namespace

DocumentDrops::DocumentDrops(QWidget& window, QObject* parent) : QObject(parent), m_window(window)
{
    window.setAcceptDrops(true);
    qApp->installEventFilter(this);
}

bool DocumentDrops::eventFilter(QObject* watched, QEvent* event)
{
    const bool isDrag = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove ||
                        event->type() == QEvent::Drop;
    const auto* const widget = isDrag ? qobject_cast<QWidget*>(watched) : nullptr;
    if (!widget || widget->window() != &m_window)
        return QObject::eventFilter(watched, event);
    auto* const drop = static_cast<QDropEvent*>(event);
    const QString path = DocumentIn(drop->mimeData());
    if (path.isEmpty())
        return QObject::eventFilter(watched, event);
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    if (event->type() == QEvent::Drop)
        emit Dropped(path);
    return true;
}

} // namespace host
