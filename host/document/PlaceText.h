#pragma once

#include "Scene.h"

namespace host {

/// The name of the row and its states: "Lips (muted, locked)". Empty without the row.
QString RowText(const Scene& scene, TrackId track);

/// What stands at a frame of a row, for reading: the row, the frame, its time and the key, clip or
/// mouth shape that is there: "Lips   frame 20   00:00:20   shape B of greeting".
QString PlaceText(const Scene& scene, TrackId track, int frame);

} // namespace host
