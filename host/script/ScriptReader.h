#pragma once

#include "ScriptCommand.h"

#include <optional>

namespace host {

/// A message about a line of a script: "FILE:LINE: what was wrong", without line ends in it.
QString ScriptMessage(const QString& path, int line, const QString& what);

/// Reads a script: UTF-8, one command a line; @p path is for messages. Nothing, and @p error holds
/// the message, for the first line that is none.
std::optional<Script> ReadScript(const QString& path, const QByteArray& text, QString& error);
/// The same of the file.
std::optional<Script> ReadScript(const QString& path, QString& error);

} // namespace host
