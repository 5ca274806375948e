#include "ClipPlace.h"

#include <algorithm>
#include <limits>

namespace host {

namespace {

bool StartsLater(int frame, const SceneKey& key)
{
    return frame < key.frame;
}

/// The last frame of all passes, however many were asked for.
int LastFrame(const SceneKey& key)
{
    const qint64 last = key.frame + qint64(key.clip->length) * key.clip->loops;
    return static_cast<int>(std::min<qint64>(last, std::numeric_limits<int>::max() - 1));
}

/// The frame of the next key that stands behind @p frame.
int NextStart(const QVector<SceneKey>& keys, int frame)
{
    const auto next = std::upper_bound(keys.cbegin(), keys.cend(), frame, StartsLater);
    return next == keys.cend() ? std::numeric_limits<int>::max() : next->frame;
}

} // namespace

ClipPlace PlaceInClip(const QVector<SceneKey>& keys, int index, int frame)
{
    const SceneKey& key = keys[index];
    const int length = std::max(1, key.clip->length);
    ClipPlace place;
    place.index = index;
    place.start = key.frame;
    place.end = std::min(LastFrame(key), NextStart(keys, key.frame) - 1);
    const int offset = std::clamp(frame, place.start, place.end) - place.start;
    // The last frame of all ends the last pass; it does not begin another one.
    place.pass = std::min(offset / length, std::max(1, key.clip->loops) - 1);
    place.within = offset - place.pass * length;
    return place;
}

ClipPlace PlaceInRow(const QVector<SceneKey>& keys, int frame)
{
    const auto after = std::upper_bound(keys.cbegin(), keys.cend(), frame, StartsLater);
    for (int index = static_cast<int>(after - keys.cbegin()) - 1; index >= 0; --index) {
        if (keys[index].clip)
            return PlaceInClip(keys, index, frame);
    }
    return {};
}

} // namespace host
