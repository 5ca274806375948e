#pragma once

#include "SceneTracks.h"
#include "ViewFractions.h"

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QHash>

namespace host {

/// What the timeline holds beside the scene: the selection, the current frame, the part in view,
/// the keys that were copied. Read from one set of tracks, it is given to the next that shows the
/// same scene.
class TimelineState
{
public:
    /// Reads it off the timeline that stands now.
    TimelineState(CTimelineManager& manager, const SceneTracks& tracks, const Scene& scene);
    /// Gives it to the timeline that stands now.
    void Restore(CTimelineManager& manager, SceneTracks& tracks, const Scene& scene) const;

private:
    struct Row
    {
        QVector<KeyId> selected;
        QHash<KeyId, QVector<KeyId>> selectedInside; ///< sub-keys, by their clip
        CTimelineKeyArray::KeyVector copied;
        int rangeFirst = -1;
        int rangeLast = -1;
    };
    void RestoreCopied(CTimelineManager& manager, SceneTracks& tracks, const Scene& scene) const;
    void RestoreSelection(CTimelineKeyArray& keys, const Row& row) const;

    QHash<TrackId, Row> m_rows;
    TrackId m_active = kNoTrack;
    int m_frame = 0;
    ViewFractions m_view;
};

} // namespace host
