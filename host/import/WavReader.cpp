#include "WavReader.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>

namespace host {

namespace {

constexpr int kTagSize = 4;
constexpr int kChunkHeaderSize = 8; ///< tag and size
constexpr int kRiffHeaderSize = 12; ///< chunk header and form
constexpr int kFormatSize = 16;     ///< the part of the format chunk that every kind has
constexpr int kByteRatePlace = 8;   ///< in the format chunk
constexpr double kLongestSound = 24.0 * 60 * 60; ///< seconds

quint32 NumberAt(const QByteArray& bytes, int place)
{
    return qFromLittleEndian<quint32>(bytes.constData() + place);
}

struct Header
{
    quint32 bytesPerSecond = 0;
    qint64 soundBytes = -1; ///< -1 while its chunk was not found
};

/// Walks the chunks up to that of the samples. What is not found stays as it is.
Header ReadChunks(QFile& file)
{
    Header header;
    while (header.soundBytes < 0) {
        const QByteArray chunk = file.read(kChunkHeaderSize);
        if (chunk.size() < kChunkHeaderSize)
            break;
        const qint64 start = file.pos();
        const qint64 size = NumberAt(chunk, kTagSize);
        if (chunk.startsWith("fmt ")) {
            const QByteArray format = file.read(kFormatSize);
            if (format.size() == kFormatSize && size >= kFormatSize)
                header.bytesPerSecond = NumberAt(format, kByteRatePlace);
        } else if (chunk.startsWith("data")) {
            header.soundBytes = std::min(size, file.size() - start);
        }
        const qint64 next = start + size + size % 2; // chunks start at even places
        if (!file.seek(next))
            break;
    }
    return header;
}

} // namespace

std::optional<double> ReadWavSeconds(const QString& path, ImportError& error)
{
    const auto refuse = [&](const QString& expected) {
        error = {path, 0, expected};
        return std::nullopt;
    };
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        return refuse(QStringLiteral("a readable file"));
    const QByteArray start = file.read(kRiffHeaderSize);
    if (start.size() < kRiffHeaderSize || !start.startsWith("RIFF") || !start.endsWith("WAVE"))
        return refuse(QStringLiteral("a sound file that starts with RIFF and WAVE"));
    const Header header = ReadChunks(file);
    if (header.bytesPerSecond == 0)
        return refuse(QStringLiteral("a format chunk with the bytes of a second"));
    if (header.soundBytes <= 0)
        return refuse(QStringLiteral("a data chunk with samples"));
    const double seconds = static_cast<double>(header.soundBytes) / header.bytesPerSecond;
    if (seconds > kLongestSound)
        return refuse(QStringLiteral("a sound of at most a day"));
    return seconds;
}

} // namespace host
