#pragma once

#include <QFile>
#include <QString>
#include <QtTest>

/// The bytes of a file; a null array when it cannot be read.
inline QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline QString SamplePath(const QString& name)
{
    return QStringLiteral(KESTOVA_SAMPLES_DIR "/") + name;
}

/// Where large captures that are not part of the project may lie.
inline QString SharedDataPath(const QString& name)
{
    return QStringLiteral(KESTOVA_SHARED_DATA_DIR "/") + name;
}

/// Leaves the test function, saying why, when a capture that is not part of the project is absent.
#define SKIP_WITHOUT(path)                                                                         \
    if (!QFile::exists(path))                                                                      \
    QSKIP(qPrintable(QStringLiteral("not there: ") + (path)))
