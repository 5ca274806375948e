#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

/// @p value, or the nearest int beyond whose range it lies.
inline int ClampedInt(long long value)
{
    constexpr long long lowest = std::numeric_limits<int>::min();
    constexpr long long highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, lowest, highest));
}

/// @p value truncated toward zero, or the nearest int beyond whose range it lies; 0 for what is not
/// a number.
inline int ClampedInt(double value)
{
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp(value, lowest, highest));
}
