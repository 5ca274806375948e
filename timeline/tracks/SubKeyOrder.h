#pragma once

#include "CTimelineKeyArray.h"

// How the sub-keys of a clip come out as keys of its row: pass by pass, each pass a clip length
// after the one before it.

/// Whether the clip's sub-keys are drawn in front of the view and of the clip, too.
bool IsDrawnOutOfView(const CTimelineKey& clip);

/// The passes whose sub-keys are drawn. Those of a clip without a length stand one upon the other
/// or in front of each other, and nothing but this number ends them: 1000 at most.
long long PassCount(const CTimelineKey& clip);

/// The lowest frame at which a sub-key of any pass stands, counted from the clip's frame. For clips
/// with at least one sub-key.
long long FirstSubKeyFrame(const CTimelineKey& clip);

/// The passes, one after the other, give frames in order.
bool AreSubKeysInOrder(const CTimelineKey& clip);
