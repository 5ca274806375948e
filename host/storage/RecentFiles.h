#pragma once

#include <QString>
#include <QStringList>

namespace host {

/// The documents that were opened or saved last, kept in the program's settings, the newest first.
class RecentFiles
{
public:
    QStringList Paths() const;
    /// Puts the file before all others; the oldest goes when there are too many.
    void Add(const QString& path);
    void Remove(const QString& path);
    void Clear();
};

} // namespace host
