#include "CommandList.h"

#include <QAction>
#include <QMenu>

namespace host {

QAction* CommandList::Add(QMenu* menu, const Command& command)
{
    QAction* const action = menu->addAction(command.text);
    action->setShortcut(QKeySequence::fromString(command.shortcut, QKeySequence::PortableText));
    const auto run = command.run;
    const auto can = command.can;
    connect(action, &QAction::triggered, this, [this, run, can] {
        if (!can || can())
            run();
        emit Done();
    });
    if (can)
        m_entries.push_back({action, can});
    return action;
}

void CommandList::Update()
{
    for (const Entry& entry : m_entries)
        entry.action->setEnabled(entry.can());
}

} // namespace host
