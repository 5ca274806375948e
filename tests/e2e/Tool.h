#pragma once

#include <QString>
#include <QStringList>

/// Runs xdotool with these words. Gives what it wrote, without the last line end.
/// @p isDone: whether it succeeded; when not given, a failure of the tool fails the running test.
QString RunTool(const QStringList& words, bool* isDone = nullptr);
