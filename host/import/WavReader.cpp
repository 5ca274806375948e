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
constexpr int kExtendedSize = 26;   ///< with the kind that an extended format names
// Places in the format chunk:
constexpr int kKindPlace = 0;
constexpr int kChannelsPlace = 2;
constexpr int kRatePlace = 4;
constexpr int kByteRatePlace = 8;
constexpr int kBitsPlace = 14;
constexpr int kExtendedKindPlace = 24;
// Kinds of samples:
constexpr int kWholeNumbers = 1;
constexpr int kFloatNumbers = 3;
constexpr int kExtended = 0xFFFE;
constexpr double kLongestSound = 24.0 * 60 * 60; ///< seconds

quint32 NumberAt(const QByteArray& bytes, int place)
{
    return qFromLittleEndian<quint32>(bytes.constData() + place);
}

int ShortAt(const QByteArray& bytes, int place)
{
    return qFromLittleEndian<quint16>(bytes.constData() + place);
}

void ReadFormat(const QByteArray& chunk, WavFormat& format)
{
    int kind = ShortAt(chunk, kKindPlace);
    if (kind == kExtended && chunk.size() >= kExtendedSize)
        kind = ShortAt(chunk, kExtendedKindPlace);
    format.isWhole = kind == kWholeNumbers;
    format.isFloat = kind == kFloatNumbers;
    format.channels = ShortAt(chunk, kChannelsPlace);
    format.rate = static_cast<int>(NumberAt(chunk, kRatePlace));
    format.bits = ShortAt(chunk, kBitsPlace);
    format.bytesPerSecond = NumberAt(chunk, kByteRatePlace);
}

/// Walks the chunks up to that of the samples. What is not found stays as it is.
WavFormat ReadChunks(QFile& file)
{
    WavFormat format;
    while (format.soundBytes < 0) {
        const QByteArray chunk = file.read(kChunkHeaderSize);
        if (chunk.size() < kChunkHeaderSize)
            break;
        const qint64 start = file.pos();
        const qint64 size = NumberAt(chunk, kTagSize);
        if (chunk.startsWith("fmt ")) {
            const QByteArray content = file.read(std::min<qint64>(size, kExtendedSize));
            if (content.size() >= kFormatSize)
                ReadFormat(content, format);
        } else if (chunk.startsWith("data")) {
            format.soundStart = start;
            format.soundBytes = std::min(size, file.size() - start);
        }
        const qint64 next = start + size + size % 2; // chunks start at even places
        if (!file.seek(next))
            break;
    }
    return format;
}

} // namespace

std::optional<WavFormat> ReadWavFormat(const QString& path, ImportError& error)
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
    const WavFormat format = ReadChunks(file);
    if (format.bytesPerSecond == 0)
        return refuse(QStringLiteral("a format chunk with the bytes of a second"));
    if (format.soundBytes <= 0)
        return refuse(QStringLiteral("a data chunk with samples"));
    if (static_cast<double>(format.soundBytes) / format.bytesPerSecond > kLongestSound)
        return refuse(QStringLiteral("a sound of at most a day"));
    return format;
}

std::optional<double> ReadWavSeconds(const QString& path, ImportError& error)
{
    const auto format = ReadWavFormat(path, error);
    if (!format)
        return std::nullopt;
    return static_cast<double>(format->soundBytes) / format->bytesPerSecond;
}

} // namespace host
