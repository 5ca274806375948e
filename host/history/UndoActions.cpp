#include "UndoActions.h"

#include "UndoHistory.h"

#include <QAction>
#include <QMenu>

namespace host {

namespace {

/// The text as menus show it: there an ampersand alone marks a letter.
QString InMenu(QString text)
{
    return text.replace(u'&', QStringLiteral("&&"));
}

} // namespace

UndoActions::UndoActions(QMenu* menu, UndoHistory& history, const EditSession& session)
    : QObject(menu), m_history(history), m_session(session), m_undo(new QAction(this)),
      m_redo(new QAction(this))
{
    QAction* const first = menu->actions().value(0);
    menu->insertActions(first, {m_undo, m_redo});
    menu->insertSeparator(first);
    m_undo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    m_redo->setShortcuts(
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    connect(m_undo, &QAction::triggered, &history, &UndoHistory::Undo);
    connect(m_redo, &QAction::triggered, &history, &UndoHistory::Redo);
    connect(&history.Stack(), &QUndoStack::indexChanged, this, &UndoActions::Update);
    connect(&session, &EditSession::Changed, this, &UndoActions::Update);
    connect(&session, &EditSession::Ended, this, &UndoActions::Update);
    Update();
}

void UndoActions::Update()
{
    const QUndoStack& stack = m_history.Stack();
    m_undo->setText(stack.canUndo() ? tr("&Undo %1").arg(InMenu(stack.undoText())) : tr("&Undo"));
    m_redo->setText(stack.canRedo() ? tr("&Redo %1").arg(InMenu(stack.redoText())) : tr("&Redo"));
    // An edit under way can be undone too: it is ended first.
    m_undo->setEnabled(stack.canUndo() || m_session.IsOpen());
    m_redo->setEnabled(stack.canRedo() && !m_session.IsOpen());
}

} // namespace host
