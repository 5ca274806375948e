#pragma once

#include "document/SceneTrack.h"

#include <KestovaTimelineQU/KestovaTimelineQU.h>

namespace host {

/// What the timeline may let the user do on the row: all of its edit modes, or of a locked row
/// those that change nothing.
VZ::CArrayList<TLEditType> EditTypesOf(const SceneTrack& track);

/// Whether the edit changes keys of its row; false for those that only select or copy, and for what
/// is no edit mode.
bool ChangesKeys(TLEditType type);

} // namespace host
