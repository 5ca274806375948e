#include "container/TrackMessageDispatch.h"

#include "container/CTimelineContainer.h"
#include "library/TimelineLibrary.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CTimelineTrackBase.h"

#include <algorithm>

namespace {

int ForwardToHost(CTimelineContainer& container, const TrackMessage& message, unsigned int code)
{
    const auto handle = reinterpret_cast<HANDLE>(static_cast<qintptr>(message.number));
    container.SendToHost(code, message.track, handle, message.value1, message.value2,
                         message.value3);
    return 0;
}

/// The menu query: an int cannot carry the list's address, so it comes as the first value and goes
/// on as the handle.
int ForwardMenuQuery(CTimelineContainer& container, const TrackMessage& message)
{
    container.SendToHost(1310, message.track, message.value1.value<void*>(), message.value1,
                         message.value2, message.value3);
    return 0;
}

int Edit(CTimelineContainer& container, const TrackMessage& message, TLEditType type,
         const QVariant& value1, const QVariant& value2)
{
    VZ::CArrayList<CTimelineTrackBase*> tracks;
    tracks.Add(message.track);
    return container.SendEdit(type, tracks, value1, value2);
}

int Update(CTimelineContainer& container)
{
    container.Refresh(false);
    return 0;
}

int SelectionChanged(CTimelineContainer& container, const TrackMessage& message)
{
    FollowSelection(container, *message.track);
    container.Refresh(false);
    container.NotifyTimelineRefreshed();
    return ForwardToHost(container, message, 1313);
}

int CurrentFrameSet(CTimelineContainer& container, TrackMessage message, unsigned int code)
{
    container.Refresh(true);
    message.value1 = QVariant(container.GetCurrentFrame());
    return ForwardToHost(container, message, code);
}

int TimeMarkMoved(CTimelineContainer& container, const TrackMessage& message, unsigned int code)
{
    ForwardToHost(container, message, code);
    return Update(container);
}

int EditBegins(CTimelineContainer& container, const TrackMessage& message)
{
    return Edit(container, message, TL_EDIT_BEGIN, QVariant(0), QVariant(0));
}

int EditStep(CTimelineContainer& container, const TrackMessage& message, TLEditType type)
{
    Edit(container, message, type, message.value2, message.value3);
    return 0;
}

int EditEnds(CTimelineContainer& container, const TrackMessage& message, TLEditType type)
{
    Edit(container, message, type, message.value2, message.value3);
    Edit(container, message, TL_EDIT_END, QVariant(0), QVariant(0));
    return 0;
}

int LoopOrSpeed(const CTimelineContainer& container)
{
    return container.GetLoopSpeedState() ? TL_EDIT_CLIP_SPEED : TL_EDIT_CLIP_LOOP;
}

using Container = CTimelineContainer;
using Message = TrackMessage;

struct Row
{
    int code;
    int (*act)(Container& container, const Message& message);
};

// clang-format off
constexpr Row kRows[] = {
    {1101, [](Container& c, const Message&) { return Update(c); }},
    {1102, [](Container& c, const Message& m) { return SelectionChanged(c, m); }},
    {1103, [](Container& c, const Message& m) { c.ClearKeySelectionExcept(m.track); return 0; }},
    {1104, [](Container& c, const Message& m) { return CurrentFrameSet(c, m, 1301); }},
    {1105, [](Container& c, const Message& m) { return CurrentFrameSet(c, m, 1302); }},
    {1106, [](Container& c, const Message& m) { return TimeMarkMoved(c, m, 1303); }},
    {1107, [](Container& c, const Message& m) { return TimeMarkMoved(c, m, 1304); }},
    {1108, [](Container& c, const Message& m) { c.ActivateTrack(m.track); return 0; }},
    {1115, [](Container& c, const Message& m) { return ForwardToHost(c, m, 1307); }},
    {1116, [](Container& c, const Message& m) { return ForwardMenuQuery(c, m); }},
    {1117, [](Container& c, const Message& m) { return ForwardToHost(c, m, 1311); }},
    {1201, [](Container& c, const Message&) { return Update(c); }},
    {1202, [](Container& c, const Message&) { c.RefreshRows(); return Update(c); }},
    {1203, [](Container& c, const Message& m) { return EditBegins(c, m); }},
    {1204, [](Container& c, const Message& m) { return EditStep(c, m, TL_EDIT_CLIP_LOOP); }},
    {1205, [](Container& c, const Message& m) { return EditEnds(c, m, TL_EDIT_CLIP_LOOP_END); }},
    {1206, [](Container& c, const Message& m) { return EditBegins(c, m); }},
    {1207, [](Container& c, const Message& m) { return EditStep(c, m, TL_EDIT_CLIP_SPEED); }},
    {1208, [](Container& c, const Message& m) { return EditEnds(c, m, TL_EDIT_CLIP_SPEED_END); }},
    {1209, [](Container& c, const Message& m) { return EditBegins(c, m); }},
    {1210, [](Container& c, const Message& m) { return EditStep(c, m, TL_EDIT_CLIP_TRIM); }},
    {1211, [](Container& c, const Message& m) { return EditEnds(c, m, TL_EDIT_CLIP_TRIM_END); }},
    {1212, [](Container& c, const Message&) { return LoopOrSpeed(c); }},
    {1213, [](Container& c, const Message& m) { return ForwardToHost(c, m, 1308); }},
    {1214, [](Container& c, const Message&) { return Update(c); }},
};
// clang-format on

} // namespace

int DispatchTrackMessage(CTimelineContainer& container, const TrackMessage& message)
{
    if (!container.HasOwner())
        return -1;
    const auto row = std::find_if(std::begin(kRows), std::end(kRows), [&message](const Row& each) {
        return each.code == message.code;
    });
    return row == std::end(kRows) ? -1 : row->act(container, message);
}

namespace {

void FollowGroup(const std::vector<CTimelineTrackBase*>& tracks, const CTimelineKey& key)
{
    for (CTimelineTrackBase* const track : tracks) {
        CTimelineKeyArray& keys = track->Keys();
        const int count = static_cast<int>(keys.GetSize());
        for (int i = 0; i < count; ++i) {
            if (keys.Keys()[static_cast<std::size_t>(i)]->group == key.group)
                keys.SetSelectionByIndex(i, i, key.selected, TL_KEY_ANY_KIND);
        }
    }
}

} // namespace

void FollowSelection(const CTimelineContainer& container, CTimelineTrackBase& track)
{
    const CTimelineKeyArray& keys = track.Keys();
    const std::vector<CTimelineTrackBase*> shown = container.Tree().AllTracks();
    // Key by key, without a snapshot: the first key of a group that is met decides for the group.
    for (const auto& key : keys.Keys()) {
        if (key->group)
            FollowGroup(shown, *key);
    }
    for (const _tmpTLRelatedMap& row : TimelineLibrary::Instance().relations.Rows()) {
        if (row.kind != RelationTable::kSharedSelection ||
            std::find(row.tracks.begin(), row.tracks.end(), &track) == row.tracks.end())
            continue;
        for (const auto& key : keys.Keys()) {
            for (CTimelineTrackBase* const other : row.tracks) {
                if (other != &track && CTimelineTrackBase::IsAlive(other))
                    other->Keys().SetSelection(key->frame, key->frame, key->selected,
                                               TL_KEY_ANY_KIND);
            }
        }
    }
}
