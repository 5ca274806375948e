#include "DataFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace host {

QString FindDataFile(const QString& name)
{
    const QDir program(QCoreApplication::applicationDirPath());
    const QStringList places{program.absolutePath(),
                             program.absoluteFilePath(QStringLiteral(KESTOVA_SAMPLES_FROM_BIN)),
                             program.absoluteFilePath(QStringLiteral(KESTOVA_SKINS_FROM_BIN)),
                             QStringLiteral(KESTOVA_HOST_SOURCE_DIR)};
    for (const QString& place : places) {
        const QString path = QDir::cleanPath(place + u'/' + name);
        if (QFile::exists(path))
            return path;
    }
    return {};
}

QString DefaultSkin()
{
    return FindDataFile(QStringLiteral("skins/default.ini"));
}

QStringList SampleScene()
{
    return {FindDataFile(QStringLiteral("samples/stroll.bvh")),
            FindDataFile(QStringLiteral("samples/greeting.json"))};
}

} // namespace host
