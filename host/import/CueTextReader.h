#pragma once

#include "ImportError.h"
#include "ImportProgress.h"
#include "document/SpokenLine.h"

#include <optional>

namespace host {

/// Reads the mouth shapes of a spoken line from text with a cue a line: the time in seconds, a tab
/// or spaces, and the shape, A to H or X. Each cue lasts until the next one; the line ends with the
/// start of the last cue. Cues may stand in any order; empty lines, any line ends, a byte order
/// mark and a missing last line end are fine. Refuses, naming the line, whatever does not fit: then
/// nothing is returned and @p error is filled.
/// @param fileName names the file in the error; its base name becomes the line's name.
/// @param progress hears how far the reading is; when it cancels, nothing is returned.
std::optional<SpokenLine> ReadCueText(const QByteArray& text, const QString& fileName,
                                      ImportError& error, const ImportProgress& progress = {});

} // namespace host
