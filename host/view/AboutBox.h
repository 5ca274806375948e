#pragma once

#include <QString>

class QWidget;

namespace host {

/// What the program is and which versions of it, of the timeline and of Qt run, as rich text.
QString AboutText();

/// Shows it over @p parent until the user closes it.
void ShowAboutBox(QWidget* parent);

} // namespace host
