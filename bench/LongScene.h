#pragma once

#include "document/Scene.h"

/// What the long scene holds.
struct LongScene
{
    static constexpr int kMinutes = 60;
    static constexpr int kFrames = kMinutes * 60 * host::kSceneFrameRate;
    static constexpr int kTracks = 200;
    static constexpr int kKeys = 200'000; ///< on the rows; those inside the lips clips come on top
};

/// Whether the scene has the motion that its clips play, captured for as long as the scene is.
enum class Capture
{
    None,
    WholeScene
};

/// A scene of an hour with rows of every kind, made by arithmetic: the same each time. Buttons that
/// show and hide rows; a face whose mouth speaks all the time; a body whose joints have keys, whose
/// feet touch the ground and whose motion is played in clips; and things that move beside them.
/// Keys of some rows belong to groups, and every kind of relation stands between some rows.
host::Scene MakeLongScene(Capture capture);

/// The keys of all rows, and those inside their clips.
struct KeyCount
{
    int onRows = 0;
    int inside = 0;
};
KeyCount CountKeys(const host::Scene& scene);
