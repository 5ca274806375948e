#include "FaceTracks.h"

#include "RowDefaults.h"
#include "document/MouthShapes.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

const QString kSoundRow = QStringLiteral("Sound");
constexpr int kLongestRestBlend = 6;        ///< frames in which the mouth falls shut
constexpr double kRoundingOfSeconds = 1e-6; ///< keeps 3.0 seconds at 30 a second from being 91

int FrameOf(double seconds, int frameRate)
{
    return static_cast<int>(std::lround(seconds * frameRate));
}

/// The sub-keys of a line: one at the frame nearest to each cue's start. Of the cues that fall on
/// one frame the longest is seen.
QVector<SceneKey> MouthKeys(const SpokenLine& line, int frameRate)
{
    QVector<SceneKey> keys;
    double longest = 0;
    for (const MouthCue& cue : line.cues) {
        const int frame = FrameOf(cue.start, frameRate);
        const double length = cue.end - cue.start;
        if (keys.isEmpty() || keys.last().frame != frame)
            keys.append(SceneKey());
        else if (length <= longest)
            continue;
        longest = length;
        keys.last().frame = frame;
        keys.last().mouthShape = cue.shape;
    }
    return keys;
}

SceneKey LipsClip(const SpokenLine& line, int frameRate)
{
    SceneKey key;
    key.name = line.name;
    key.subKeys = MouthKeys(line, frameRate);
    ClipSpan clip;
    clip.length = std::max({1, SceneFramesOf(line, frameRate) - 1, key.subKeys.last().frame});
    clip.shortest = clip.length; // speech keeps its speed
    clip.longest = clip.length;
    key.clip = clip;
    return key;
}

/// A blend out of every key at which the mouth comes to rest.
QVector<SceneKey> RestKeys(const SceneKey& lips)
{
    QVector<SceneKey> keys;
    const QVector<SceneKey>& shapes = lips.subKeys;
    for (int i = 0; i < shapes.size(); ++i) {
        if (shapes[i].mouthShape != kClosedMouth)
            continue;
        const int next = i + 1 < shapes.size() ? shapes[i + 1].frame : lips.clip->length;
        SceneKey key;
        key.frame = lips.frame + shapes[i].frame;
        const int rest = std::max(0, next - shapes[i].frame);
        key.transition = Transition{BlendDirection::OutOf, std::min(kLongestRestBlend, rest)};
        keys.append(key);
    }
    return keys;
}

FaceRows AddLineRows(Scene& scene, TrackId root)
{
    SceneTrack lips =
        MakeRow(TrackKind::Viseme, QStringLiteral("Lips"), QStringLiteral("Lips"), root);
    lips.keys = {LipsClip(scene.line, scene.frameRate)};
    SceneTrack rests = MakeRow(TrackKind::Transition, QStringLiteral("MouthRest"),
                               QStringLiteral("Mouth Rest"), root);
    rests.keys = RestKeys(lips.keys.first());
    FaceRows rows;
    rows.lips = scene.AddTrack(lips);
    rows.rests = scene.AddTrack(rests);
    scene.relations.append({RelationKind::ClipBars, {rows.lips, rows.rests}});
    return rows;
}

} // namespace

int SceneFramesOf(const SpokenLine& line, int frameRate)
{
    double end = line.duration;
    int lastKey = -1;
    for (const MouthCue& cue : line.cues) {
        end = std::max(end, cue.end);
        lastKey = std::max(lastKey, FrameOf(cue.start, frameRate));
    }
    const int begun = static_cast<int>(std::ceil(end * frameRate - kRoundingOfSeconds));
    return std::max(begun, lastKey + 1);
}

FaceRows AddFaceTracks(Scene& scene)
{
    const TrackId root = scene.AddTrack(
        MakeRow(TrackKind::Key, QStringLiteral("Face"), QStringLiteral("Face"), kNoTrack));
    FaceRows rows;
    if (!scene.line.cues.isEmpty())
        rows = AddLineRows(scene, root);
    // Starts without clips: the recordings come from files of their own.
    scene.AddTrack(MakeRow(TrackKind::Clip, kSoundRow, kSoundRow, root));
    return rows;
}

bool IsSoundRow(const SceneTrack& row)
{
    return row.kind == TrackKind::Clip && row.name == kSoundRow;
}

} // namespace host
