#pragma once

#include "TimelineBoundaryRecords.h"

#include <QMenu>

#include <optional>
#include <vector>

/// The menu of the right button as the host's entries describe it: the menu itself and two levels
/// of submenus below it. Everything is copied out of the entries when the menu is made, so that the
/// host may free them while it is open. Made for one use and then destroyed with all its actions,
/// whose shortcuts hold in the whole application.
class TrackMenu
{
public:
    using Entries = std::vector<_tmpTLMenuMapData*>;

    /// Null entries are passed over. The skin gives the size of the text and the host's resources
    /// the style sheet; without a menu section in the skin it looks like any other menu.
    explicit TrackMenu(const Entries& entries);

    /// Opens the menu at @p globalPoint (screen coordinates) and waits in an event loop of its own
    /// until it is closed: the host may do anything meanwhile.
    /// @return the command of the entry that was chosen; none without a choice, and at once when
    /// there is nothing to choose from.
    std::optional<int> Choose(QPoint globalPoint);

private:
    void TakeLookFromSkin();
    void AddTopLevel(const Entries& entries);
    void AddSecondLevel(const Entries& entries, const QString& title, long long place);
    void AddThirdLevel(QMenu& menu, const Entries& entries, const QString& title, long long place);
    QMenu* AddSubmenu(QMenu& menu, const QString& title) const;

    QMenu m_menu;
};
