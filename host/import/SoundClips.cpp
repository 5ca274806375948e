#include "SoundClips.h"

#include "SoundRows.h"
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

int LastFrameOf(const Sound& sound, int frame, int frameRate)
{
    const int steps = FramesOf(sound, frameRate) - 1;
    return frame + std::max(1, steps);
}

KeyId AddSoundClip(Scene& scene, TrackId row, const Sound& sound, int frame)
{
    const int last = LastFrameOf(sound, frame, scene.frameRate);
    const KeyId clip =
        AddClip(scene, row, QFileInfo(sound.path).completeBaseName(), last - frame, frame);
    if (clip == kNoKey)
        return kNoKey;
    FindKey(scene, row, clip)->sound = sound.path;
    MakeRoomFor(scene, last + 1);
    return clip;
}

void AddSounds(Scene& scene, const QVector<Sound>& sounds, int frame)
{
    struct Placed
    {
        Sound sound;
        int frame;
    };
    QVector<Placed> placed;
    for (const Sound& sound : sounds) {
        if (!HasSound(scene, sound.path, frame))
            placed.append({sound, frame});
        frame += FramesOf(sound, scene.frameRate);
    }
    if (placed.isEmpty())
        return;
    const Placed& last = placed.last();
    const TrackId row = FreeSoundRow(scene, placed.first().frame,
                                     LastFrameOf(last.sound, last.frame, scene.frameRate));
    for (const Placed& each : placed) {
        MakeRoomFor(scene, each.frame + 1);
        AddSoundClip(scene, row, each.sound, each.frame);
    }
}

} // namespace host
