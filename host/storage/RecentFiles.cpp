#include "RecentFiles.h"

#include <QFileInfo>
#include <QSettings>

namespace host {

namespace {

constexpr const char* kKey = "recentFiles";
constexpr int kMostFiles = 8; ///< as many as a menu shows well

void Store(const QStringList& paths)
{
    QSettings().setValue(QLatin1String(kKey), paths);
}

} // namespace

QStringList RecentFiles::Paths() const
{
    return QSettings().value(QLatin1String(kKey)).toStringList();
}

void RecentFiles::Add(const QString& path)
{
    const QString full = QFileInfo(path).absoluteFilePath();
    QStringList paths = Paths();
    paths.removeAll(full);
    paths.prepend(full);
    Store(paths.mid(0, kMostFiles));
}

void RecentFiles::Remove(const QString& path)
{
    QStringList paths = Paths();
    paths.removeAll(QFileInfo(path).absoluteFilePath());
    Store(paths);
}

void RecentFiles::Clear()
{
    Store({});
}

} // namespace host
