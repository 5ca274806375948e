#pragma once

#include "CTimelineKeyArray.h"
#include "tracks/KeyFacts.h"
#include "tracks/RowView.h"

#include <vector>

/// One key as a row draws it: a key of the track, a related key, or a sub-key of a clip at the
/// place where one pass of the clip puts it. A sub-key takes its group, its type and, on rows where
/// sub-keys are edited, its selection from its clip. The keys are the array's; nothing is counted.
struct DisplayKey
{
    const CTimelineKey* key = nullptr;  ///< the key whose looks are drawn
    const CTimelineKey* clip = nullptr; ///< the clip of an expanded sub-key, else null
    int frame = 0;                      ///< where it is drawn
    bool selected = false;

    DisplayKey() = default;
    explicit DisplayKey(const CTimelineKey* own)
        : key(own), frame(own->frame), selected(own->selected)
    {
    }

    int KeyType() const { return clip ? clip->keyType : key->keyType; }
    bool IsGrouped() const { return static_cast<bool>(clip ? clip->group : key->group); }
    bool HasMask(int bits) const { return (key->kindMask & bits) != 0; }
};

/// What decides which sub-keys are expanded.
struct DisplayScope
{
    int firstVisibleFrame = 0;
    int lastVisibleFrame = 0;
    int lastFrame = 0;        ///< the frame count
    bool clipSelects = false; ///< sub-keys show their clip's selection
};

using DisplayKeyList = std::vector<DisplayKey>;

/// All keys that a row draws, in frame order as long as the lists are: clips that carry sub-keys
/// expanded, related keys merged in. At a shared frame a related key replaces the last one there
/// only with a higher priority, and is dropped otherwise.
DisplayKeyList CollectAll(const CTimelineKeyArray& keys, const DisplayScope& scope);

/// The part of CollectAll whose frames lie in @p window, found by searching instead of walking; the
/// whole of it when @p facts say that the keys cannot be searched.
DisplayKeyList CollectWindow(const CTimelineKeyArray& keys, const KeyFacts& facts,
                             const DisplayScope& scope, const FrameWindow& window);

/// A counted list of the same keys: keys of the track and related keys are shared, sub-keys become
/// fresh copies with their frame, group, type, clip length and selection, which keep the frame of
/// their clip in host value 1.
CTimelineKeyArray::KeyVector CountedCopies(const DisplayKeyList& list);
