#pragma once

#include "SceneTracks.h"

namespace host {

/// What is selected on a row.
struct RowSelection
{
    /// The sub-keys that are selected inside a clip.
    struct Inside
    {
        KeyId clip = kNoKey;
        QVector<KeyId> keys;
    };

    TrackId row = kNoTrack;
    QVector<KeyId> keys;
    QVector<Inside> inside;
    int rangeStart = -1; ///< of the selected time range, in frames; -1: none
    int rangeEnd = -1;
};

/// What the animator has at hand on the timeline besides the scene: selection, active row and
/// current frame. An undone edit brings it back.
struct TimelineState
{
    int frame = 0;
    TrackId activeRoot = kNoTrack; ///< a row of buttons, or the root of the active row
    TrackId activeRow = kNoTrack;
    QVector<RowSelection> rows; ///< those on which anything is selected, in the scene's order
};

bool operator==(const RowSelection& a, const RowSelection& b);
bool operator==(const TimelineState& a, const TimelineState& b);
inline bool operator!=(const TimelineState& a, const TimelineState& b)
{
    return !(a == b);
}

/// The state of the timeline, which shows @p scene. The current frame is given: while the timeline
/// asks for dragged copies to be pasted, its own is another for a moment.
TimelineState TakeState(CTimelineManager& manager, const SceneTracks& tracks, const Scene& scene,
                        int frame);

/// Gives the timeline, which shows @p scene, that state.
void RestoreState(CTimelineManager& manager, const SceneTracks& tracks, const Scene& scene,
                  const TimelineState& state);

} // namespace host
