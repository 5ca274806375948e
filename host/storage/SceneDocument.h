#pragma once

#include "document/Scene.h"

namespace host {

/// How a scene was looked at when it was saved. No part of the animation: changing it is no edit.
struct ViewRecord
{
    float left = 0;  ///< edges of what is in view, as fractions, 0 to 1, of all frames
    float right = 1; ///< not less than the left one
    int frame = 0;   ///< the current frame
};

inline bool operator==(const ViewRecord& a, const ViewRecord& b)
{
    return a.left == b.left && a.right == b.right && a.frame == b.frame;
}

/// What a file holds.
struct SceneDocument
{
    Scene scene;
    ViewRecord view;
    /// In a recovery file, the path of the document that it belongs to; empty when that was never
    /// saved. Always empty in a document itself.
    QString recoveryOf;
};

inline bool operator==(const SceneDocument& a, const SceneDocument& b)
{
    return a.scene == b.scene && a.view == b.view && a.recoveryOf == b.recoveryOf;
}

} // namespace host
