#include "ScriptScene.h"

#include <algorithm>

namespace host {

namespace {

/// The rows whose caption or name (@p text) is @p wanted.
QVector<TrackId> RowsCalled(const Scene& scene, QString SceneTrack::*text, const QString& wanted)
{
    QVector<TrackId> rows;
    for (const SceneTrack& row : scene.tracks) {
        if (row.*text == wanted)
            rows.append(row.id);
    }
    return rows;
}

bool HasSubKeyAt(const SceneKey& clip, int frame)
{
    return std::any_of(clip.subKeys.cbegin(), clip.subKeys.cend(), [&](const SceneKey& key) {
        return qint64(clip.frame) + key.frame == frame;
    });
}

bool Covers(const SceneKey& key, int frame)
{
    const qint64 length = key.clip ? qint64(key.clip->length) * key.clip->loops : 0;
    return frame >= key.frame && frame <= key.frame + length;
}

} // namespace

TrackId FindRow(const Scene& scene, const QString& name, QString& error)
{
    QVector<TrackId> rows = RowsCalled(scene, &SceneTrack::caption, name);
    if (rows.size() != 1) {
        const QVector<TrackId> named = RowsCalled(scene, &SceneTrack::name, name);
        if (named.size() == 1 || rows.isEmpty())
            rows = named;
    }
    if (rows.size() == 1)
        return rows.first();
    error = rows.isEmpty() ? QStringLiteral("there is no row \"%1\"").arg(name)
                           : QStringLiteral("%1 rows are called \"%2\"").arg(rows.size()).arg(name);
    return kNoTrack;
}

bool HasKeyAt(const SceneTrack& row, int frame)
{
    return std::any_of(row.keys.cbegin(), row.keys.cend(), [frame](const SceneKey& key) {
        return key.frame == frame || HasSubKeyAt(key, frame);
    });
}

bool IsOnKey(const SceneTrack& row, int frame)
{
    const bool isInside = row.editModes.contains(EditMode::EditSubKeys);
    return std::any_of(row.keys.cbegin(), row.keys.cend(), [=](const SceneKey& key) {
        return isInside && key.clip ? HasSubKeyAt(key, frame) : Covers(key, frame);
    });
}

} // namespace host
