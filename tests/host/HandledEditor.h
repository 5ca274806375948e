#pragma once

#include "DropFiles.h"
#include "EditorFixture.h"

#include "script/MenuPath.h"
#include "support/Pointer.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include <functional>

constexpr int kPixelsPerFrame = 10; ///< in a window of this size with the whole sample in view

/// The editor with a hand on the mouse.
struct HandledEditor : EditorFixture
{
    HandledEditor() : pointer(&window) {}

    KestovaTest::Pointer pointer;

    /// The widget of a row: the timeline's tracks are widgets, though hosts need not know.
    QWidget* WidgetOf(const char* name)
    {
        const void* const track = Row(name);
        for (QWidget* const widget : window.findChildren<QWidget*>()) {
            if (widget == track)
                return widget;
        }
        qFatal("the row %s has no widget", name);
    }
    /// The middle of a frame's cell.
    QPoint At(const char* name, int frame)
    {
        return QPoint(frame * kPixelsPerFrame + kPixelsPerFrame / 2, WidgetOf(name)->height() / 2);
    }
    /// The right edge of a frame's cell, where a clip that ends there has its handle.
    QPoint EdgeOf(const char* name, int frame)
    {
        return QPoint((frame + 1) * kPixelsPerFrame, WidgetOf(name)->height() / 2);
    }
    void Drag(const char* name, QPoint from, const QVector<QPoint>& way)
    {
        pointer.Press(WidgetOf(name), from);
        for (const QPoint& point : way)
            pointer.MoveTo(WidgetOf(name), point);
        pointer.Release();
    }

    /// The ruler, which lies right above the topmost row and is as wide.
    QWidget* Ruler()
    {
        QWidget* const layers = WidgetOf("Layers");
        for (QWidget* const child : layers->parentWidget()->findChildren<QWidget*>(
                 QString(), Qt::FindDirectChildrenOnly)) {
            if (child->isVisible() && child->x() == layers->x() && child->y() < layers->y())
                return child;
        }
        qFatal("no ruler");
    }

    QString FrameText()
    {
        for (const QLabel* const label : window.findChildren<QLabel*>()) {
            if (label->text().startsWith(QLatin1String("Frame")))
                return label->text();
        }
        return {};
    }

    QAction* Command(const QString& text)
    {
        for (const QMenu* const menu : window.menuBar()->findChildren<QMenu*>()) {
            for (QAction* const action : menu->actions()) {
                if (host::PlainText(*action) == text)
                    return action;
            }
        }
        qFatal("no command %s", qPrintable(text));
    }

    /// Opens the menu of the row at @p point; @p deed is done while it is open, and it is closed.
    void WithMenu(const char* name, QPoint point, const std::function<void(QMenu&)>& deed)
    {
        bool isOpen = false;
        QTimer::singleShot(0, &window, [&] {
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!menu)
                return;
            isOpen = true;
            deed(*menu);
            if (QApplication::activePopupWidget() == menu)
                menu->close();
        });
        QWidget* const row = WidgetOf(name);
        QContextMenuEvent event(QContextMenuEvent::Mouse, point, row->mapToGlobal(point));
        QApplication::sendEvent(row, &event);
        if (!isOpen)
            qFatal("no menu opened on %s", name);
        // This platform does not give the window back what the menu has taken.
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("the window does not come back");
    }
    void Choose(const char* name, QPoint point, const QString& text)
    {
        WithMenu(name, point, [&text](QMenu& menu) {
            for (QAction* const action : menu.actions()) {
                if (host::PlainText(*action) != text || !action->isEnabled())
                    continue;
                const QPoint place = menu.actionGeometry(action).center();
                QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier, place);
                return;
            }
            qFatal("the menu does not offer %s", qPrintable(text));
        });
    }

    /// Drags a file over the row to @p point and lets go there. Whether it was taken.
    bool DropFile(const char* name, QPoint point, const QString& path)
    {
        return DropFiles(WidgetOf(name), point, {path});
    }
};
