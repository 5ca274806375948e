#include "MotionSampling.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

/// Frame times such as 0.0083333 are rounded; a frame this little past the last sample is within.
constexpr double kRoundingOfFrameTimes = 1e-2;

/// A moment between two neighbouring samples.
struct Moment
{
    int sample;
    int next;
    float share; ///< of the next sample, 0 to 1
};

Moment MomentOf(const Motion& motion, double frame, int frameRate)
{
    const int last = motion.sampleCount - 1;
    const double place = std::clamp<double>(frame / (frameRate * motion.sampleTime), 0, last);
    const int sample = static_cast<int>(place);
    return {sample, std::min(sample + 1, last), static_cast<float>(place - sample)};
}

bool IsPosition(Channel channel)
{
    return channel <= Channel::ZPosition;
}

QVector3D AxisOf(Channel channel)
{
    switch (channel) {
    case Channel::XRotation:
        return {1, 0, 0};
    case Channel::YRotation:
        return {0, 1, 0};
    default:
        return {0, 0, 1};
    }
}

QQuaternion RotationAt(const Motion& motion, const Joint& joint, int sample)
{
    QQuaternion rotation;
    for (int i = 0; i < joint.channels.size(); ++i) {
        const Channel channel = joint.channels[i];
        if (IsPosition(channel))
            continue;
        const float degrees = motion.At(sample, joint.firstChannel + i);
        rotation *= QQuaternion::fromAxisAndAngle(AxisOf(channel), degrees);
    }
    return rotation;
}

/// Position channels take the place of the offset, axis by axis.
QVector3D TranslationAt(const Motion& motion, const Joint& joint, int sample)
{
    QVector3D translation = joint.offset;
    for (int i = 0; i < joint.channels.size(); ++i) {
        const Channel channel = joint.channels[i];
        if (IsPosition(channel))
            translation[static_cast<int>(channel)] = motion.At(sample, joint.firstChannel + i);
    }
    return translation;
}

QVector3D PositionAt(const Motion& motion, int joint, int sample)
{
    QVector3D position = TranslationAt(motion, motion.joints[joint], sample);
    for (int i = motion.joints[joint].parent; i >= 0; i = motion.joints[i].parent) {
        const Joint& ancestor = motion.joints[i];
        position = TranslationAt(motion, ancestor, sample) +
                   RotationAt(motion, ancestor, sample).rotatedVector(position);
    }
    return position;
}

JointPlace PlaceAt(const Motion& motion, const Joint& joint, const Moment& moment)
{
    const QVector3D from = TranslationAt(motion, joint, moment.sample);
    const QVector3D to = TranslationAt(motion, joint, moment.next);
    return {from + (to - from) * moment.share,
            QQuaternion::slerp(RotationAt(motion, joint, moment.sample),
                               RotationAt(motion, joint, moment.next), moment.share)};
}

} // namespace

QVector<JointPlace> JointPlaces(const Motion& motion, double frame, int frameRate)
{
    QVector<JointPlace> places;
    places.reserve(motion.joints.size());
    if (motion.sampleCount < 1) {
        for (const Joint& joint : motion.joints)
            places.append({joint.offset, QQuaternion()});
        return places;
    }
    const Moment moment = MomentOf(motion, frame, frameRate);
    for (const Joint& joint : motion.joints)
        places.append(PlaceAt(motion, joint, moment));
    return places;
}

int SceneFramesOf(const Motion& motion, int frameRate)
{
    if (motion.sampleCount < 1)
        return 0;
    const double lastFrame = (motion.sampleCount - 1) * motion.sampleTime * frameRate;
    return static_cast<int>(std::floor(lastFrame + kRoundingOfFrameTimes)) + 1;
}

QVector<QQuaternion> JointRotations(const Motion& motion, int joint, int frameRate)
{
    QVector<QQuaternion> rotations(SceneFramesOf(motion, frameRate));
    const Joint& moved = motion.joints[joint];
    for (int frame = 0; frame < rotations.size(); ++frame) {
        const Moment moment = MomentOf(motion, frame, frameRate);
        rotations[frame] = QQuaternion::slerp(RotationAt(motion, moved, moment.sample),
                                              RotationAt(motion, moved, moment.next), moment.share);
    }
    return rotations;
}

QVector<QVector3D> JointPositions(const Motion& motion, int joint, int frameRate)
{
    QVector<QVector3D> positions(SceneFramesOf(motion, frameRate));
    for (int frame = 0; frame < positions.size(); ++frame) {
        const Moment moment = MomentOf(motion, frame, frameRate);
        const QVector3D from = PositionAt(motion, joint, moment.sample);
        const QVector3D to = PositionAt(motion, joint, moment.next);
        positions[frame] = from + (to - from) * moment.share;
    }
    return positions;
}

} // namespace host
