#pragma once

#include "KeySelections.h"
#include "document/EditSession.h"

namespace host {

/// Applies what the hand does on the timeline to the scene: dragged keys, clip edges and blends. A
/// gesture begins an edit, makes a step at every move and commits it at its end. While keys are
/// dragged the timeline moves its own; all other changes come from the scene.
class GestureEdits
{
public:
    /// All are kept and outlive this object.
    GestureEdits(SceneTracks& tracks, EditSession& session);

    /// One message of a gesture, from TL_EDIT_BEGIN to TL_EDIT_CLIP_TRIM_END, with its values as
    /// the timeline gives them. 0, or -1 when the scene refuses the edit.
    int Handle(TLEditType type, const TrackList& list, int value1, int value2);

private:
    struct Message
    {
        QVector<TrackId> rows;
        int value1 = 0;
        int value2 = 0;
    };
    struct Handler;
    static const Handler kHandlers[];

    int Begin(const Message& message);
    int End(const Message& message);
    int MoveStep(const Message& message);
    int MoveEnd(const Message& message);
    int ChangeLoop(const Message& message);
    int ChangeSpeed(const Message& message);
    int ChangeTrim(const Message& message);
    int EndClipEdge(const Message& message);

    void TakeSelection(const QVector<TrackId>& rows);
    int MoveBy(int frames, const QVector<TrackId>& rows);
    int Step(const QString& name, const Scene& scene);
    bool IsLocked(TrackId row) const;
    /// The key that a message about a clip's edge or a blend's handle speaks of; none on a locked
    /// row.
    KeyId KeyOf(const Message& message) const;

    SceneTracks& m_tracks;
    EditSession& m_session;
    QVector<KeySelection> m_moving; ///< the keys that the edit under way moves
    QVector<TrackId> m_rows;        ///< the rows that it began on
    int m_moved = 0;                ///< frames that it has moved them by
    int m_told = 0;                 ///< frames that the gesture has told of in steps
};

} // namespace host
