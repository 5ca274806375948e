#include "tracks/CurrentFrame.h"

#include "axis/ClampedInt.h"
#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "tracks/TrackReport.h"

#include <algorithm>

namespace {

FrameAxis& Axis()
{
    return TimelineLibrary::Instance().axis;
}

} // namespace

bool ReportCurrentFrame(CTimelineTrackBase& track)
{
    // The host may have taken frames away since the current one was written.
    WriteCurrentFrame(Axis().currentFrame);
    TrackReport report(track);
    return report.Send(kTrackFrameMoved) && report.Send(kTrackFrameSet);
}

int NearestFrame(long long frame)
{
    // The lower bound first: without frames every frame becomes -1.
    return ClampedInt(std::min(std::max(frame, 0LL), Axis().frameCount - 1LL));
}

void WriteCurrentFrame(long long frame)
{
    Axis().currentFrame = NearestFrame(frame);
}
