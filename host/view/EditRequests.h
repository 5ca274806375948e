#pragma once

#include "KeySelections.h"

#include <QCoreApplication>

#include <functional>

namespace host {

class EditSession;
class GestureEdits;
class KeyCommands;

/// Answers the timeline when the user edits on it: passes gestures and commands on to who applies
/// them to the scene, and says why a locked row does not follow.
class EditRequests
{
    Q_DECLARE_TR_FUNCTIONS(EditRequests)
public:
    /// All are kept and outlive this object.
    EditRequests(const SceneTracks& tracks, EditSession& session, GestureEdits& gestures,
                 KeyCommands& commands);

    /// Shows a line to the user.
    std::function<void(const QString& text)> told;

    /// Keys are edited; 0 or more accepts, -1 refuses.
    int EditKeys(TLEditType type, const TrackList& list, int value1, int value2);
    /// A marker of the ruler stands at @p frame now. @p mark: 0 start, 1 end. @p isFinal: it was
    /// let go.
    void MoveTimeMark(int mark, int frame, bool isFinal);
    /// Says so when the row is locked, which is returned.
    bool IsLocked(TrackId row) const;

private:
    const SceneTracks& m_tracks;
    EditSession& m_session;
    GestureEdits& m_gestures;
    KeyCommands& m_commands;
};

} // namespace host
