#include "BvhReader.h"

#include "BvhHierarchy.h"

#include <QFileInfo>

#include <limits>

namespace host {

namespace {

constexpr double kShortestSampleTime = 1e-4; ///< seconds; quicker than this is no capture
constexpr double kLongestSampleTime = 1.0;   ///< seconds; slower than this is no capture
constexpr int kSamplesPerStep = 256;         ///< between two words about the progress

/// One reading of one text. Each step returns false once the error has been filled.
class BvhParser
{
public:
    BvhParser(const QByteArray& text, const QString& fileName, ImportError& error,
              const ImportProgress& progress)
        : m_text(text, fileName, error), m_progress(progress)
    {
    }

    std::optional<Motion> Parse()
    {
        m_motion.name = QFileInfo(m_text.FileName()).completeBaseName();
        if (!BvhHierarchy(m_text, m_motion).Parse() || !ParseMotionHeader() || !ParseSamples())
            return std::nullopt;
        return m_motion;
    }

private:
    bool ParseMotionHeader();
    bool ParseSampleCount();
    bool ParseSampleTime();
    bool ParseSamples();
    bool ParseLines();
    bool ParseLine(int sample);
    bool ParseFreely();
    bool TellProgress(int sample);

    BvhText m_text;
    const ImportProgress& m_progress;
    Motion m_motion;
};

bool BvhParser::ParseMotionHeader()
{
    if (!m_text.Scanner().TakeWord("MOTION"))
        return m_text.Fail(QStringLiteral("ROOT or MOTION"));
    if (m_motion.channelCount == 0)
        return m_text.Fail(QStringLiteral("a joint with channels before MOTION"));
    return ParseSampleCount() && ParseSampleTime();
}

bool BvhParser::ParseSampleCount()
{
    if (!m_text.TakeLabel("Frames"))
        return m_text.Fail(QStringLiteral("Frames:"));
    return m_text.TakeInteger(m_motion.sampleCount, 1, std::numeric_limits<int>::max(),
                              QStringLiteral("a number of frames above 0"));
}

bool BvhParser::ParseSampleTime()
{
    if (!m_text.Scanner().TakeWord("Frame") || !m_text.TakeLabel("Time"))
        return m_text.Fail(QStringLiteral("Frame Time:"));
    const QString what = QStringLiteral("a frame time from 0.0001 to 1 second");
    const int line = m_text.Scanner().Line();
    const QString found = m_text.Found();
    if (!m_text.TakeNumber(m_motion.sampleTime, what))
        return false;
    if (m_motion.sampleTime < kShortestSampleTime || m_motion.sampleTime > kLongestSampleTime)
        return m_text.FailAt(line, what, found);
    return true;
}

/// A line a sample is how nearly all captures are written, and lets an error name its line. Others
/// break the numbers into lines as they like: that is as good, if there are as many as there
/// should.
bool BvhParser::ParseSamples()
{
    const TextScanner start = m_text.Scanner();
    if (ParseLines())
        return true;
    if (m_text.Error().isCancelled)
        return false;
    const ImportError error = m_text.Error();
    m_text.Scanner() = start;
    m_motion.samples.clear();
    if (ParseFreely())
        return true;
    if (!m_text.Error().isCancelled)
        m_text.Error() = error;
    return false;
}

bool BvhParser::ParseLines()
{
    // Grown as the lines come: the count is only a claim until then.
    for (int sample = 0; sample < m_motion.sampleCount; ++sample) {
        if (!ParseLine(sample) || !TellProgress(sample))
            return false;
    }
    if (!m_text.Scanner().AtEnd())
        return m_text.Fail(
            QStringLiteral("the end of the file after %1 frames").arg(m_motion.sampleCount));
    return true;
}

bool BvhParser::ParseLine(int sample)
{
    if (m_text.Scanner().AtEnd()) {
        return m_text.FailAt(m_text.Scanner().Line(),
                             QStringLiteral("%1 frames").arg(m_motion.sampleCount),
                             QStringLiteral("%1").arg(sample));
    }
    const int line = m_text.Scanner().Line();
    const QString what = QStringLiteral("%1 numbers").arg(m_motion.channelCount);
    for (int channel = 0; channel < m_motion.channelCount; ++channel) {
        if (m_text.Scanner().AtEnd() || m_text.Scanner().Line() != line)
            return m_text.FailAt(line, what, QStringLiteral("%1").arg(channel));
        double number = 0;
        if (!m_text.TakeNumber(number, what))
            return false;
        m_motion.samples.append(static_cast<float>(number));
    }
    if (!m_text.Scanner().AtLineEnd())
        return m_text.FailAt(line, what, QStringLiteral("more"));
    return true;
}

bool BvhParser::ParseFreely()
{
    const QString what = QStringLiteral("a number");
    for (int sample = 0; sample < m_motion.sampleCount; ++sample) {
        for (int channel = 0; channel < m_motion.channelCount; ++channel) {
            double number = 0;
            if (!m_text.TakeNumber(number, what))
                return false;
            m_motion.samples.append(static_cast<float>(number));
        }
        if (!TellProgress(sample))
            return false;
    }
    return m_text.Scanner().AtEnd();
}

bool BvhParser::TellProgress(int sample)
{
    if (sample % kSamplesPerStep != 0 || m_progress.Advance(m_text.Scanner().ShareTaken()))
        return true;
    m_text.Error() = {};
    m_text.Error().file = m_text.FileName();
    m_text.Error().isCancelled = true;
    return false;
}

} // namespace

std::optional<Motion> ReadBvh(const QByteArray& text, const QString& fileName, ImportError& error,
                              const ImportProgress& progress)
{
    return BvhParser(text, fileName, error, progress).Parse();
}

} // namespace host
