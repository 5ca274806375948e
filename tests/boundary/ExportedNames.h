#pragma once

#include <QString>
#include <QStringList>

/// The names that a shared library or DLL exports, as the linker knows them, in no order. The
/// library is read, none of it runs. Empty, with @p error set, when it cannot be read.
QStringList ExportedNames(const QString& library, QString& error);
