#pragma once

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <functional>

namespace host {

/// Hands the timeline's callbacks to whoever of the host they concern. A handler that is not set is
/// not called.
class TimelineCallbacks : public CTimelineManagerInterface
{
public:
    /// A marker of the ruler stands at @p frame now. @p mark: 0 start, 1 end.
    std::function<void(int mark, int frame)> timeMarkMoved;
    /// A button of a switch row was switched on or off.
    std::function<void(CTimelineTrackBase* track, int button)> switchButtonToggled;

    void OnMoveTimeMark(int mark, int frame, bool flag) override;
    void OnSwitchBtnStateChanged(CTimelineTrackBase* track, int button) override;
};

} // namespace host
