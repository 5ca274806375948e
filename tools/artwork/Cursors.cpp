#include "artwork/Artwork.h"
#include "artwork/PixelMap.h"

namespace Artwork {
namespace {

constexpr int kSize = 24;
constexpr QRgb kInk = qRgb(255, 255, 255);
constexpr QRgb kOutline = qRgb(0, 0, 0);

// Both cursors drag an edge sideways: two arrow heads left and right of an upright line, which
// stands on the hot spot in the middle. The sign above says what the drag changes.
const PixelRows kSideways = {
    "....o....oo....o....", "...oo....oo....oo...", "..ooo....oo....ooo..", ".oooooooooooooooooo.",
    ".oooooooooooooooooo.", "..ooo....oo....ooo..", "...oo....oo....oo...", "....o....oo....o....",
};

// A ring with an arrow head: one more pass.
const PixelRows kLoop = {
    "...oooo.o.", "..o....oo.", ".o....ooo.", ".o........",
    ".o......o.", ".o......o.", "..o....o..", "...oooo...",
};

// Two chevrons: faster.
const PixelRows kFast = {
    ".oo..oo...", "..oo..oo..", "...oo..oo.", "....oo..oo",
    "...oo..oo.", "..oo..oo..", ".oo..oo...",
};

QImage WithOutline(const QImage& image)
{
    QImage outlined = image;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) != 0)
                continue;
            for (int dy = -1; dy <= 1; ++dy)
                for (int dx = -1; dx <= 1; ++dx)
                    if (image.valid(x + dx, y + dy) && qAlpha(image.pixel(x + dx, y + dy)) != 0)
                        outlined.setPixel(x, y, kOutline);
        }
    return outlined;
}

QImage DrawCursor(const PixelRows& sign)
{
    QImage image = EmptyPicture(kSize, kSize);
    QPainter painter(&image);
    const Inks inks = {{'o', kInk}};
    PaintPixels(painter, 2, 12, kSideways, inks);
    PaintPixels(painter, 7, 2, sign, inks);
    painter.end();
    return WithOutline(image);
}

} // namespace

void AddCursors(Gallery& gallery)
{
    gallery["Bitmap/loop"] = DrawCursor(kLoop);
    gallery["Bitmap/speed"] = DrawCursor(kFast);
}

} // namespace Artwork
