#pragma once

#include <QString>
#include <QStringList>

/// What is recorded of the boundary lies in timeline/api/exports/. A record changes only on
/// purpose: a test that runs with KESTOVA_RENEW_BOUNDARY=1 writes it anew, and fails to say so.
namespace BoundaryRecord {

/// Where the record of that name lies.
QString PathOf(const QString& name);

/// Whether records are to be written anew.
bool IsRenewing();

/// Writes the record; true when it could be. Lines end in the same way on every platform.
bool Write(const QString& name, const QByteArray& text);

/// Compares the lines of a record with what there is now, in any order, or writes the record anew.
/// @return nothing when they are the same, else what came and what went, or that it was renewed.
QString Compare(const QString& name, QStringList lines);

/// What a test says that has written a record anew.
QString Renewed(const QString& name);

} // namespace BoundaryRecord
