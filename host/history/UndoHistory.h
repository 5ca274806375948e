#pragma once

#include "document/EditSession.h"
#include "view/TimelineState.h"

#include <QUndoStack>

#include <functional>
#include <optional>

class QWidget;

namespace host {

/// Remembers every committed edit under its name, one entry each however many steps it took, and
/// undoes and redoes them: the scene, the selection, the active row and the current frame are then
/// exactly as they were before the gesture that made the edit, or when it was done. The stack's
/// clean index says whether the scene is as it was saved.
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

    /// To be told before a gesture has any effect, and when its last one is done. A press selects
    /// and goes to a frame before the drag that follows begins an edit: undone, the edit gives back
    /// what was selected before the press. An edit without a gesture starts from where it begins.
    void BeginGesture();
    void EndGesture() { m_stateAtGesture.reset(); }

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
    std::optional<TimelineState> m_stateAtGesture; ///< until an edit takes it
    TimelineState m_stateBefore;                   ///< of the edit under way
    Entry* m_unsettled = nullptr; ///< the stack's; what follows its commit belongs to it still
};

} // namespace host
