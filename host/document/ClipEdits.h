#pragma once

#include "Scene.h"

namespace host {

// Edits of clips and blends: each changes the scene that it is given and nothing else. They return
// whether the key is there, is of the right kind and is not locked; otherwise nothing changes.

/// Adds @p passes, which may be negative, to a clip's loops; at least one is left.
bool ChangeLoops(Scene& scene, TrackId track, KeyId clip, int passes);

/// Makes one pass of the clip @p length frames long, or as near to that as the clip's limits allow.
/// The keys inside keep their places in the pass, rounded to frames.
bool SetClipLength(Scene& scene, TrackId track, KeyId clip, int length);

/// Cuts @p frames more (or fewer, when negative) of the material off before the clip's first frame,
/// down to none.
bool ChangeLeadIn(Scene& scene, TrackId track, KeyId clip, int frames);

/// Makes the blend of a transition key longer, down to none and up to the scene's first or last
/// frame.
bool ChangeTransition(Scene& scene, TrackId track, KeyId key, int frames);

/// Splits the clip in two before @p frame, which lies behind the clip's first frame and before its
/// last one. A pass of a loop that is cut apart becomes two clips of its own, so that what is
/// played stays the same; the first part keeps the clip's number. Parts that the next key covered
/// whole are gone.
bool BreakClip(Scene& scene, TrackId track, KeyId clip, int frame);

/// Puts a clip of @p length frames, which keeps its speed, into a row of clips. Its number, or
/// kNoKey for another row or a frame outside the scene.
KeyId AddClip(Scene& scene, TrackId track, const QString& name, int length, int frame);

} // namespace host
