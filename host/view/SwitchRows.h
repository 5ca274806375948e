#pragma once

#include "SkinFile.h"

#include <KestovaTimelineQU/KestovaTimelineQU.h>

namespace host {

class EditSession;
class SceneTracks;

/// The rows of buttons: what their buttons show and hide, and when they need their scroll arrows.
class SwitchRows
{
public:
    /// All are kept and outlive this object.
    SwitchRows(CTimelineManager& manager, SceneTracks& tracks, EditSession& session);

    /// The timeline is drawn in this skin from now on.
    void SetSkin(const QString& path) { m_skin = SkinFile(path); }

    /// Gives the rows their arrows while the buttons need more room than there is, and takes them
    /// away otherwise. @p width: of the rows beside their captions, in pixels.
    void ShowArrows(int width);
    /// A button of the row was switched on or off: shows or hides what it stands for, as an edit.
    void Toggle(CTimelineTrackBase* track, int button);

private:
    CTimelineManager& m_manager;
    SceneTracks& m_tracks;
    EditSession& m_session;
    SkinFile m_skin;
};

} // namespace host
