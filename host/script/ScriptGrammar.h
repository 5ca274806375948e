#pragma once

#include "ScriptCommand.h"

#include <optional>

namespace host {

/// How every command is written, a form each, in the order of ScriptVerb. Words in small letters
/// stand for themselves; ROW, FILE, ENTRY, KEYS and TEXT are any words, FRAME, COUNT and MS numbers
/// from 0, STEPS a number that may be below 0, and WxH a size. A | separates choices, what stands
/// in [ ] may be left out, and ... means one or more.
QStringList ScriptForms();

/// Reads the words of a line, of which there is at least one. Nothing, and @p error says what was
/// expected instead, when they are no command.
std::optional<ScriptCommand> ReadCommand(const QStringList& words, QString& error);

} // namespace host
