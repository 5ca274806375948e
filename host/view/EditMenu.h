#pragma once

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QObject>

#include <vector>

class QAction;
class QMenu;

namespace host {

class KeyCommands;
class ShapeMenu;

/// The commands on keys as the user finds them: in the window's Edit menu, with shortcuts, for the
/// active track, and in the menu that opens on a row.
class EditMenu : public QObject
{
    Q_OBJECT
public:
    /// @param menu gets the entries. @param commands is kept and outlives this object.
    EditMenu(QMenu* menu, KeyCommands& commands);

    /// Enables what is possible now.
    void UpdateActions();

    /// Appends the entries for a row, which stay this object's until the next call. @p isLocked
    /// leaves out those that change keys.
    void FillRowMenu(CTimelineTrackBase* track, bool isLocked,
                     std::vector<_tmpTLMenuMapData*>& menu);
    /// Does what an entry of a row's menu stands for.
    void RunFromRow(CTimelineTrackBase* track, int command);

private:
    void Run(CTimelineTrackBase* track, TLEditType type);

    KeyCommands& m_commands;
    ShapeMenu* m_shapes = nullptr;   ///< the menu's
    std::vector<QAction*> m_actions; ///< in the order of the entries, without separators
    std::vector<_tmpTLMenuMapData> m_rowEntries;
};

} // namespace host
