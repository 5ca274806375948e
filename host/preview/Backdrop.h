#pragma once

class QPainter;
class QRectF;

namespace host {

/// Fills the rectangle with the dark backdrop of the previews, a little lighter in its middle.
void PaintBackdrop(QPainter& painter, const QRectF& area);

} // namespace host
