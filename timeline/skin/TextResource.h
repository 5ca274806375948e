#pragma once

#include <QString>

/// The UTF-8 text of a resource or file up to its first zero byte; empty when it cannot be opened.
QString ReadTextResource(const QString& path);
