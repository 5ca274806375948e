#include "KeptTimeline.h"

namespace host {

KeptTimeline::KeptTimeline(CTimelineManager& manager, const SceneTracks& tracks, const Scene& scene)
    : m_state(TakeState(manager, tracks, scene, manager.GetCurrentFrame())), m_view(ViewOf(manager))
{
    for (const SceneTrack& track : scene.tracks) {
        if (!tracks.KeysOf(track.id))
            continue;
        CTimelineKeyArray::KeyVector copied;
        int firstFrame = 0;
        if (manager.GetClipboardKeys(tracks.TrackOf(track.id), copied, firstFrame))
            m_copied.insert(track.id, copied);
    }
}

void KeptTimeline::Restore(CTimelineManager& manager, SceneTracks& tracks, const Scene& scene) const
{
    RestoreCopied(manager, tracks, scene);
    ShowView(manager, m_view);
    RestoreState(manager, tracks, scene, m_state);
}

/// A track puts aside nothing but its own selected keys: it is given the copies for a moment.
void KeptTimeline::RestoreCopied(CTimelineManager& manager, SceneTracks& tracks,
                                 const Scene& scene) const
{
    QVector<TrackId> touched;
    for (auto copied = m_copied.cbegin(); copied != m_copied.cend(); ++copied) {
        CTimelineKeyArray* const keys = tracks.KeysOf(copied.key());
        if (!keys || copied->empty())
            continue;
        keys->RemoveAll();
        keys->AddSelected(*copied);
        manager.CopySelectionToClipboard(tracks.TrackOf(copied.key()));
        keys->RemoveAll();
        touched.append(copied.key());
    }
    if (!touched.isEmpty())
        tracks.ShowKeys(scene, touched);
}

} // namespace host
