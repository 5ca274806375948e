#pragma once

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QStringList>
#include <QUrl>
#include <QWidget>

/// Drags files over the widget to @p point and lets go there. Whether they were taken.
inline bool DropFiles(QWidget* widget, QPoint point, const QStringList& files)
{
    QList<QUrl> urls;
    for (const QString& file : files)
        urls.append(QUrl::fromLocalFile(file));
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &enter);
    QDragMoveEvent move(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
    if (!move.isAccepted())
        return false;
    QDropEvent drop(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &drop);
    return drop.isAccepted();
}
