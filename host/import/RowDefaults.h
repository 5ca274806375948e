#pragma once

#include "document/SceneTrack.h"

namespace host {

/// A new row of that kind with the edit modes that suit it, without a number yet.
SceneTrack MakeRow(TrackKind kind, const QString& name, const QString& caption, TrackId parent);

/// The caption of a joint: its name without a prefix up to a colon, cut into words at capitals and
/// underscores ("mixer:LeftUpLeg" gives "Left Up Leg").
QString CaptionOfJoint(const QString& name);

} // namespace host
