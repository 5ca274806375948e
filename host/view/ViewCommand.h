#pragma once

#include <QIcon>

namespace host {

/// What the user may tell the view, by tool buttons, menus and the wheel.
enum class ViewCommand
{
    ZoomIn,
    ZoomOut,
    ShowAll,     ///< every frame in view
    ShowClosest, ///< as close as it goes
    PreviousKey,
    NextKey
};

/// The picture of its tool button.
QIcon IconOf(ViewCommand command);

} // namespace host
