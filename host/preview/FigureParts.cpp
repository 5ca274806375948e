#include "FigureParts.h"

#include "document/Motion.h"

#include <algorithm>
#include <array>

namespace host {

namespace {

/// What grows at a joint beyond its bones.
enum class Growth
{
    None,
    Head, ///< above the joint, with a nose ahead
    Foot, ///< ahead of the joint and down to the sole
    Tip   ///< on in the direction of the bone
};

/// How thick a body is at a joint, in shares of its height.
struct Thickness
{
    const char* name; ///< a part of the joint's name; the first that fits counts
    float radius;
    Growth growth;
};

constexpr std::array<Thickness, 23> kThicknesses{
    {{"thumb", 0.007F, Growth::Tip},   {"finger", 0.007F, Growth::Tip},
     {"index", 0.007F, Growth::Tip},   {"head", 0.030F, Growth::Head},
     {"neck", 0.033F, Growth::None},   {"clavicle", 0.045F, Growth::None},
     {"collar", 0.045F, Growth::None}, {"forearm", 0.026F, Growth::None},
     {"elbow", 0.026F, Growth::None},  {"hand", 0.020F, Growth::Tip},
     {"wrist", 0.020F, Growth::Tip},   {"shoulder", 0.042F, Growth::None},
     {"arm", 0.036F, Growth::None},    {"toe", 0.018F, Growth::Tip},
     {"foot", 0.024F, Growth::Foot},   {"ankle", 0.024F, Growth::Foot},
     {"upleg", 0.052F, Growth::None},  {"thigh", 0.052F, Growth::None},
     {"leg", 0.036F, Growth::None},    {"knee", 0.036F, Growth::None},
     {"hip", 0.062F, Growth::None},    {"chest", 0.064F, Growth::None},
     {"spine", 0.056F, Growth::None}}};
constexpr Thickness kOther{"", 0.03F, Growth::None};

constexpr float kHeadRise = 0.042F; ///< of the head's middle above its joint, in heights
constexpr float kHeadRadius = 0.062F;
constexpr float kNoseWay = 0.068F;
constexpr float kNoseRadius = 0.014F;
constexpr float kToeWay = 0.085F;
constexpr float kToeDrop = 0.022F;
constexpr float kToeRadius = 0.018F;
constexpr float kTipWay = 0.045F;
constexpr float kShortestEnd = 0.02F; ///< in heights; what is shorter only fills its place
constexpr float kGirdle = 1.1F;       ///< how much thicker shoulders and hips are than their limbs
constexpr float kSole = 0.040F;

const Thickness& ThicknessAt(const QString& joint)
{
    for (const Thickness& each : kThicknesses) {
        if (joint.contains(QLatin1String(each.name), Qt::CaseInsensitive))
            return each;
    }
    return kOther;
}

/// Names say it in full ("LeftArm", "left_arm") or by one letter ("LHipJoint").
BodySide SideOf(const QString& joint)
{
    const QString bare = joint.mid(joint.lastIndexOf(u':') + 1);
    const auto says = [&bare](QLatin1String word, QChar letter) {
        if (bare.contains(word, Qt::CaseInsensitive))
            return true;
        return bare.size() > 1 && bare[0] == letter && (bare[1].isUpper() || bare[1] == u'_');
    };
    if (says(QLatin1String("left"), u'L'))
        return BodySide::Left;
    return says(QLatin1String("right"), u'R') ? BodySide::Right : BodySide::Middle;
}

/// Collects the parts of one pose.
class PartMaker
{
public:
    PartMaker(const Motion& motion, const FigureBuild& build, const FigurePose& pose)
        : m_motion(motion), m_height(build.height), m_pose(pose),
          m_hasChildren(motion.joints.size(), false)
    {
        for (const Joint& joint : motion.joints) {
            if (joint.parent >= 0)
                m_hasChildren[joint.parent] = true;
        }
    }

    QVector<FigurePart> Make()
    {
        for (int i = 0; i < m_motion.joints.size(); ++i) {
            if (m_motion.joints[i].parent >= 0)
                AddBone(i);
            AddGrowth(i);
        }
        return m_parts;
    }

private:
    float Radius(int joint) const
    {
        return ThicknessAt(m_motion.joints[joint].name).radius * m_height;
    }

    /// Where a limb begins, its bone to the trunk is a part of the trunk, as thick as the limb.
    void AddBone(int joint)
    {
        const int parent = m_motion.joints[joint].parent;
        const QVector3D from = m_pose.positions[parent];
        const QVector3D to = m_pose.positions[joint];
        const bool leavesTrunk = SideOf(m_motion.joints[parent].name) == BodySide::Middle &&
                                 SideOf(m_motion.joints[joint].name) != BodySide::Middle;
        if (leavesTrunk) {
            const float radius = std::min(Radius(parent), Radius(joint) * kGirdle);
            m_parts.append({from, to, radius, Radius(joint), BodySide::Middle});
            return;
        }
        Add(from, Radius(parent), to, Radius(joint), joint);
    }

    /// From a joint on by a way that turns with it, in heights.
    void AddAhead(int joint, const QVector3D& way, float fromRadius, float toRadius)
    {
        const QVector3D from = m_pose.positions[joint];
        const QVector3D to = from + m_pose.rotations[joint].rotatedVector(way * m_height);
        Add(from, fromRadius, to, toRadius, joint);
    }

    void Add(const QVector3D& from, float fromRadius, const QVector3D& to, float toRadius,
             int joint)
    {
        m_parts.append({from, to, fromRadius, toRadius, SideOf(m_motion.joints[joint].name)});
    }

    /// What lies ahead of a joint.
    void AddGrowth(int joint)
    {
        const Growth growth = ThicknessAt(m_motion.joints[joint].name).growth;
        if (growth == Growth::Head)
            AddHead(joint);
        else if (AddEnds(joint, growth))
            return;
        else if (growth == Growth::Foot && !m_hasChildren[joint])
            AddAhead(joint, {0, -kToeDrop, kToeWay}, Radius(joint), kToeRadius * m_height);
        else if (growth == Growth::Tip && !m_hasChildren[joint])
            AddAhead(joint, m_motion.joints[joint].offset.normalized() * kTipWay, Radius(joint),
                     Radius(joint) * 0.8F);
    }

    /// The bones that lead on to no joint, as far as the capture knows them.
    bool AddEnds(int joint, Growth growth)
    {
        const float tip = growth == Growth::Foot ? kToeRadius * m_height : Radius(joint) * 0.8F;
        const int before = m_parts.size();
        for (const QVector3D& end : m_motion.joints[joint].ends) {
            if (end.length() > kShortestEnd * m_height)
                AddAhead(joint, end / m_height, Radius(joint), tip);
        }
        return m_parts.size() > before;
    }

    void AddHead(int joint)
    {
        const QQuaternion turned = m_pose.rotations[joint];
        const QVector3D middle =
            m_pose.positions[joint] + turned.rotatedVector({0, kHeadRise * m_height, 0});
        const QVector3D crown = middle + turned.rotatedVector({0, 0.02F * m_height, 0});
        const QVector3D nose =
            middle + turned.rotatedVector({0, -0.008F * m_height, kNoseWay * m_height});
        Add(middle, kHeadRadius * m_height * 0.92F, crown, kHeadRadius * m_height, joint);
        Add(middle, kNoseRadius * m_height * 2, nose, kNoseRadius * m_height, joint);
    }

    const Motion& m_motion;
    const float m_height;
    const FigurePose& m_pose;
    QVector<bool> m_hasChildren;
    QVector<FigurePart> m_parts;
};

} // namespace

QVector<FigurePart> PartsOf(const Motion& motion, const FigureBuild& build, const FigurePose& pose)
{
    if (pose.positions.size() != motion.joints.size())
        return {};
    return PartMaker(motion, build, pose).Make();
}

float SoleDepth(const FigureBuild& build)
{
    return kSole * build.height;
}

} // namespace host
