#pragma once

#include "TimelineHand.h"

namespace host {

/// Opens the menu of a row with the right button at @p cell and clicks on the entry there. An empty
/// text when that was done, else what is wrong; the menu is closed in any case.
QString ChooseFromRowMenu(InputHand& hand, const FrameCell& cell, const QString& entry);

} // namespace host
