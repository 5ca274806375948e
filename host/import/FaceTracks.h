#pragma once

#include "document/Scene.h"

namespace host {

/// The rows that were made for a spoken line, for the buttons that show and hide them.
struct FaceRows
{
    TrackId lips = kNoTrack;
    TrackId rests = kNoTrack;
};

/// Adds the Face root with its rows and relations to a scene that holds a spoken line.
FaceRows AddFaceTracks(Scene& scene);

/// The number of frames that a line takes: those that begin before it ends.
int SceneFramesOf(const SpokenLine& line, int frameRate);

} // namespace host
