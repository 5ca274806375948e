#pragma once

class TrackReport;

/// Sends both notices of the current frame, which is brought into the timeline first. @return
/// whether the track is still there to go on, see TrackReport.
bool ReportCurrentFrame(TrackReport& report);

/// The valid frame nearest to @p frame; -1 while there are no frames.
int NearestFrame(long long frame);

/// Makes the valid frame nearest to @p frame the current one. Nobody is told.
void WriteCurrentFrame(long long frame);
