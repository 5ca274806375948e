#include "TimelineCallbacks.h"

namespace host {

void TimelineCallbacks::OnMoveTimeMark(int mark, int frame, bool)
{
    emit TimeMarkMoved(mark, frame);
}

void TimelineCallbacks::OnSwitchBtnStateChanged(CTimelineTrackBase* track, int button)
{
    emit SwitchButtonToggled(track, button);
}

} // namespace host
