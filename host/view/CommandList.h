#pragma once

#include <QObject>

#include <functional>
#include <vector>

class QAction;
class QMenu;

namespace host {

/// Entries of menus, each of which says itself whether it can be chosen now.
class CommandList : public QObject
{
    Q_OBJECT
public:
    explicit CommandList(QObject* parent) : QObject(parent) {}

    struct Command
    {
        QString text;
        /// Portable; empty for none. One that stands behind a tab in the text is only shown: the
        /// timeline listens to that key itself.
        QString shortcut;
        std::function<bool()> can; ///< not set: always
        std::function<void()> run;
    };

    /// Appends it to the menu, which owns the action.
    QAction* Add(QMenu* menu, const Command& command);
    /// Enables what is possible now.
    void Update();

signals:
    /// A command was done.
    void Done();

private:
    struct Entry
    {
        QAction* action;
        std::function<bool()> can;
    };
    std::vector<Entry> m_entries;
};

} // namespace host
