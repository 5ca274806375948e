#include "SoundMixer.h"
#include "SoundOutput.h"

#include <QAudioDeviceInfo>
#include <QAudioOutput>
#include <QCoreApplication>
#include <QIODevice>

#include <algorithm>
#include <cstring>

namespace host {

namespace {

constexpr int kRate = 48000; ///< samples a second
constexpr int kChannels = 2;
constexpr int kBitsPerByte = 8;
constexpr int kSampleBits = 16;
constexpr int kFrameBytes = kChannels * kSampleBits / kBitsPerByte;
constexpr int kBufferBytes = kRate / 10 * kFrameBytes; ///< a tenth of a second

QAudioFormat Format()
{
    QAudioFormat format;
    format.setCodec(QStringLiteral("audio/pcm"));
    format.setSampleRate(kRate);
    format.setChannelCount(kChannels);
    format.setSampleSize(kSampleBits);
    format.setSampleType(QAudioFormat::SignedInt);
    format.setByteOrder(static_cast<QAudioFormat::Endian>(QSysInfo::ByteOrder));
    return format;
}

QString Translated(const char* text)
{
    return QCoreApplication::translate("SoundOutput", text);
}

/// What the device reads its samples from; it never ends.
class MixedSamples : public QIODevice
{
public:
    MixedSamples(const SoundPlan& plan, double seconds) : m_mixer(plan, kRate, seconds)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered); // what was mixed is in the device
    }

    const SoundMixer& Mixer() const { return m_mixer; }
    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return kBufferBytes + QIODevice::bytesAvailable(); }

protected:
    qint64 readData(char* data, qint64 most) override
    {
        const auto frames = static_cast<int>(std::min<qint64>(most, kBufferBytes) / kFrameBytes);
        QVector<qint16> samples(frames * kChannels);
        m_mixer.Mix(samples.data(), frames);
        std::memcpy(data, samples.constData(), static_cast<std::size_t>(frames) * kFrameBytes);
        return qint64(frames) * kFrameBytes;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    SoundMixer m_mixer;
};

/// The desktop's default device, looked for each time: headphones come and go.
class QtSoundOutput : public SoundOutput
{
public:
    QString Start(const SoundPlan& plan, double seconds) override
    {
        Stop();
        if (plan.isEmpty())
            return {};
        const QAudioDeviceInfo device = QAudioDeviceInfo::defaultOutputDevice();
        if (device.isNull() || !device.isFormatSupported(Format()))
            return Translated("There is no sound device: playing silently");
        m_samples = std::make_unique<MixedSamples>(plan, seconds);
        m_output = std::make_unique<QAudioOutput>(device, Format());
        m_output->setBufferSize(kBufferBytes);
        m_output->start(m_samples.get());
        if (m_output->error() != QAudio::NoError)
            return Translated("The sound device does not answer: playing silently");
        return m_samples->Mixer().Problem();
    }

    void Stop() override
    {
        if (m_output)
            m_output->reset(); // what it has taken already must not be heard any more
        m_output.reset();
        m_samples.reset();
    }

    std::optional<double> Place() const override
    {
        if (!m_output || m_output->state() == QAudio::StoppedState ||
            m_output->state() == QAudio::SuspendedState)
            return std::nullopt;
        const int waiting = std::max(0, m_output->bufferSize() - m_output->bytesFree());
        return m_samples->Mixer().Seconds() - double(waiting) / kFrameBytes / kRate;
    }

private:
    std::unique_ptr<MixedSamples> m_samples;
    std::unique_ptr<QAudioOutput> m_output; // goes before what it reads from
};

} // namespace

std::unique_ptr<SoundOutput> MakeSoundOutput()
{
    return std::make_unique<QtSoundOutput>();
}

} // namespace host
