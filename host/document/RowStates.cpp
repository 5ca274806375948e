#include "RowStates.h"

#include <algorithm>
#include <array>

namespace host {

namespace {

/// The member for each RowState, in the order of the enumeration.
constexpr std::array<bool SceneTrack::*, 3> kMembers{&SceneTrack::muted, &SceneTrack::soloed,
                                                     &SceneTrack::locked};

bool SceneTrack::*MemberOf(RowState state)
{
    return kMembers.at(static_cast<std::size_t>(state));
}

} // namespace

bool HasState(const SceneTrack& track, RowState state)
{
    return track.*MemberOf(state);
}

void SetState(Scene& scene, TrackId track, RowState state, bool on)
{
    if (SceneTrack* const row = scene.FindTrack(track))
        row->*MemberOf(state) = on;
}

bool IsInState(const Scene& scene, const SceneTrack& row, RowState state)
{
    const SceneTrack* const root = scene.FindTrack(row.parent);
    return HasState(row, state) || (root && HasState(*root, state));
}

bool IsAnySoloed(const Scene& scene)
{
    return std::any_of(scene.tracks.cbegin(), scene.tracks.cend(),
                       [](const SceneTrack& row) { return row.soloed; });
}

bool TakesPart(const Scene& scene, const SceneTrack& row)
{
    return !IsInState(scene, row, RowState::Muted) &&
           (IsInState(scene, row, RowState::Soloed) || !IsAnySoloed(scene));
}

bool IsRowShown(const Scene& scene, TrackId row)
{
    for (const SceneTrack& track : scene.tracks) {
        for (const SwitchButton& button : track.buttons) {
            if (!button.on && button.tracks.contains(row))
                return false;
        }
    }
    return true;
}

} // namespace host
