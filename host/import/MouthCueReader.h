#pragma once

#include "ImportError.h"
#include "ImportProgress.h"
#include "document/SpokenLine.h"

#include <optional>

namespace host {

/// Reads the mouth shapes of a spoken line from JSON: an object whose "metadata" holds "duration"
/// in seconds and whose "mouthCues" lists "start" and "end" in seconds and "value", A to H or X.
/// Cues may stand in any order, overlap and leave gaps: see OrderCues for what becomes of them.
/// Refuses, naming the line, whatever does not fit: then nothing is returned and @p error is
/// filled.
/// @param fileName names the file in the error; its base name becomes the line's name.
/// @param progress hears how far the reading is; when it cancels, nothing is returned.
std::optional<SpokenLine> ReadMouthCues(const QByteArray& text, const QString& fileName,
                                        ImportError& error, const ImportProgress& progress = {});

} // namespace host
