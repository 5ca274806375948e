#pragma once

#include <KestovaTimelineQU/KestovaTimelineQU.h>

namespace host {

/// The part of the frames that is in view, as fractions 0 to 1 of them all.
struct ViewFractions
{
    float left = 0;
    float right = 1;
};

ViewFractions ViewOf(CTimelineManager& manager);

/// Shows that part; what was read from a view as wide shows just the same again.
void ShowView(CTimelineManager& manager, ViewFractions view);

} // namespace host
