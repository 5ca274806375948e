#pragma once

#include "KeyEdits.h"

#include <optional>

namespace host {

// Edits of the mouth shapes inside the clips of a row: each changes the scene that it is given and
// nothing else. Shapes that are locked, and those of locked clips, stay as they are.

/// A frame inside a clip, where a shape can stand.
struct ShapePlace
{
    KeyId clip = kNoKey;
    int frame = 0; ///< frames after the clip's first, within one pass
};

/// What @p frame of the row lies in: the clip @p preferred where it reaches there, else the last
/// one that starts before. Nothing outside all clips and in a locked one.
std::optional<ShapePlace> ShapePlaceAt(const Scene& scene, TrackId track, int frame,
                                       KeyId preferred = kNoKey);

/// Whether no shape stands there yet.
bool IsFreeForShape(const Scene& scene, TrackId track, const ShapePlace& place);

/// Makes a shape there, the one that the mouth has at that frame already, to be changed from that
/// frame on. Its number, or kNoKey where one stands.
KeyId InsertShape(Scene& scene, TrackId track, const ShapePlace& place);

/// Puts copies of @p shapes into the clip, each @p shift frames later than it says; those that
/// would lie outside the pass are left out. Their numbers are returned.
QVector<KeyId> PasteShapes(Scene& scene, TrackId track, KeyId clip, const QVector<SceneKey>& shapes,
                           int shift);

/// Makes all the shapes @p shape, a variant as MouthShapes.h has them.
void ChangeShapes(Scene& scene, const QVector<KeySelection>& selection, int shape);

} // namespace host
