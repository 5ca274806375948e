#include "SoundMixer.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

constexpr int kChannels = 2;
constexpr float kLoudest = 32767;

} // namespace

SoundMixer::SoundMixer(const SoundPlan& plan, int rate, double seconds)
    : m_rate(std::max(1, rate)), m_position(std::llround(seconds * m_rate))
{
    QStringList problems;
    for (const SoundSpan& span : plan) {
        std::shared_ptr<WavFile>& file = m_files[span.path];
        if (!file)
            file = std::make_shared<WavFile>(span.path);
        if (file->IsOpen())
            m_plan.append(span);
        else if (!problems.contains(file->Error().Message()))
            problems.append(file->Error().Message());
    }
    m_problem = problems.join(QStringLiteral("; "));
}

void SoundMixer::Mix(qint16* samples, int frames)
{
    QVector<float> mixed(frames * kChannels, 0);
    for (const SoundSpan& span : qAsConst(m_plan))
        AddSpan(span, mixed);
    for (int i = 0; i < mixed.size(); ++i)
        samples[i] = static_cast<qint16>(std::lround(std::clamp(mixed[i], -1.0F, 1.0F) * kLoudest));
    m_position += frames;
}

/// The sound's samples stand between those of the device, as both may have rates of their own: each
/// sample heard is on the straight line between its two neighbours in the file.
void SoundMixer::AddSpan(const SoundSpan& span, QVector<float>& mixed) const
{
    const qint64 from = std::max(m_position, std::llround(span.start * m_rate));
    const qint64 to =
        std::min<qint64>(m_position + mixed.size() / kChannels, std::llround(span.end * m_rate));
    if (from >= to)
        return;
    WavFile& file = *m_files[span.path];
    const double step = static_cast<double>(file.Rate()) / m_rate;
    const auto placeOf = [&](qint64 moment) {
        return (span.offset - span.start) * file.Rate() + static_cast<double>(moment) * step;
    };
    const auto first = static_cast<qint64>(std::floor(placeOf(from)));
    const auto last = static_cast<qint64>(std::floor(placeOf(to - 1))) + 1;
    const QVector<float> source = file.Read(first, static_cast<int>(last - first + 1));
    for (qint64 moment = from; moment < to; ++moment) {
        const double place = placeOf(moment) - static_cast<double>(first);
        const int index = std::clamp(static_cast<int>(place), 0, source.size() / kChannels - 2);
        const auto share = static_cast<float>(place - index);
        for (int channel = 0; channel < kChannels; ++channel) {
            const float a = source[index * kChannels + channel];
            const float b = source[(index + 1) * kChannels + channel];
            mixed[static_cast<int>(moment - m_position) * kChannels + channel] +=
                a + (b - a) * share;
        }
    }
}

} // namespace host
