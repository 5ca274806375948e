#include "CueOrder.h"

#include "document/MouthShapes.h"

#include <algorithm>

namespace host {

namespace {

/// Seconds. Cue tools count in hundredths; the small rest keeps 0.31 - 0.30 from being less.
constexpr double kShortestRest = 0.01 - 1e-9;

/// Closes the time from the end of the last of @p cues to @p next.
void FillUpTo(double next, QVector<MouthCue>& cues)
{
    const double end = cues.isEmpty() ? 0 : cues.last().end;
    if (next - end >= kShortestRest)
        cues.append({end, next, kClosedMouth});
    else if (!cues.isEmpty())
        cues.last().end = std::max(next, cues.last().start);
}

} // namespace

void OrderCues(SpokenLine& line)
{
    std::stable_sort(line.cues.begin(), line.cues.end(),
                     [](const MouthCue& a, const MouthCue& b) { return a.start < b.start; });
    QVector<MouthCue> ordered;
    ordered.reserve(line.cues.size());
    for (const MouthCue& cue : qAsConst(line.cues)) {
        FillUpTo(cue.start, ordered);
        ordered.append(cue);
    }
    if (!ordered.isEmpty() && ordered.last().end < line.duration)
        FillUpTo(line.duration, ordered);
    line.cues = ordered;
}

} // namespace host
