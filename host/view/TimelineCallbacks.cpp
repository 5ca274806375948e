#include "TimelineCallbacks.h"

namespace host {

namespace {

constexpr int kRefused = -1;

template <class Handler, class... Arguments>
void Tell(const Handler& handler, Arguments&&... arguments)
{
    if (handler)
        handler(std::forward<Arguments>(arguments)...);
}

} // namespace

void TimelineCallbacks::OnCurrentFrameChanged(int, bool)
{
    // The timeline's window hears of it as well, and of what the host itself does.
}

void TimelineCallbacks::OnMoveTimeMark(int mark, int frame, bool flag)
{
    Tell(timeMarkMoved, mark, frame, flag);
}

void TimelineCallbacks::OnActiveTrackChanged(CTimelineTrackBase* root, CTimelineTrackBase* child)
{
    Tell(activeTrackChanged, root, child);
    Tell(selectionChanged);
    Tell(situationChanged);
}

void TimelineCallbacks::OnSwitchBtnStateChanged(CTimelineTrackBase* track, int button)
{
    Tell(switchButtonToggled, track, button);
}

int TimelineCallbacks::OnEditingKeys(TLEditType type,
                                     const VZ::CArrayList<CTimelineTrackBase*>& tracks, int value1,
                                     int value2)
{
    return keysEdited ? keysEdited(type, tracks, value1, value2) : kRefused;
}

void TimelineCallbacks::OnCaptionBtnChanged(CTimelineTrackBase* track, int button, QPoint position)
{
    Tell(captionButtonClicked, track, button, position);
}

void TimelineCallbacks::OnQueryTrackRightMenu(CTimelineTrackBase* track,
                                              std::vector<_tmpTLMenuMapData*>* menu)
{
    if (menu)
        Tell(menuOpening, track, *menu);
}

void TimelineCallbacks::OnSelectedTrackRightMenu(CTimelineTrackBase* track, int command)
{
    Tell(menuChosen, track, command);
}

void TimelineCallbacks::OnSelectedDataCleared()
{
    Tell(selectionChanged);
    Tell(situationChanged);
}

void TimelineCallbacks::OnSelectedDataChanged()
{
    Tell(selectionChanged);
    Tell(situationChanged);
}

bool TimelineCallbacks::OnTrackDropFile(TLDropFileType type, QString path)
{
    return fileDropped && fileDropped(type, path);
}

void TimelineCallbacks::OnCheckDragFile(CTimelineTrackBase* track, QString path, int frame)
{
    Tell(fileHeld, track, path, frame);
}

} // namespace host
