#include "KeyList.h"

#include <QSet>

#include <algorithm>

namespace host {

int IndexOfKey(const QVector<SceneKey>& keys, KeyId id)
{
    const auto found = std::find_if(keys.cbegin(), keys.cend(),
                                    [id](const SceneKey& key) { return key.id == id; });
    return found == keys.cend() ? -1 : static_cast<int>(found - keys.cbegin());
}

void PlaceKeys(QVector<SceneKey>& keys, const QVector<SceneKey>& placed)
{
    QSet<int> frames;
    for (const SceneKey& key : placed)
        frames.insert(key.frame);
    const auto isReplaced = [&frames](const SceneKey& key) {
        return !key.locked && frames.contains(key.frame);
    };
    keys.erase(std::remove_if(keys.begin(), keys.end(), isReplaced), keys.end());
    const int stayed = keys.size();
    keys += placed;
    const auto isEarlier = [](const SceneKey& a, const SceneKey& b) { return a.frame < b.frame; };
    // What stayed is in order, and most often so is what was placed.
    const auto firstPlaced = keys.begin() + stayed;
    if (!std::is_sorted(firstPlaced, keys.end(), isEarlier))
        std::stable_sort(firstPlaced, keys.end(), isEarlier);
    std::inplace_merge(keys.begin(), firstPlaced, keys.end(), isEarlier);
}

const SceneKey* FindKey(const Scene& scene, TrackId track, KeyId key)
{
    const SceneTrack* const row = scene.FindTrack(track);
    const int index = row && key != kNoKey ? IndexOfKey(row->keys, key) : -1;
    return index < 0 ? nullptr : &row->keys[index];
}

SceneKey* FindKey(Scene& scene, TrackId track, KeyId key)
{
    if (!FindKey(qAsConst(scene), track, key)) // a look must not make the row a copy of its own
        return nullptr;
    QVector<SceneKey>& keys = scene.FindTrack(track)->keys;
    return &keys[IndexOfKey(keys, key)];
}

} // namespace host
