#include "TimelineState.h"

#include "KeySelections.h"

namespace host {

namespace {

QVector<KeyId> SelectedOf(const CTimelineKeyArray& keys)
{
    QVector<KeyId> selected;
    for (const int index : keys.SelectedIndexes())
        selected.append(KeyIdAt(keys, index));
    return selected;
}

} // namespace

TimelineState::TimelineState(CTimelineManager& manager, const SceneTracks& tracks,
                             const Scene& scene)
    : m_active(tracks.IdOf(manager.GetActiveChildTrack())), m_frame(manager.GetCurrentFrame()),
      m_view(ViewOf(manager))
{
    for (const SceneTrack& track : scene.tracks) {
        const CTimelineKeyArray* const keys = tracks.KeysOf(track.id);
        if (!keys)
            continue;
        Row& row = m_rows[track.id];
        row.selected = SelectedOf(*keys);
        for (const VZ::CPointer<CTimelineKey>& key : keys->Keys()) {
            if (key->subKeys && key->subKeys->SelGetSize() > 0)
                row.selectedInside[TimelineKeys::IdOf(*key)] = SelectedOf(*key->subKeys);
        }
        CTimelineTrackBase* const shown = tracks.TrackOf(track.id);
        int firstFrame = 0;
        manager.GetClipboardKeys(shown, row.copied, firstFrame);
        manager.GetTrackSelFrame(shown, row.rangeFirst, row.rangeLast);
    }
}

void TimelineState::Restore(CTimelineManager& manager, SceneTracks& tracks,
                            const Scene& scene) const
{
    RestoreCopied(manager, tracks, scene);
    if (CTimelineTrackBase* const active = tracks.TrackOf(m_active))
        manager.SetActiveChildTrack(active);
    for (auto row = m_rows.cbegin(); row != m_rows.cend(); ++row) {
        CTimelineKeyArray* const keys = tracks.KeysOf(row.key());
        if (!keys)
            continue;
        RestoreSelection(*keys, *row);
        if (row->rangeFirst != row->rangeLast)
            manager.SetTrackSelFrame(tracks.TrackOf(row.key()), row->rangeFirst, row->rangeLast);
    }
    ShowView(manager, m_view);
    manager.SetCurrentFrame(m_frame);
    manager.InvalidateTimeline();
}

/// A track puts aside nothing but its own selected keys: it is given the copies for a moment.
void TimelineState::RestoreCopied(CTimelineManager& manager, SceneTracks& tracks,
                                  const Scene& scene) const
{
    QVector<TrackId> touched;
    for (auto row = m_rows.cbegin(); row != m_rows.cend(); ++row) {
        CTimelineKeyArray* const keys = tracks.KeysOf(row.key());
        if (!keys || row->copied.empty())
            continue;
        keys->RemoveAll();
        keys->AddSelected(row->copied);
        manager.CopySelectionToClipboard(tracks.TrackOf(row.key()));
        keys->RemoveAll();
        touched.append(row.key());
    }
    if (!touched.isEmpty())
        tracks.ShowKeys(scene, touched);
}

void TimelineState::RestoreSelection(CTimelineKeyArray& keys, const Row& row) const
{
    SelectOnly(keys, row.selected);
    for (const VZ::CPointer<CTimelineKey>& key : keys.Keys()) {
        const QVector<KeyId> inside = row.selectedInside.value(TimelineKeys::IdOf(*key));
        if (key->subKeys && !inside.isEmpty())
            SelectOnly(*key->subKeys, inside);
    }
}

} // namespace host
