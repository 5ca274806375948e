#include "MouthShapes.h"

namespace host {

namespace {

/// A value's place in the row is its variant.
const QString kCueValues = QStringLiteral("XABCDEFGH");

} // namespace

std::optional<int> MouthShapeOfCue(const QString& value)
{
    if (value.size() != 1)
        return std::nullopt;
    const int shape = kCueValues.indexOf(value);
    if (shape < 0)
        return std::nullopt;
    return shape;
}

QString CueOfMouthShape(int shape)
{
    return shape >= 0 && shape < kCueValues.size() ? QString(kCueValues.at(shape)) : QString();
}

} // namespace host
