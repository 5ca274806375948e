#pragma once

#include "CTimelineKeyArray.h"
#include "tracks/RowView.h"

#include <array>
#include <cstdint>
#include <vector>

/// What painting and hit tests want to know about all keys of a track and find out once, not with
/// every paint: whether the keys can be searched by frame, and how far beyond their own frames they
/// reach. Kept by the track until the number of its keys changes or the track is told that they
/// changed. The facts about selected keys are kept until any array has changed: see
/// GatherSelection. Facts that are out of date cost a wrong picture until then, never more:
/// positions in the lists are kept here, no keys.
struct KeyFacts
{
    /// Keys and related keys are in frame order, and no clip reaches the key after it: every key of
    /// a span of frames is found by searching. Otherwise all keys are walked.
    bool searchable = false;
    /// Some key carries a list of sub-keys, though perhaps an empty one.
    bool hasSubKeys = false;
    /// With the clips' sub-keys in their places, the keys are still in frame order.
    bool subKeysInOrder = true;
    /// Sub-keys of some clip are drawn in front of the view, too.
    bool subKeysOutOfView = false;
    /// Frames; how far in front of their clip sub-keys are drawn.
    long long subKeysInFront = 0;
    /// Link rows with sub-keys: both own keys and related copies are drawn, which hide each other.
    bool mixedCopies = false;
    /// Frames; the longest reach of a transition from its key, on either side.
    long long longestTransition = 0;
    /// Frames; how far the lead-in of a clip, which only selected clips show, starts from the clip.
    long long longestLeadIn = 0;
    /// Pixels; how far rectangles of segments reach to the left and right of their glyph's left
    /// edge.
    int segmentsLeft = 0;
    int segmentsRight = 0;

    /// Link rows without sub-keys, on which keys hide each other: the keys that are drawn, own keys
    /// by their index, related ones by -1 - index. Empty when all own keys are drawn and no others.
    std::vector<int> drawnOrder;
    /// Transition rows: the last own key without a transition, by whether it is in a group and
    /// selected, and the last related one, by whether it is in a group; -1 without any. Keys with
    /// sub-keys do not count.
    std::array<std::array<int, 2>, 2> lastWithoutTransition = {{{-1, -1}, {-1, -1}}};
    std::array<int, 2> lastRelatedWithoutTransition = {-1, -1};
    std::uint64_t revision = 0; ///< of all arrays, when the selected keys were looked at

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

/// Brings up to date which keys are selected. Only transition rows want to know; the keys are
/// looked at once more when any array has changed since. It asks the keys, since the array's list
/// of selected indexes is out of step with them after an unselected key was removed.
void GatherSelection(const CTimelineKeyArray& keys, int trackType, KeyFacts& facts);

/// The keys that a link row without sub-keys draws, in frame order, named by their place. Facts
/// must be current.
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

/// Indexes of the keys that start in @p window and, before them, of the one clip that may reach
/// into it; all indexes when the facts say that the keys cannot be searched. The end is not
/// included.
struct KeyRange
{
    std::size_t begin = 0;
    std::size_t end = 0;
};
KeyRange KeysReaching(const CTimelineKeyArray::KeyVector& keys, const KeyFacts& facts,
                      const FrameWindow& window);
