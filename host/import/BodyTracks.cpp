#include "BodyTracks.h"

#include "FootContacts.h"
#include "RowDefaults.h"
#include "TurningPoints.h"
#include "document/MotionSampling.h"

#include <algorithm>

namespace host {

namespace {

constexpr int kSpeedRange = 4;     ///< a clip may be played up to this many times faster or slower
constexpr int kLongestBlend = 12;  ///< frames
constexpr int kJointStyle = 4;     ///< with buttons for a new key and for the row's menu
constexpr int kBlendsPerClip = 4;  ///< a blend takes at most this part of its clip
constexpr double kFeetShare = 0.3; ///< of the time that the rows take to be made

SceneKey MotionClip(const Motion& motion, int frameRate)
{
    SceneKey key;
    key.name = motion.name;
    ClipSpan clip;
    clip.length = std::max(1, SceneFramesOf(motion, frameRate) - 1);
    clip.shortest = std::max(1, clip.length / kSpeedRange);
    clip.longest = clip.length * kSpeedRange;
    clip.material = clip.length;
    key.clip = clip;
    return key;
}

SceneKey BlendKey(int frame, BlendDirection direction, int frames)
{
    SceneKey key;
    key.frame = frame;
    key.transition = Transition{direction, frames};
    return key;
}

/// The body comes out of its rest into the motion and goes back at its end.
TrackId AddBlendRow(Scene& scene, TrackId root, const SceneKey& motionClip)
{
    SceneTrack row = MakeRow(TrackKind::Transition, QStringLiteral("MotionBlend"),
                             QStringLiteral("Motion Blend"), root);
    const int length = motionClip.clip->length;
    const int blend = std::min(kLongestBlend, length / kBlendsPerClip);
    row.keys = {BlendKey(motionClip.frame, BlendDirection::OutOf, blend),
                BlendKey(motionClip.frame + length, BlendDirection::Into, blend)};
    return scene.AddTrack(row);
}

/// "Left Toe Base" touches the ground as "Left Contact".
QString ContactCaption(const QString& joint)
{
    const QString caption = CaptionOfJoint(joint);
    for (const QString& side : {QStringLiteral("Left"), QStringLiteral("Right")}) {
        if (caption.startsWith(side))
            return side + QStringLiteral(" Contact");
    }
    return caption + QStringLiteral(" Contact");
}

TrackId AddContactRow(Scene& scene, TrackId root, const FootContacts& foot)
{
    const QString name = scene.motion.joints[foot.joint].name;
    SceneTrack row =
        MakeRow(TrackKind::Link, name + QStringLiteral("Contact"), ContactCaption(name), root);
    for (const FrameRange& range : foot.ranges) {
        SceneKey touch;
        touch.frame = range.first;
        touch.startsLink = true;
        SceneKey lift;
        lift.frame = range.last;
        row.keys += {touch, lift};
    }
    return scene.AddTrack(row);
}

TrackId AddJointRow(Scene& scene, TrackId root, int joint)
{
    const QString name = scene.motion.joints[joint].name;
    SceneTrack row = MakeRow(TrackKind::Key, name, CaptionOfJoint(name), root);
    row.styleNumber = kJointStyle;
    const auto rotations = JointRotations(scene.motion, joint, scene.frameRate);
    for (int frame : RotationKeyFrames(rotations)) {
        SceneKey key;
        key.frame = frame;
        row.keys.append(key);
    }
    return scene.AddTrack(row);
}

/// The rows from a foot up to the joint below the skeleton's root, the uppermost first.
QVector<TrackId> LimbOf(const Motion& motion, const QVector<TrackId>& jointRows, int foot)
{
    QVector<TrackId> limb;
    for (int joint = foot; motion.joints[joint].parent >= 0; joint = motion.joints[joint].parent)
        limb.prepend(jointRows[joint]);
    return limb;
}

/// The keys of a limb during its first contact must move together, or the foot slips.
void GroupFirstContact(Scene& scene, const FootContacts& foot, const QVector<TrackId>& limb)
{
    const FrameRange& contact = foot.ranges.first();
    const GroupId group = scene.AddGroup(ContactCaption(scene.motion.joints[foot.joint].name));
    for (TrackId row : limb) {
        for (SceneKey& key : scene.FindTrack(row)->keys) {
            if (key.frame >= contact.first && key.frame <= contact.last)
                key.group = group;
        }
    }
}

} // namespace

std::optional<BodyRows> AddBodyTracks(Scene& scene, const ImportProgress& progress)
{
    BodyRows rows;
    const TrackId root = scene.AddTrack(
        MakeRow(TrackKind::Key, QStringLiteral("Body"), QStringLiteral("Body"), kNoTrack));
    SceneTrack motionRow =
        MakeRow(TrackKind::Clip, QStringLiteral("Motion"), QStringLiteral("Motion"), root);
    motionRow.keys = {MotionClip(scene.motion, scene.frameRate)};
    const TrackId motion = scene.AddTrack(motionRow);
    rows.blends = {AddBlendRow(scene, root, motionRow.keys.first())};

    const auto found =
        FindFootContacts(scene.motion, scene.frameRate, progress.Part(0, kFeetShare));
    if (!found)
        return std::nullopt;
    const QVector<FootContacts>& feet = *found;
    for (const FootContacts& foot : feet)
        rows.contacts.append(AddContactRow(scene, root, foot));
    const int jointCount = scene.motion.joints.size();
    const ImportProgress jointProgress = progress.Part(kFeetShare, 1);
    for (int joint = 0; joint < jointCount; ++joint) {
        if (!jointProgress.Advance(double(joint) / jointCount))
            return std::nullopt;
        rows.joints.append(AddJointRow(scene, root, joint));
    }

    for (int i = 0; i < feet.size(); ++i) {
        const FootContacts& foot = feet[i];
        const QVector<TrackId> limb = LimbOf(scene.motion, rows.joints, foot.joint);
        GroupFirstContact(scene, foot, limb);
        scene.relations.append({RelationKind::SharedSelection, limb});
        // Where the foot touches and leaves the ground is seen beside its keys.
        scene.relations.append(
            {RelationKind::RelatedKeys, {rows.contacts[i], rows.joints[foot.joint]}});
    }
    scene.relations.append({RelationKind::SharedTimeRange, QVector<TrackId>{motion} + rows.joints});
    scene.relations.append({RelationKind::ClipBars, QVector<TrackId>{motion} + rows.blends});
    return rows;
}

} // namespace host
