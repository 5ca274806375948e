#pragma once

#include "CTimelineKeyArray.h"

#include <QPoint>

#include <functional>
#include <optional>

class FrameAxis;
struct KeyFacts;

/// A clip's edge that can be dragged; -1 and -1 for none.
struct ClipEdgeHit
{
    int clip = -1; ///< index in the track's keys
    int kind = -1; ///< TL_EDIT_CLIP_LOOP, TL_EDIT_CLIP_SPEED or TL_EDIT_CLIP_TRIM

    bool IsEdge() const { return clip >= 0; }
};

/// What a clip track's edit modes allow at the edges of its clips.
struct ClipEdgeModes
{
    bool loop = false;
    bool speed = false;
    bool trim = false;
};

/// Where the edges of a row's clips lie, and how far a drag of one of them goes. Works on the keys
/// and the axis it was given and keeps nothing: make one for each event. Positions are pixels of
/// the row.
class ClipEdges
{
public:
    /// @p rowHeight and @p clipHeight in pixels. @p facts are those of @p keys: all keys are asked
    /// when they cannot be searched.
    ClipEdges(const FrameAxis& axis, const CTimelineKeyArray& keys, const KeyFacts& facts,
              int rowHeight, int clipHeight);

    /// The edge under @p point. The trim edges of selected clips come first, then the ends of all
    /// clips, where @p askWhich decides between loop (3) and speed (4) when both are allowed; a
    /// negative answer means no edge. It is not called otherwise.
    ClipEdgeHit HitTest(QPoint point, const ClipEdgeModes& modes,
                        const std::function<int()>& askWhich) const;
    /// The last selected clip whose lead-in starts at @p point; -1 for none. Asks the clips
    /// themselves: the array's list of selected indexes is out of step with them after an
    /// unselected key was removed.
    int HitTrimEdge(QPoint point) const;
    /// The last clip that ends at @p point; -1 for none.
    int HitEndEdge(QPoint point) const;

private:
    bool IsInBar(int y) const;
    bool IsTrimEdge(const CTimelineKey& clip, int x) const;

    const FrameAxis& m_axis;
    const CTimelineKeyArray::KeyVector& m_keys;
    const KeyFacts& m_facts;
    int m_rowHeight;
    int m_clipHeight;
};

// The amounts of a drag with the pointer at x, a pixel of the row. No value: nothing changes.

/// Passes to add to the clip's loop count, which never falls below 1; none at or left of the
/// clip's start.
std::optional<int> LoopDragAmount(const FrameAxis& axis, const CTimelineKey& clip, int x);
/// Frames to add to the clip's whole length, which stays within its shortest and longest pass
/// (host values 3 and 2).
std::optional<int> SpeedDragAmount(const FrameAxis& axis, const CTimelineKey& clip, int x);
/// Frames to add to the clip's lead-in, which never becomes negative.
std::optional<int> TrimDragAmount(const FrameAxis& axis, const CTimelineKey& clip, int x);
/// The amount of a drag of @p kind; none for a kind that is not an edge's.
std::optional<int> EdgeDragAmount(int kind, const FrameAxis& axis, const CTimelineKey& clip, int x);

/// The first frame after the clip.
long long ClipEndFrame(const CTimelineKey& clip);
/// The pixel of the clip's end and of the start of its lead-in.
int ClipEndPixel(const FrameAxis& axis, const CTimelineKey& clip);
int ClipTrimPixel(const FrameAxis& axis, const CTimelineKey& clip);
/// True within two pixels of the dragged edge, where a drag that begins does not take a step yet.
bool IsNearEdge(int kind, const FrameAxis& axis, const CTimelineKey& clip, int x);
