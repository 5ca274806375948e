#include "tracks/CurrentFrame.h"

#include "axis/ClampedInt.h"
#include "library/TimelineLibrary.h"
#include "tracks/TrackReport.h"

#include <algorithm>

namespace {

FrameAxis& Axis()
{
    return TimelineLibrary::Instance().axis;
}

} // namespace

bool ReportCurrentFrame(TrackReport& report)
{
    // The host may have taken frames away since the current one was written.
    WriteCurrentFrame(Axis().currentFrame);
    return report.SendCurrentFrame();
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
