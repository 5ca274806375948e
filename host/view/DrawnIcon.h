#pragma once

#include <QIcon>
#include <QPainterPath>

namespace host {

/// The side of the square that the shapes of icons are given on, with a border that stays free.
constexpr double kIconUnits = 16;

/// A shape as an icon that is drawn anew in every size and resolution, in the colour that the
/// program has for the texts of buttons at that moment.
QIcon DrawnIcon(const QPainterPath& shape);

} // namespace host
