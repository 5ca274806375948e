#pragma once

#include "document/Scene.h"

namespace host {

/// The row that a script means by @p name: the one with that caption, else the one of that name.
/// kNoTrack, and @p error says why, when there is none or more than one.
TrackId FindRow(const Scene& scene, const QString& name, QString& error);

/// Whether a key, a clip or a key inside a clip begins at that frame of the row.
bool HasKeyAt(const SceneTrack& row, int frame);
/// Whether a press on that frame of the row falls on a key or a clip, or, where clips are edited
/// from inside, on a key inside one.
bool IsOnKey(const SceneTrack& row, int frame);

} // namespace host
