#pragma once

#include "ImportProgress.h"
#include "document/Motion.h"

#include <optional>

namespace host {

/// A run of frames, both ends included.
struct FrameRange
{
    int first = 0;
    int last = 0;
};

/// When one foot stands on the ground.
struct FootContacts
{
    int joint = 0; ///< the joint that touches the ground
    QVector<FrameRange> ranges;
};

/// The contacts of the one or two feet of a captured motion, in the order of their joints. Feet are
/// the ends of the skeleton that stay lowest; a foot is in contact while it is low and nearly at
/// rest. Nothing for feet that keep their height, and for a walk on the spot, whose feet never
/// rest.
QVector<FootContacts> FindFootContacts(const Motion& motion, int frameRate);
/// The same; nothing when the progress cancels.
std::optional<QVector<FootContacts>> FindFootContacts(const Motion& motion, int frameRate,
                                                      const ImportProgress& progress);

} // namespace host
