#pragma once

#include <QString>
#include <QVector3D>
#include <QVector>

namespace host {

/// What one number of a motion sample moves. Positions are in the capture's unit of length,
/// rotations in degrees.
enum class Channel
{
    XPosition,
    YPosition,
    ZPosition,
    XRotation,
    YRotation,
    ZRotation
};

struct Joint
{
    QString name;
    int parent = -1;  ///< index of the joint it hangs on, lower than its own; -1 for a root
    QVector3D offset; ///< from the parent, in rest
    QVector<Channel> channels; ///< rotations are applied in this order, the last one innermost
    int firstChannel = 0;      ///< place of its first number in a sample
    QVector<QVector3D> ends{}; ///< where the bones end that lead on from it to no other joint
};

/// A captured motion: a skeleton, and one sample of all its channels for each moment. Y points up.
struct Motion
{
    QString name;
    double sampleTime = 0; ///< seconds from one sample to the next
    int channelCount = 0;  ///< numbers in a sample
    int sampleCount = 0;
    QVector<Joint> joints;  ///< parents before their children
    QVector<float> samples; ///< sample after sample

    /// The number of a channel in a sample; indexes are not checked.
    float At(int sample, int channel) const { return samples[sample * channelCount + channel]; }
};

bool operator==(const Joint& a, const Joint& b);
bool operator==(const Motion& a, const Motion& b);

} // namespace host
