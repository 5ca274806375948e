#pragma once

#include <QObject>
#include <QStringList>

#include <functional>

class QActionGroup;
class QMenu;

namespace host {

/// The skins that come with the program, and the one that it was started with, to choose from.
class SkinMenu : public QObject
{
    Q_OBJECT
public:
    /// @param show puts the timeline into the skin of that path; false when it cannot, and all
    /// stays as it is.
    SkinMenu(QMenu* menu, std::function<bool(const QString& path)> show);

    /// The skin that the timeline is drawn in; it joins the menu when it is not in it.
    void SetCurrent(const QString& path);
    const QString& Current() const { return m_current; }

private:
    void Add(const QString& text, const QString& path);
    void Choose(const QString& path);
    void CheckCurrent();

    QMenu* m_menu;
    QActionGroup* m_skins;
    std::function<bool(const QString& path)> m_show;
    QString m_current;
};

} // namespace host
