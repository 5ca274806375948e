#include "MotionJson.h"

#include "SceneJsonNames.h"
#include "document/MouthShapes.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

/// A number that a float can be; larger ones would be read as infinite.
float ReadFloat(const JsonNode& node)
{
    constexpr double kMost = std::numeric_limits<float>::max();
    constexpr double kFirstInfinite = 0x1.ffffffp127; // below it, decimals may mean the largest
    const double number = node.Real();
    if (std::abs(number) >= kFirstInfinite)
        node.Refuse(QStringLiteral("a smaller number"));
    return static_cast<float>(std::clamp(number, -kMost, kMost));
}

QVector3D ReadOffset(const JsonNode& node)
{
    constexpr int kCoordinates = 3;
    QVector3D offset;
    int count = 0;
    node.ForEach([&](const JsonNode& element, int index) {
        if (index < kCoordinates)
            offset[index] = ReadFloat(element);
        ++count;
    });
    if (count != kCoordinates)
        node.Refuse(QStringLiteral("three numbers, found %1").arg(count));
    return offset;
}

Joint ReadJoint(const JsonNode& node, int index, int channelCount)
{
    JsonMembers members(node);
    Joint joint;
    joint.name = members.At("name").Text();
    joint.parent = members.At("parent").Whole({-1, index - 1});
    joint.offset = ReadOffset(members.At("offset"));
    const JsonNode first = members.At("firstChannel");
    joint.firstChannel = first.Whole({0, channelCount});
    members.At("channels").ForEach([&joint](const JsonNode& element, int) {
        joint.channels.append(static_cast<Channel>(element.Choice(kChannelNames)));
    });
    if (joint.channels.size() > channelCount - joint.firstChannel)
        first.Refuse(QStringLiteral("channels that a sample has"));
    members.ForEach(
        "ends", [&joint](const JsonNode& element, int) { joint.ends.append(ReadOffset(element)); });
    members.Finish();
    return joint;
}

void ReadSample(const JsonNode& node, Motion& motion)
{
    const int before = motion.samples.size();
    node.ForEach([&motion](const JsonNode& number, int) { motion.samples += ReadFloat(number); });
    const int found = motion.samples.size() - before;
    if (found != motion.channelCount)
        node.Refuse(QStringLiteral("%1 numbers, found %2").arg(motion.channelCount).arg(found));
}

} // namespace

Motion ReadMotion(const JsonNode& node)
{
    JsonMembers members(node);
    Motion motion;
    motion.name = members.At("name").Text();
    const JsonNode time = members.At("sampleTime");
    motion.sampleTime = time.Real();
    motion.channelCount = members.At("channelCount").Whole({0});
    motion.sampleCount = members.At("sampleCount").Whole({0});
    members.At("joints").ForEach([&motion](const JsonNode& element, int index) {
        motion.joints.append(ReadJoint(element, index, motion.channelCount));
    });
    const JsonNode samples = members.At("samples");
    int count = 0;
    samples.ForEach([&](const JsonNode& element, int) {
        ReadSample(element, motion);
        ++count;
    });
    if (count != (motion.channelCount > 0 ? motion.sampleCount : 0))
        samples.Refuse(QStringLiteral("%1 samples, found %2").arg(motion.sampleCount).arg(count));
    if (motion.sampleTime < 0 || (motion.sampleCount > 0 && !(motion.sampleTime > 0)))
        time.Refuse(QStringLiteral("a time above 0"));
    members.Finish();
    return motion;
}

SpokenLine ReadSpokenLine(const JsonNode& node)
{
    JsonMembers members(node);
    SpokenLine line;
    line.name = members.At("name").Text();
    line.duration = members.At("duration").Real();
    members.At("cues").ForEach([&line](const JsonNode& element, int) {
        JsonMembers cue(element);
        line.cues.append({cue.At("start").Real(), cue.At("end").Real(),
                          cue.At("shape").Whole({0, kMouthShapeCount - 1})});
        cue.Finish();
    });
    members.Finish();
    return line;
}

} // namespace host
