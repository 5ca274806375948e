#include "RowMenuHand.h"

#include "MenuPath.h"

#include <QApplication>
#include <QMenu>
#include <QTimer>

namespace host {

namespace {

/// Clicks on the entry of an open menu. What is wrong, else an empty text.
QString Choose(QMenu& menu, const QString& text)
{
    QAction* const entry = FindEntry(menu, text);
    if (!entry)
        return QStringLiteral("the row's menu has no entry \"%1\"").arg(text);
    if (!entry->isEnabled())
        return QStringLiteral("the entry \"%1\" of the row's menu cannot be chosen now").arg(text);
    // Another hand: the one that opened the menu has its button down as long as that is open.
    InputHand(menu).Click(menu, menu.actionGeometry(entry).center());
    return {};
}

} // namespace

QString ChooseFromRowMenu(InputHand& hand, const FrameCell& cell, const QString& entry)
{
    QString error = QStringLiteral("the row has no menu");
    QTimer look; // the press that opens the menu does not return before that is closed
    QObject::connect(&look, &QTimer::timeout, [&] {
        const QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return;
        look.stop();
        error = Choose(*menu, entry);
        if (menu)
            menu->close();
    });
    look.start(0);
    hand.Click(*cell.row, cell.Middle(), Qt::NoModifier, Qt::RightButton);
    return error;
}

} // namespace host
