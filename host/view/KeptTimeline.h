#pragma once

#include "TimelineState.h"
#include "ViewFractions.h"

#include <QHash>

namespace host {

/// All that the timeline holds beside the scene: what the animator has at hand, the part in view
/// and the keys that were copied. Read from one set of tracks, it is given to the next that shows
/// the same scene.
class KeptTimeline
{
public:
    /// Reads it off the timeline that stands now.
    KeptTimeline(CTimelineManager& manager, const SceneTracks& tracks, const Scene& scene);
    /// Gives it to the timeline that stands now.
    void Restore(CTimelineManager& manager, SceneTracks& tracks, const Scene& scene) const;

private:
    void RestoreCopied(CTimelineManager& manager, SceneTracks& tracks, const Scene& scene) const;

    TimelineState m_state;
    ViewFractions m_view;
    QHash<TrackId, CTimelineKeyArray::KeyVector> m_copied;
};

} // namespace host
