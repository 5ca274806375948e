#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

/// How bright a colour looks, 0 (black) to 1 (white).
inline double RelativeLuminance(const QColor& colour)
{
    const auto linear = [](double component) {
        return component <= 0.04045 ? component / 12.92
                                    : std::pow((component + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// The contrast of two colours, 1 (none) to 21 (black and white).
inline double ContrastRatio(const QColor& one, const QColor& other)
{
    const double a = RelativeLuminance(one), b = RelativeLuminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// @p colour with an opacity of its own laid over @p ground.
inline QColor LaidOver(const QColor& colour, const QColor& ground)
{
    const double weight = colour.alphaF();
    const auto mix = [weight](double over, double under) {
        return over * weight + under * (1 - weight);
    };
    return QColor::fromRgbF(mix(colour.redF(), ground.redF()),
                            mix(colour.greenF(), ground.greenF()),
                            mix(colour.blueF(), ground.blueF()));
}
