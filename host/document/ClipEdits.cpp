#include "ClipEdits.h"

#include "KeyList.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

constexpr qint64 kMostLoops = 9999;
constexpr qint64 kLongestLeadIn = 1000000; ///< frames

/// The clip when it may be edited, else null.
SceneKey* EditableClip(Scene& scene, TrackId track, KeyId id)
{
    const SceneKey* const found = FindKey(qAsConst(scene), track, id);
    return found && found->clip && !found->locked ? FindKey(scene, track, id) : nullptr;
}

int Scaled(int frames, int newLength, int length)
{
    return static_cast<int>(std::lround(static_cast<double>(frames) * newLength / length));
}

/// Some passes of @p whole, or the frames from @p from to @p to of one pass, as a clip at @p frame.
SceneKey Part(const SceneKey& whole, int frame, int from, int to, int loops)
{
    SceneKey part = whole;
    const int length = whole.clip->length;
    const int partLength = to - from;
    part.frame = frame;
    part.clip->length = partLength;
    part.clip->loops = loops;
    const int material = whole.clip->material > 0 ? whole.clip->material : length;
    const int skipped = Scaled(from, material, length);
    part.clip->leadIn += skipped;
    if (whole.clip->material > 0)
        part.clip->material = std::max(1, Scaled(to, material, length) - skipped);
    part.clip->shortest =
        std::clamp(Scaled(whole.clip->shortest, partLength, length), 1, partLength);
    part.clip->longest = std::max(Scaled(whole.clip->longest, partLength, length), partLength);
    part.subKeys.clear();
    for (SceneKey key : whole.subKeys) {
        if (key.frame < from || (key.frame >= to && to < length))
            continue;
        key.frame -= from;
        part.subKeys.append(key);
    }
    return part;
}

/// What @p whole falls into when it is cut @p cut frames after its first.
QVector<SceneKey> PartsOf(const SceneKey& whole, int cut)
{
    const int length = whole.clip->length;
    const int before = cut / length; // whole passes
    const int within = cut % length;
    const int after = whole.clip->loops - before - (within > 0 ? 1 : 0);
    QVector<SceneKey> parts;
    int frame = whole.frame;
    const auto add = [&](int from, int to, int loops) {
        if (loops < 1 || from == to)
            return;
        parts.append(Part(whole, frame, from, to, loops));
        frame += (to - from) * loops;
    };
    add(0, length, before);
    if (within > 0) {
        add(0, within, 1);
        add(within, length, 1);
    }
    add(0, length, after);
    return parts;
}

} // namespace

bool ChangeLoops(Scene& scene, TrackId track, KeyId clip, int passes)
{
    SceneKey* const key = EditableClip(scene, track, clip);
    if (!key)
        return false;
    const qint64 loops = qint64(key->clip->loops) + passes;
    key->clip->loops = static_cast<int>(std::clamp<qint64>(loops, 1, kMostLoops));
    return true;
}

bool SetClipLength(Scene& scene, TrackId track, KeyId clip, int length)
{
    SceneKey* const key = EditableClip(scene, track, clip);
    if (!key)
        return false;
    const int before = key->clip->length;
    const int shortest = std::max(1, key->clip->shortest);
    const int after = std::clamp(length, shortest, std::max(shortest, key->clip->longest));
    if (key->clip->material == 0 && after != before)
        key->clip->material = before; // the same is played, at another speed
    key->clip->length = after;
    for (SceneKey& subKey : key->subKeys)
        subKey.frame = Scaled(subKey.frame, after, before);
    return true;
}

bool ChangeLeadIn(Scene& scene, TrackId track, KeyId clip, int frames)
{
    SceneKey* const key = EditableClip(scene, track, clip);
    if (!key)
        return false;
    const qint64 leadIn = qint64(key->clip->leadIn) + frames;
    key->clip->leadIn = static_cast<int>(std::clamp<qint64>(leadIn, 0, kLongestLeadIn));
    return true;
}

bool ChangeTransition(Scene& scene, TrackId track, KeyId key, int frames)
{
    const SceneKey* const found = FindKey(qAsConst(scene), track, key);
    if (!found || !found->transition || found->locked)
        return false;
    SceneKey& changed = *FindKey(scene, track, key);
    Transition& blend = *changed.transition;
    const int room = blend.direction == BlendDirection::Into ? changed.frame
                                                             : scene.frameCount - 1 - changed.frame;
    const int longest = std::max({0, room, blend.frames}); // a blend that was longer may stay so
    blend.frames = static_cast<int>(std::clamp<qint64>(qint64(blend.frames) + frames, 0, longest));
    return true;
}

bool BreakClip(Scene& scene, TrackId track, KeyId clip, int frame)
{
    SceneKey* const key = EditableClip(scene, track, clip);
    if (!key)
        return false;
    const qint64 last = key->frame + qint64(key->clip->length) * key->clip->loops;
    QVector<SceneKey>& keys = scene.FindTrack(track)->keys;
    const int index = IndexOfKey(keys, clip);
    const bool isCovered = index + 1 < keys.size() && keys[index + 1].frame <= frame;
    if (frame <= key->frame || frame >= last || isCovered)
        return false;
    QVector<SceneKey> parts = PartsOf(*key, frame - key->frame);
    if (index + 1 < keys.size()) {
        const int next = keys[index + 1].frame;
        const auto isHidden = [next](const SceneKey& part) { return part.frame >= next; };
        parts.erase(std::remove_if(parts.begin(), parts.end(), isHidden), parts.end());
    }
    keys.removeAt(index);
    scene.NumberKeys(parts);
    parts.first().id = clip;
    PlaceKeys(keys, parts);
    return true;
}

KeyId AddClip(Scene& scene, TrackId track, const QString& name, int length, int frame)
{
    SceneTrack* const row = scene.FindTrack(track);
    if (!row || row->kind != TrackKind::Clip || frame < 0 || frame >= scene.frameCount)
        return kNoKey;
    SceneKey key;
    key.frame = frame;
    key.name = name;
    const int frames = std::max(1, length);
    key.clip = ClipSpan{frames, 1, 0, frames, frames};
    QVector<SceneKey> added{key};
    scene.NumberKeys(added);
    PlaceKeys(row->keys, added);
    return added.first().id;
}

} // namespace host
