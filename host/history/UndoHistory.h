#pragma once

#include "document/EditSession.h"
#include "view/TimelineState.h"

#include <QUndoStack>

#include <functional>

class QWidget;

namespace host {

/// Remembers every committed edit under its name, one entry each however many steps it took, and
/// undoes and redoes them: the scene, the selection, the active row and the current frame are then
/// exactly as they were when the edit began or when it was done. The stack's clean index says
/// whether the scene is as it was saved.
class UndoHistory : public QObject
{
    Q_OBJECT
public:
    /// All are kept and outlive this object. Who shows the session's scene on @p tracks has done so
    /// when EditSession::Restored has been sent.
    UndoHistory(EditSession& session, CTimelineManager& manager, const SceneTracks& tracks);

    /// Whether undo and redo leave the current frame where it is; they do not unless this is set.
    std::function<bool()> keepsFrame;

    QUndoStack& Stack() { return m_stack; }

    /// To be told of every change of the current frame.
    void FollowFrame(int frame) { m_frame = frame; }

    // A gesture under way is ended first, as letting go would; the rest then follows when control
    // is back in the event loop.
    void Undo();
    void Redo();

signals:
    /// An edit was undone or redone.
    void Undone(const QString& name);
    void Redone(const QString& name);

private:
    struct Moment
    {
        Scene scene;
        TimelineState state;
    };
    class Entry;

    void Remember(const QString& name, const Scene& before);
    void Settle();
    void GoTo(const Moment& moment);
    TimelineState StateNow() const;

    EditSession& m_session;
    CTimelineManager& m_manager;
    const SceneTracks& m_tracks;
    QUndoStack m_stack;
    int m_frame = 0;
    TimelineState m_stateBefore;  ///< of the edit under way
    Entry* m_unsettled = nullptr; ///< the stack's; what follows its commit belongs to it still
};

} // namespace host
