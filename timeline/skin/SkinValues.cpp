#include "skin/SkinValues.h"

#include <array>
#include <cstddef>

namespace {

constexpr int kComponentMask = 255;
/// 1/255, rounded up so that multiplying by 255 and truncating gives every component back.
constexpr float kComponentScale = 0.003921569f;

/// Cuts "(a,b,c)" into @p Count numbers. A delimiter that is not found has the index -1: the piece
/// that it would end runs to the end of the text, and the piece after it starts at index 0.
template <std::size_t Count>
std::array<int, Count> CutComponents(const QString& text)
{
    std::array<int, Count> components = {};
    int delimiter = text.indexOf(QLatin1Char('('));
    for (std::size_t i = 0; i < Count; ++i) {
        const int start = delimiter + 1;
        const bool isLast = i + 1 == Count;
        delimiter = text.indexOf(QLatin1Char(isLast ? ')' : ','), start);
        const int length = delimiter < 0 ? -1 : delimiter - start;
        components[i] = text.mid(start, length).toInt();
    }
    return components;
}

float ColourComponent(int value)
{
    return static_cast<float>(value & kComponentMask) * kComponentScale;
}

} // namespace

QPoint ParsePoint(const QString& text)
{
    const auto [x, y] = CutComponents<2>(text);
    return {x, y};
}

StyleColour ParseColour(const QString& text)
{
    const auto [red, green, blue] = CutComponents<3>(text);
    return {ColourComponent(red), ColourComponent(green), ColourComponent(blue), 1.0f};
}

StyleColour ParseColourWithAlpha(const QString& text)
{
    const auto [red, green, blue, alpha] = CutComponents<4>(text);
    return {ColourComponent(red), ColourComponent(green), ColourComponent(blue),
            ColourComponent(alpha)};
}

StylePen ParsePen(const QString& text)
{
    const StyleColour colour = ParseColour(text);
    return {colour, QPen(colour.ToColor(), 1, Qt::SolidLine)};
}

StyleBrush ParseBrush(const QString& text)
{
    const StyleColour colour = ParseColour(text);
    return {colour, QBrush(colour.ToColor(), Qt::SolidPattern)};
}
