#pragma once

#include "ImportProgress.h"
#include "document/Scene.h"

#include <optional>

namespace host {

/// Makes the scene of a captured motion, a spoken line, or both (a motion without joints and a line
/// without cues count as none), at 30 frames a second unless another rate is asked for:
/// - a root of buttons that show and hide rows;
/// - a Face root with the Lips row, one clip whose sub-keys are the mouth shapes, and a row of
///   blends where the mouth comes to rest, and a row for sounds;
/// - a Body root with the Motion clip, the blends at its ends, a row of ground contacts for each
///   foot, and a row for each joint with keys where its rotation changes direction.
Scene BuildScene(const Motion& motion, const SpokenLine& line);

/// How a scene is built, beyond what it is built from.
struct SceneBuild
{
    int frameRate = kSceneFrameRate;
    bool withFace = false; ///< makes the Face root also without a line
    ImportProgress progress;
};

/// The same; nothing when the progress cancels.
std::optional<Scene> BuildScene(const Motion& motion, const SpokenLine& line,
                                const SceneBuild& build);

} // namespace host
