#include "ShapeMenu.h"

#include "KeyCommands.h"
#include "document/MouthShapes.h"

#include <QAction>
#include <QMenu>

namespace host {

namespace {

constexpr int kFirstCommand = 2000; ///< above the numbers of all edits and row states

/// The variants in the order that the menu has them: the shapes A to H, then rest.
constexpr std::array<int, 9> kOrder{1, 2, 3, 4, 5, 6, 7, 8, kClosedMouth};

/// "D  wide open (aa)"
QString TextOf(int shape)
{
    return QStringLiteral("&%1  %2").arg(CueOfMouthShape(shape), DescriptionOfMouthShape(shape));
}

} // namespace

ShapeMenu::ShapeMenu(QMenu* edit, KeyCommands& commands)
    : QObject(edit), m_commands(commands), m_menu(edit->addMenu(tr("Mout&h Shape")))
{
    for (std::size_t i = 0; i < kOrder.size(); ++i) {
        const int shape = kOrder[i];
        m_actions[i] =
            m_menu->addAction(TextOf(shape), this, [this, shape] { Run(nullptr, shape); });
        m_actions[i]->setCheckable(true);
        m_actions[i]->setShortcut(
            QKeySequence::fromString(QStringLiteral("Shift+") + CueOfMouthShape(shape)));
    }
    Update();
}

void ShapeMenu::Update()
{
    const bool canChange = m_commands.CanChangeShapes(nullptr);
    const std::optional<int> common = m_commands.CommonShape(nullptr);
    m_menu->setEnabled(canChange);
    for (std::size_t i = 0; i < kOrder.size(); ++i) {
        m_actions[i]->setEnabled(canChange);
        m_actions[i]->setChecked(common == kOrder[i]);
    }
}

void ShapeMenu::FillRowMenu(CTimelineTrackBase* track, std::vector<_tmpTLMenuMapData*>& menu)
{
    if (!m_commands.IsRowOfShapes(track))
        return;
    const bool canChange = m_commands.CanChangeShapes(track);
    const std::optional<int> common = m_commands.CommonShape(track);
    m_rowEntry = _tmpTLMenuMapData();
    m_rowEntry.text = m_menu->title();
    m_rowEntry.enabled = canChange;
    for (std::size_t i = 0; i < kOrder.size(); ++i) {
        _tmpTLMenuMapData& entry = m_rowEntries[i];
        entry.command = kFirstCommand + kOrder[i];
        entry.text = TextOf(kOrder[i]);
        entry.enabled = canChange;
        entry.checked = common == kOrder[i];
        m_rowEntry.children.push_back(&entry);
    }
    menu.push_back(&m_rowEntry);
}

bool ShapeMenu::RunFromRow(CTimelineTrackBase* track, int command)
{
    if (command < kFirstCommand || command >= kFirstCommand + kMouthShapeCount)
        return false;
    Run(track, command - kFirstCommand);
    return true;
}

void ShapeMenu::Run(CTimelineTrackBase* track, int shape)
{
    m_commands.ChangeShapesTo(track, shape);
    emit Done();
}

} // namespace host
