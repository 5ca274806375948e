#pragma once

#include "ImportError.h"

#include <optional>

namespace host {

/// The length in seconds of a sound file (RIFF, WAVE), as its header gives it: no more of the
/// samples than the file holds. Nothing is returned, and @p error is filled, for a file that cannot
/// be read or is none.
std::optional<double> ReadWavSeconds(const QString& path, ImportError& error);

} // namespace host
