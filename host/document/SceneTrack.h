#pragma once

#include "SceneKey.h"

namespace host {

/// Tracks are named by numbers that are unique in a scene and never given again: an edit that is
/// undone, a saved file and a relation all find their track by it.
using TrackId = int;
constexpr TrackId kNoTrack = 0;

/// What a row shows.
enum class TrackKind
{
    Switch,     ///< a row of toggle buttons
    Key,        ///< point keys
    Transition, ///< keys with a blend into or out of them
    Link,       ///< keys joined by bars
    Viseme,     ///< mouth shapes
    Clip        ///< frame ranges that may loop
};

/// What the user may do on a row.
enum class EditMode
{
    MoveKeys,
    LoopClip,
    ChangeClipSpeed,
    TrimClip,
    SelectTimeRange,
    EditSubKeys,
    Cut,
    Copy,
    Paste,
    Delete,
    InsertKey,
    BreakClip,
    SelectPrevious,
    SelectNext,
    SelectAll
};

/// A button that shows (on) or hides (off) rows.
struct SwitchButton
{
    QString text;
    bool on = false;
    QVector<TrackId> tracks; ///< the child rows it stands for
};

/// One row, or the root that rows hang under. Copies share their keys until one of them changes.
struct SceneTrack
{
    TrackId id = kNoTrack;
    TrackKind kind = TrackKind::Key;
    QString name;    ///< what the row animates: a joint's name, "Lips"
    QString caption; ///< what the caption column shows
    int styleNumber = 1;
    TrackId parent = kNoTrack; ///< kNoTrack for a root
    QVector<EditMode> editModes;
    QVector<SceneKey> keys; ///< in frame order; keys of one frame in the order of their making
    QVector<SwitchButton> buttons; ///< of a switch track
    bool muted = false;            ///< takes no part in the preview and is not heard
    bool soloed = false;           ///< as long as some rows are, all others count as muted
    bool locked = false;           ///< refuses every edit
};

bool operator==(const SwitchButton& a, const SwitchButton& b);
bool operator==(const SceneTrack& a, const SceneTrack& b);
inline bool operator!=(const SceneTrack& a, const SceneTrack& b)
{
    return !(a == b);
}

} // namespace host
