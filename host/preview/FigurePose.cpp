#include "FigurePose.h"

#include "ClipPlace.h"
#include "Skeleton.h"
#include "document/RowStates.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace host {

namespace {

constexpr int kNoClip = -1;

JointPlace Mixed(const JointPlace& a, const JointPlace& b, float share)
{
    return {a.translation + (b.translation - a.translation) * share,
            QQuaternion::slerp(a.rotation, b.rotation, share)};
}

const SceneTrack* FindRow(const Scene& scene, TrackKind kind, const QString& name)
{
    for (const SceneTrack& row : scene.tracks) {
        if (row.kind == kind && row.name == name)
            return &row;
    }
    return nullptr;
}

const SceneTrack* FindSibling(const Scene& scene, TrackKind kind, TrackId parent)
{
    for (const SceneTrack& row : scene.tracks) {
        if (row.kind == kind && row.parent == parent)
            return &row;
    }
    return nullptr;
}

/// Poses a figure from the clips of one row.
class ClipPoser
{
public:
    ClipPoser(const Scene& scene, const SceneTrack& row, const SceneTrack* blends)
        : m_scene(scene), m_clips(ClipsOf(row.keys)), m_rest(Resting(scene.motion))
    {
        if (blends)
            m_blends = blends->keys;
    }

    const Places& Rest() const { return m_rest; }

    /// The joints at a frame; in rest when there is no clip.
    Places At(int frame) const
    {
        if (m_clips.isEmpty())
            return m_rest;
        const int index = std::max(0, PlaceInRow(m_clips, frame).index);
        Places places = Material(index, frame);
        LeadIn(places, index, frame);
        LeadOut(places, index, frame);
        return places;
    }

private:
    /// Without the sounds, which may stand on any row of clips.
    static QVector<SceneKey> ClipsOf(const QVector<SceneKey>& keys)
    {
        QVector<SceneKey> clips;
        std::copy_if(keys.cbegin(), keys.cend(), std::back_inserter(clips),
                     [](const SceneKey& key) { return key.clip && key.sound.isEmpty(); });
        return clips;
    }

    int Start(int index) const { return m_clips[index].frame; }

    Places Material(int index, int frame) const
    {
        const ClipSpan& clip = *m_clips[index].clip;
        const int within = PlaceInClip(m_clips, index, frame).within;
        const double speed =
            clip.material > 0 ? static_cast<double>(clip.material) / std::max(1, clip.length) : 1;
        return JointPlaces(m_scene.motion, clip.leadIn + within * speed, m_scene.frameRate);
    }

    /// The clip's own pose at a frame, or rest where @p beside stands when there is no clip.
    Places Neighbour(int index, int frame, const Places& beside) const
    {
        if (index != kNoClip)
            return Material(index, frame);
        Places rest = m_rest;
        for (int i = 0; i < rest.size(); ++i) {
            const bool isRoot = m_scene.motion.joints[i].parent < 0;
            rest[i] = RestingAt(rest[i], beside[i], isRoot);
        }
        return rest;
    }

    static void Mix(Places& places, const Places& other, float share)
    {
        for (int i = 0; i < places.size(); ++i)
            places[i] = Mixed(places[i], other[i], share);
    }

    /// The last blend out of a key that stands between the previous clip's first frame and this
    /// one's.
    void LeadIn(Places& places, int index, int frame) const
    {
        const SceneKey* blend = nullptr;
        for (const SceneKey& key : m_blends) {
            const bool isOut = key.transition && key.transition->direction == BlendDirection::OutOf;
            const bool isOurs =
                key.frame <= Start(index) && (index == 0 || key.frame > Start(index - 1));
            if (isOut && isOurs && key.transition->frames > 0)
                blend = &key;
        }
        if (!blend)
            return;
        const float share = static_cast<float>(frame - blend->frame) /
                            static_cast<float>(blend->transition->frames);
        if (share >= 1)
            return;
        const int previous = index > 0 ? index - 1 : kNoClip;
        Mix(places, Neighbour(previous, frame, places), 1 - std::max(0.0F, share));
    }

    /// The first blend into a key that stands behind this clip, up to the next clip's first frame.
    void LeadOut(Places& places, int index, int frame) const
    {
        const int end = PlaceInClip(m_clips, index, frame).end;
        const bool hasNext = index + 1 < m_clips.size();
        const int next = hasNext ? Start(index + 1) : std::numeric_limits<int>::max();
        for (const SceneKey& key : m_blends) {
            const bool isInto = key.transition && key.transition->direction == BlendDirection::Into;
            if (!isInto || key.frame < end || key.frame > next || key.transition->frames < 1)
                continue;
            const int frames = key.transition->frames;
            const float share =
                static_cast<float>(frame - key.frame + frames) / static_cast<float>(frames);
            if (share <= 0)
                return;
            const bool meetsNext = hasNext && key.frame == next;
            Mix(places, Neighbour(meetsNext ? index + 1 : kNoClip, frame, places),
                std::min(1.0F, share));
            return;
        }
    }

    const Scene& m_scene;
    const QVector<SceneKey> m_clips;
    QVector<SceneKey> m_blends;
    const Places m_rest;
};

/// Puts the joints whose rows are muted into rest.
void RestMuted(const Scene& scene, const SceneTrack& motionRow, const Places& rest, Places& places)
{
    const bool onlySoloed = IsAnySoloed(scene) && !IsInState(scene, motionRow, RowState::Soloed);
    for (int i = 0; i < places.size(); ++i) {
        const Joint& joint = scene.motion.joints[i];
        const SceneTrack* const row = FindRow(scene, TrackKind::Key, joint.name);
        const bool isMuted = IsInState(scene, motionRow, RowState::Muted) ||
                             (row && IsInState(scene, *row, RowState::Muted));
        const bool isSilenced = onlySoloed && !(row && IsInState(scene, *row, RowState::Soloed));
        if (isMuted || isSilenced)
            places[i] = RestingAt(rest[i], places[i], joint.parent < 0);
    }
}

} // namespace

FigurePose FigureAt(const Scene& scene, int frame)
{
    const SceneTrack* const row = FindRow(scene, TrackKind::Clip, QStringLiteral("Motion"));
    if (!row)
        return RestPose(scene.motion);
    const SceneTrack* const blends = FindSibling(scene, TrackKind::Transition, row->parent);
    const bool isBlended = blends && !IsInState(scene, *blends, RowState::Muted);
    const ClipPoser poser(scene, *row, isBlended ? blends : nullptr);
    Places places = poser.At(frame);
    RestMuted(scene, *row, poser.Rest(), places);
    return InWorld(scene.motion, places);
}

} // namespace host
