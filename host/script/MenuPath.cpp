#include "MenuPath.h"

#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>

namespace host {

namespace {

QAction* FindAmong(const QList<QAction*>& entries, const QString& text)
{
    QAction* longer = nullptr;
    int count = 0;
    for (QAction* const entry : entries) {
        const QString found = PlainText(*entry);
        if (entry->isSeparator())
            continue;
        if (found == text)
            return entry;
        if (found.startsWith(text + u' ')) {
            longer = entry;
            ++count;
        }
    }
    return count == 1 ? longer : nullptr;
}

} // namespace

QString PlainText(const QAction& entry)
{
    static const QRegularExpression notRead(QStringLiteral("&(?!&)|\\t.*$|(\\.\\.\\.|…)$"));
    return entry.text().remove(notRead);
}

QAction* FindEntry(const QMenu& menu, const QString& text)
{
    return FindAmong(menu.actions(), text);
}

QAction* FindMenuEntry(const QMenuBar& bar, const QString& path, QString& error)
{
    QList<QAction*> entries = bar.actions();
    QAction* entry = nullptr;
    for (const QString& part : path.split(u'>')) {
        entry = FindAmong(entries, part.trimmed());
        if (!entry) {
            error = QStringLiteral("there is no menu entry \"%1\"").arg(path);
            return nullptr;
        }
        if (!entry->isEnabled()) {
            error = QStringLiteral("the menu entry \"%1\" cannot be chosen now").arg(path);
            return nullptr;
        }
        if (QMenu* const menu = entry->menu())
            emit menu->aboutToShow();
        entries = entry->menu() ? entry->menu()->actions() : QList<QAction*>();
    }
    if (entry->menu()) {
        error = QStringLiteral("\"%1\" is a menu, not an entry").arg(path);
        return nullptr;
    }
    return entry;
}

} // namespace host
