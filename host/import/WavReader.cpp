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
constexpr int kBitsOfByte = 8;
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
    // Plain samples take so many bytes whatever the header says of it.
    const qint64 plain = qint64(format.rate) * format.channels * (format.bits / kBitsOfByte);
    if ((format.isWhole || format.isFloat) && plain > 0)
        format.bytesPerSecond = plain;
}

bool IsTag(const QByteArray& header)
{
    return std::all_of(header.cbegin(), header.cbegin() + kTagSize,
                       [](char c) { return c >= ' ' && c <= '~'; });
}

/// Where the chunk behind one that ends at @p end begins: at an even place, except in files of
/// programs that leave the filling byte out.
qint64 NextChunk(QFile& file, qint64 end)
{
    if (end % 2 == 0)
        return end;
    const auto headerAt = [&file](qint64 place) {
        return file.seek(place) ? file.read(kChunkHeaderSize) : QByteArray();
    };
    const auto isChunk = [](const QByteArray& header) {
        return header.size() == kChunkHeaderSize && IsTag(header);
    };
    return !isChunk(headerAt(end + 1)) && isChunk(headerAt(end)) ? end : end + 1;
}

/// The samples' length in bytes. A program that could not know it when it began left 0 there.
qint64 SoundBytes(const QFile& file, qint64 start, qint64 size)
{
    const qint64 rest = file.size() - start;
    return size == 0 ? rest : std::min(size, rest);
}

/// Walks the chunks up to that of the samples. What is not found stays as it is.
WavFormat ReadChunks(QFile& file)
{
    WavFormat format;
    for (;;) {
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
            format.soundBytes = SoundBytes(file, start, size);
            break;
        }
        if (!file.seek(NextChunk(file, start + size)))
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
    if (static_cast<double>(format.soundBytes) / static_cast<double>(format.bytesPerSecond) >
        kLongestSound)
        return refuse(QStringLiteral("a sound of at most a day"));
    return format;
}

std::optional<double> ReadWavSeconds(const QString& path, ImportError& error)
{
    const auto format = ReadWavFormat(path, error);
    if (!format)
        return std::nullopt;
    return static_cast<double>(format->soundBytes) / static_cast<double>(format->bytesPerSecond);
}

} // namespace host
