#pragma once

class QApplication;
class QString;

namespace host {

/// The colours of the program around the timeline, for the skin that it is drawn in.
enum class Theme
{
    Dark,
    HighContrast
};

/// The theme that goes with a skin, by the name of its file: high contrast with "contrast.ini", the
/// dark one with any other.
Theme ThemeOfSkin(const QString& skinPath);

/// Dresses the program in the theme, the same on every desktop: style, colours and font are set,
/// not taken from the system.
void ApplyTheme(QApplication& application, Theme theme);

} // namespace host
