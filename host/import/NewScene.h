#pragma once

#include "document/Scene.h"

namespace host {

/// The scene to start from: ten seconds, with empty rows for a spoken line and its sound, and for a
/// motion, and buttons that show and hide them.
Scene NewScene();

} // namespace host
