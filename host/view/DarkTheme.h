#pragma once

class QApplication;

namespace host {

/// Dresses the program in a dark theme that goes with the default skin, the same on every desktop:
/// style, colours and font are set, not taken from the system.
void ApplyDarkTheme(QApplication& application);

} // namespace host
