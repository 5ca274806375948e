#pragma once

#include "Material.h"

namespace host {

/// Makes the scene longer when it has fewer frames than that. The end of the ruler's range goes
/// along when it stood on the last frame.
void MakeRoomFor(Scene& scene, int frameCount);

/// The last frame of a clip that plays the sound from @p frame on.
int LastFrameOf(const Sound& sound, int frame, int frameRate);

/// Puts the sound into a row of clips as a clip of its length that plays it, and makes the scene
/// long enough. Its number, or kNoKey for another row and for a frame outside the scene.
KeyId AddSoundClip(Scene& scene, TrackId row, const Sound& sound, int frame);

/// Puts sounds into a row for sounds, one behind the other, from @p frame on: into the first one
/// where there is room for all of them, else into another one that is made. What stands on the rows
/// stays as it is, and a sound that stands where it is to be put already is not put there again.
void AddSounds(Scene& scene, const QVector<Sound>& sounds, int frame);

} // namespace host
