#pragma once

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QObject>

namespace host {

/// Turns the timeline's callbacks into signals, so that each part of the host listens to what
/// concerns it.
class TimelineCallbacks : public QObject, public CTimelineManagerInterface
{
    Q_OBJECT
public:
    void OnMoveTimeMark(int mark, int frame, bool flag) override;
    void OnSwitchBtnStateChanged(CTimelineTrackBase* track, int button) override;

signals:
    /// A marker of the ruler was moved to @p frame. @p mark: 0 start, 1 end.
    void TimeMarkMoved(int mark, int frame);
    /// A button of a switch row was switched on or off.
    void SwitchButtonToggled(CTimelineTrackBase* track, int button);
};

} // namespace host
