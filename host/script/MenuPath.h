#pragma once

#include <QString>

class QAction;
class QMenu;
class QMenuBar;

namespace host {

/// The text of a menu's entry as people read it: without mnemonics, shortcuts and trailing dots.
QString PlainText(const QAction& entry);

/// The entry of a menu that @p text means: the one that reads so, else the only one that begins
/// with it and goes on with another word ("Undo" for "Undo Move 1 key"). Null when there is none.
QAction* FindEntry(const QMenu& menu, const QString& text);

/// The entry at the end of a path such as "Edit > Undo". Menus on the way are filled as if they
/// were opened. Null, and @p error says why, when it is not there, cannot be chosen now, or is a
/// menu itself.
QAction* FindMenuEntry(const QMenuBar& bar, const QString& path, QString& error);

} // namespace host
