#pragma once

#include "document/Scene.h"

#include <KestovaTimelineQU/KestovaTimelineQU.h>

namespace host {

class SceneTracks;

/// Gives the rows of buttons their scroll arrows while the buttons need more room than the row has,
/// and takes them away otherwise.
/// @param width of the whole timeline, in pixels.
void ShowSwitchArrows(CTimelineManager& manager, const SceneTracks& tracks, const Scene& scene,
                      int width);

} // namespace host
