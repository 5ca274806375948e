#include "skin/TrackStyles.h"

namespace {

int ToByte(float component)
{
    constexpr float kLargestByte = 255.0f;
    return static_cast<int>(component * kLargestByte);
}

} // namespace

QColor StyleColour::ToColor() const
{
    return {ToByte(red), ToByte(green), ToByte(blue), ToByte(alpha)};
}
