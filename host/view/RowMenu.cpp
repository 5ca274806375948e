#include "RowMenu.h"

#include "CaptionButtons.h"
#include "EditMenu.h"

#include <QMenu>

namespace host {

namespace {

constexpr int kSeparator = -1;
constexpr int kFirstState = 1000; ///< above the numbers of all edits

} // namespace

RowMenu::RowMenu(QWidget* parent, EditMenu& edits, CaptionButtons& buttons)
    : QObject(parent), m_parent(parent), m_edits(edits), m_buttons(buttons)
{
}

void RowMenu::Fill(CTimelineTrackBase* track, std::vector<_tmpTLMenuMapData*>& menu)
{
    m_entries.clear();
    if (!m_buttons.Concerns(track))
        return;
    m_edits.FillRowMenu(track, m_buttons.Has(track, RowState::Locked), menu);
    m_entries.resize(kRowStates.size() + 1);
    m_entries.front().command = kSeparator;
    for (std::size_t i = 0; i < kRowStates.size(); ++i) {
        _tmpTLMenuMapData& entry = m_entries[i + 1];
        entry.command = kFirstState + static_cast<int>(i);
        const bool isOn = m_buttons.Has(track, kRowStates[i]);
        entry.text = u'&' + TextsOf(kRowStates[i]).name;
        entry.checked = isOn;
    }
    for (_tmpTLMenuMapData& entry : m_entries)
        menu.push_back(&entry);
}

void RowMenu::Run(CTimelineTrackBase* track, int command)
{
    if (command >= kFirstState && command < kFirstState + static_cast<int>(kRowStates.size()))
        m_buttons.Toggle(track, static_cast<RowState>(command - kFirstState));
    else
        m_edits.RunFromRow(track, command);
}

void RowMenu::Open(CTimelineTrackBase* track, QPoint place)
{
    std::vector<_tmpTLMenuMapData*> entries;
    Fill(track, entries);
    if (entries.empty())
        return;
    auto* const menu = new QMenu(m_parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    AddEntries(*menu, track, entries);
    menu->popup(place);
}

void RowMenu::AddEntries(QMenu& menu, CTimelineTrackBase* track,
                         const std::vector<_tmpTLMenuMapData*>& entries)
{
    for (const _tmpTLMenuMapData* const entry : entries) {
        const int command = entry->command;
        if (command < 0) {
            menu.addSeparator();
        } else if (!entry->children.empty()) {
            QMenu* const below = menu.addMenu(entry->text);
            below->setEnabled(entry->enabled);
            AddEntries(*below, track, entry->children);
        } else {
            QAction* const action =
                menu.addAction(entry->text, this, [this, track, command] { Run(track, command); });
            action->setCheckable(command >= kFirstState);
            action->setChecked(entry->checked);
            action->setEnabled(entry->enabled);
        }
    }
}

} // namespace host
