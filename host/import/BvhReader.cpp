#include "BvhReader.h"

#include "TextScanner.h"

#include <QFileInfo>

#include <array>
#include <cmath>

namespace host {

namespace {

constexpr int kMostJoints = 1000;          ///< every joint becomes a row; more is a damaged file
constexpr double kGreatest = 1e9;          ///< of any number; keeps products of them finite
constexpr double kLongestSampleTime = 1.0; ///< seconds; slower than this is no capture

constexpr int kSamplesPerStep = 256; ///< between two words about the progress

struct ChannelName
{
    const char* name;
    Channel channel;
};

constexpr std::array<ChannelName, 6> kChannelNames{{{"Xposition", Channel::XPosition},
                                                    {"Yposition", Channel::YPosition},
                                                    {"Zposition", Channel::ZPosition},
                                                    {"Xrotation", Channel::XRotation},
                                                    {"Yrotation", Channel::YRotation},
                                                    {"Zrotation", Channel::ZRotation}}};

/// One reading of one text. Each step returns false once the error has been filled.
class BvhParser
{
public:
    BvhParser(const QByteArray& text, const QString& fileName, ImportError& error,
              const ImportProgress& progress)
        : m_scanner(text), m_fileName(fileName), m_error(error), m_progress(progress)
    {
    }

    std::optional<Motion> Parse()
    {
        m_motion.name = QFileInfo(m_fileName).completeBaseName();
        if (!ParseHierarchy() || !ParseMotionHeader() || !ParseSamples())
            return std::nullopt;
        return m_motion;
    }

private:
    bool ParseHierarchy();
    bool ParseRoot();
    bool ParseStatement();
    bool OpenJoint(const QString& what);
    bool OpenEndSite();
    void CloseBlock();
    bool ParseOffset();
    bool ParseChannels();
    bool ParseChannel(Joint& joint);
    bool ParseMotionHeader();
    bool ParseSampleCount();
    bool ParseSampleTime();
    bool ParseSamples();
    bool ParseSample(int sample);
    bool TellProgress(int sample);

    bool TakeNumber(double& number, const QString& what);
    bool TakeInteger(int& number, int least, int most, const QString& what);
    bool TakeName(QString& name, const QString& what);

    /// Blames the next word, or the end of the file.
    bool Fail(const QString& expected) { return FailAt(m_scanner.Line(), expected, Found()); }
    bool FailAt(int line, const QString& expected, const QString& found);
    QString Found()
    {
        return m_scanner.AtEnd() ? QStringLiteral("the end of the file") : Quoted(m_scanner.Peek());
    }

    /// A block between braces that is being read: a joint's index, or kEndSite. Kept on a stack of
    /// our own, so that no depth of nesting in a file can exhaust the program's.
    static constexpr int kEndSite = -1;

    TextScanner m_scanner;
    QString m_fileName;
    ImportError& m_error;
    const ImportProgress& m_progress;
    Motion m_motion;
    QVector<int> m_openBlocks;
};

bool BvhParser::FailAt(int line, const QString& expected, const QString& found)
{
    m_error = {m_fileName, line, QStringLiteral("%1, found %2").arg(expected, found)};
    return false;
}

bool BvhParser::ParseHierarchy()
{
    if (!m_scanner.TakeWord("HIERARCHY"))
        return Fail(QStringLiteral("HIERARCHY"));
    do {
        if (!ParseRoot())
            return false;
    } while (m_scanner.Peek().compare("ROOT", Qt::CaseInsensitive) == 0);
    return true;
}

bool BvhParser::ParseRoot()
{
    if (!m_scanner.TakeWord("ROOT"))
        return Fail(QStringLiteral("ROOT"));
    if (!OpenJoint(QStringLiteral("ROOT")))
        return false;
    while (!m_openBlocks.isEmpty()) {
        if (!ParseStatement())
            return false;
    }
    return true;
}

bool BvhParser::ParseStatement()
{
    if (m_scanner.TakeWord("}")) {
        CloseBlock();
        return true;
    }
    if (m_scanner.TakeWord("OFFSET"))
        return ParseOffset();
    if (m_openBlocks.last() == kEndSite)
        return Fail(QStringLiteral("OFFSET or } in an End Site"));
    if (m_scanner.TakeWord("CHANNELS"))
        return ParseChannels();
    if (m_scanner.TakeWord("JOINT"))
        return OpenJoint(QStringLiteral("JOINT"));
    if (m_scanner.TakeWord("End"))
        return OpenEndSite();
    return Fail(QStringLiteral("OFFSET, CHANNELS, JOINT, End Site or }"));
}

bool BvhParser::OpenJoint(const QString& what)
{
    if (m_motion.joints.size() == kMostJoints)
        return Fail(QStringLiteral("at most %1 joints").arg(kMostJoints));
    Joint joint;
    joint.parent = m_openBlocks.isEmpty() ? -1 : m_openBlocks.last();
    joint.firstChannel = m_motion.channelCount;
    if (!TakeName(joint.name, what))
        return false;
    m_openBlocks.append(m_motion.joints.size());
    m_motion.joints.append(joint);
    return true;
}

bool BvhParser::OpenEndSite()
{
    if (!m_scanner.TakeWord("Site"))
        return Fail(QStringLiteral("Site after End"));
    // Some writers give the site a name, which nothing refers to.
    while (!m_scanner.AtEnd() && !m_scanner.AtLineEnd() && m_scanner.Peek() != "{")
        m_scanner.Take();
    if (!m_scanner.TakeWord("{"))
        return Fail(QStringLiteral("{ after End Site"));
    m_openBlocks.append(kEndSite);
    return true;
}

void BvhParser::CloseBlock()
{
    m_openBlocks.removeLast();
}

bool BvhParser::ParseOffset()
{
    QVector3D offset;
    for (int axis = 0; axis < 3; ++axis) {
        double number = 0;
        if (!TakeNumber(number, QStringLiteral("3 numbers after OFFSET")))
            return false;
        offset[axis] = static_cast<float>(number);
    }
    if (m_openBlocks.last() != kEndSite)
        m_motion.joints[m_openBlocks.last()].offset = offset;
    return true;
}

bool BvhParser::ParseChannels()
{
    Joint& joint = m_motion.joints[m_openBlocks.last()];
    if (!joint.channels.isEmpty())
        return Fail(QStringLiteral("CHANNELS once for each joint"));
    int count = 0;
    const int most = static_cast<int>(kChannelNames.size());
    if (!TakeInteger(count, 0, most, QStringLiteral("a number of channels from 0 to 6")))
        return false;
    // A joint's children may stand before its channels; its numbers still follow theirs.
    joint.firstChannel = m_motion.channelCount;
    for (int i = 0; i < count; ++i) {
        if (!ParseChannel(joint))
            return false;
    }
    m_motion.channelCount += count;
    return true;
}

bool BvhParser::ParseChannel(Joint& joint)
{
    const QByteArray word = m_scanner.Peek();
    for (const ChannelName& each : kChannelNames) {
        if (word.compare(each.name, Qt::CaseInsensitive) != 0)
            continue;
        if (joint.channels.contains(each.channel))
            return Fail(QStringLiteral("each channel once"));
        joint.channels.append(each.channel);
        m_scanner.Take();
        return true;
    }
    return Fail(QStringLiteral("a channel name such as Xposition or Zrotation"));
}

bool BvhParser::ParseMotionHeader()
{
    if (!m_scanner.TakeWord("MOTION"))
        return Fail(QStringLiteral("ROOT or MOTION"));
    if (m_motion.channelCount == 0)
        return Fail(QStringLiteral("a joint with channels before MOTION"));
    return ParseSampleCount() && ParseSampleTime();
}

bool BvhParser::ParseSampleCount()
{
    if (!m_scanner.TakeIfNext("Frames:"))
        return Fail(QStringLiteral("Frames:"));
    return TakeInteger(m_motion.sampleCount, 1, std::numeric_limits<int>::max(),
                       QStringLiteral("a number of frames above 0"));
}

bool BvhParser::ParseSampleTime()
{
    if (!m_scanner.TakeWord("Frame") || !m_scanner.TakeIfNext("Time:"))
        return Fail(QStringLiteral("Frame Time:"));
    const QString what = QStringLiteral("a frame time above 0 and up to 1 second");
    const int line = m_scanner.Line();
    const QString found = Found();
    if (!TakeNumber(m_motion.sampleTime, what))
        return false;
    if (m_motion.sampleTime <= 0 || m_motion.sampleTime > kLongestSampleTime)
        return FailAt(line, what, found);
    return true;
}

bool BvhParser::ParseSamples()
{
    // Grown as the lines come: the count is only a claim until then.
    for (int sample = 0; sample < m_motion.sampleCount; ++sample) {
        if (!ParseSample(sample) || !TellProgress(sample))
            return false;
    }
    if (!m_scanner.AtEnd())
        return Fail(
            QStringLiteral("the end of the file after %1 frames").arg(m_motion.sampleCount));
    return true;
}

bool BvhParser::ParseSample(int sample)
{
    if (m_scanner.AtEnd()) {
        return FailAt(m_scanner.Line(), QStringLiteral("%1 frames").arg(m_motion.sampleCount),
                      QStringLiteral("%1").arg(sample));
    }
    const int line = m_scanner.Line();
    const QString what = QStringLiteral("%1 numbers").arg(m_motion.channelCount);
    for (int channel = 0; channel < m_motion.channelCount; ++channel) {
        if (m_scanner.AtEnd() || m_scanner.Line() != line)
            return FailAt(line, what, QStringLiteral("%1").arg(channel));
        double number = 0;
        if (!TakeNumber(number, what))
            return false;
        m_motion.samples.append(static_cast<float>(number));
    }
    if (!m_scanner.AtLineEnd())
        return FailAt(line, what, QStringLiteral("more"));
    return true;
}

bool BvhParser::TellProgress(int sample)
{
    if (sample % kSamplesPerStep != 0 || m_progress.Advance(m_scanner.ShareTaken()))
        return true;
    m_error = {};
    m_error.file = m_fileName;
    m_error.isCancelled = true;
    return false;
}

bool BvhParser::TakeNumber(double& number, const QString& what)
{
    bool isNumber = false;
    number = m_scanner.Peek().toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number) || std::abs(number) > kGreatest)
        return Fail(what);
    m_scanner.Take();
    return true;
}

bool BvhParser::TakeInteger(int& number, int least, int most, const QString& what)
{
    bool isNumber = false;
    number = m_scanner.Peek().toInt(&isNumber);
    if (!isNumber || number < least || number > most)
        return Fail(what);
    m_scanner.Take();
    return true;
}

bool BvhParser::TakeName(QString& name, const QString& what)
{
    QByteArrayList words;
    while (!m_scanner.AtEnd() && m_scanner.Peek() != "{" && m_scanner.Peek() != "}" &&
           (words.isEmpty() || !m_scanner.AtLineEnd()))
        words.append(m_scanner.Take());
    if (words.isEmpty())
        return Fail(QStringLiteral("a name after %1").arg(what));
    if (!m_scanner.TakeWord("{"))
        return Fail(QStringLiteral("{ after the name of a %1").arg(what));
    name = QString::fromUtf8(words.join(' '));
    return true;
}

} // namespace

std::optional<Motion> ReadBvh(const QByteArray& text, const QString& fileName, ImportError& error,
                              const ImportProgress& progress)
{
    return BvhParser(text, fileName, error, progress).Parse();
}

} // namespace host
