#include "KeyEdits.h"

#include "KeyList.h"

#include <QSet>

#include <algorithm>

namespace host {

namespace {

constexpr int kInsertedBlend = 6; ///< frames of the blend that a new transition key starts with

/// The list that the selection speaks of, and the last frame its keys may stand on.
struct SelectedList
{
    QVector<SceneKey>* keys = nullptr;
    int lastFrame = 0;
};

SelectedList ListOf(Scene& scene, const KeySelection& selection)
{
    if (selection.clip == kNoKey) {
        SceneTrack* const row = scene.FindTrack(selection.track);
        return {row ? &row->keys : nullptr, scene.frameCount - 1};
    }
    SceneKey* const clip = FindKey(scene, selection.track, selection.clip);
    if (!clip || !clip->clip)
        return {};
    return {&clip->subKeys, clip->clip->length};
}

/// Sorts the keys into those that the selection lets be changed and the rest; both keep their
/// order.
void TakeOut(QVector<SceneKey>& keys, const QVector<KeyId>& selected, QVector<SceneKey>& taken)
{
    const QSet<KeyId> ids(selected.cbegin(), selected.cend());
    const auto rest = std::stable_partition(keys.begin(), keys.end(), [&ids](const SceneKey& key) {
        return key.locked || !ids.contains(key.id);
    });
    std::copy(rest, keys.end(), std::back_inserter(taken));
    keys.erase(rest, keys.end());
}

/// As much of @p frames as keeps all of @p moving, which are in frame order, where they may be. A
/// key that lies outside already holds nobody back.
int Limited(int frames, const QVector<SceneKey>& moving, int lastFrame)
{
    if (moving.isEmpty())
        return frames;
    const int earlier = std::min(0, -moving.first().frame);
    const int later = std::max(0, lastFrame - moving.last().frame);
    return std::clamp(frames, earlier, later);
}

/// The copies that PasteKeys makes, as far as they lie in the scene.
QVector<SceneKey> CopiesWithin(const Scene& scene, const QVector<SceneKey>& keys, int shift)
{
    QVector<SceneKey> copies;
    for (SceneKey key : keys) {
        key.frame += shift;
        key.group = kNoGroup;
        if (key.frame >= 0 && key.frame < scene.frameCount)
            copies.append(key);
    }
    return copies;
}

bool IsAlike(SceneKey a, const SceneKey& b)
{
    if (a.subKeys.size() != b.subKeys.size())
        return false;
    a.id = b.id;
    a.group = b.group;
    for (int i = 0; i < a.subKeys.size(); ++i)
        a.subKeys[i].id = b.subKeys[i].id;
    return a == b;
}

} // namespace

int MoveKeys(Scene& scene, const QVector<KeySelection>& selection, int frames)
{
    const Scene before = scene;
    QVector<QVector<SceneKey>> taken(selection.size());
    for (int i = 0; i < selection.size(); ++i) {
        const SelectedList list = ListOf(scene, selection[i]);
        if (!list.keys)
            continue;
        TakeOut(*list.keys, selection[i].keys, taken[i]);
        frames = Limited(frames, taken[i], list.lastFrame);
    }
    if (frames == 0) {
        scene = before;
        return 0;
    }
    for (int i = 0; i < selection.size(); ++i) {
        for (SceneKey& key : taken[i])
            key.frame += frames;
        if (!taken[i].isEmpty())
            PlaceKeys(*ListOf(scene, selection[i]).keys, taken[i]);
    }
    return frames;
}

void DeleteKeys(Scene& scene, const QVector<KeySelection>& selection)
{
    QVector<SceneKey> deleted;
    for (const KeySelection& row : selection) {
        if (QVector<SceneKey>* const keys = ListOf(scene, row).keys)
            TakeOut(*keys, row.keys, deleted);
    }
}

QVector<KeyId> PasteKeys(Scene& scene, TrackId track, const QVector<SceneKey>& keys, int shift)
{
    SceneTrack* const row = scene.FindTrack(track);
    if (!row)
        return {};
    QVector<SceneKey> pasted = CopiesWithin(scene, keys, shift);
    scene.NumberKeys(pasted);
    PlaceKeys(row->keys, pasted);
    QVector<KeyId> ids;
    for (const SceneKey& key : qAsConst(pasted))
        ids.append(key.id);
    return ids;
}

QVector<KeyId> KeysAlreadyPasted(const Scene& scene, TrackId track, const QVector<SceneKey>& keys,
                                 int shift)
{
    const SceneTrack* const row = scene.FindTrack(track);
    if (!row)
        return {};
    QVector<KeyId> there;
    for (const SceneKey& copy : CopiesWithin(scene, keys, shift)) {
        const auto isOnFrame = [&copy](const SceneKey& key) { return key.frame == copy.frame; };
        const auto key = std::find_if(row->keys.cbegin(), row->keys.cend(), isOnFrame);
        const auto onFrame = std::count_if(row->keys.cbegin(), row->keys.cend(), isOnFrame);
        if (onFrame != 1 || !IsAlike(copy, *key))
            return {};
        there.append(key->id);
    }
    return there;
}

KeyId InsertKey(Scene& scene, TrackId track, int frame)
{
    SceneTrack* const row = scene.FindTrack(track);
    if (!row || frame < 0 || frame >= scene.frameCount ||
        (row->kind != TrackKind::Key && row->kind != TrackKind::Link &&
         row->kind != TrackKind::Transition))
        return kNoKey;
    const auto next = std::find_if(row->keys.cbegin(), row->keys.cend(),
                                   [frame](const SceneKey& key) { return key.frame >= frame; });
    if (next != row->keys.cend() && next->frame == frame)
        return kNoKey;
    SceneKey key;
    key.frame = frame;
    if (row->kind == TrackKind::Transition)
        key.transition = Transition{BlendDirection::Into, std::min(kInsertedBlend, frame)};
    // A key within a link divides the bar; both parts stay joined.
    key.startsLink =
        row->kind == TrackKind::Link && next != row->keys.cbegin() && std::prev(next)->startsLink;
    QVector<SceneKey> inserted{key};
    scene.NumberKeys(inserted);
    PlaceKeys(row->keys, inserted);
    return inserted.first().id;
}

} // namespace host
