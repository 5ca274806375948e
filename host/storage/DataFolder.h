#pragma once

#include <QString>

namespace host {

/// The folder that the environment variable KESTOVA_HOST_DATA chooses for what the program keeps
/// for itself; empty when it chooses none.
QString ChosenDataFolder();

/// The folder for recovery files: the chosen one, otherwise the system's for the data of this
/// program.
QString DataFolder();

/// Has settings read and written as text, in the chosen folder if there is one, otherwise where the
/// system keeps the user's settings.
void UseSettingsFile();

} // namespace host
