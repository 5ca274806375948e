#include "CaptionButtons.h"

#include "RowModes.h"
#include "SceneTracks.h"

#include <array>

namespace host {

namespace {

constexpr int kOff = 0;
constexpr int kOn = 2;
constexpr int kNoButton = -1;
constexpr int kUnknown = -1; ///< what the timeline shows of a row

struct State
{
    RowState state;
    int button; ///< its toggle button's number in the skin
    const char* on;
    const char* off;
};

constexpr std::array<State, 3> kStates{{
    {RowState::Muted, 1, QT_TRANSLATE_NOOP("CaptionButtons", "Mute %1"),
     QT_TRANSLATE_NOOP("CaptionButtons", "Unmute %1")},
    {RowState::Soloed, kNoButton, QT_TRANSLATE_NOOP("CaptionButtons", "Solo %1"),
     QT_TRANSLATE_NOOP("CaptionButtons", "Unsolo %1")},
    {RowState::Locked, 2, QT_TRANSLATE_NOOP("CaptionButtons", "Lock %1"),
     QT_TRANSLATE_NOOP("CaptionButtons", "Unlock %1")},
}};

int BitsOf(const SceneTrack& row)
{
    int bits = 0;
    for (std::size_t i = 0; i < kStates.size(); ++i)
        bits |= HasState(row, kStates[i].state) ? 1 << i : 0;
    return bits;
}

QString CaptionOf(const SceneTrack& row)
{
    const QString mark(u'\u25CF'); // the captions have no third picture for toggles
    return row.soloed ? mark + u' ' + row.caption : row.caption;
}

} // namespace

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
    for (const State& each : kStates) {
        if (each.button != button || button == kNoButton)
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
    const State& each = kStates.at(static_cast<std::size_t>(state));
    Scene scene = m_session.Current();
    SetState(scene, m_tracks.IdOf(track), state, on);
    m_session.Apply(tr(on ? each.on : each.off).arg(RowOf(track)->caption), scene);
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
    for (const State& each : kStates) {
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
