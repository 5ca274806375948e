#pragma once

#include "Motion.h"
#include "SceneTrack.h"
#include "SpokenLine.h"

namespace host {

constexpr int kSceneFrameRate = 30; ///< frames a second

/// A named set of keys that belong together; the keys refer to it by its number.
struct SceneGroup
{
    GroupId id = kNoGroup;
    QString name;
};

enum class RelationKind
{
    SharedTimeRange, ///< the others show the first track's time range
    SharedSelection, ///< selecting a key selects the keys of its frame on all of them
    ClipBars,        ///< the others show the first track's clips as bars
    RelatedKeys      ///< the others show the first track's keys beside their own
};

struct TrackRelation
{
    RelationKind kind = RelationKind::SharedTimeRange;
    QVector<TrackId> tracks; ///< the first is the source
};

/// The range between the ruler's two markers, in frames, both ends included.
struct TimeMark
{
    int start = 0;
    int end = 0;
};

/// The whole animation as one value. Copying is cheap (all lists are shared until they change), so
/// a snapshot for undo costs what the edit changed; two scenes compare member by member. Knows
/// nothing of widgets.
struct Scene
{
    int frameRate = kSceneFrameRate;
    int frameCount = 0;
    QVector<SceneTrack> tracks; ///< in display order; a child stands anywhere after its root
    QVector<SceneGroup> groups;
    QVector<TrackRelation> relations;
    TimeMark timeMark;
    Motion motion;   ///< what the Motion clip plays; without joints when there is none
    SpokenLine line; ///< what the Lips clip was made from; without cues when there is none
    int lastId = 0;  ///< the highest number given to a track, group or key so far

    /// Appends the track under a new number, which is returned. Its keys and their sub-keys get new
    /// numbers as well.
    TrackId AddTrack(SceneTrack track);
    /// Gives new numbers to the keys and to their sub-keys, whatever numbers they had.
    void NumberKeys(QVector<SceneKey>& keys);
    /// Makes a group of that name; its number is returned.
    GroupId AddGroup(const QString& name);

    /// The track of that number, or null. The pointer is good until the list of tracks changes.
    const SceneTrack* FindTrack(TrackId id) const;
    SceneTrack* FindTrack(TrackId id);
    /// The tracks that hang under @p parent, in display order; the roots for kNoTrack.
    QVector<TrackId> ChildrenOf(TrackId parent) const;
};

bool operator==(const SceneGroup& a, const SceneGroup& b);
bool operator==(const TrackRelation& a, const TrackRelation& b);
bool operator==(const TimeMark& a, const TimeMark& b);
bool operator==(const Scene& a, const Scene& b);
inline bool operator!=(const Scene& a, const Scene& b)
{
    return !(a == b);
}

} // namespace host
