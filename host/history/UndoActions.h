#pragma once

#include <QObject>

class QAction;
class QMenu;

namespace host {

class EditSession;
class UndoHistory;

/// Undo and Redo as the user finds them: at the top of the Edit menu, with their shortcuts, named
/// after the edit that they concern.
class UndoActions : public QObject
{
    Q_OBJECT
public:
    /// @param menu gets the entries before those that it has. The others are kept and outlive this
    /// object, which is the menu's.
    UndoActions(QMenu* menu, UndoHistory& history, const EditSession& session);

private:
    void Update();

    UndoHistory& m_history;
    const EditSession& m_session;
    QAction* m_undo;
    QAction* m_redo;
};

} // namespace host
