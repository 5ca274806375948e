#pragma once

#include <QStringList>

namespace host {

/// The arguments without those that the toolkit takes for itself when the window is made. All after
/// "--" are the program's own.
QStringList WithoutToolkitOptions(const QStringList& arguments);

/// What the toolkit's options are, a line each.
QString ToolkitHelp();

} // namespace host
