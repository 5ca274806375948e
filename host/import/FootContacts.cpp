#include "FootContacts.h"

#include "document/MotionSampling.h"

#include <algorithm>
#include <numeric>

namespace host {

namespace {

constexpr int kMostFeet = 2;
constexpr double kLowPart = 0.3;       ///< of the skeleton's height: ends above it are no feet
constexpr double kLeastLift = 0.01;    ///< of the skeleton's height: a lower lift is no step
constexpr double kNearGround = 0.5;    ///< of a foot's lift: above it a foot at rest is held up
constexpr double kStandsStill = 0.2;   ///< of a foot's top speed: a slower foot stands
constexpr double kOutlierShare = 0.05; ///< of the frames, left out at both ends of a measure
constexpr int kShortestContact = 3;    ///< frames
constexpr int kShortestSwing = 3;      ///< frames; a foot that moves for less has not been lifted

/// An end of the skeleton, which may be a foot.
struct LowEnd
{
    int joint;
    QVector<QVector3D> positions; ///< at every frame
    double meanHeight;
};

LowEnd MakeEnd(const Motion& motion, int joint, int frameRate)
{
    LowEnd end{joint, JointPositions(motion, joint, frameRate), 0};
    for (const QVector3D& position : qAsConst(end.positions))
        end.meanHeight += static_cast<double>(position.y());
    end.meanHeight /= std::max(1, end.positions.size());
    return end;
}

std::optional<QVector<LowEnd>> EndsOfSkeleton(const Motion& motion, int frameRate,
                                              const ImportProgress& progress)
{
    QVector<bool> hasChildren(motion.joints.size(), false);
    for (const Joint& joint : motion.joints) {
        if (joint.parent >= 0)
            hasChildren[joint.parent] = true;
    }
    QVector<LowEnd> ends;
    for (int joint = 0; joint < motion.joints.size(); ++joint) {
        if (!progress.Advance(double(joint) / motion.joints.size()))
            return std::nullopt;
        if (!hasChildren[joint] && motion.joints[joint].parent >= 0)
            ends.append(MakeEnd(motion, joint, frameRate));
    }
    return ends;
}

/// The value below which @p share of the values lie.
double ValueAt(QVector<double> values, double share)
{
    std::sort(values.begin(), values.end());
    return values[static_cast<int>(share * (values.size() - 1))];
}

QVector<double> HeightsOf(const LowEnd& end)
{
    QVector<double> heights;
    for (const QVector3D& position : end.positions)
        heights.append(static_cast<double>(position.y()));
    return heights;
}

/// Units a frame, measured over the frame before and the frame after.
QVector<double> SpeedsOf(const LowEnd& end)
{
    QVector<double> speeds;
    const int last = end.positions.size() - 1;
    for (int frame = 0; frame <= last; ++frame) {
        const int before = std::max(0, frame - 1);
        const int after = std::min(last, frame + 1);
        const QVector3D way = end.positions[after] - end.positions[before];
        speeds.append(static_cast<double>(way.length()) / std::max(1, after - before));
    }
    return speeds;
}

/// A foot stands where it is slow and low. Speed tells the two ends of a contact sharply; height
/// alone would not, as the ground of a capture may slope.
QVector<FrameRange> ContactsOf(const LowEnd& foot, double ground, double lift)
{
    const QVector<double> heights = HeightsOf(foot);
    const QVector<double> speeds = SpeedsOf(foot);
    const double slow = kStandsStill * ValueAt(speeds, 1 - kOutlierShare);
    QVector<FrameRange> ranges;
    for (int frame = 0; frame < heights.size(); ++frame) {
        if (speeds[frame] > slow || heights[frame] > ground + kNearGround * lift)
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

std::optional<QVector<FootContacts>> FindFootContacts(const Motion& motion, int frameRate,
                                                      const ImportProgress& progress)
{
    std::optional<QVector<LowEnd>> found = EndsOfSkeleton(motion, frameRate, progress);
    if (!found)
        return std::nullopt;
    QVector<LowEnd>& ends = *found;
    if (ends.isEmpty() || ends[0].positions.isEmpty())
        return QVector<FootContacts>();
    std::stable_sort(ends.begin(), ends.end(),
                     [](const LowEnd& a, const LowEnd& b) { return a.meanHeight < b.meanHeight; });
    const double skeletonHeight = ends.last().meanHeight - ends.first().meanHeight;
    const double highestFoot = ends.first().meanHeight + kLowPart * skeletonHeight;

    QVector<FootContacts> feet;
    for (const LowEnd& end : qAsConst(ends)) {
        if (feet.size() == kMostFeet || end.meanHeight > highestFoot)
            break;
        const QVector<double> heights = HeightsOf(end);
        const double ground = ValueAt(heights, kOutlierShare);
        const double lift = ValueAt(heights, 1 - kOutlierShare) - ground;
        if (lift <= kLeastLift * skeletonHeight)
            continue;
        const QVector<FrameRange> ranges = ContactsOf(end, ground, lift);
        if (!ranges.isEmpty())
            feet.append({end.joint, ranges});
    }
    std::sort(feet.begin(), feet.end(),
              [](const FootContacts& a, const FootContacts& b) { return a.joint < b.joint; });
    return feet;
}

QVector<FootContacts> FindFootContacts(const Motion& motion, int frameRate)
{
    return *FindFootContacts(motion, frameRate, {}); // without a listener nothing cancels
}

} // namespace host
