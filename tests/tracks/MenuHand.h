#pragma once

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <utility>

namespace KestovaTest {

/// Works in the menu that opens while it lives: the menu waits in an event loop of its own, and
/// from there the deed is called once. What is left open afterwards is closed.
class MenuHand : public QObject
{
public:
    using Deed = std::function<void(QMenu& menu)>;

    explicit MenuHand(Deed deed = {}) : m_deed(std::move(deed)) { qApp->installEventFilter(this); }

    int opened = 0; ///< menus that were seen, submenus not counted

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* const menu = qobject_cast<QMenu*>(watched);
        if (menu && event->type() == QEvent::Show && !menu->parentWidget()) {
            ++opened;
            QTimer::singleShot(0, this, [this, open = QPointer<QMenu>(menu)] { WorkIn(open); });
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void WorkIn(const QPointer<QMenu>& menu)
    {
        if (const Deed deed = std::exchange(m_deed, {}); deed && menu)
            deed(*menu);
        if (menu && menu->isVisible())
            menu->close();
        // The deed may have closed the menu inside an event loop of its own, which took the notice
        // that wakes the menu's: without this it sleeps on Windows until some other event comes.
        QAbstractEventDispatcher::instance()->interrupt();
    }

    Deed m_deed;
};

} // namespace KestovaTest
