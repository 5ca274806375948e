#pragma once

#include <QImage>
#include <QPainter>
#include <QRgb>

#include <vector>

namespace Artwork {

/// Small pictures are written down as they look: one string a row, one sign a pixel. A sign without
/// an ink leaves its pixel as it is.
using PixelRows = std::vector<const char*>;

struct Ink
{
    char sign;
    QRgb colour;
};
using Inks = std::vector<Ink>;

/// A fully transparent picture.
QImage EmptyPicture(int width, int height);

/// A picture exactly as large as @p rows.
QImage DrawPixels(const PixelRows& rows, const Inks& inks);

/// Paints @p rows with their top-left corner at (x, y).
void PaintPixels(QPainter& painter, int x, int y, const PixelRows& rows, const Inks& inks);

/// The picture seen in a mirror standing at its side.
QImage MirroredSideways(const QImage& image);

/// The colour @p weight of the way (0 to 1) from @p from to @p to.
QRgb Blend(QRgb from, QRgb to, double weight);

/// @p colour with an opacity of 0 to 255.
constexpr QRgb WithAlpha(QRgb colour, int alpha)
{
    return qRgba(qRed(colour), qGreen(colour), qBlue(colour), alpha);
}

/// A rounded plate filling @p area: an edge, a light line under its top edge, and its body; the
/// corner pixels stay free.
void PaintPlate(QPainter& painter, const QRect& area, QRgb edge, QRgb light, QRgb body);

/// fillRect with a colour that keeps its alpha, replacing what was there.
void Fill(QPainter& painter, int x, int y, int width, int height, QRgb colour);

} // namespace Artwork
