#pragma once

#include "storage/PathList.h"

#include <QObject>

class QMenu;

namespace host {

/// The menu of the documents that were used last.
class RecentMenu : public QObject
{
    Q_OBJECT
public:
    /// @param menu is filled whenever it opens. It is kept and outlives this object.
    explicit RecentMenu(QMenu* menu);

    RecentFiles& Files() { return m_files; }

signals:
    /// The user wants that document.
    void Chosen(const QString& path);

private:
    void Fill();

    QMenu* m_menu;
    RecentFiles m_files;
};

} // namespace host
