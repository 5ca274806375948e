#pragma once

#include "ImportError.h"
#include "document/Scene.h"

#include <QStringList>

#include <optional>

namespace host {

/// Builds a scene from files: at most one motion capture (.bvh) and one file of mouth cues (.json
/// or .tsv), in any order, and sounds (.wav), which follow one another from the first frame on;
/// without any, the sound that the cues name. Nothing is returned, and @p error is filled, when a
/// file cannot be read or parsed.
std::optional<Scene> LoadScene(const QStringList& files, ImportError& error);

} // namespace host
