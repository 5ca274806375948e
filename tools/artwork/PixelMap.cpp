#include "artwork/PixelMap.h"

#include <cstring>

namespace Artwork {
namespace {

const Ink* FindInk(const Inks& inks, char sign)
{
    for (const Ink& ink : inks)
        if (ink.sign == sign)
            return &ink;
    return nullptr;
}

} // namespace

QImage EmptyPicture(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    return image;
}

QImage DrawPixels(const PixelRows& rows, const Inks& inks)
{
    QImage image =
        EmptyPicture(static_cast<int>(std::strlen(rows.front())), static_cast<int>(rows.size()));
    QPainter painter(&image);
    PaintPixels(painter, 0, 0, rows, inks);
    return image;
}

void PaintPixels(QPainter& painter, int x, int y, const PixelRows& rows, const Inks& inks)
{
    for (const char* row : rows) {
        for (int column = 0; row[column] != '\0'; ++column)
            if (const Ink* ink = FindInk(inks, row[column]))
                Fill(painter, x + column, y, 1, 1, ink->colour);
        ++y;
    }
}

QImage MirroredSideways(const QImage& image)
{
    return image.mirrored(true, false);
}

QRgb Blend(QRgb from, QRgb to, double weight)
{
    const auto mix = [weight](int a, int b) { return qRound(a + (b - a) * weight); };
    return qRgba(mix(qRed(from), qRed(to)), mix(qGreen(from), qGreen(to)),
                 mix(qBlue(from), qBlue(to)), mix(qAlpha(from), qAlpha(to)));
}

void PaintPlate(QPainter& painter, const QRect& area, QRgb edge, QRgb light, QRgb body)
{
    const int x = area.x(), y = area.y(), width = area.width(), height = area.height();
    Fill(painter, x + 1, y, width - 2, height, edge);
    Fill(painter, x, y + 1, width, height - 2, edge);
    Fill(painter, x + 1, y + 1, width - 2, height - 2, body);
    Fill(painter, x + 1, y + 1, width - 2, 1, light);
}

void Fill(QPainter& painter, int x, int y, int width, int height, QRgb colour)
{
    const auto mode = painter.compositionMode();
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(x, y, width, height, QColor::fromRgba(colour));
    painter.setCompositionMode(mode);
}

} // namespace Artwork
