#pragma once

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QObject>

#include <array>
#include <vector>

class QAction;
class QMenu;

namespace host {

class KeyCommands;

/// The mouth shapes to choose from, for the selected ones: below the Edit menu, with shortcuts, for
/// the active row, and in the menu of a row of shapes. The shape that all of them have is checked.
class ShapeMenu : public QObject
{
    Q_OBJECT
public:
    /// @param edit gets the menu. @param commands is kept and outlives this object.
    ShapeMenu(QMenu* edit, KeyCommands& commands);

    /// Enables what is possible now.
    void Update();

    /// Appends the entry with those below it for a row of shapes, nothing for another. It stays
    /// this object's until the next call.
    void FillRowMenu(CTimelineTrackBase* track, std::vector<_tmpTLMenuMapData*>& menu);
    /// Whether an entry of a row's menu is of this one; it is run then.
    bool RunFromRow(CTimelineTrackBase* track, int command);

signals:
    /// A shape was chosen.
    void Done();

private:
    static constexpr std::size_t kShapes = 9;

    void Run(CTimelineTrackBase* track, int shape);

    KeyCommands& m_commands;
    QMenu* m_menu;
    std::array<QAction*, kShapes> m_actions{};
    std::array<_tmpTLMenuMapData, kShapes> m_rowEntries;
    _tmpTLMenuMapData m_rowEntry;
};

} // namespace host
