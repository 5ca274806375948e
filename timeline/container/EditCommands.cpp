#include "container/EditCommands.h"

#include "container/CTimelineContainer.h"
#include "container/KeyNavigation.h"
#include "library/CallOut.h"
#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CTimelineTrackBase.h"

#include <QPointer>

#include <algorithm>

namespace {

using Container = CTimelineContainer;
using Track = CTimelineTrackBase;

bool HasOneSelected(const Track& track)
{
    return track.Keys().SelGetSize() == 1;
}

bool HasSelected(const Track& track)
{
    return track.Keys().SelGetSize() > 0;
}

bool CanCopyOrDelete(const Track& track)
{
    return track.GetTrackType() != TL_TRACK_VISEME_KEY && HasSelected(track);
}

bool CanEditClipEnd(const Track& track)
{
    return track.GetTrackType() == TL_TRACK_CLIP && HasOneSelected(track);
}

/// Cutting asks for the track that the copy and the delete will go to, whatever track was asked
/// about.
bool CanCut(const Container& container)
{
    return CanDoTrackEdit(container, TL_EDIT_COPY, nullptr) &&
           CanDoTrackEdit(container, TL_EDIT_DELETE, nullptr);
}

bool IsFreeAtCurrentFrame(const Container& container, const Track& track)
{
    return track.Keys().HitKey(container.GetCurrentFrame(), true) < 0;
}

/// A clip cannot be broken at its edge: both halves must have frames.
bool CanBreak(const Container& container, const Track& track)
{
    return HasOneSelected(track) &&
           track.Keys().HitClipRange(container.GetCurrentFrame(), true, true) >= 0;
}

bool HasTimeRange(const Track& track)
{
    return track.RangeStart() != track.RangeEnd();
}

bool CanAutoMotion(const Track& track)
{
    return HasSelected(track) && track.GetCaption().contains(QLatin1String("Auto Motion"));
}

struct Rule
{
    TLEditType type;
    bool (*isAvailable)(const Container& container, const Track& track);
};

// clang-format off
constexpr Rule kRules[] = {
    {TL_EDIT_CLIP_LOOP, [](const Container&, const Track& t) { return CanEditClipEnd(t); }},
    {TL_EDIT_CLIP_SPEED, [](const Container&, const Track& t) { return CanEditClipEnd(t); }},
    {TL_EDIT_CUT, [](const Container& c, const Track&) { return CanCut(c); }},
    {TL_EDIT_COPY, [](const Container&, const Track& t) { return CanCopyOrDelete(t); }},
    {TL_EDIT_PASTE, [](const Container&, const Track& t) { return t.Clipboard().HasData(); }},
    {TL_EDIT_DELETE, [](const Container&, const Track& t) { return CanCopyOrDelete(t); }},
    {TL_EDIT_INSERT_KEY, [](const Container& c, const Track& t) { return IsFreeAtCurrentFrame(c, t); }},
    {TL_EDIT_BREAK, [](const Container& c, const Track& t) { return CanBreak(c, t); }},
    {TL_EDIT_HOST_18, [](const Container&, const Track& t) { return HasOneSelected(t); }},
    {TL_EDIT_RANGE_COMMAND, [](const Container&, const Track& t) { return HasTimeRange(t); }},
    {TL_EDIT_HOST_20, [](const Container&, const Track& t) { return HasOneSelected(t); }},
    {TL_EDIT_AUTO_MOTION, [](const Container&, const Track& t) { return CanAutoMotion(t); }},
    {TL_EDIT_SELECT_PREVIOUS, [](const Container& c, const Track& t) { return CanSelectNeighbourKey(c, &t); }},
    {TL_EDIT_SELECT_NEXT, [](const Container& c, const Track& t) { return CanSelectNeighbourKey(c, &t); }},
    {TL_EDIT_SELECT_ALL, [](const Container&, const Track& t) { return t.Keys().GetSize() > 0; }},
    {TL_EDIT_HOST_27, [](const Container&, const Track& t) { return HasOneSelected(t); }},
};
// clang-format on

int FrameCount()
{
    return TimelineLibrary::Instance().axis.frameCount;
}

/// Those in the frames of the timeline, of the key at @p index if it is there and has any.
void SelectAllSubKeys(const CTimelineKeyArray& keys, int index)
{
    if (static_cast<std::size_t>(index) >= keys.GetSize())
        return;
    if (const auto subKeys = keys.GetAt(index)->subKeys)
        subKeys->SetSelection(0, FrameCount(), true, TL_KEY_ANY_KIND);
}

} // namespace

bool CanDoTrackEdit(const CTimelineContainer& container, TLEditType type, CTimelineTrackBase* track)
{
    if (!track)
        track = container.Tree().ActiveChild();
    if (!track || !track->HasEditMode(type))
        return false;
    const auto rule = std::find_if(std::begin(kRules), std::end(kRules),
                                   [type](const Rule& each) { return each.type == type; });
    return rule != std::end(kRules) && rule->isAvailable(container, *track);
}

bool DoTrackEdit(CTimelineContainer& container, TLEditType type, CTimelineTrackBase* track)
{
    switch (type) {
    case TL_EDIT_SELECT_PREVIOUS:
        SelectPreviousKey(container, track);
        return true;
    case TL_EDIT_SELECT_NEXT:
        SelectNextKey(container, track);
        return true;
    case TL_EDIT_SELECT_ALL:
        if (!track)
            track = container.Tree().ActiveChild();
        if (track)
            SelectAllKeys(container, *track);
        return true;
    default:
        return false;
    }
}

void SelectAllKeys(CTimelineContainer& container, CTimelineTrackBase& track)
{
    const CallOut callOut;
    const QPointer<CTimelineContainer> there(&container);
    const QPointer<CTimelineTrackBase> alive(&track);
    track.ClearRangeOrSubSelection();
    if (!there || !alive)
        return;
    CTimelineKeyArray& keys = track.Keys();
    if (track.HasEditMode(TL_EDIT_SUB_KEYS)) {
        // A copy: sub-keys may lead back to these keys.
        for (const int index : std::vector<int>(keys.SelectedIndexes()))
            SelectAllSubKeys(keys, index);
    } else {
        keys.SetSelection(0, FrameCount(), true, TL_KEY_ANY_KIND);
    }
    track.Send(kTrackSelectionChanged);
}

void SelectRowKeys(CTimelineContainer& container, CTimelineTrackBase& track)
{
    if (track.GetTrackType() != TL_TRACK_VISEME_KEY) {
        SelectAllKeys(container, track);
        return;
    }
    CTimelineKeyArray& keys = track.Keys();
    if (keys.GetSize() == 0)
        return;
    if (const auto subKeys = keys.GetAt(0)->subKeys)
        subKeys->ClearAllSelection();
    SelectAllSubKeys(keys, 0);
    keys.SetSelectionByIndex(0, 0, true, TL_KEY_ANY_KIND);
}
