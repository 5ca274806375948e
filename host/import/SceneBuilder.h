#pragma once

#include "document/Scene.h"

namespace host {

/// Makes the scene of a captured motion, a spoken line, or both (a motion without joints and a line
/// without cues count as none), at 30 frames a second:
/// - a root of buttons that show and hide rows;
/// - a Face root with the Lips row, one clip whose sub-keys are the mouth shapes, and a row of
///   blends where the mouth comes to rest;
/// - a Body root with the Motion clip, the blends at its ends, a row of ground contacts for each
///   foot, and a row for each joint with keys where its rotation changes direction.
Scene BuildScene(const Motion& motion, const SpokenLine& line);

} // namespace host
