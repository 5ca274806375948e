#pragma once

#include "Material.h"

namespace host {

/// Makes the scene longer when it has fewer frames than that. The end of the ruler's range goes
/// along when it stood on the last frame.
void MakeRoomFor(Scene& scene, int frameCount);

/// Puts the sound into a row of clips as a clip of its length that plays it, and makes the scene
/// long enough. Its number, or kNoKey for another row and for a frame outside the scene.
KeyId AddSoundClip(Scene& scene, TrackId row, const Sound& sound, int frame);

/// Puts sounds into a row of clips, one behind the other, from @p frame on.
void AddSoundClips(Scene& scene, TrackId row, const QVector<Sound>& sounds, int frame);

} // namespace host
