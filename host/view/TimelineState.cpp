#include "TimelineState.h"

#include "KeySelections.h"

#include <algorithm>
#include <tuple>

namespace host {

namespace {

/// Whether keys inside the clips of the row can be selected: other rows need not be looked through.
bool HasSelectionInside(const SceneTrack& track)
{
    return track.editModes.contains(EditMode::EditSubKeys);
}

QVector<RowSelection::Inside> SelectedInside(const CTimelineKeyArray& keys)
{
    QVector<RowSelection::Inside> inside;
    for (const VZ::CPointer<CTimelineKey>& clip : keys.Keys()) {
        if (!clip->subKeys)
            continue;
        const QVector<KeyId> selected = SelectedIn(*clip->subKeys);
        if (!selected.isEmpty())
            inside.append({TimelineKeys::IdOf(*clip), selected});
    }
    return inside;
}

void SelectInside(const CTimelineKeyArray& keys, const QVector<RowSelection::Inside>& inside)
{
    for (const VZ::CPointer<CTimelineKey>& clip : keys.Keys()) {
        if (!clip->subKeys)
            continue;
        const KeyId id = TimelineKeys::IdOf(*clip);
        const auto found =
            std::find_if(inside.cbegin(), inside.cend(),
                         [id](const RowSelection::Inside& each) { return each.clip == id; });
        SelectOnly(*clip->subKeys, found == inside.cend() ? QVector<KeyId>() : found->keys);
    }
}

auto Members(const RowSelection& selection)
{
    return std::tie(selection.row, selection.keys, selection.inside, selection.rangeStart,
                    selection.rangeEnd);
}

void Activate(CTimelineManager& manager, const SceneTracks& tracks, const Scene& scene,
              const TimelineState& state)
{
    CTimelineTrackBase* const root = tracks.TrackOf(state.activeRoot);
    CTimelineTrackBase* const row = tracks.TrackOf(state.activeRow);
    if (manager.GetActiveRootTrack() == root && manager.GetActiveChildTrack() == row)
        return;
    while (manager.GetActiveRootTrack())
        manager.SetActiveRootTrack(nullptr);
    // A row of buttons stays active when a row of another root becomes so: then there are two.
    if (root && (!row || scene.ChildrenOf(state.activeRoot).isEmpty()))
        manager.SetActiveRootTrack(root);
    if (row)
        manager.SetActiveChildTrack(row); // and its root
}

} // namespace

bool operator==(const RowSelection::Inside& a, const RowSelection::Inside& b)
{
    return a.clip == b.clip && a.keys == b.keys;
}

bool operator==(const RowSelection& a, const RowSelection& b)
{
    return Members(a) == Members(b);
}

bool operator==(const TimelineState& a, const TimelineState& b)
{
    return a.frame == b.frame && a.activeRoot == b.activeRoot && a.activeRow == b.activeRow &&
           a.rows == b.rows;
}

TimelineState TakeState(CTimelineManager& manager, const SceneTracks& tracks, const Scene& scene,
                        int frame)
{
    TimelineState state;
    state.frame = frame;
    state.activeRoot = tracks.IdOf(manager.GetActiveRootTrack());
    state.activeRow = tracks.IdOf(manager.GetActiveChildTrack());
    for (const SceneTrack& track : scene.tracks) {
        const CTimelineKeyArray* const keys = tracks.KeysOf(track.id);
        if (!keys)
            continue;
        RowSelection selection;
        selection.row = track.id;
        selection.keys = SelectedIn(*keys);
        if (HasSelectionInside(track))
            selection.inside = SelectedInside(*keys);
        manager.GetTrackSelFrame(tracks.TrackOf(track.id), selection.rangeStart,
                                 selection.rangeEnd);
        if (!selection.keys.isEmpty() || !selection.inside.isEmpty() || selection.rangeEnd >= 0)
            state.rows.append(selection);
    }
    return state;
}

void RestoreState(CTimelineManager& manager, const SceneTracks& tracks, const Scene& scene,
                  const TimelineState& state)
{
    // Clears selections, so it comes first.
    Activate(manager, tracks, scene, state);
    for (const SceneTrack& track : scene.tracks) {
        CTimelineKeyArray* const keys = tracks.KeysOf(track.id);
        if (!keys)
            continue;
        const auto found =
            std::find_if(state.rows.cbegin(), state.rows.cend(),
                         [&track](const RowSelection& each) { return each.row == track.id; });
        const RowSelection selection = found == state.rows.cend() ? RowSelection() : *found;
        SelectOnly(*keys, selection.keys);
        if (HasSelectionInside(track))
            SelectInside(*keys, selection.inside);
        manager.SetTrackSelFrame(tracks.TrackOf(track.id), selection.rangeStart,
                                 selection.rangeEnd);
    }
    manager.InvalidateTimeline();
    manager.SetCurrentFrame(state.frame);
}

} // namespace host
