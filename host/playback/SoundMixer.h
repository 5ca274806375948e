#pragma once

#include "SoundPlan.h"
#include "WavFile.h"

#include <QHash>

#include <memory>

namespace host {

/// Mixes what a plan holds into samples for a sound device, one piece after the other: 16 bits, two
/// channels, left first.
class SoundMixer
{
public:
    /// @param rate samples a second that the device takes. @param seconds where the first piece
    /// begins.
    SoundMixer(const SoundPlan& plan, int rate, double seconds);

    /// One line about all the sounds that cannot be played; empty when all can.
    QString Problem() const { return m_problem; }
    /// Where the next piece begins.
    double Seconds() const { return static_cast<double>(m_position) / m_rate; }
    /// Writes the next @p frames moments, two samples each.
    void Mix(qint16* samples, int frames);

private:
    void AddSpan(const SoundSpan& span, QVector<float>& mixed) const;

    SoundPlan m_plan; ///< what can be played of it
    QHash<QString, std::shared_ptr<WavFile>> m_files;
    int m_rate;
    qint64 m_position; ///< samples since the scene's first frame
    QString m_problem;
};

} // namespace host
