// Writes the sample scene's motion capture: a walk of three seconds, made of sines, so that the
// project has a scene that belongs to it. The output is the same on every run and machine.
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kDegrees = 180 / kPi;
constexpr int kSamplesPerSecond = 60;
constexpr int kSampleCount = 3 * kSamplesPerSecond + 1;
constexpr double kStrideSeconds = 1.0; ///< two steps
constexpr double kThigh = 8.0;         ///< units, as are all lengths
constexpr double kShin = 7.6;
constexpr double kAnkleHeight = 1.2;

/// Degrees about the axes, applied in the order Z, X, Y.
struct Angles
{
    double z, x, y;
};

/// A joint hangs on the joint that stands before it in the table with one level less.
struct Joint
{
    int level;
    const char* name;
    std::array<double, 3> offset;
    Angles (*angles)(double phase); ///< phase in radians, one turn a stride
};

// The left leg swings forward at phase 0; the right one, and the left arm, half a turn later.
double Thigh(double phase)
{
    return -4 - 24 * std::cos(phase);
}

/// Bent while the foot is carried forward, nearly straight while it stands.
double Knee(double phase)
{
    const double swing = (1 + std::cos(phase - 1.4 * kPi)) / 2;
    return 6 + 52 * swing * swing * swing;
}

double Ankle(double phase)
{
    return -0.6 * (Thigh(phase) + Knee(phase)) + 8 * std::sin(phase - 0.6 * kPi);
}

/// Back at phase 0, and further ahead than back, as arms are.
double Arm(double phase)
{
    return -4 + 20 * std::cos(phase);
}

/// Bent more while the arm is ahead, a little behind its swing.
double Elbow(double phase)
{
    return -20 + 11 * std::cos(phase - 0.25);
}

const std::array<Joint, 17> kJoints{{
    {0,
     "Hips",
     {0, 0, 0},
     [](double p) {
         return Angles{3 * std::sin(p), 3, -7 * std::cos(p)};
     }},
    {1,
     "Spine",
     {0, 2.2, 0},
     [](double p) {
         return Angles{-2.5 * std::sin(p), 1, 6 * std::cos(p)};
     }},
    {2,
     "Chest",
     {0, 3.4, 0},
     [](double p) {
         return Angles{-1.5 * std::sin(p), 2 * std::cos(2 * p), 8 * std::cos(p)};
     }},
    {3,
     "Neck",
     {0, 4.0, 0},
     [](double p) {
         return Angles{0, -3 + std::cos(2 * p), -4 * std::cos(p)};
     }},
    {4,
     "Head",
     {0, 1.5, 0.3},
     [](double p) {
         return Angles{std::sin(p), -3 * std::cos(2 * p), -3 * std::cos(p)};
     }},
    {3,
     "LeftArm",
     {3.2, 3.4, 0},
     [](double p) {
         return Angles{4, Arm(p), 0};
     }},
    {4,
     "LeftForeArm",
     {0.5, -5.2, 0},
     [](double p) {
         return Angles{0, Elbow(p), -8};
     }},
    {5,
     "LeftHand",
     {0.1, -4.6, 0.2},
     [](double p) {
         return Angles{0, -6 + 6 * std::cos(p - 0.6), 0};
     }},
    {3,
     "RightArm",
     {-3.2, 3.4, 0},
     [](double p) {
         return Angles{-4, Arm(p + kPi), 0};
     }},
    {4,
     "RightForeArm",
     {-0.5, -5.2, 0},
     [](double p) {
         return Angles{0, Elbow(p + kPi), 8};
     }},
    {5,
     "RightHand",
     {-0.1, -4.6, 0.2},
     [](double p) {
         return Angles{0, -6 + 6 * std::cos(p + kPi - 0.6), 0};
     }},
    {1,
     "LeftUpLeg",
     {1.9, -0.8, 0},
     [](double p) {
         return Angles{0, Thigh(p), 0};
     }},
    {2,
     "LeftLeg",
     {0, -kThigh, 0},
     [](double p) {
         return Angles{0, Knee(p), 0};
     }},
    {3,
     "LeftFoot",
     {0, -kShin, 0},
     [](double p) {
         return Angles{0, Ankle(p), 0};
     }},
    {1,
     "RightUpLeg",
     {-1.9, -0.8, 0},
     [](double p) {
         return Angles{0, Thigh(p + kPi), 0};
     }},
    {2,
     "RightLeg",
     {0, -kThigh, 0},
     [](double p) {
         return Angles{0, Knee(p + kPi), 0};
     }},
    {3,
     "RightFoot",
     {0, -kShin, 0},
     [](double p) {
         return Angles{0, Ankle(p + kPi), 0};
     }},
}};

/// Where the ankle of the leg at this phase is, seen from the hips.
struct AnklePlace
{
    double below, ahead;
};

AnklePlace AnkleAt(double phase)
{
    const double thigh = Thigh(phase) / kDegrees;
    const double shin = thigh + Knee(phase) / kDegrees;
    return {kThigh * std::cos(thigh) + kShin * std::cos(shin),
            -kThigh * std::sin(thigh) - kShin * std::sin(shin)};
}

/// How much of the weight the left leg carries, 0 to 1: the longer leg stands, and the weight
/// passes smoothly from one to the other.
double WeightOnLeft(double phase)
{
    const double difference = AnkleAt(phase + kPi).below - AnkleAt(phase).below;
    return 1 / (1 + std::exp(4 * difference));
}

/// The height that puts the standing leg on the ground.
double HipHeight(double phase)
{
    const double left = WeightOnLeft(phase);
    return kAnkleHeight + 0.8 + left * AnkleAt(phase).below +
           (1 - left) * AnkleAt(phase + kPi).below;
}

/// The way that the hips go forward from one phase to the next: as far as the standing foot goes
/// back, so that it stays where it is.
double StepForward(double from, double to)
{
    const double left = WeightOnLeft((from + to) / 2);
    return left * (AnkleAt(from).ahead - AnkleAt(to).ahead) +
           (1 - left) * (AnkleAt(from + kPi).ahead - AnkleAt(to + kPi).ahead);
}

double PhaseOf(int sample)
{
    return 2 * kPi * sample / (kSamplesPerSecond * kStrideSeconds);
}

void WriteNumber(std::FILE* file, double number, char after)
{
    const double rounded = std::round(number * 1e4) / 1e4;
    std::fprintf(file, "%.4f%c", rounded + 0.0, after); // the sum turns -0 into 0
}

void Indent(std::FILE* file, int level)
{
    for (int i = 0; i < level; ++i)
        std::fputc('\t', file);
}

void WriteOffset(std::FILE* file, int level, const std::array<double, 3>& offset)
{
    Indent(file, level);
    std::fprintf(file, "OFFSET %.4f %.4f %.4f\n", offset[0], offset[1], offset[2]);
}

void WriteJoint(std::FILE* file, const Joint& joint)
{
    Indent(file, joint.level);
    std::fprintf(file, "%s %s\n", joint.level == 0 ? "ROOT" : "JOINT", joint.name);
    Indent(file, joint.level);
    std::fputs("{\n", file);
    WriteOffset(file, joint.level + 1, joint.offset);
    Indent(file, joint.level + 1);
    std::fputs(joint.level == 0
                   ? "CHANNELS 6 Xposition Yposition Zposition Zrotation Xrotation Yrotation\n"
                   : "CHANNELS 3 Zrotation Xrotation Yrotation\n",
               file);
}

/// Where the bone that begins at the last joint of a limb ends.
struct LimbEnd
{
    const char* joint; ///< the end of its name
    std::array<double, 3> offset;
};

const std::array<LimbEnd, 3> kLimbEnds{
    {{"Head", {0, 2, 0}}, {"Hand", {0, -1.1, 0.05}}, {"Foot", {0, -0.55, 2.1}}}};

std::array<double, 3> EndOf(const Joint& joint)
{
    for (const LimbEnd& end : kLimbEnds) {
        if (std::strstr(joint.name, end.joint))
            return end.offset;
    }
    return {0, 0, 0};
}

void WriteEndSite(std::FILE* file, const Joint& joint, int level)
{
    Indent(file, level);
    std::fputs("End Site\n", file);
    Indent(file, level);
    std::fputs("{\n", file);
    WriteOffset(file, level + 1, EndOf(joint));
    Indent(file, level);
    std::fputs("}\n", file);
}

void WriteHierarchy(std::FILE* file)
{
    std::fputs("HIERARCHY\n", file);
    for (std::size_t i = 0; i < kJoints.size(); ++i) {
        const int level = kJoints[i].level;
        const int nextLevel = i + 1 < kJoints.size() ? kJoints[i + 1].level : 0;
        WriteJoint(file, kJoints[i]);
        if (nextLevel <= level)
            WriteEndSite(file, kJoints[i], level + 1);
        for (int open = level; open >= nextLevel; --open) {
            Indent(file, open);
            std::fputs("}\n", file);
        }
    }
}

void WriteSample(std::FILE* file, double phase, double way)
{
    WriteNumber(file, 0.4 * std::sin(phase), ' ');
    WriteNumber(file, HipHeight(phase), ' ');
    WriteNumber(file, way, ' ');
    for (const Joint& joint : kJoints) {
        const Angles angles = joint.angles(phase);
        WriteNumber(file, angles.z, ' ');
        WriteNumber(file, angles.x, ' ');
        WriteNumber(file, angles.y, &joint == &kJoints.back() ? '\n' : ' ');
    }
}

} // namespace

int main(int argc, char** argv)
{
    std::FILE* const file = argc == 2 ? std::fopen(argv[1], "wb") : nullptr;
    if (!file) {
        std::fputs("usage: kestova-sample-walk FILE\n", stderr);
        return EXIT_FAILURE;
    }
    WriteHierarchy(file);
    std::fprintf(file, "MOTION\nFrames: %d\nFrame Time: %.6f\n", kSampleCount,
                 1.0 / kSamplesPerSecond);
    double way = 0;
    for (int sample = 0; sample < kSampleCount; ++sample) {
        WriteSample(file, PhaseOf(sample), way);
        way += StepForward(PhaseOf(sample), PhaseOf(sample + 1));
    }
    return std::fclose(file) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
