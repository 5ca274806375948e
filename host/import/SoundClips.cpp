#include "SoundClips.h"

#include "document/ClipEdits.h"
#include "document/KeyList.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace host {

namespace {

/// The frames that begin before the sound ends.
int FramesOf(const Sound& sound, int frameRate)
{
    constexpr double kRoundingOfSeconds = 1e-6; // keeps 3.0 seconds at 30 a second from being 91
    return std::max(1, static_cast<int>(std::ceil(sound.seconds * frameRate - kRoundingOfSeconds)));
}

} // namespace

void MakeRoomFor(Scene& scene, int frameCount)
{
    if (frameCount <= scene.frameCount)
        return;
    if (scene.timeMark.end == scene.frameCount - 1)
        scene.timeMark.end = frameCount - 1;
    scene.frameCount = frameCount;
}

KeyId AddSoundClip(Scene& scene, TrackId row, const Sound& sound, int frame)
{
    const int frames = FramesOf(sound, scene.frameRate);
    const int length = std::max(1, frames - 1); // counts the steps between the frames
    const KeyId clip = AddClip(scene, row, QFileInfo(sound.path).completeBaseName(), length, frame);
    if (clip == kNoKey)
        return kNoKey;
    FindKey(scene, row, clip)->sound = sound.path;
    MakeRoomFor(scene, frame + length + 1);
    return clip;
}

void AddSoundClips(Scene& scene, TrackId row, const QVector<Sound>& sounds, int frame)
{
    for (const Sound& sound : sounds) {
        const int end = frame + FramesOf(sound, scene.frameRate);
        MakeRoomFor(scene, frame + 1);
        AddSoundClip(scene, row, sound, frame);
        frame = end;
    }
}

} // namespace host
