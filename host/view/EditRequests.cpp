#include "EditRequests.h"

#include "GestureEdits.h"
#include "KeyCommands.h"
#include "RowModes.h"

namespace host {

namespace {

/// Whether the timeline tells of a gesture with it; of commands otherwise.
bool IsOfGesture(TLEditType type)
{
    return type <= TL_EDIT_CLIP_TRIM_END;
}

} // namespace

EditRequests::EditRequests(const SceneTracks& tracks, EditSession& session, GestureEdits& gestures,
                           KeyCommands& commands)
    : m_tracks(tracks), m_session(session), m_gestures(gestures), m_commands(commands)
{
}

int EditRequests::EditKeys(TLEditType type, const TrackList& list, int value1, int value2)
{
    // Once a gesture, when it begins.
    if (type == TL_EDIT_BEGIN || (!IsOfGesture(type) && ChangesKeys(type))) {
        for (const TrackId row : TracksOf(m_tracks, list))
            IsLocked(row);
    }
    return IsOfGesture(type) ? m_gestures.Handle(type, list, value1, value2)
                             : m_commands.Handle(type, list);
}

void EditRequests::MoveTimeMark(int mark, int frame, bool isFinal)
{
    Scene scene = m_session.Current();
    (mark == 0 ? scene.timeMark.start : scene.timeMark.end) = frame;
    m_session.Step(MarkerName(mark == 0, frame), scene);
    if (isFinal)
        m_session.Commit();
}

bool EditRequests::IsLocked(TrackId id) const
{
    const SceneTrack* const row = m_session.Current().FindTrack(id);
    if (!row || !row->locked)
        return false;
    if (told)
        told(tr("%1 is locked").arg(row->caption));
    return true;
}

} // namespace host
