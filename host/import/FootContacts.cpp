#include "FootContacts.h"

#include "document/MotionSampling.h"

#include <algorithm>
#include <numeric>

namespace host {

namespace {

constexpr int kMostFeet = 2;
constexpr double kLowPart = 0.3;       ///< of the skeleton's height: ends above it are no feet
constexpr double kNearGround = 0.15;   ///< of a foot's lift: a foot below it is in contact
constexpr double kLeastLift = 0.01;    ///< of the skeleton's height: a lower lift is no step
constexpr int kShortestContact = 3;    ///< frames
constexpr int kShortestSwing = 3;      ///< frames; a foot lifted for less has not been lifted
constexpr double kOutlierShare = 0.05; ///< of the frames, left out at both ends of the heights

/// A foot that may be: an end of the skeleton, with its height at every frame.
struct LowEnd
{
    int joint;
    QVector<double> heights;
    double mean;
};

QVector<LowEnd> EndsOfSkeleton(const Motion& motion, int frameRate)
{
    QVector<bool> hasChildren(motion.joints.size(), false);
    for (const Joint& joint : motion.joints) {
        if (joint.parent >= 0)
            hasChildren[joint.parent] = true;
    }
    QVector<LowEnd> ends;
    for (int joint = 0; joint < motion.joints.size(); ++joint) {
        if (hasChildren[joint] || motion.joints[joint].parent < 0)
            continue;
        LowEnd end{joint, {}, 0};
        const QVector<QVector3D> positions = JointPositions(motion, joint, frameRate);
        for (const QVector3D& position : positions)
            end.heights.append(static_cast<double>(position.y()));
        end.mean = std::accumulate(end.heights.cbegin(), end.heights.cend(), 0.0) /
                   std::max(1, end.heights.size());
        ends.append(end);
    }
    return ends;
}

/// The height below which @p share of the frames lie.
double HeightAt(QVector<double> heights, double share)
{
    std::sort(heights.begin(), heights.end());
    return heights[static_cast<int>(share * (heights.size() - 1))];
}

QVector<FrameRange> RangesBelow(const QVector<double>& heights, double limit)
{
    QVector<FrameRange> ranges;
    for (int frame = 0; frame < heights.size(); ++frame) {
        if (heights[frame] > limit)
            continue;
        if (!ranges.isEmpty() && frame - ranges.last().last <= kShortestSwing)
            ranges.last().last = frame;
        else
            ranges.append({frame, frame});
    }
    const auto isShort = [](const FrameRange& range) {
        return range.last - range.first + 1 < kShortestContact;
    };
    ranges.erase(std::remove_if(ranges.begin(), ranges.end(), isShort), ranges.end());
    return ranges;
}

} // namespace

QVector<FootContacts> FindFootContacts(const Motion& motion, int frameRate)
{
    QVector<LowEnd> ends = EndsOfSkeleton(motion, frameRate);
    if (ends.isEmpty() || ends[0].heights.isEmpty())
        return {};
    std::stable_sort(ends.begin(), ends.end(),
                     [](const LowEnd& a, const LowEnd& b) { return a.mean < b.mean; });
    const double skeletonHeight = ends.last().mean - ends.first().mean;
    const double highestFoot = ends.first().mean + kLowPart * skeletonHeight;

    QVector<FootContacts> feet;
    for (const LowEnd& end : qAsConst(ends)) {
        if (feet.size() == kMostFeet || end.mean > highestFoot)
            break;
        const double ground = HeightAt(end.heights, kOutlierShare);
        const double lift = HeightAt(end.heights, 1 - kOutlierShare) - ground;
        if (lift <= kLeastLift * skeletonHeight)
            continue;
        feet.append({end.joint, RangesBelow(end.heights, ground + kNearGround * lift)});
    }
    std::sort(feet.begin(), feet.end(),
              [](const FootContacts& a, const FootContacts& b) { return a.joint < b.joint; });
    return feet;
}

} // namespace host
