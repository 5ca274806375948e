#include "RangeEdits.h"

namespace host {

namespace {

QVector<KeyId> Within(const QVector<SceneKey>& keys, int first, int last)
{
    QVector<KeyId> ids;
    for (const SceneKey& key : keys) {
        if (key.frame >= first && key.frame <= last)
            ids.append(key.id);
    }
    return ids;
}

} // namespace

QVector<KeySelection> KeysWithin(const Scene& scene, const QVector<TrackId>& rows, int first,
                                 int last)
{
    QVector<KeySelection> selections;
    const auto add = [&selections](const KeySelection& selection) {
        if (!selection.keys.isEmpty())
            selections.append(selection);
    };
    for (const TrackId id : rows) {
        const SceneTrack* const row = scene.FindTrack(id);
        if (!row)
            continue;
        if (!row->editModes.contains(EditMode::EditSubKeys)) {
            add({id, kNoKey, Within(row->keys, first, last)});
            continue;
        }
        for (const SceneKey& clip : row->keys)
            add({id, clip.id, Within(clip.subKeys, first - clip.frame, last - clip.frame)});
    }
    return selections;
}

QVector<TrackId> RowsSharingRange(const Scene& scene, TrackId track)
{
    QVector<TrackId> rows{track};
    for (const TrackRelation& relation : scene.relations) {
        if (relation.kind != RelationKind::SharedTimeRange || relation.tracks.value(0) != track)
            continue;
        for (const TrackId follower : relation.tracks) {
            if (!rows.contains(follower))
                rows.append(follower);
        }
    }
    return rows;
}

} // namespace host
