#pragma once

#include "Scene.h"

namespace host {

/// Keys of one row, or sub-keys of one clip, by their numbers.
struct KeySelection
{
    TrackId track = kNoTrack;
    KeyId clip = kNoKey; ///< when set, the keys are sub-keys of this clip
    QVector<KeyId> keys;
};

// Edits of keys: each changes the scene that it is given and nothing else. Locked keys stay as they
// are. A key that comes to stand on a frame replaces what stood there, unless that is locked.

/// Moves the keys by @p frames, all by the same number: less than asked for when one of them would
/// leave the scene (sub-keys: their clip). The frames that they were moved by.
int MoveKeys(Scene& scene, const QVector<KeySelection>& selection, int frames);

/// Takes the keys out.
void DeleteKeys(Scene& scene, const QVector<KeySelection>& selection);

/// Puts copies of @p keys into the row, each @p shift frames later than it says; those that would
/// lie outside the scene are left out. Copies belong to no group. Their numbers are returned.
QVector<KeyId> PasteKeys(Scene& scene, TrackId track, const QVector<SceneKey>& keys, int shift);

/// The keys of the row that PasteKeys would replace by their likes (all but number and group are
/// the same), when that is all that it would do; else none.
QVector<KeyId> KeysAlreadyPasted(const Scene& scene, TrackId track, const QVector<SceneKey>& keys,
                                 int shift);

/// Makes a key that suits the row. Its number, or kNoKey for a frame outside the scene or with a
/// key on it and for rows that hold no point keys.
KeyId InsertKey(Scene& scene, TrackId track, int frame);

} // namespace host
