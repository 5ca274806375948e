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

bool TakesPart(const Scene& scene, TrackId track)
{
    const SceneTrack* const row = scene.FindTrack(track);
    if (!row || row->muted)
        return false;
    return row->soloed || std::none_of(scene.tracks.cbegin(), scene.tracks.cend(),
                                       [](const SceneTrack& each) { return each.soloed; });
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
