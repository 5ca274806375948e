#include "DataFolder.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

namespace host {

QString ChosenDataFolder()
{
    const QString folder = qEnvironmentVariable("KESTOVA_HOST_DATA");
    return folder.isEmpty() ? folder : QDir(folder).absolutePath();
}

QString DataFolder()
{
    const QString chosen = ChosenDataFolder();
    return chosen.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
                            : chosen;
}

void UseSettingsFile()
{
    QSettings::setDefaultFormat(QSettings::IniFormat);
    const QString chosen = ChosenDataFolder();
    if (!chosen.isEmpty())
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, chosen);
}

} // namespace host
