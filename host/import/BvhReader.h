#pragma once

#include "ImportError.h"
#include "ImportProgress.h"
#include "document/Motion.h"

#include <optional>

namespace host {

/// Reads a motion capture in the BVH format: a hierarchy of joints with their channels, then one
/// line of numbers a sample. Accepts samples that are broken into lines otherwise, if their numbers
/// are as many as they should, channels in any order, more than one root, any line ends,
/// upper and lower case keywords, a byte order mark, a missing last line
/// end and marks of the end that old systems wrote. Refuses, naming
/// the line, whatever does not add up: then nothing is returned and @p error is filled.
/// @param fileName names the file in the error; its base name becomes the motion's name.
/// @param progress hears how far the reading is; when it cancels, nothing is returned.
std::optional<Motion> ReadBvh(const QByteArray& text, const QString& fileName, ImportError& error,
                              const ImportProgress& progress = {});

} // namespace host
