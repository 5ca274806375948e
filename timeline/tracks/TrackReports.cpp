#include "tracks/TrackReports.h"

#include "axis/ClampedInt.h"
#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "tracks/CTimelineTrackBase.h"

#include <QPointer>

#include <algorithm>

namespace {

FrameAxis& Axis()
{
    return TimelineLibrary::Instance().axis;
}

} // namespace

bool Report(CTimelineTrackBase& track, int code, const QVariant& value2)
{
    const QPointer<CTimelineTrackBase> sender(&track);
    track.Send(code, value2);
    return sender && sender->GetOwner();
}

bool ReportCurrentFrame(CTimelineTrackBase& track)
{
    // The host may have taken frames away since the current one was written.
    WriteCurrentFrame(Axis().currentFrame);
    return Report(track, kTrackFrameMoved) && Report(track, kTrackFrameSet);
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
