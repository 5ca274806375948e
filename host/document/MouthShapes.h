#pragma once

#include <QString>

#include <optional>

namespace host {

/// The variants of a viseme key's picture: 0 is the closed mouth at rest (cue value X), 1 to 8 are
/// the shapes A to H of a mouth-cue file; 9 to 16 are free for the user's own shapes.
constexpr int kClosedMouth = 0;
constexpr int kLastCueShape = 8;
constexpr int kMouthShapeCount = 17;

/// The variant of a cue value "A" to "H" or "X"; nothing for any other text.
std::optional<int> MouthShapeOfCue(const QString& value);

/// The cue value of a variant 0 to 8; an empty text for any other.
QString CueOfMouthShape(int shape);

/// What a shape is called in short: its cue value, or its number when it has none.
QString ShortNameOfMouthShape(int shape);

/// How the mouth stands in a variant 0 to 8 and in which sounds: "wide open (aa)"; an empty text
/// for any other.
QString DescriptionOfMouthShape(int shape);

} // namespace host
