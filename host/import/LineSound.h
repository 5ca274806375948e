#pragma once

#include "Material.h"

namespace host {

/// The sound that a file of mouth cues names ("soundFile" in its "metadata"); nothing when none is
/// named or it cannot be read: the line is as good without, but @p problem then says why in one
/// line, and also when the sound will not be heard.
/// @param cues the file's text. @param path of the file, beside which the sound is looked for.
std::optional<Sound> SoundOfLine(const QByteArray& cues, const QString& path, QString& problem);

} // namespace host
