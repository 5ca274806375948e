#pragma once

#include "FigurePose.h"
#include "document/MotionSampling.h"

namespace host {

/// The joints of a motion against their parents.
using Places = QVector<JointPlace>;

/// Where that puts them in the world.
FigurePose InWorld(const Motion& motion, const Places& places);

/// All joints unturned, the figure standing on the ground at the origin.
Places Resting(const Motion& motion);

/// A joint in rest where another pose has it: only roots go and turn with it.
JointPlace RestingAt(const JointPlace& rest, const JointPlace& moved, bool isRoot);

} // namespace host
