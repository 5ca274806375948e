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

/// Why a file cannot be read, in the system's words.
inline QString ReasonAgainst(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString() : file.errorString();
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

/// A sound file of that many samples, of a byte each, @p rate a second.
inline QByteArray WavBytes(int samples, int rate)
{
    const auto number = [](quint32 value, int bytes) {
        QByteArray made;
        for (int i = 0; i < bytes; ++i)
            made.append(static_cast<char>((value >> (8 * i)) & 0xFF));
        return made;
    };
    const auto size = static_cast<quint32>(samples);
    const auto perSecond = static_cast<quint32>(rate);
    const QByteArray format = number(1, 2) + number(1, 2) + number(perSecond, 4) +
                              number(perSecond, 4) + number(1, 2) + number(8, 2);
    const QByteArray chunks =
        "fmt " + number(16, 4) + format + "data" + number(size, 4) + QByteArray(samples, '\x80');
    return "RIFF" + number(static_cast<quint32>(chunks.size()) + 4, 4) + "WAVE" + chunks;
}

/// Leaves the test function, saying why, when a capture that is not part of the project is absent.
#define SKIP_WITHOUT(path)                                                                         \
    if (!QFile::exists(path))                                                                      \
    QSKIP(qPrintable(QStringLiteral("not there: ") + (path)))
