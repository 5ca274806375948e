#pragma once

#include <QString>

class QWidget;

namespace host {

class MainWindow;

/// The part of the window that a script names: timeline, preview, face or figure; the whole window
/// for anything else.
QWidget* PartOfWindow(MainWindow& window, const QString& name);

} // namespace host
