#include "container/ScrubPictures.h"

#include "container/FrameStrips.h"

#include <QPainter>
#include <QWidget>

#include <algorithm>

namespace {

QRect Scaled(const QRect& rect, int ratio)
{
    return QRect(rect.topLeft() * ratio, rect.size() * ratio);
}

bool IsOpaque(const QImage& image, const QRect& rect)
{
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        const auto* const line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        if (!std::all_of(line + rect.left(), line + rect.right() + 1,
                         [](QRgb pixel) { return qAlpha(pixel) == 255; }))
            return false;
    }
    return true;
}

/// Every pixel's alpha is no longer looked at: copies are plain.
QPixmap Opaque(QImage image)
{
    const qreal ratio = image.devicePixelRatioF();
    image.reinterpretAsFormat(QImage::Format_RGB32);
    QPixmap picture = QPixmap::fromImage(std::move(image));
    picture.setDevicePixelRatio(ratio);
    return picture;
}

} // namespace

bool ScrubPictures::Make(const QWidget& widget, const FrameStrips& strips, const Paint& paint)
{
    Drop();
    const QRect part = widget.visibleRegion().boundingRect();
    const int ratio = widget.devicePixelRatio();
    if (part.isEmpty() || !qFuzzyCompare(widget.devicePixelRatioF(), qreal(ratio)))
        return false;
    m_part = part;
    m_pixelRatio = ratio;

    QImage without = Painted(widget, part, paint, FramePaint::kHidden);
    const auto isPaintedOver = [&](const QRect& rect) {
        return IsOpaque(without, Scaled((rect & part).translated(-part.topLeft()), ratio));
    };
    if (!isPaintedOver(strips.ruler) ||
        !std::all_of(strips.rows.begin(), strips.rows.end(), isPaintedOver))
        return false;
    m_without = Opaque(std::move(without));
    m_withLine = Opaque(Painted(widget, part, paint, FramePaint::kEverywhere));
    return true;
}

QImage ScrubPictures::Painted(const QWidget& widget, const QRect& part, const Paint& paint,
                              FramePaint frame) const
{
    QImage image(part.size() * m_pixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(m_pixelRatio);
    image.setDotsPerMeterX(qRound(widget.logicalDpiX() * 100 / 2.54));
    image.setDotsPerMeterY(qRound(widget.logicalDpiY() * 100 / 2.54));
    image.fill(Qt::transparent);
    QPainter painter(&image);
    // What a painter on the widget begins with.
    painter.setFont(QFont(widget.font(), &widget));
    painter.setPen(QPen(widget.palette().brush(widget.foregroundRole()), 1));
    painter.translate(-part.topLeft());
    painter.setClipRect(part);
    paint(painter, frame);
    return image;
}

void ScrubPictures::CopyWithout(QPainter& painter, const QRect& rect) const
{
    Copy(painter, rect, m_without);
}

void ScrubPictures::CopyLine(QPainter& painter, const QRect& rect) const
{
    Copy(painter, rect, m_withLine);
}

void ScrubPictures::Copy(QPainter& painter, const QRect& rect, const QPixmap& picture) const
{
    const QRect seen = rect & m_part;
    if (seen.isEmpty())
        return;
    // Clipped by many strips, a copy goes pixel by pixel through all of them; clipped by this one
    // alone it is plain.
    painter.setClipRect(seen);
    painter.drawPixmap(seen, picture, Scaled(seen.translated(-m_part.topLeft()), m_pixelRatio));
}
