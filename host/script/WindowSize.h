#pragma once

#include <QSize>
#include <QString>

#include <optional>

namespace host {

/// Reads the size of a window as people write it, "1280x720". Nothing for anything else, and for a
/// window that could not be painted.
std::optional<QSize> ReadWindowSize(const QString& text);

} // namespace host
