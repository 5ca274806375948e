#include "PlayedRows.h"

#include <algorithm>

namespace host {

bool IsMuted(const Scene& scene, const SceneTrack& row)
{
    const SceneTrack* const root = scene.FindTrack(row.parent);
    return row.muted || (root && root->muted);
}

bool IsSoloed(const Scene& scene, const SceneTrack& row)
{
    const SceneTrack* const root = scene.FindTrack(row.parent);
    return row.soloed || (root && root->soloed);
}

bool HasSolo(const Scene& scene)
{
    return std::any_of(scene.tracks.cbegin(), scene.tracks.cend(),
                       [](const SceneTrack& row) { return row.soloed; });
}

bool IsPlayed(const Scene& scene, const SceneTrack& row)
{
    return !IsMuted(scene, row) && (IsSoloed(scene, row) || !HasSolo(scene));
}

} // namespace host
