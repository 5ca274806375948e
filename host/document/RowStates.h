#pragma once

#include "Scene.h"

namespace host {

/// What a row's caption buttons and its menu switch on and off.
enum class RowState
{
    Muted,
    Soloed,
    Locked
};

bool HasState(const SceneTrack& track, RowState state);

/// Switches the state on or off. Changes nothing but @p scene; nothing without the row.
void SetState(Scene& scene, TrackId track, RowState state, bool on);

/// Whether the row takes part in what is seen and heard: it is not muted, and is soloed itself when
/// any row is.
bool TakesPart(const Scene& scene, TrackId track);

/// Whether the row is to be seen: of all switch buttons that stand for it none is off.
bool IsRowShown(const Scene& scene, TrackId row);

} // namespace host
