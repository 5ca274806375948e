#include "ShapeEdits.h"

#include "KeyList.h"
#include "MouthShapes.h"

#include <QSet>

#include <algorithm>

namespace host {

namespace {

bool Reaches(const SceneKey& clip, int frame)
{
    return clip.clip && clip.frame <= frame &&
           frame <= clip.frame + qint64(clip.clip->length) * clip.clip->loops;
}

/// The clip, to be changed; null when it is none or locked.
SceneKey* EditableClip(Scene& scene, TrackId track, KeyId clip)
{
    SceneKey* const key = FindKey(scene, track, clip);
    return key && key->clip && !key->locked ? key : nullptr;
}

int FrameWithin(const SceneKey& clip, int frame)
{
    const int since = frame - clip.frame;
    const int length = std::max(1, clip.clip->length);
    const bool isEnd = since > 0 && since == qint64(length) * clip.clip->loops;
    return isEnd ? length : since % length;
}

} // namespace

std::optional<ShapePlace> ShapePlaceAt(const Scene& scene, TrackId track, int frame,
                                       KeyId preferred)
{
    const SceneTrack* const row = scene.FindTrack(track);
    if (!row)
        return std::nullopt;
    const SceneKey* clip = FindKey(scene, track, preferred);
    if (!clip || !Reaches(*clip, frame)) {
        const auto found =
            std::find_if(row->keys.crbegin(), row->keys.crend(),
                         [frame](const SceneKey& key) { return Reaches(key, frame); });
        clip = found == row->keys.crend() ? nullptr : &*found;
    }
    if (!clip || clip->locked)
        return std::nullopt;
    return ShapePlace{clip->id, FrameWithin(*clip, frame)};
}

bool IsFreeForShape(const Scene& scene, TrackId track, const ShapePlace& place)
{
    const SceneKey* const clip = FindKey(scene, track, place.clip);
    return clip && std::none_of(clip->subKeys.cbegin(), clip->subKeys.cend(),
                                [&](const SceneKey& key) { return key.frame == place.frame; });
}

KeyId InsertShape(Scene& scene, TrackId track, const ShapePlace& place)
{
    if (!IsFreeForShape(scene, track, place))
        return kNoKey;
    const QVector<SceneKey> shapes = FindKey(qAsConst(scene), track, place.clip)->subKeys;
    SceneKey shape;
    shape.frame = place.frame;
    shape.mouthShape = kClosedMouth;
    for (const SceneKey& held : shapes) {
        if (held.frame < place.frame)
            shape.mouthShape = held.mouthShape;
    }
    return PasteShapes(scene, track, place.clip, {shape}, 0).value(0, kNoKey);
}

QVector<KeyId> PasteShapes(Scene& scene, TrackId track, KeyId clip, const QVector<SceneKey>& shapes,
                           int shift)
{
    if (!EditableClip(scene, track, clip))
        return {};
    const int length = FindKey(qAsConst(scene), track, clip)->clip->length;
    QVector<SceneKey> pasted;
    for (SceneKey shape : shapes) {
        shape.frame += shift;
        if (shape.frame >= 0 && shape.frame <= length)
            pasted.append(shape);
    }
    scene.NumberKeys(pasted);
    PlaceKeys(FindKey(scene, track, clip)->subKeys, pasted);
    QVector<KeyId> ids;
    for (const SceneKey& shape : qAsConst(pasted))
        ids.append(shape.id);
    return ids;
}

void ChangeShapes(Scene& scene, const QVector<KeySelection>& selection, int shape)
{
    for (const KeySelection& inside : selection) {
        SceneKey* const clip = EditableClip(scene, inside.track, inside.clip);
        if (!clip)
            continue;
        const QSet<KeyId> ids(inside.keys.cbegin(), inside.keys.cend());
        for (SceneKey& key : clip->subKeys) {
            if (!key.locked && ids.contains(key.id))
                key.mouthShape = shape;
        }
    }
}

} // namespace host
