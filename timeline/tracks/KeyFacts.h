#pragma once

#include "CTimelineKeyArray.h"

#include <array>
#include <vector>

/// What painting and hit tests want to know about all keys of a track and find out once, not with
/// every paint: whether the keys can be searched by frame, and how far beyond their own frames they
/// reach. Kept by the track until the number of its keys changes or the track is told that they
/// changed. Facts that are out of date cost a wrong picture until then, never more: positions in
/// the lists are kept here, no keys.
struct KeyFacts
{
    /// Keys and related keys are in frame order, no clip reaches the key after it, and sub-keys are
    /// in order inside one pass: every key of a span of frames is found by searching. Otherwise all
    /// keys are walked.
    bool searchable = false;
    bool hasSubKeys = false;
    /// Frames; the longest reach of a transition from its key, on either side.
    long long longestTransition = 0;
    /// Pixels; how far rectangles of segments reach to the left and right of their glyph's left
    /// edge.
    int segmentsLeft = 0;
    int segmentsRight = 0;

    /// Link and transition rows that have related keys but no sub-keys: the keys that are drawn,
    /// own keys by their index, related ones by -1 - index.
    std::vector<int> drawnOrder;
    /// Transition rows: the last drawn key without a transition for each of unselected, selected,
    /// unselected in a group, selected in a group; as a place in the drawn keys, -1 without any.
    std::array<int, 4> lastWithoutTransition = {-1, -1, -1, -1};

    std::size_t keyCount = 0;
    std::size_t relatedCount = 0;
    int frameCount = 0;
    bool valid = false;

    bool IsCurrent(const CTimelineKeyArray& keys, int frames) const
    {
        return valid && frameCount == frames && keyCount == keys.GetSize() &&
               relatedCount == keys.RelatedGetSize();
    }
};

/// Looks at every key of a track of type @p trackType, once.
KeyFacts GatherFacts(const CTimelineKeyArray& keys, int trackType, int frameCount);

/// The keys that a link or transition row without sub-keys draws, in frame order, named by their
/// place. Facts must be current.
class DrawnKeys
{
public:
    DrawnKeys(const CTimelineKeyArray& keys, const KeyFacts& facts);

    int Size() const;
    const CTimelineKey* At(int place) const;
    /// The first place whose frame is not below @p frame; Size() if there is none.
    int FirstFrom(long long frame) const;

private:
    const CTimelineKeyArray::KeyVector& m_keys;
    const CTimelineKeyArray::KeyVector& m_related;
    const std::vector<int>& m_order;
};
