#include "Skeleton.h"

#include <algorithm>
#include <limits>

namespace host {

namespace {

Places Unturned(const Motion& motion)
{
    Places places;
    places.reserve(motion.joints.size());
    for (const Joint& joint : motion.joints)
        places.append({joint.offset, QQuaternion()});
    return places;
}

float Lowest(const FigurePose& pose)
{
    float lowest = std::numeric_limits<float>::max();
    for (const QVector3D& position : pose.positions)
        lowest = std::min(lowest, position.y());
    return pose.positions.isEmpty() ? 0 : lowest;
}

/// The part of a rotation that turns about the upright axis.
QQuaternion Heading(const QQuaternion& rotation)
{
    const QQuaternion upright(rotation.scalar(), 0, rotation.y(), 0);
    return upright.isNull() ? QQuaternion() : upright.normalized();
}

} // namespace

FigurePose InWorld(const Motion& motion, const Places& places)
{
    FigurePose pose;
    pose.positions.reserve(places.size());
    pose.rotations.reserve(places.size());
    for (int i = 0; i < places.size(); ++i) {
        const int parent = motion.joints[i].parent;
        if (parent < 0) {
            pose.positions.append(places[i].translation);
            pose.rotations.append(places[i].rotation);
            continue;
        }
        const QQuaternion turned = pose.rotations[parent];
        pose.positions.append(pose.positions[parent] + turned.rotatedVector(places[i].translation));
        pose.rotations.append(turned * places[i].rotation);
    }
    return pose;
}

Places Resting(const Motion& motion)
{
    Places places = Unturned(motion);
    const float lift = BuildOf(motion).ground - Lowest(InWorld(motion, places));
    for (int i = 0; i < places.size(); ++i) {
        if (motion.joints[i].parent < 0)
            places[i].translation += QVector3D(0, lift, 0);
    }
    return places;
}

JointPlace RestingAt(const JointPlace& rest, const JointPlace& moved, bool isRoot)
{
    if (!isRoot)
        return rest;
    const QVector3D place(moved.translation.x(), rest.translation.y(), moved.translation.z());
    return {place, Heading(moved.rotation)};
}

FigureBuild BuildOf(const Motion& motion)
{
    FigureBuild build;
    const FigurePose unturned = InWorld(motion, Unturned(motion));
    float highest = std::numeric_limits<float>::lowest();
    for (const QVector3D& position : unturned.positions)
        highest = std::max(highest, position.y());
    if (!unturned.positions.isEmpty())
        build.height = highest - Lowest(unturned);
    constexpr int kAnyRate = 1; // the first sample is that of frame 0 at every rate
    build.ground = Lowest(InWorld(motion, JointPlaces(motion, 0, kAnyRate)));
    return build;
}

FigurePose RestPose(const Motion& motion)
{
    return InWorld(motion, Resting(motion));
}

} // namespace host
