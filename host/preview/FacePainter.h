#pragma once

#include "MouthPose.h"

#include <QRectF>

class QPainter;

namespace host {

/// What a face shows at one moment.
struct FacePose
{
    MouthPose mouth;
    float lids = 0; ///< how far the eyes are shut, 0 to 1
};

inline bool operator==(const FacePose& a, const FacePose& b)
{
    return a.mouth == b.mouth && a.lids == b.lids;
}
inline bool operator!=(const FacePose& a, const FacePose& b)
{
    return !(a == b);
}

/// Fills the rectangle with a backdrop and paints the face on it, as large as it goes.
void PaintFace(QPainter& painter, const QRectF& area, const FacePose& pose);

} // namespace host
