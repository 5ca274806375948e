#pragma once

class QPainter;

namespace host {

struct MouthPose;

/// Paints a mouth around the origin. A unit is half its width at rest; y points down.
void PaintMouth(QPainter& painter, const MouthPose& pose);

} // namespace host
