#include "TimelineCallbacks.h"

namespace host {

void TimelineCallbacks::OnMoveTimeMark(int mark, int frame, bool)
{
    if (timeMarkMoved)
        timeMarkMoved(mark, frame);
}

void TimelineCallbacks::OnSwitchBtnStateChanged(CTimelineTrackBase* track, int button)
{
    if (switchButtonToggled)
        switchButtonToggled(track, button);
}

} // namespace host
