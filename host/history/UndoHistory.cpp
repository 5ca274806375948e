#include "UndoHistory.h"

#include "GestureEnd.h"

#include <QUndoCommand>

#include <utility>

namespace host {

/// An edit that was done. It knows the scene before and after whole: both share what is alike.
class UndoHistory::Entry : public QUndoCommand
{
public:
    Entry(const QString& name, UndoHistory& history, Moment before, Moment after)
        : QUndoCommand(name), m_history(history), m_before(std::move(before)),
          m_after(std::move(after))
    {
    }

    void SetStateAfter(const TimelineState& state) { m_after.state = state; }

    void undo() override { m_history.GoTo(m_before); }
    void redo() override
    {
        // The stack redoes what it is given at once, but the edit is done already.
        if (std::exchange(m_isDone, true))
            m_history.GoTo(m_after);
    }

private:
    UndoHistory& m_history;
    Moment m_before;
    Moment m_after;
    bool m_isDone = false;
};

UndoHistory::UndoHistory(EditSession& session, CTimelineManager& manager, const SceneTracks& tracks)
    : m_session(session), m_manager(manager), m_tracks(tracks)
{
    connect(&session, &EditSession::Restarted, this, [this] {
        m_unsettled = nullptr;
        m_stateAtGesture.reset();
        m_stack.clear();
    });
    connect(&session, &EditSession::Begun, this, [this] {
        Settle();
        m_stateBefore = m_stateAtGesture ? *m_stateAtGesture : StateNow();
        m_stateAtGesture.reset();
    });
    connect(&session, &EditSession::Committed, this, &UndoHistory::Remember);
}

void UndoHistory::BeginGesture()
{
    Settle();
    m_stateAtGesture = StateNow();
}

void UndoHistory::Undo()
{
    EndGestureThen(*this, m_session, [this] {
        Settle();
        const QString name = m_stack.undoText();
        if (!m_stack.canUndo())
            return;
        m_stack.undo();
        emit Undone(name);
    });
}

void UndoHistory::Redo()
{
    EndGestureThen(*this, m_session, [this] {
        Settle();
        const QString name = m_stack.redoText();
        if (!m_stack.canRedo())
            return;
        m_stack.redo();
        emit Redone(name);
    });
}

void UndoHistory::Remember(const QString& name, const Scene& before)
{
    auto* const entry =
        new Entry(name, *this, {before, m_stateBefore}, {m_session.Current(), StateNow()});
    m_stack.push(entry);
    m_unsettled = entry;
    // What was pasted is selected after the commit, and a drag may end on another frame.
    QMetaObject::invokeMethod(this, &UndoHistory::Settle, Qt::QueuedConnection);
}

void UndoHistory::Settle()
{
    if (Entry* const entry = std::exchange(m_unsettled, nullptr))
        entry->SetStateAfter(StateNow());
}

void UndoHistory::GoTo(const Moment& moment)
{
    m_stateAtGesture.reset();
    m_session.Restore(moment.scene);
    TimelineState state = moment.state;
    if (keepsFrame && keepsFrame())
        state.frame = m_manager.GetCurrentFrame();
    RestoreState(m_manager, m_tracks, moment.scene, state);
}

TimelineState UndoHistory::StateNow() const
{
    return TakeState(m_manager, m_tracks, m_session.Current(), m_frame);
}

} // namespace host
