#include "MouthPose.h"

#include "ClipPlace.h"
#include "document/MouthShapes.h"
#include "document/RowStates.h"
#include "document/SceneRows.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace host {

namespace {

constexpr int kOwnBlend = 2; ///< frames in which the mouth comes to a shape when no blend is stated
constexpr int kNever = std::numeric_limits<int>::max();
constexpr int kAlways = std::numeric_limits<int>::min();

// In the order of the members: jaw, width, pucker, smile, upper and lower teeth, tongue, bite,
// press.
constexpr std::array<MouthPose, kMouthShapeCount> kShapes{{
    {0.00F, 1.00F, 0.00F, 0.20F, 0.0F, 0.0F, 0.00F, 0.0F, 0.0F}, // X: at rest
    {0.00F, 0.94F, 0.05F, 0.00F, 0.0F, 0.0F, 0.00F, 0.0F, 1.0F}, // A: pressed, m b p
    {0.26F, 1.06F, 0.00F, 0.20F, 0.9F, 0.9F, 0.10F, 0.0F, 0.0F}, // B: clenched, k s t ee
    {0.48F, 1.02F, 0.00F, 0.10F, 0.7F, 0.1F, 0.25F, 0.0F, 0.0F}, // C: open, eh ae
    {0.95F, 1.06F, 0.00F, 0.05F, 0.6F, 0.2F, 0.20F, 0.0F, 0.0F}, // D: wide open, aa
    {0.52F, 0.76F, 0.45F, 0.00F, 0.2F, 0.0F, 0.10F, 0.0F, 0.0F}, // E: rounded, ao er
    {0.26F, 0.48F, 1.00F, 0.00F, 0.0F, 0.0F, 0.00F, 0.0F, 0.0F}, // F: puckered, uw w
    {0.24F, 0.98F, 0.00F, 0.05F, 1.0F, 0.0F, 0.00F, 1.0F, 0.0F}, // G: upper teeth on the lip, f v
    {0.46F, 0.98F, 0.00F, 0.05F, 0.8F, 0.0F, 1.00F, 0.0F, 0.0F}, // H: tongue up, l
    {0.30F, 1.22F, 0.00F, 0.90F, 1.0F, 0.1F, 0.00F, 0.0F, 0.0F}, // smile
    {0.36F, 0.78F, 0.40F, 0.00F, 1.0F, 0.9F, 0.00F, 0.0F, 0.0F}, // square
    {0.36F, 1.00F, 0.00F, 0.00F, 0.8F, 0.0F, 0.70F, 0.0F, 0.0F}, // tongue forward
    {0.30F, 0.72F, 0.40F, 0.00F, 0.5F, 0.1F, 0.60F, 0.0F, 0.0F}, // tongue curled
    {0.80F, 0.62F, 0.70F, 0.00F, 0.1F, 0.0F, 0.05F, 0.0F, 0.0F}, // tall oval
    {0.26F, 1.00F, 0.00F, 0.10F, 0.9F, 0.0F, 0.80F, 0.0F, 0.0F}, // tongue behind the teeth
    {0.46F, 0.96F, 0.00F, 0.00F, 0.1F, 0.0F, 0.50F, 0.0F, 0.0F}, // tongue back
    {0.85F, 1.22F, 0.00F, 0.90F, 1.0F, 0.0F, 0.35F, 0.0F, 0.0F}, // laugh
}};

constexpr std::array<float MouthPose::*, 9> kMovements{
    &MouthPose::jaw,    &MouthPose::width,      &MouthPose::pucker,
    &MouthPose::smile,  &MouthPose::upperTeeth, &MouthPose::lowerTeeth,
    &MouthPose::tongue, &MouthPose::bite,       &MouthPose::press};

/// A shape, and the frames in which it is held: from @c first up to, without, @c next.
struct Held
{
    int shape = kClosedMouth;
    int first = kAlways;
    int next = kNever;
};

int FrameOfFirstAfter(const QVector<SceneKey>& keys, int frame)
{
    const auto later = [](int value, const SceneKey& key) { return value < key.frame; };
    const auto next = std::upper_bound(keys.cbegin(), keys.cend(), frame, later);
    return next == keys.cend() ? kNever : next->frame;
}

/// What is held inside a clip that covers the frame.
Held HeldInClip(const SceneKey& clip, const ClipPlace& place)
{
    const QVector<SceneKey>& shapes = clip.subKeys;
    const auto later = [](int value, const SceneKey& key) { return value < key.frame; };
    const auto after = std::upper_bound(shapes.cbegin(), shapes.cend(), place.within, later);
    const int start = place.start + place.pass * clip.clip->length;
    const bool isLastPass = place.pass + 1 >= clip.clip->loops;

    Held held;
    held.first = start;
    held.next = isLastPass ? place.end + 1 : start + clip.clip->length;
    if (after != shapes.cbegin()) {
        held.shape = std::prev(after)->mouthShape;
        held.first = start + std::prev(after)->frame;
    }
    if (after != shapes.cend())
        held.next = std::min(held.next, start + after->frame);
    held.next = std::min(held.next, place.end + 1);
    return held;
}

Held HeldAt(const QVector<SceneKey>& lips, int frame)
{
    const ClipPlace place = PlaceInRow(lips, frame);
    if (place.Covers(frame))
        return HeldInClip(lips[place.index], place);
    Held rest;
    rest.first = place.index >= 0 ? place.end + 1 : kAlways;
    rest.next = FrameOfFirstAfter(lips, frame);
    return rest;
}

MouthPose PoseHeldAt(const QVector<SceneKey>& lips, int frame)
{
    return PoseOfShape(HeldAt(lips, frame).shape);
}

/// The keys of the row of blends under the same root; none while it is muted.
QVector<SceneKey> BlendsBeside(const Scene& scene, const SceneTrack& lips)
{
    const SceneTrack* const row =
        RowFilter(TrackKind::Transition).Under(lips.parent).FirstIn(scene);
    return row && !IsInState(scene, *row, RowState::Muted) ? row->keys : QVector<SceneKey>();
}

float Share(int frame, int start, int frames)
{
    return static_cast<float>(frame - start) / static_cast<float>(frames);
}

/// The pose within a stated blend; nothing when the frame lies in none.
std::optional<MouthPose> PoseInBlend(const QVector<SceneKey>& lips, const QVector<SceneKey>& blends,
                                     int frame)
{
    const auto later = [](int value, const SceneKey& key) { return value < key.frame; };
    const auto after = std::upper_bound(blends.cbegin(), blends.cend(), frame, later);
    if (after != blends.cbegin()) {
        const SceneKey& key = *std::prev(after);
        const bool isOut = key.transition && key.transition->direction == BlendDirection::OutOf;
        if (isOut && frame - key.frame < key.transition->frames) {
            return Blended(PoseHeldAt(lips, key.frame - 1), PoseHeldAt(lips, frame),
                           Share(frame, key.frame, key.transition->frames));
        }
    }
    if (after != blends.cend()) {
        const SceneKey& key = *after;
        const bool isInto = key.transition && key.transition->direction == BlendDirection::Into;
        if (isInto && key.frame - frame < key.transition->frames) {
            const int start = key.frame - key.transition->frames;
            return Blended(PoseHeldAt(lips, frame), PoseHeldAt(lips, key.frame),
                           Share(frame, start, key.transition->frames));
        }
    }
    return std::nullopt;
}

bool HasBlendAt(const QVector<SceneKey>& blends, int frame)
{
    const auto earlier = [](const SceneKey& key, int value) { return key.frame < value; };
    const auto found = std::lower_bound(blends.cbegin(), blends.cend(), frame, earlier);
    return found != blends.cend() && found->frame == frame && found->transition;
}

} // namespace

bool operator==(const MouthPose& a, const MouthPose& b)
{
    return std::all_of(kMovements.begin(), kMovements.end(),
                       [&](float MouthPose::*movement) { return a.*movement == b.*movement; });
}

MouthPose PoseOfShape(int shape)
{
    const bool isKnown = shape >= 0 && shape < kMouthShapeCount;
    return kShapes[static_cast<std::size_t>(isKnown ? shape : kClosedMouth)];
}

MouthPose Blended(const MouthPose& a, const MouthPose& b, float share)
{
    MouthPose blended;
    for (float MouthPose::*const movement : kMovements)
        blended.*movement = a.*movement + (b.*movement - a.*movement) * share;
    return blended;
}

MouthPose MouthAt(const Scene& scene, int frame)
{
    const SceneTrack* const lips = RowFilter(TrackKind::Viseme).FirstIn(scene);
    if (!lips || !TakesPart(scene, *lips))
        return PoseOfShape(kClosedMouth);
    const QVector<SceneKey> blends = BlendsBeside(scene, *lips);
    if (const std::optional<MouthPose> pose = PoseInBlend(lips->keys, blends, frame))
        return *pose;
    const Held held = HeldAt(lips->keys, frame);
    const MouthPose pose = PoseOfShape(held.shape);
    if (held.next == kNever || HasBlendAt(blends, held.next))
        return pose;
    const int room = held.first == kAlways ? kOwnBlend : held.next - held.first;
    const int frames = std::min(kOwnBlend, room);
    const int start = held.next - frames;
    if (frame <= start)
        return pose;
    return Blended(pose, PoseHeldAt(lips->keys, held.next), Share(frame, start, frames));
}

} // namespace host
