#pragma once

#include "document/Scene.h"

namespace host {

/// The rows that were made for a spoken line, for the buttons that show and hide them.
struct FaceRows
{
    TrackId lips = kNoTrack;
    TrackId rests = kNoTrack;
};

/// Adds the Face root to a scene: with the rows and relations of the spoken line, if the scene
/// holds one, and a row for sounds.
FaceRows AddFaceTracks(Scene& scene);

/// Whether it is a row that imported sounds go on: one of clips with the name that AddFaceTracks
/// gives it.
bool IsSoundRow(const SceneTrack& row);

/// The number of frames that a line takes: those that begin before it ends, and the one nearest to
/// the start of its last cue.
int SceneFramesOf(const SpokenLine& line, int frameRate);

} // namespace host
