#pragma once

#include <QVariant>

class CTimelineTrackBase;

/// Sends a message of @p track to its owner. @return whether the track is still there to go on:
/// false when the host has deleted it meanwhile, or taken it out of the timeline.
bool Report(CTimelineTrackBase& track, int code, const QVariant& value2 = QVariant(0));

/// Sends both notices of the current frame, which is brought into the timeline first. @return as
/// above.
bool ReportCurrentFrame(CTimelineTrackBase& track);

/// The valid frame nearest to @p frame; -1 while there are no frames.
int NearestFrame(long long frame);

/// Makes the valid frame nearest to @p frame the current one. Nobody is told.
void WriteCurrentFrame(long long frame);
