#pragma once

#include <QString>
#include <QStringList>

namespace host {

/// The path of a file that comes with the program, such as "skins/default.ini": beside the program,
/// where it was installed, or in the source tree that it was built from, whichever is there first.
/// An empty text when it is nowhere.
QString FindDataFile(const QString& name);

/// The skin used when none is named.
QString DefaultSkin();
/// The files of the scene shown when none are named.
QStringList SampleScene();

} // namespace host
