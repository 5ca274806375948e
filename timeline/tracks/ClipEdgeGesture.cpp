#include "tracks/ClipEdgeGesture.h"

#include "TimelineEnums.h"
#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CTimelineTrackClip.h"
#include "tracks/TrackReport.h"

#include <algorithm>
#include <utility>

namespace {

/// What the drag of one kind of edge reports.
struct DragCodes
{
    int kind;
    TrackCode begins;
    TrackCode step;
    TrackCode ends;
};

constexpr DragCodes kDragCodes[] = {
    {TL_EDIT_CLIP_LOOP, kTrackLoopBegins, kTrackLoopStep, kTrackLoopEnds},
    {TL_EDIT_CLIP_SPEED, kTrackSpeedBegins, kTrackSpeedStep, kTrackSpeedEnds},
    {TL_EDIT_CLIP_TRIM, kTrackTrimBegins, kTrackTrimStep, kTrackTrimEnds},
};

const DragCodes* CodesOf(int kind)
{
    const auto found = std::find_if(std::begin(kDragCodes), std::end(kDragCodes),
                                    [kind](const DragCodes& each) { return each.kind == kind; });
    return found == std::end(kDragCodes) ? nullptr : found;
}

} // namespace

void ClipEdgeGesture::Press(const ClipEdgeHit& edge, TrackReport& report)
{
    CTimelineKeyArray& keys = m_track.Keys();
    m_kind = edge.kind;
    m_hasMoved = false;
    m_clip.Hold(keys, edge.clip);
    // The drag may end while the host is being told of the press; the clip is selected even then.
    HeldKey clip = m_clip;

    if (!report.Send(kTrackPressed))
        return;
    keys.ClearAllSelection();
    if (!report.Send(kTrackSelectionCleared))
        return;
    if (clip.Find(keys))
        keys.SetSelectionByIndex(clip.Index(), clip.Index(), true, TL_KEY_ANY_KIND);
    report.Send(kTrackSelectionChanged);
}

void ClipEdgeGesture::DragTo(int x, TrackReport& report)
{
    const FrameAxis& axis = TimelineLibrary::Instance().axis;
    const DragCodes* const codes = CodesOf(m_kind);
    const CTimelineKey* clip = m_clip.Find(m_track.Keys());
    if (!codes || !clip)
        return;
    auto amount = EdgeDragAmount(m_kind, axis, *clip, x);
    if (!amount)
        return;

    if (!std::exchange(m_hasMoved, true)) {
        if (!report.Send(codes->begins, m_clip.Index(), *amount))
            return;
        // The host may have made another clip of this one.
        clip = m_clip.Find(m_track.Keys());
        if (!clip || IsNearEdge(m_kind, axis, *clip, x))
            return;
        amount = EdgeDragAmount(m_kind, axis, *clip, x);
        if (!amount)
            return;
    }
    report.Send(codes->step, m_clip.Index(), *amount);
}

void ClipEdgeGesture::Release()
{
    m_clip.Find(m_track.Keys());
    const int clip = m_clip.Index();
    const DragCodes* const codes = CodesOf(std::exchange(m_kind, -1));
    m_clip.LetGo();
    if (std::exchange(m_hasMoved, false) && codes)
        TrackReport(m_track).Send(codes->ends, clip);
}
