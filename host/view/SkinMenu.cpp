#include "SkinMenu.h"

#include "DataFiles.h"

#include <QActionGroup>
#include <QFileInfo>
#include <QMenu>

#include <array>

namespace host {

namespace {

struct Skin
{
    const char* text;
    const char* file;
};

constexpr std::array<Skin, 2> kSkins{
    {{QT_TRANSLATE_NOOP("SkinMenu", "&Dark"), "skins/default.ini"},
     {QT_TRANSLATE_NOOP("SkinMenu", "&High Contrast"), "skins/contrast.ini"}}};

QString PathOf(const QString& file)
{
    const QString path = QFileInfo(file).canonicalFilePath();
    return path.isEmpty() ? file : path;
}

} // namespace

SkinMenu::SkinMenu(QMenu* menu, std::function<bool(const QString& path)> show)
    : QObject(menu), m_menu(menu), m_skins(new QActionGroup(this)), m_show(std::move(show))
{
    for (const Skin& skin : kSkins)
        Add(tr(skin.text), PathOf(FindDataFile(QLatin1String(skin.file))));
}

void SkinMenu::SetCurrent(const QString& path)
{
    m_current = PathOf(path);
    const auto skins = m_skins->actions();
    const bool isKnown = std::any_of(skins.begin(), skins.end(), [this](const QAction* skin) {
        return skin->data().toString() == m_current;
    });
    if (!isKnown)
        Add(QFileInfo(m_current).completeBaseName(), m_current);
    CheckCurrent();
}

void SkinMenu::Add(const QString& text, const QString& path)
{
    QAction* const skin = m_menu->addAction(text);
    skin->setCheckable(true);
    skin->setData(path);
    m_skins->addAction(skin);
    connect(skin, &QAction::triggered, this, [this, path] { Choose(path); });
}

void SkinMenu::Choose(const QString& path)
{
    if (path != m_current && m_show(path))
        m_current = path;
    CheckCurrent();
}

void SkinMenu::CheckCurrent()
{
    for (QAction* const skin : m_skins->actions())
        skin->setChecked(skin->data().toString() == m_current);
}

} // namespace host
