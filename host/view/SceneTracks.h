#pragma once

#include "TimelineKeys.h"
#include "document/Scene.h"

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QHash>

namespace host {

/// Shows a scene on the timeline: one timeline track for each of the scene's, kept for as long as
/// the scene is shown. Knows which track stands for which.
class SceneTracks
{
public:
    /// @param manager not owned; outlives this object, and its window exists when it is used.
    explicit SceneTracks(CTimelineManager& manager) : m_manager(manager) {}

    /// Takes the tracks of the scene shown before away and makes those of @p scene. False when the
    /// skin lacks a style that the scene asks for; the timeline then shows a part of the scene.
    bool Show(const Scene& scene);

    /// Whether the skin has a style for every track of @p scene.
    bool CanShow(const Scene& scene) const;

    /// Brings all that is shown into line with @p scene, which is a former state of the scene shown
    /// or a later one. Rows, and what is selected on them, stay as far as the scenes agree on them.
    /// False as for Show.
    bool Update(const Scene& scene);

    /// Whether Update keeps the rows: @p scene has the same.
    bool HasRowsOf(const Scene& scene) const;

    /// Brings the keys of the tracks shown into line with @p scene, which has the same tracks: of
    /// those whose keys are others than when they were last shown, and of @p touched, whose keys
    /// the timeline has changed by itself. Selected keys stay selected.
    void ShowKeys(const Scene& scene, const QVector<TrackId>& touched = {});

    /// Shows or hides a child row, at its place among its siblings.
    void SetRowShown(const Scene& scene, TrackId row, bool shown);

    /// The timeline's track for the scene's, or null.
    CTimelineTrackBase* TrackOf(TrackId id) const { return m_tracks.value(id); }
    /// The timeline's keys of the scene's track, or null.
    CTimelineKeyArray* KeysOf(TrackId id) const { return m_manager.GetKeyDataArray(TrackOf(id)); }
    /// The scene's track for the timeline's, or kNoTrack.
    TrackId IdOf(CTimelineTrackBase* track) const { return m_ids.value(track, kNoTrack); }

private:
    void Clear();
    bool MakeTrack(const SceneTrack& track);
    void Fill(const SceneTrack& track);
    void UpdateRow(const Scene& scene, const SceneTrack& track, const SceneTrack& shown);
    void ShowRelatedKeys(const Scene& scene);
    void Relate(const QVector<TrackRelation>& relations);

    CTimelineManager& m_manager;
    QHash<TrackId, CTimelineTrackBase*> m_tracks;
    QHash<CTimelineTrackBase*, TrackId> m_ids; ///< the same the other way round
    TimelineKeys m_keys;
    Scene m_shown; ///< the scene whose keys the timeline shows
};

} // namespace host
