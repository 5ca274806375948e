#pragma once

#include <QFile>
#include <QString>

/// The text of the default skin.
inline QString DefaultSkin()
{
    QFile file(QStringLiteral(KESTOVA_SOURCE_DIR "/skins/default.ini"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read the default skin");
    return QString::fromUtf8(file.readAll());
}
