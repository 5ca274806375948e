#include "PathList.h"

#include <QFileInfo>
#include <QSettings>

namespace host {

QStringList PathList::Paths() const
{
    return QSettings().value(QLatin1String(m_key)).toStringList();
}

void PathList::Add(const QString& path)
{
    const QString full = QFileInfo(path).absoluteFilePath();
    QStringList paths = Paths();
    paths.removeAll(full);
    paths.prepend(full);
    Store(paths.mid(0, m_most));
}

void PathList::Remove(const QString& path)
{
    QStringList paths = Paths();
    if (paths.removeAll(QFileInfo(path).absoluteFilePath()) > 0)
        Store(paths);
}

void PathList::Clear()
{
    Store({});
}

void PathList::Store(const QStringList& paths)
{
    QSettings().setValue(QLatin1String(m_key), paths);
}

} // namespace host
