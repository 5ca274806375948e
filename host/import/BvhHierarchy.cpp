#include "BvhHierarchy.h"

#include <QByteArrayList>

#include <array>

namespace host {

namespace {

constexpr int kMostJoints = 1000; ///< every joint becomes a row; more is a damaged file

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

} // namespace

bool BvhHierarchy::Parse()
{
    if (!Scanner().TakeWord("HIERARCHY"))
        return m_text.Fail(QStringLiteral("HIERARCHY"));
    do {
        if (!ParseRoot())
            return false;
    } while (Scanner().Peek().compare("ROOT", Qt::CaseInsensitive) == 0);
    return true;
}

bool BvhHierarchy::ParseRoot()
{
    if (!Scanner().TakeWord("ROOT"))
        return m_text.Fail(QStringLiteral("ROOT"));
    if (!OpenJoint(QStringLiteral("ROOT")))
        return false;
    while (!m_openBlocks.isEmpty()) {
        if (!ParseStatement())
            return false;
    }
    return true;
}

bool BvhHierarchy::ParseStatement()
{
    if (Scanner().TakeWord("}")) {
        m_openBlocks.removeLast();
        return true;
    }
    if (Scanner().TakeWord("OFFSET"))
        return ParseOffset();
    if (m_openBlocks.last() == kEndSite)
        return ParseNoChannels();
    if (Scanner().TakeWord("CHANNELS"))
        return ParseChannels();
    if (Scanner().TakeWord("JOINT"))
        return OpenJoint(QStringLiteral("JOINT"));
    if (Scanner().TakeWord("End"))
        return OpenEndSite();
    return m_text.Fail(QStringLiteral("OFFSET, CHANNELS, JOINT, End Site or }"));
}

bool BvhHierarchy::OpenJoint(const QString& what)
{
    if (m_motion.joints.size() == kMostJoints)
        return m_text.Fail(QStringLiteral("at most %1 joints").arg(kMostJoints));
    Joint joint;
    joint.parent = m_openBlocks.isEmpty() ? -1 : m_openBlocks.last();
    joint.firstChannel = m_motion.channelCount;
    if (!TakeName(joint.name, what))
        return false;
    m_openBlocks.append(m_motion.joints.size());
    m_motion.joints.append(joint);
    return true;
}

bool BvhHierarchy::OpenEndSite()
{
    if (!Scanner().TakeWord("Site"))
        return m_text.Fail(QStringLiteral("Site after End"));
    // Some writers give the site a name, which nothing refers to.
    while (!Scanner().AtEnd() && !Scanner().AtLineEnd() && Scanner().Peek() != "{")
        Scanner().Take();
    if (!Scanner().TakeWord("{"))
        return m_text.Fail(QStringLiteral("{ after End Site"));
    m_openBlocks.append(kEndSite);
    return true;
}

bool BvhHierarchy::ParseOffset()
{
    QVector3D offset;
    for (int axis = 0; axis < 3; ++axis) {
        double number = 0;
        if (!m_text.TakeNumber(number, QStringLiteral("3 numbers after OFFSET")))
            return false;
        offset[axis] = static_cast<float>(number);
    }
    if (m_openBlocks.last() != kEndSite)
        m_motion.joints[m_openBlocks.last()].offset = offset;
    else
        m_motion.joints[m_openBlocks.at(m_openBlocks.size() - 2)].ends.append(offset);
    return true;
}

/// Some writers say of an End Site that it has none.
bool BvhHierarchy::ParseNoChannels()
{
    const int line = Scanner().Line();
    const QString found = m_text.Found();
    if (Scanner().TakeWord("CHANNELS") && Scanner().TakeWord("0"))
        return true;
    return m_text.FailAt(line, QStringLiteral("OFFSET or } in an End Site"), found);
}

bool BvhHierarchy::ParseChannels()
{
    Joint& joint = m_motion.joints[m_openBlocks.last()];
    if (!joint.channels.isEmpty())
        return m_text.Fail(QStringLiteral("CHANNELS once for each joint"));
    int count = 0;
    const int most = static_cast<int>(kChannelNames.size());
    if (!m_text.TakeInteger(count, 0, most, QStringLiteral("a number of channels from 0 to 6")))
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

bool BvhHierarchy::ParseChannel(Joint& joint)
{
    const QByteArray word = Scanner().Peek();
    for (const ChannelName& each : kChannelNames) {
        if (word.compare(each.name, Qt::CaseInsensitive) != 0)
            continue;
        if (joint.channels.contains(each.channel))
            return m_text.Fail(QStringLiteral("each channel once"));
        joint.channels.append(each.channel);
        Scanner().Take();
        return true;
    }
    return m_text.Fail(QStringLiteral("a channel name such as Xposition or Zrotation"));
}

bool BvhHierarchy::TakeName(QString& name, const QString& what)
{
    QByteArrayList words;
    while (!Scanner().AtEnd() && Scanner().Peek() != "{" && Scanner().Peek() != "}" &&
           (words.isEmpty() || !Scanner().AtLineEnd()))
        words.append(Scanner().Take());
    if (words.isEmpty())
        return m_text.Fail(QStringLiteral("a name after %1").arg(what));
    if (!Scanner().TakeWord("{"))
        return m_text.Fail(QStringLiteral("{ after the name of a %1").arg(what));
    name = QString::fromUtf8(words.join(' '));
    return true;
}

} // namespace host
