#pragma once

#include <QQuaternion>
#include <QVector3D>
#include <QVector>

namespace host {

struct Motion;
struct Scene;

/// Where the joints of the scene's motion are in the world, joint by joint. Empty without a motion.
struct FigurePose
{
    QVector<QVector3D> positions;
    QVector<QQuaternion> rotations; ///< of the joint's own axes

    bool operator==(const FigurePose& other) const
    {
        return positions == other.positions && rotations == other.rotations;
    }
    bool operator!=(const FigurePose& other) const { return !(*this == other); }
};

/// The figure of a motion, for whoever draws it.
struct FigureBuild
{
    float height = 0; ///< from the lowest to the highest joint, in rest
    float ground = 0; ///< height of the lowest joint in the first sample, when it stands
};

FigureBuild BuildOf(const Motion& motion);

/// The figure in rest: its joints unturned, standing at the origin.
FigurePose RestPose(const Motion& motion);

/// The figure at a frame of the scene. The Motion row's clips pose it, with their passes, their
/// speed and their lead-in; before the first clip and behind each it holds the nearest pose.
/// Without a clip, and while the row is muted, it rests. A blend out of a key at or before a clip's
/// first frame leads into the clip, from the one before or from rest; a blend into a key at or
/// behind its last frame leads out of it. A joint whose row is muted is not turned. At rest the
/// figure stands where the motion has carried it, and faces the same way.
FigurePose FigureAt(const Scene& scene, int frame);

} // namespace host
