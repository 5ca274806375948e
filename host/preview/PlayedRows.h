#pragma once

#include "document/Scene.h"

namespace host {

/// Whether the row, or the root that it hangs under, is muted.
bool IsMuted(const Scene& scene, const SceneTrack& row);

/// Whether the row, or the root that it hangs under, is soloed.
bool IsSoloed(const Scene& scene, const SceneTrack& row);

/// Whether any row is soloed: all that are not count as muted then.
bool HasSolo(const Scene& scene);

/// Whether the row takes part in what is shown.
bool IsPlayed(const Scene& scene, const SceneTrack& row);

} // namespace host
