#include "RecentMenu.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>

#include <algorithm>

namespace host {

namespace {

QString NameOf(const QString& path)
{
    return QFileInfo(path).fileName();
}

/// The file's name, and its folder when another one of the files is called so too.
QString TextOf(const QString& path, const QStringList& paths)
{
    const QString name = NameOf(path);
    const auto count = std::count_if(paths.begin(), paths.end(), [&name](const QString& other) {
        return NameOf(other) == name;
    });
    const QString folder = QDir::toNativeSeparators(QFileInfo(path).absolutePath());
    QString text = count > 1 ? RecentMenu::tr("%1 in %2").arg(name, folder) : name;
    return text.replace(u'&', QStringLiteral("&&")); // alone it would mark a letter
}

} // namespace

RecentMenu::RecentMenu(QMenu* menu) : QObject(menu), m_menu(menu)
{
    connect(menu, &QMenu::aboutToShow, this, &RecentMenu::Fill);
}

void RecentMenu::Fill()
{
    m_menu->clear();
    const QStringList paths = m_files.Paths();
    for (const QString& path : paths) {
        QAction* const action =
            m_menu->addAction(TextOf(path, paths), this, [this, path] { emit Chosen(path); });
        action->setStatusTip(path);
        action->setToolTip(path);
    }
    m_menu->addSeparator();
    QAction* const clear = m_menu->addAction(tr("&Clear List"), this, [this] { m_files.Clear(); });
    clear->setEnabled(!paths.isEmpty());
}

} // namespace host
