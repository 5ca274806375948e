#pragma once

#include "document/SceneTrack.h"

namespace host {

/// The clip that a row shows at a frame, and where in its passes that is.
struct ClipPlace
{
    int index = -1; ///< of the clip among the row's keys; -1 when no clip starts at or before
    int start = 0;  ///< its first frame
    int end = 0;    ///< its last frame; the one before the next key when that covers its rest
    int pass = 0;   ///< the pass it is in, from 0
    int within = 0; ///< frames since the pass began, 0 to the clip's length

    bool Covers(int frame) const { return index >= 0 && frame <= end; }
};

/// The last clip of the row that starts at or before @p frame. For frames behind its end the place
/// is that of its last frame.
ClipPlace PlaceInRow(const QVector<SceneKey>& keys, int frame);

/// The place of @p frame, held between the clip's first and last frame, in the clip at @p index.
ClipPlace PlaceInClip(const QVector<SceneKey>& keys, int index, int frame);

} // namespace host
