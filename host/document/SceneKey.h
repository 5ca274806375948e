#pragma once

#include <QString>
#include <QVector>

#include <optional>

namespace host {

/// Keys that carry the same group number belong together. Numbers are unique in a scene and are
/// never given again, so that an undone edit finds its group.
using GroupId = int;
constexpr GroupId kNoGroup = 0;

/// Names a key for as long as the scene lives, wherever it is moved: a selection, a pasted copy and
/// an undone edit find their key by it. Numbers are unique in a scene and are never given again.
using KeyId = int;
constexpr KeyId kNoKey = 0;

/// On one frame the key with the higher priority is shown.
constexpr int kDefaultPriority = 100;

enum class BlendDirection
{
    Into, ///< the blend ends at the key
    OutOf ///< the blend starts at the key
};

/// A blend that belongs to a key of a transition row.
struct Transition
{
    BlendDirection direction = BlendDirection::Into;
    int frames = 0; ///< length of the blend, 0 or more
};

/// What makes a key a clip. Lengths are in frames and count the steps from the first frame to the
/// last, so that a clip of length 9 at frame 0 shows its material on the ten frames 0 to 9.
struct ClipSpan
{
    int length = 1;   ///< one pass, 1 or more
    int loops = 1;    ///< number of passes, 1 or more
    int leadIn = 0;   ///< frames of material cut off before the clip's first frame
    int shortest = 1; ///< the least length that a change of speed may give
    int longest = 1;  ///< the greatest length that a change of speed may give
    /// Frames of material that one pass plays, at the speed at which it was captured; 0 for as many
    /// as the pass is long. A pass of half that length plays twice as fast.
    int material = 0;
};

/// One item of a row: a key at a frame, or a clip from that frame on.
struct SceneKey
{
    KeyId id = kNoKey;
    int frame = 0; ///< in a row: scene frame; among sub-keys: frames after the clip's first
    QString name;  ///< label of a clip
    int priority = kDefaultPriority;
    bool locked = false;
    bool alternate = false; ///< drawn in the second colour set
    GroupId group = kNoGroup;
    int mouthShape = 0;      ///< variant of a viseme key, see MouthShapes.h
    bool startsLink = false; ///< on a link row: joined to the next key by a bar
    std::optional<Transition> transition;
    std::optional<ClipSpan> clip;
    QString sound; ///< path of the sound file that a clip plays; empty when it plays none
    QVector<SceneKey> subKeys; ///< keys inside a clip, in frame order
};

bool operator==(const Transition& a, const Transition& b);
bool operator==(const ClipSpan& a, const ClipSpan& b);
bool operator==(const SceneKey& a, const SceneKey& b);
inline bool operator!=(const SceneKey& a, const SceneKey& b)
{
    return !(a == b);
}

} // namespace host
