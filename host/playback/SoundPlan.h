#pragma once

#include "document/Scene.h"

namespace host {

/// A piece of a sound file and when it is heard; times in seconds.
struct SoundSpan
{
    QString path;
    double start = 0;  ///< from the scene's first frame on
    double end = 0;    ///< when it is cut off, if the file has not ended before
    double offset = 0; ///< what is left out at the beginning of the file
};

/// Everything that is heard, in no particular order.
using SoundPlan = QVector<SoundSpan>;

/// What is heard of a scene: the clips with sounds on all rows of clips that take part (muted rows
/// do not, and while rows are soloed only those do), each pass of their loops without their
/// lead-in. A clip is heard as long as it is seen: until the next one on its row begins.
SoundPlan SoundsOf(const Scene& scene);

bool operator==(const SoundSpan& a, const SoundSpan& b);

} // namespace host
