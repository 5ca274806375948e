#pragma once

#include "document/Scene.h"

namespace host {

/// Puts the sound that a file of mouth cues names ("soundFile" in its "metadata") on the Sound row,
/// as a clip of its length from the first frame on; the scene grows when it is too short. Nothing
/// changes when none is named or it cannot be read: the line is as good without.
/// @param cues the file's text. @param path of the file, beside which the sound is looked for.
void AddLineSound(Scene& scene, const QByteArray& cues, const QString& path);

} // namespace host
