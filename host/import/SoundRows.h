#pragma once

#include "document/Scene.h"

namespace host {

/// Why no sound may begin at @p frame of the row (null: of no row), as the end of a line; empty
/// when one may. A locked row and a locked clip stay as they are.
QString ReasonAgainstSound(const Scene& scene, const SceneTrack* row, int frame);

/// What a clip from frame @p first to @p last would cover on the row, or be covered by, as one line
/// for the user; empty when nothing.
QString CoveredOn(const SceneTrack& row, int first, int last);

/// The first row of sounds on which all frames from @p first to @p last are free and may be
/// changed. When there is none, one is made behind the others. kNoTrack when the scene has no row
/// of sounds at all.
TrackId FreeSoundRow(Scene& scene, int first, int last);

/// Whether a row of sounds plays just that file from @p frame on already.
bool HasSound(const Scene& scene, const QString& path, int frame);

} // namespace host
