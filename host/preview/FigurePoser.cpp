#include "FigurePoser.h"

#include "ClipPlace.h"
#include "document/MotionSampling.h"
#include "document/RowStates.h"
#include "document/SceneRows.h"

#include <QHash>

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

void Mix(Places& places, const Places& other, float share)
{
    for (int i = 0; i < places.size(); ++i)
        places[i] = Mixed(places[i], other[i], share);
}

/// Without the sounds, which may stand on any row of clips.
QVector<SceneKey> ClipsOf(const QVector<SceneKey>& keys)
{
    QVector<SceneKey> clips;
    std::copy_if(keys.cbegin(), keys.cend(), std::back_inserter(clips),
                 [](const SceneKey& key) { return key.clip && key.sound.isEmpty(); });
    return clips;
}

/// The row of each joint, or null: under the motion's root, and of joints of one name the first row
/// for the first.
QVector<const SceneTrack*> RowsOfJoints(const Scene& scene, const SceneTrack& motionRow)
{
    QHash<QString, QVector<const SceneTrack*>> known;
    for (const SceneTrack* row : RowFilter(TrackKind::Key).Under(motionRow.parent).AllIn(scene))
        known[row->name].append(row);
    QHash<QString, int> taken;
    QVector<const SceneTrack*> rows;
    for (const Joint& joint : scene.motion.joints)
        rows.append(known.value(joint.name).value(taken[joint.name]++, nullptr));
    return rows;
}

/// For each joint whether its row, or the motion's, is muted or not among those that are soloed.
QVector<bool> RestingJoints(const Scene& scene, const SceneTrack& motionRow)
{
    const bool isMotionMuted = IsInState(scene, motionRow, RowState::Muted);
    const bool onlySoloed = IsAnySoloed(scene) && !IsInState(scene, motionRow, RowState::Soloed);
    QVector<bool> resting;
    for (const SceneTrack* const row : RowsOfJoints(scene, motionRow)) {
        // Beyond its own state a joint's row is in that of its root, which is the motion's too.
        const bool isMuted = isMotionMuted || (row && row->muted);
        const bool isSilenced = onlySoloed && !(row && row->soloed);
        resting.append(isMuted || isSilenced);
    }
    return resting;
}

} // namespace

FigurePoser::FigurePoser(const Scene& scene)
    : m_motion(scene.motion), m_frameRate(scene.frameRate), m_rest(Resting(scene.motion))
{
    const SceneTrack* const row =
        RowFilter(TrackKind::Clip).Named(QStringLiteral("Motion")).FirstIn(scene);
    if (!row)
        return;
    m_clips = ClipsOf(row->keys);
    m_isResting = RestingJoints(scene, *row);
    const SceneTrack* const blends =
        RowFilter(TrackKind::Transition).Under(row->parent).FirstIn(scene);
    if (blends && !IsInState(scene, *blends, RowState::Muted))
        m_blends = blends->keys;
}

FigurePose FigurePoser::At(int frame) const
{
    Places places = PlacesAt(frame);
    for (int i = 0; i < m_isResting.size(); ++i) {
        if (m_isResting[i])
            places[i] = RestingAt(m_rest[i], places[i], m_motion.joints[i].parent < 0);
    }
    return InWorld(m_motion, places);
}

/// The joints with all their rows; in rest when there is no clip.
Places FigurePoser::PlacesAt(int frame) const
{
    if (m_clips.isEmpty())
        return m_rest;
    const int index = std::max(0, PlaceInRow(m_clips, frame).index);
    Places places = Material(index, frame);
    LeadIn(places, index, frame);
    LeadOut(places, index, frame);
    return places;
}

Places FigurePoser::Material(int index, int frame) const
{
    const ClipSpan& clip = *m_clips[index].clip;
    const int within = PlaceInClip(m_clips, index, frame).within;
    const double speed =
        clip.material > 0 ? static_cast<double>(clip.material) / std::max(1, clip.length) : 1;
    return JointPlaces(m_motion, clip.leadIn + within * speed, m_frameRate);
}

/// The clip's own pose at a frame, or rest where @p beside stands when there is no clip.
Places FigurePoser::Neighbour(int index, int frame, const Places& beside) const
{
    if (index != kNoClip)
        return Material(index, frame);
    Places rest = m_rest;
    for (int i = 0; i < rest.size(); ++i) {
        const bool isRoot = m_motion.joints[i].parent < 0;
        rest[i] = RestingAt(rest[i], beside[i], isRoot);
    }
    return rest;
}

/// The last blend out of a key that stands between the previous clip's first frame and this
/// one's.
void FigurePoser::LeadIn(Places& places, int index, int frame) const
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
    const float share =
        static_cast<float>(frame - blend->frame) / static_cast<float>(blend->transition->frames);
    if (share >= 1)
        return;
    const int previous = index > 0 ? index - 1 : kNoClip;
    Mix(places, Neighbour(previous, frame, places), 1 - std::max(0.0F, share));
}

/// The first blend into a key that stands behind this clip, up to the next clip's first frame.
void FigurePoser::LeadOut(Places& places, int index, int frame) const
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

} // namespace host
