#include "CaptionButtons.h"

#include "RowModes.h"
#include "SceneTracks.h"

#include <algorithm>
#include <array>

namespace host {

namespace {

constexpr int kOff = 0;
constexpr int kOn = 2;
constexpr int kUnknown = -1; ///< what the timeline shows of a row

/// Which toggle button of a caption shows the state.
struct ShownState
{
    RowState state;
    int button;
};
constexpr std::array<ShownState, 2> kShown{
    {{RowState::Muted, kMuteButton}, {RowState::Locked, kLockButton}}};

int BitsOf(const SceneTrack& row)
{
    int bits = 0;
    for (std::size_t i = 0; i < kRowStates.size(); ++i)
        bits |= HasState(row, kRowStates[i]) ? 1 << i : 0;
    return bits;
}

QString CaptionOf(const SceneTrack& row)
{
    const QString mark(u'\u25CF'); // the captions have no third picture for toggles
    return row.soloed ? mark + u' ' + row.caption : row.caption;
}

} // namespace

QString NameOfCaptionButton(int button)
{
    if (button == kAddKeyButton)
        return CaptionButtons::tr("Add key");
    if (button == kMenuButton)
        return CaptionButtons::tr("Menu");
    const auto shown = std::find_if(kShown.begin(), kShown.end(), [button](const ShownState& each) {
        return each.button == button;
    });
    return shown == kShown.end() ? QString() : TextsOf(shown->state).name;
}

CaptionButtons::CaptionButtons(CTimelineManager& manager, const SceneTracks& tracks,
                               EditSession& session)
    : m_manager(manager), m_tracks(tracks), m_session(session)
{
    connect(&session, &EditSession::Changed, this, &CaptionButtons::FollowScene);
}

void CaptionButtons::ShowAll()
{
    m_shown.clear();
    FollowScene();
}

bool CaptionButtons::Click(CTimelineTrackBase* track, int button)
{
    for (const ShownState& each : kShown) {
        if (each.button != button)
            continue;
        Toggle(track, each.state);
        return true;
    }
    return false;
}

void CaptionButtons::Toggle(CTimelineTrackBase* track, RowState state)
{
    if (!Concerns(track))
        return;
    const bool on = !Has(track, state);
    const RowStateTexts texts = TextsOf(state);
    Scene scene = m_session.Current();
    SetState(scene, m_tracks.IdOf(track), state, on);
    const QString text = on ? texts.switchOn : texts.switchOff;
    m_session.Apply(text.arg(RowOf(track)->caption), scene);
}

bool CaptionButtons::Has(CTimelineTrackBase* track, RowState state) const
{
    const SceneTrack* const row = RowOf(track);
    return row && HasState(*row, state);
}

bool CaptionButtons::Concerns(CTimelineTrackBase* track) const
{
    const SceneTrack* const row = RowOf(track);
    return row && row->kind != TrackKind::Switch;
}

void CaptionButtons::FollowScene()
{
    bool isChanged = false;
    for (const SceneTrack& row : m_session.Current().tracks) {
        const int bits = BitsOf(row);
        if (m_shown.value(row.id, kUnknown) == bits || !m_tracks.TrackOf(row.id))
            continue;
        m_shown[row.id] = bits;
        Show(row);
        isChanged = true;
    }
    if (isChanged)
        m_manager.InvalidateTimeline();
}

void CaptionButtons::Show(const SceneTrack& row)
{
    CTimelineTrackBase* const track = m_tracks.TrackOf(row.id);
    for (const ShownState& each : kShown) {
        int state = HasState(row, each.state) ? kOn : kOff;
        m_manager.SetTrackCaptionBtnState(track, each.button, state);
    }
    m_manager.SetTrackName(track, CaptionOf(row));
    VZ::CArrayList<TLEditType> types = EditTypesOf(row);
    m_manager.SetTrackEditMode(track, types);
}

const SceneTrack* CaptionButtons::RowOf(CTimelineTrackBase* track) const
{
    return m_session.Current().FindTrack(m_tracks.IdOf(track));
}

} // namespace host
