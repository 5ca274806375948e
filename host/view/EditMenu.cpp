#include "EditMenu.h"

#include "KeyCommands.h"
#include "RowModes.h"
#include "ShapeMenu.h"

#include <QAction>
#include <QMenu>

#include <array>

namespace host {

namespace {

constexpr int kSeparator = -1;

/// One entry; without a text it is a separator.
struct Entry
{
    TLEditType type;
    const char* text;
    const char* shortcut; ///< portable; null for none
};

constexpr Entry kSeparatorEntry{TL_EDIT_BEGIN, nullptr, nullptr};

/// The entries of both menus. With their mnemonics they are not named as those that the timeline
/// gives shortcuts in a row's menu (Cut, Copy, Paste, Delete, Break): two actions with one shortcut
/// would leave the key dead as long as that menu is open. Tab and Shift+Tab select too: those are
/// the timeline's own.
constexpr std::array<Entry, 11> kEntries{{
    {TL_EDIT_CUT, QT_TRANSLATE_NOOP("EditMenu", "Cu&t"), "Ctrl+X"},
    {TL_EDIT_COPY, QT_TRANSLATE_NOOP("EditMenu", "&Copy"), "Ctrl+C"},
    {TL_EDIT_PASTE, QT_TRANSLATE_NOOP("EditMenu", "&Paste"), "Ctrl+V"},
    {TL_EDIT_DELETE, QT_TRANSLATE_NOOP("EditMenu", "&Delete"), "Del"},
    kSeparatorEntry,
    {TL_EDIT_INSERT_KEY, QT_TRANSLATE_NOOP("EditMenu", "&Insert Key"), "Ins"},
    {TL_EDIT_BREAK, QT_TRANSLATE_NOOP("EditMenu", "&Break"), "Ctrl+B"},
    kSeparatorEntry,
    {TL_EDIT_SELECT_ALL, QT_TRANSLATE_NOOP("EditMenu", "Select &All"), "Ctrl+A"},
    {TL_EDIT_SELECT_PREVIOUS, QT_TRANSLATE_NOOP("EditMenu", "Select Pre&vious"), "Alt+Left"},
    {TL_EDIT_SELECT_NEXT, QT_TRANSLATE_NOOP("EditMenu", "Select &Next"), "Alt+Right"},
}};

} // namespace

EditMenu::EditMenu(QMenu* menu, KeyCommands& commands) : QObject(menu), m_commands(commands)
{
    for (const Entry& entry : kEntries) {
        if (!entry.text) {
            menu->addSeparator();
            continue;
        }
        const TLEditType type = entry.type;
        QAction* const action =
            menu->addAction(tr(entry.text), this, [this, type] { Run(nullptr, type); });
        if (entry.shortcut)
            action->setShortcut(QKeySequence::fromString(QLatin1String(entry.shortcut)));
        action->setData(static_cast<int>(type));
        m_actions.push_back(action);
    }
    m_shapes = new ShapeMenu(menu, commands);
    connect(m_shapes, &ShapeMenu::Done, this, &EditMenu::UpdateActions);
    UpdateActions();
}

void EditMenu::UpdateActions()
{
    for (QAction* const action : m_actions) {
        const auto type = static_cast<TLEditType>(action->data().toInt());
        action->setEnabled(m_commands.CanDo(nullptr, type));
    }
    if (m_shapes)
        m_shapes->Update();
}

void EditMenu::FillRowMenu(CTimelineTrackBase* track, bool isLocked,
                           std::vector<_tmpTLMenuMapData*>& menu)
{
    m_rowEntries.assign(kEntries.size(), _tmpTLMenuMapData());
    bool isGroupEmpty = true; // of the entries since the last separator
    for (std::size_t i = 0; i < kEntries.size(); ++i) {
        const Entry& entry = kEntries[i];
        const bool isOffered = entry.text ? !isLocked || !ChangesKeys(entry.type) : !isGroupEmpty;
        if (!isOffered)
            continue;
        isGroupEmpty = !entry.text;
        _tmpTLMenuMapData& made = m_rowEntries[i];
        made.command = entry.text ? entry.type : kSeparator;
        made.text = entry.text ? tr(entry.text) : QString();
        made.enabled = entry.text && m_commands.CanDo(track, entry.type);
        menu.push_back(&made);
    }
    if (!isLocked)
        m_shapes->FillRowMenu(track, menu);
}

void EditMenu::RunFromRow(CTimelineTrackBase* track, int command)
{
    if (!m_shapes->RunFromRow(track, command))
        Run(track, static_cast<TLEditType>(command));
}

void EditMenu::Run(CTimelineTrackBase* track, TLEditType type)
{
    m_commands.Do(track, type);
    UpdateActions();
}

} // namespace host
