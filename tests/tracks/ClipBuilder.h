#pragma once

#include "CTimelineKeyArray.h"

#include <QString>

namespace KestovaTest {

/// A clip from @p frame on, of @p loops passes of @p length frames.
inline VZ::CPointer<CTimelineKey> MakeClip(int frame, int length, int loops = 1,
                                           const QString& name = QString())
{
    VZ::CPointer<CTimelineKey> clip(new CTimelineKey);
    clip->frame = frame;
    clip->clipLength = length;
    clip->loopCount = loops;
    clip->name = name;
    return clip;
}

} // namespace KestovaTest
