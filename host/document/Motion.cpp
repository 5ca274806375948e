#include "Motion.h"

#include <tuple>

namespace host {

namespace {

auto Members(const Joint& joint)
{
    return std::tie(joint.name, joint.parent, joint.offset, joint.channels, joint.firstChannel,
                    joint.ends);
}

auto Members(const Motion& motion)
{
    return std::tie(motion.name, motion.sampleTime, motion.channelCount, motion.sampleCount,
                    motion.joints, motion.samples);
}

} // namespace

bool operator==(const Joint& a, const Joint& b)
{
    return Members(a) == Members(b);
}

bool operator==(const Motion& a, const Motion& b)
{
    return Members(a) == Members(b);
}

} // namespace host
