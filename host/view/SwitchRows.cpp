#include "SwitchRows.h"

#include "SceneTracks.h"
#include "document/EditNames.h"
#include "document/EditSession.h"
#include "document/RowStates.h"

namespace host {

namespace {

constexpr int kFirstStateOn = 2; ///< on, and on with the pointer above

} // namespace

SwitchRows::SwitchRows(CTimelineManager& manager, SceneTracks& tracks, EditSession& session)
    : m_manager(manager), m_tracks(tracks), m_session(session)
{
}

void SwitchRows::ShowArrows(int width)
{
    bool isChanged = false;
    for (const SceneTrack& row : m_session.Current().tracks) {
        CTimelineTrackBase* const track = m_tracks.TrackOf(row.id);
        bool isShown = false;
        if (!m_manager.GetTrackSwitchScrollState(track, isShown))
            continue;
        const bool isNeeded = m_skin.WidthOfSwitches(row.styleNumber, row.buttons.size()) > width;
        m_manager.SetTrackSwitchScrollState(track, isNeeded);
        isChanged = isChanged || isNeeded != isShown;
    }
    if (isChanged)
        m_manager.InvalidateTimeline();
}

void SwitchRows::Toggle(CTimelineTrackBase* track, int button)
{
    Scene scene = m_session.Current();
    SceneTrack* const row = scene.FindTrack(m_tracks.IdOf(track));
    std::vector<_tmpTLSwitchBtnData> states;
    if (!row || button < 0 || button >= row->buttons.size() ||
        !m_manager.GetTrackSwitchBtnList(track, states))
        return;
    m_session.Begin(); // before rows that go take what is selected on them along
    SwitchButton& toggled = row->buttons[button];
    toggled.on = states[static_cast<std::size_t>(button)].state >= kFirstStateOn;
    for (const TrackId child : qAsConst(toggled.tracks))
        m_tracks.SetRowShown(scene, child, IsRowShown(scene, child));
    m_session.Step(RowsName(toggled.text, toggled.on), scene);
    m_session.Commit();
}

} // namespace host
