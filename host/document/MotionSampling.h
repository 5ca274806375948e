#pragma once

#include "Motion.h"

#include <QQuaternion>

namespace host {

/// Where a joint stands against its parent.
struct JointPlace
{
    QVector3D translation;
    QQuaternion rotation;
};

/// The places of all joints at a moment, in scene frames from the first sample on; moments outside
/// the motion give its first or last sample. For a motion without samples the joints are in rest.
QVector<JointPlace> JointPlaces(const Motion& motion, double frame, int frameRate);

/// The number of scene frames whose moment lies within the motion: frame 0 is its first sample.
int SceneFramesOf(const Motion& motion, int frameRate);

/// The rotation of a joint against its parent at every scene frame, on the shorter way between the
/// two samples around that moment.
QVector<QQuaternion> JointRotations(const Motion& motion, int joint, int frameRate);

/// The place of a joint in the world at every scene frame.
QVector<QVector3D> JointPositions(const Motion& motion, int joint, int frameRate);

} // namespace host
