#pragma once

#include <QStringList>

#include <optional>

namespace host {

/// Cuts a line of a script into words at its blanks. What stands in double quotes is one word, or a
/// part of one, blanks and all; a doubled quote in it stands for a quote. A # that begins a word
/// begins a comment. Nothing when a quote is not closed.
std::optional<QStringList> WordsOfLine(const QString& line);

} // namespace host
