#pragma once

#include "Scene.h"

namespace host {

/// The place of the key of that number among @p keys, or -1.
int IndexOfKey(const QVector<SceneKey>& keys, KeyId id);

/// Puts @p placed among @p keys, each on its frame and in their order. What stood on those frames
/// is replaced, unless it is locked: then it stays, before what was placed.
void PlaceKeys(QVector<SceneKey>& keys, const QVector<SceneKey>& placed);

/// The key of that number in a row, or null when there is none. The pointer is good until the row
/// changes.
const SceneKey* FindKey(const Scene& scene, TrackId track, KeyId key);
SceneKey* FindKey(Scene& scene, TrackId track, KeyId key);

} // namespace host
