#pragma once

namespace host {

struct Scene;

/// What a mouth looks like, as the few movements that make it up. The jaw is 0 when the
/// mouth is closed and at rest; 1 is as far as a movement goes.
struct MouthPose
{
    float jaw = 0;        ///< how far the lips stand apart
    float width = 1;      ///< from corner to corner, against that at rest
    float pucker = 0;     ///< lips pushed forward: fuller, the opening rounder
    float smile = 0;      ///< corners drawn up
    float upperTeeth = 0; ///< how much of them is seen
    float lowerTeeth = 0;
    float tongue = 0; ///< how high its tip is; at 1 it touches the upper teeth
    float bite = 0;   ///< the lower lip is drawn under the upper teeth
    float press = 0;  ///< the lips are pressed on each other
};

bool operator==(const MouthPose& a, const MouthPose& b);
inline bool operator!=(const MouthPose& a, const MouthPose& b)
{
    return !(a == b);
}

/// The pose of a mouth shape (see MouthShapes.h); the closed mouth for numbers that are none.
MouthPose PoseOfShape(int shape);

/// What lies between two poses: @p share is that of @p b, 0 to 1.
MouthPose Blended(const MouthPose& a, const MouthPose& b, float share);

/// The mouth at a frame of the scene, as its first row of mouth shapes has it: each shape from the
/// frame of its key on, and the closed mouth before and behind the clips and while the row is
/// muted. A key of the row of blends beside it stretches the change around it over its frames; any
/// other change comes just ahead of its frame, so that the shape stands there when it is heard.
MouthPose MouthAt(const Scene& scene, int frame);

} // namespace host
