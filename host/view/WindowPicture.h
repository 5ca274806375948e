#pragma once

#include <QImage>
#include <QWidget>

namespace host {

/// Waits until the shown @p window stands on the screen and all that follows from it has been done.
/// False after a few seconds without success.
bool WaitUntilExposed(QWidget& window);

/// The window as it paints itself.
QImage PaintedPicture(QWidget& window);

/// The window as the screen shows it, once two looks in a row see the same; null when the platform
/// cannot look at its screen.
QImage PictureOnScreen(QWidget& window);

} // namespace host
