#include "SoundPlan.h"

#include "document/RowStates.h"

#include <algorithm>
#include <tuple>

namespace host {

namespace {

/// Frames beyond the clip's last pass that belong to it: a clip's length counts the steps between
/// its frames.
constexpr int kLastFrame = 1;

void AddPasses(const SceneKey& key, qint64 limit, double frameRate, SoundPlan& plan)
{
    const ClipSpan& clip = *key.clip;
    const qint64 length = std::max(1, clip.length);
    for (int pass = 0; pass < clip.loops; ++pass) {
        const qint64 start = key.frame + pass * length;
        if (start >= limit)
            return;
        const bool isLast = pass + 1 == clip.loops;
        const qint64 end = std::min(limit, start + length + (isLast ? kLastFrame : 0));
        plan.append({key.sound, static_cast<double>(start) / frameRate,
                     static_cast<double>(end) / frameRate, clip.leadIn / frameRate});
    }
}

void AddRow(const SceneTrack& row, const Scene& scene, SoundPlan& plan)
{
    for (int i = 0; i < row.keys.size(); ++i) {
        const SceneKey& key = row.keys[i];
        if (!key.clip || key.sound.isEmpty())
            continue;
        const bool isLast = i + 1 == row.keys.size();
        const int next = isLast ? scene.frameCount : row.keys[i + 1].frame;
        AddPasses(key, std::min(next, scene.frameCount), scene.frameRate, plan);
    }
}

} // namespace

SoundPlan SoundsOf(const Scene& scene)
{
    SoundPlan plan;
    for (const SceneTrack& track : scene.tracks) {
        if (track.kind == TrackKind::Clip && TakesPart(scene, track) && scene.frameRate > 0)
            AddRow(track, scene, plan);
    }
    return plan;
}

bool operator==(const SoundSpan& a, const SoundSpan& b)
{
    return std::tie(a.path, a.start, a.end, a.offset) == std::tie(b.path, b.start, b.end, b.offset);
}

} // namespace host
