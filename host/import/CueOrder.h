#pragma once

#include "document/SpokenLine.h"

namespace host {

constexpr double kLongestLine = 24 * 60 * 60; ///< seconds; a longer line is a damaged file

/// Puts the cues of a line into the order of their start, so that each moment of the line has one:
/// a cue that reaches into the next one ends where that starts, and time without a cue, also before
/// the first and behind the last one, becomes a cue of the mouth at rest. Gaps of less than a
/// hundredth of a second, which come from rounding, become part of the cue before them.
void OrderCues(SpokenLine& line);

} // namespace host
