#pragma once

#include "SceneTracks.h"
#include "document/EditSession.h"

#include <functional>

namespace host {

/// Takes files that are dropped on rows: a sound (.wav) on a row of clips becomes a clip of its
/// length at the frame where it was dropped. Of anything else the user is told why not.
class FileDrops
{
public:
    /// All are kept and outlive this object.
    FileDrops(CTimelineManager& manager, SceneTracks& tracks, EditSession& session);

    /// Called with one line for the user.
    std::function<void(const QString& text)> told;
    /// Called when the session's scene got longer or has keys that the timeline does not show yet.
    std::function<void()> sceneChanged;

    /// Says to the timeline whether the file may be dropped on that frame of the track.
    void Hold(CTimelineTrackBase* track, const QString& path, int frame);
    /// The file was dropped on the active track at the current frame. False when it is not taken.
    bool Drop(TLDropFileType type, const QString& path);

private:
    QString ReasonAgainst(CTimelineTrackBase* track, const QString& path, int frame) const;
    void Tell(const QString& text) const;

    CTimelineManager& m_manager;
    SceneTracks& m_tracks;
    EditSession& m_session;
};

} // namespace host
