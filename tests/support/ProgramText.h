#pragma once

#include <QByteArray>
#include <QString>

/// What a program wrote, with the line ends that it has on every system.
inline QString ReadText(const QByteArray& written)
{
    return QString::fromUtf8(written).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}
