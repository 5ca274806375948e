#include "container/TrackMessageDispatch.h"

#include "container/CTimelineContainer.h"
#include "container/SelectionFollowing.h"
#include "model/MessageCodes.h"
#include "tracks/CTimelineTrackBase.h"

#include <QPointer>

#include <algorithm>

namespace {

/// Whether the container and the track that reported are still there: host code may have deleted or
/// hidden either, and nothing follows from a track that is gone.
class Sender
{
public:
    Sender(CTimelineContainer& container, const TrackMessage& message)
        : m_container(&container), m_track(message.track)
    {
    }

    bool IsThere() const { return m_container && m_track && m_track->GetOwner(); }

private:
    QPointer<CTimelineContainer> m_container;
    QPointer<CTimelineTrackBase> m_track;
};

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
    container.SendToHost(kHostMenuQuery, message.track, message.value1.value<void*>(),
                         message.value1, message.value2, message.value3);
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
    const Sender sender(container, message);
    FollowSelection(container, *message.track);
    container.Refresh(false);
    container.NotifyTimelineRefreshed();
    if (!sender.IsThere())
        return 0;
    return ForwardToHost(container, message, kHostSelectionChanged);
}

int CurrentFrameSet(CTimelineContainer& container, TrackMessage message, unsigned int code)
{
    const Sender sender(container, message);
    container
        .ShowCurrentFrame(); // paints what else the window has to paint, widgets of the host too
    if (!sender.IsThere())
        return 0;
    message.value1 = QVariant(container.GetCurrentFrame());
    return ForwardToHost(container, message, code);
}

int TimeMarkMoved(CTimelineContainer& container, const TrackMessage& message, unsigned int code)
{
    const Sender sender(container, message);
    ForwardToHost(container, message, code);
    return sender.IsThere() ? Update(container) : 0;
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
    const Sender sender(container, message);
    Edit(container, message, type, message.value2, message.value3);
    if (sender.IsThere())
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
    {kTrackRepaint, [](Container& c, const Message&) { return Update(c); }},
    {kTrackSelectionChanged, [](Container& c, const Message& m) { return SelectionChanged(c, m); }},
    {kTrackSelectionCleared, [](Container& c, const Message& m) { c.ClearKeySelectionExcept(m.track); return 0; }},
    {kTrackFrameMoved, [](Container& c, const Message& m) { return CurrentFrameSet(c, m, kHostFrameMoved); }},
    {kTrackFrameSet, [](Container& c, const Message& m) { return CurrentFrameSet(c, m, kHostFrameSet); }},
    {kTrackTimeMarkMoved, [](Container& c, const Message& m) { return TimeMarkMoved(c, m, kHostTimeMarkMoved); }},
    {kTrackTimeMarkSet, [](Container& c, const Message& m) { return TimeMarkMoved(c, m, kHostTimeMarkSet); }},
    {kTrackPressed, [](Container& c, const Message& m) { c.ActivateTrack(m.track); return 0; }},
    {kTrackKeyMoveBegins, [](Container& c, const Message& m) { return c.KeyDrag().Handle(m); }},
    {kTrackKeyMoveStep, [](Container& c, const Message& m) { return c.KeyDrag().Handle(m); }},
    {kTrackKeyMoveEnds, [](Container& c, const Message& m) { return c.KeyDrag().Handle(m); }},
    {kTrackKeyCopyBegins, [](Container& c, const Message& m) { return c.KeyDrag().Handle(m); }},
    {kTrackKeyCopyStep, [](Container& c, const Message& m) { return c.KeyDrag().Handle(m); }},
    {kTrackKeyCopyEnds, [](Container& c, const Message& m) { return c.KeyDrag().Handle(m); }},
    {kTrackDoubleClicked, [](Container& c, const Message& m) { return ForwardToHost(c, m, kHostDoubleClicked); }},
    {kTrackMenuQuery, [](Container& c, const Message& m) { return ForwardMenuQuery(c, m); }},
    {kTrackMenuChosen, [](Container& c, const Message& m) { return ForwardToHost(c, m, kHostMenuChosen); }},
    {kTrackViewChanged, [](Container& c, const Message&) { return Update(c); }},
    {kTrackRowsMoved, [](Container& c, const Message&) { c.RefreshRows(); return Update(c); }},
    {kTrackLoopBegins, [](Container& c, const Message& m) { return EditBegins(c, m); }},
    {kTrackLoopStep, [](Container& c, const Message& m) { return EditStep(c, m, TL_EDIT_CLIP_LOOP); }},
    {kTrackLoopEnds, [](Container& c, const Message& m) { return EditEnds(c, m, TL_EDIT_CLIP_LOOP_END); }},
    {kTrackSpeedBegins, [](Container& c, const Message& m) { return EditBegins(c, m); }},
    {kTrackSpeedStep, [](Container& c, const Message& m) { return EditStep(c, m, TL_EDIT_CLIP_SPEED); }},
    {kTrackSpeedEnds, [](Container& c, const Message& m) { return EditEnds(c, m, TL_EDIT_CLIP_SPEED_END); }},
    {kTrackTrimBegins, [](Container& c, const Message& m) { return EditBegins(c, m); }},
    {kTrackTrimStep, [](Container& c, const Message& m) { return EditStep(c, m, TL_EDIT_CLIP_TRIM); }},
    {kTrackTrimEnds, [](Container& c, const Message& m) { return EditEnds(c, m, TL_EDIT_CLIP_TRIM_END); }},
    {kTrackLoopOrSpeed, [](Container& c, const Message&) { return LoopOrSpeed(c); }},
    {kTrackSwitchToggled, [](Container& c, const Message& m) { return ForwardToHost(c, m, kHostSwitchToggled); }},
    {kTrackButtonsScrolled, [](Container& c, const Message&) { return Update(c); }},
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
