#include "WavFile.h"

#include <QtEndian>

#include <algorithm>
#include <cmath>

namespace host {

namespace {

// Beyond these a header is damaged:
constexpr int kMostChannels = 64;
constexpr int kHighestRate = 1000000; ///< samples a second

float Unsigned8(const char* bytes)
{
    return (static_cast<float>(static_cast<uchar>(*bytes)) - 128) / 128;
}

float Signed16(const char* bytes)
{
    return static_cast<float>(qFromLittleEndian<qint16>(bytes)) / 32768;
}

float Signed24(const char* bytes)
{
    const auto byte = [bytes](int i) { return static_cast<quint32>(static_cast<uchar>(bytes[i])); };
    const quint32 upper = byte(0) << 8U | byte(1) << 16U | byte(2) << 24U;
    return static_cast<float>(static_cast<qint32>(upper)) / 2147483648.0F;
}

float Signed32(const char* bytes)
{
    return static_cast<float>(qFromLittleEndian<qint32>(bytes)) / 2147483648.0F;
}

float Float32(const char* bytes)
{
    const auto value = qFromLittleEndian<float>(bytes);
    return std::isfinite(value) ? value : 0;
}

/// A way of writing samples.
struct Encoding
{
    bool isFloat;
    int bits;
    float (*read)(const char* bytes);
};

constexpr Encoding kEncodings[] = {{false, 8, Unsigned8},
                                   {false, 16, Signed16},
                                   {false, 24, Signed24},
                                   {false, 32, Signed32},
                                   {true, 32, Float32}};

const Encoding* EncodingOf(const WavFormat& format)
{
    const auto* const found =
        std::find_if(std::begin(kEncodings), std::end(kEncodings), [&](const Encoding& each) {
            return each.isFloat == format.isFloat && each.bits == format.bits;
        });
    return found == std::end(kEncodings) ? nullptr : found;
}

/// What would have been heard in place of that; empty when it can be.
QString ExpectedInsteadOf(const WavFormat& format)
{
    if (!format.isWhole && !format.isFloat)
        return QStringLiteral("samples that are not compressed, to be heard");
    if (!EncodingOf(format)) {
        return QStringLiteral("whole samples of 8, 16, 24 or 32 bits or floating-point ones of 32, "
                              "to be heard, found %1 of %2 bits")
            .arg(format.isWhole ? QStringLiteral("whole ones")
                                : QStringLiteral("floating-point ones"))
            .arg(format.bits);
    }
    if (format.channels < 1 || format.channels > kMostChannels)
        return QStringLiteral("1 to %1 channels, to be heard, found %2")
            .arg(kMostChannels)
            .arg(format.channels);
    if (format.rate < 1 || format.rate > kHighestRate)
        return QStringLiteral("1 to %1 samples a second, to be heard, found %2")
            .arg(kHighestRate)
            .arg(format.rate);
    return {};
}

} // namespace

WavFile::WavFile(const QString& path) : m_file(path)
{
    const auto format = ReadWavFormat(path, m_error);
    if (!format)
        return;
    m_format = *format;
    const QString expected = ExpectedInsteadOf(m_format);
    if (!expected.isEmpty())
        m_error = {path, 0, expected};
    else if (!m_file.open(QIODevice::ReadOnly))
        m_error = {path, 0, QStringLiteral("a readable file")};
}

QString SilenceOf(const QString& path)
{
    const WavFile file(path);
    return file.IsOpen() ? QString() : file.Error().Message();
}

QVector<float> WavFile::Read(qint64 first, int count)
{
    constexpr int kHeard = 2;
    QVector<float> samples(count * kHeard, 0);
    const Encoding* const encoding = EncodingOf(m_format);
    const int sampleBytes = m_format.bits / 8;
    const qint64 momentBytes = qint64(sampleBytes) * m_format.channels;
    const qint64 moments = m_format.soundBytes / momentBytes;
    const qint64 from = std::clamp<qint64>(first, 0, moments);
    const qint64 to = std::clamp<qint64>(first + count, from, moments);
    if (from == to || !m_file.seek(m_format.soundStart + from * momentBytes))
        return samples;
    const QByteArray bytes = m_file.read((to - from) * momentBytes);
    const qint64 got = bytes.size() / momentBytes; // fewer when the file was cut meanwhile
    for (qint64 i = 0; i < got; ++i) {
        const char* const moment = bytes.constData() + i * momentBytes;
        const int place = static_cast<int>(from + i - first) * kHeard;
        samples[place] = encoding->read(moment);
        samples[place + 1] =
            m_format.channels > 1 ? encoding->read(moment + sampleBytes) : samples[place];
    }
    return samples;
}

} // namespace host
