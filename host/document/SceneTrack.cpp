#include "SceneTrack.h"

#include <tuple>

namespace host {

namespace {

auto Members(const SceneTrack& track)
{
    return std::tie(track.id, track.kind, track.name, track.caption, track.styleNumber,
                    track.parent, track.editModes, track.keys, track.buttons, track.muted,
                    track.soloed, track.locked);
}

} // namespace

bool operator==(const SwitchButton& a, const SwitchButton& b)
{
    return a.text == b.text && a.on == b.on && a.tracks == b.tracks;
}

bool operator==(const SceneTrack& a, const SceneTrack& b)
{
    return Members(a) == Members(b);
}

} // namespace host
