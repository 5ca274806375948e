#pragma once

#include <QString>
#include <QStringList>

namespace host {

/// Full paths of files, kept in the program's settings, the newest first.
class PathList
{
public:
    /// @param key names the list in the settings. @param most how many are kept; the oldest go.
    PathList(const char* key, int most) : m_key(key), m_most(most) {}

    QStringList Paths() const;
    /// Puts the file before all others.
    void Add(const QString& path);
    void Remove(const QString& path);
    void Clear();

private:
    void Store(const QStringList& paths);

    const char* m_key;
    int m_most;
};

/// The documents that were opened or saved last, as many as a menu shows well.
struct RecentFiles : PathList
{
    RecentFiles() : PathList("recentFiles", 8) {}
};

/// The documents that have, or had, a recovery file beside them.
struct RecoveredDocuments : PathList
{
    RecoveredDocuments() : PathList("recovery/documents", 100) {}
};

/// The recovery files of which the user was told that they cannot be read.
struct ToldLeftovers : PathList
{
    ToldLeftovers() : PathList("recovery/unreadable", 100) {}
};

} // namespace host
