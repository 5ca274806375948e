#include "GestureHand.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>
#include <QtTest>

namespace KestovaTest {

namespace {

/// Dragged files come in where the windowing system's do, too: at the window, which finds the
/// widget under the point.
void DragFile(QWindow* window, const HandEvent& event)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(event.path)});
    if (event.kind == HandEvent::FileEnter) {
        QDragEnterEvent enter(event.point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &enter);
    } else if (event.kind == HandEvent::FileMove) {
        QDragMoveEvent move(event.point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &move);
    } else {
        QDropEvent drop(event.point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &drop);
    }
}

} // namespace

void Perform(GestureScene& scene, const HandEvent& event)
{
    Pointer& pointer = scene.pointer;
    QWidget* const window = &scene.fixture.mainWindow;
    pointer.modifiers = event.modifiers;
    switch (event.kind) {
    case HandEvent::Press:
        pointer.Press(window, event.point);
        return;
    case HandEvent::Move:
        pointer.MoveTo(window, event.point);
        return;
    case HandEvent::Release:
        pointer.Release();
        return;
    case HandEvent::DoubleClick:
        pointer.DoubleClick(window, event.point);
        return;
    case HandEvent::RightPress:
        pointer.Press(window, event.point, Qt::RightButton);
        return;
    case HandEvent::RightRelease:
        pointer.Release(Qt::RightButton);
        return;
    case HandEvent::Key:
        QTest::keyClick(window->windowHandle(), event.key, event.modifiers);
        return;
    default:
        DragFile(window->windowHandle(), event);
        QCoreApplication::processEvents();
    }
}

MenuHand::MenuHand(bool chooses) : m_chooses(chooses)
{
    connect(&m_timer, &QTimer::timeout, this, [this] { Look(); });
    m_timer.start(0);
}

void MenuHand::Look()
{
    const QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu || menu == m_seen)
        return;
    m_seen = menu;
    const QPointer<MenuHand> self(this);
    if (const auto act = whenOpen)
        act();
    if (!menu || !self)
        return;
    if (m_chooses) {
        for (QAction* const action : menu->actions()) {
            if (action->isEnabled() && !action->isSeparator() && !action->menu()) {
                menu->setActiveAction(action);
                QTest::keyClick(menu, Qt::Key_Return);
                return;
            }
        }
    }
    QTest::keyClick(menu, Qt::Key_Escape);
}

} // namespace KestovaTest
