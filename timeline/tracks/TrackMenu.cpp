#include "tracks/TrackMenu.h"

#include "library/TimelineLibrary.h"
#include "skin/SkinFont.h"
#include "skin/TextResource.h"
#include "skin/TrackStyleReader.h"

#include <QAction>
#include <QKeySequence>
#include <QVariant>

#include <algorithm>

namespace {

/// In the host's resources; the library has none of its own.
constexpr char kStyleSheet[] = ":/ui/contextmenu.css";
/// An action's copy of its entry's command.
constexpr char kCommand[] = "command";

// An action's number tells its place: that of its top entry in the ten thousands, that of its
// second-level one in the hundreds, its own below; each counted from 1.
constexpr long long kTopPlace = 10000;
constexpr long long kSecondPlace = 100;

struct StandardCommand
{
    const char* text;
    QKeySequence::StandardKey standard; ///< the platform's own keys for it
    int keys;                           ///< where no platform has any
};

constexpr int kNoKeys = 0;
constexpr StandardCommand kStandardCommands[] = {
    {"Copy", QKeySequence::Copy, kNoKeys},
    {"Cut", QKeySequence::Cut, kNoKeys},
    {"Delete", QKeySequence::Delete, kNoKeys},
    {"Paste", QKeySequence::Paste, kNoKeys},
    {"Break", QKeySequence::UnknownKey, int{Qt::CTRL} | int{Qt::Key_B}},
};

void GiveShortcut(QAction& action)
{
    const auto found = std::find_if(std::begin(kStandardCommands), std::end(kStandardCommands),
                                    [text = action.text()](const StandardCommand& each) {
                                        return text == QLatin1String(each.text);
                                    });
    if (found == std::end(kStandardCommands))
        return;
    action.setShortcut(found->keys == kNoKeys ? QKeySequence(found->standard)
                                              : QKeySequence(found->keys));
    action.setShortcutContext(Qt::ApplicationShortcut);
}

bool IsSubmenu(const _tmpTLMenuMapData& entry)
{
    return !entry.children.empty();
}

/// Appends what the entry itself is, whatever stands below it. @return null for a separator.
QAction* AddEntry(QMenu& menu, const _tmpTLMenuMapData& entry, long long number)
{
    if (entry.command < 0) {
        menu.addSeparator();
        return nullptr;
    }
    QAction* const action = menu.addAction(entry.text);
    action->setEnabled(entry.enabled);
    // Only what is checked can be: styles draw an empty box before the others.
    action->setCheckable(entry.checked);
    action->setChecked(entry.checked);
    action->setData(number);
    action->setProperty(kCommand, entry.command);
    return action;
}

/// Calls @p add with each entry and its place in the list, counted from 1.
template <class Add>
void ForEachEntry(const TrackMenu::Entries& entries, const Add& add)
{
    long long place = 0;
    for (const _tmpTLMenuMapData* const entry : entries) {
        ++place;
        if (entry)
            add(*entry, place);
    }
}

} // namespace

TrackMenu::TrackMenu(const Entries& entries)
{
    TakeLookFromSkin();
    AddTopLevel(entries);
}

void TrackMenu::TakeLookFromSkin()
{
    QString family; // has to be there, but the menu keeps its own
    int points = 0;
    if (!ReadContextMenuFont(TimelineLibrary::Instance().skinPath, family, points))
        return;
    QFont font = m_menu.font();
    SetPointSize(font, points);
    m_menu.setFont(font);
    m_menu.setStyleSheet(ReadTextResource(QLatin1String(kStyleSheet)));
}

void TrackMenu::AddTopLevel(const Entries& entries)
{
    ForEachEntry(entries, [this](const _tmpTLMenuMapData& entry, long long place) {
        const long long number = place * kTopPlace;
        if (IsSubmenu(entry))
            AddSecondLevel(entry.children, entry.text, number);
        else if (QAction* const action = AddEntry(m_menu, entry, number))
            GiveShortcut(*action);
    });
}

void TrackMenu::AddSecondLevel(const Entries& entries, const QString& title, long long place)
{
    QMenu* const menu = AddSubmenu(m_menu, title);
    bool isLastDisabled = false;
    ForEachEntry(entries, [&](const _tmpTLMenuMapData& entry, long long within) {
        const long long number = place + within * kSecondPlace;
        const QAction* action = nullptr;
        if (IsSubmenu(entry))
            AddThirdLevel(*menu, entry.children, entry.text, number);
        else
            action = AddEntry(*menu, entry, number);
        isLastDisabled = action && !action->isEnabled();
    });
    // The last entry speaks for the whole submenu.
    if (isLastDisabled)
        menu->setEnabled(false);
}

void TrackMenu::AddThirdLevel(QMenu& menu, const Entries& entries, const QString& title,
                              long long place)
{
    QMenu* const submenu = AddSubmenu(menu, title);
    ForEachEntry(entries, [&](const _tmpTLMenuMapData& entry, long long within) {
        AddEntry(*submenu, entry, place + within);
    });
}

QMenu* TrackMenu::AddSubmenu(QMenu& menu, const QString& title) const
{
    QMenu* const submenu = menu.addMenu(title);
    submenu->setFont(m_menu.font()); // a menu is a window: it inherits none
    return submenu;
}

std::optional<int> TrackMenu::Choose(QPoint globalPoint)
{
    if (m_menu.isEmpty()) // separators do not count
        return std::nullopt;
    const QAction* const chosen = m_menu.exec(globalPoint);
    const QVariant command = chosen ? chosen->property(kCommand) : QVariant();
    return command.isValid() ? std::make_optional(command.toInt()) : std::nullopt;
}
