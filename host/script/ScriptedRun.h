#pragma once

#include "ScriptRunner.h"

namespace host {

/// Runs the script in the window until it ends. When it fails, that is said on the standard error
/// output, the window is closed and the program left with an exit code that says so.
/// @param window owns the run.
void RunScript(MainWindow& window, ScriptPrompts& prompts, const Script& script);

} // namespace host
