#include "artwork/Artwork.h"
#include "artwork/Palette.h"
#include "artwork/PixelMap.h"

namespace Artwork {
namespace {

constexpr int kWidth = 7;
constexpr int kHeight = 24;
constexpr int kArrowTop = 8;

const PixelRows kSolidArrow = {".....", "...oo", "..ooo", ".oooo", ".oooo", "..ooo", "...oo"};
const PixelRows kHollowArrow = {".....", "...o.", "..o..", ".o...", ".o...", "..o..", "...o."};

struct Look
{
    QRgb light;
    QRgb body;
    QRgb sign;
};

QImage DrawLeftArrow(const Look& look)
{
    QImage image = EmptyPicture(kWidth, kHeight);
    QPainter painter(&image);
    PaintPlate(painter, image.rect(), Palette::kButtonEdge, look.light, look.body);
    PaintPixels(painter, 1, kArrowTop, kSolidArrow, {{'o', look.sign}});
    return image;
}

// Nothing to scroll: a faint outline without a plate.
QImage DrawDisabledLeftArrow()
{
    QImage image = EmptyPicture(kWidth, kHeight);
    QPainter painter(&image);
    PaintPixels(painter, 1, kArrowTop, kHollowArrow, {{'o', Palette::kSignDisabled}});
    return image;
}

} // namespace

void AddScrollArrows(Gallery& gallery)
{
    const QImage left[] = {
        DrawLeftArrow({Palette::kButtonLight, Palette::kButton, Palette::kSign}),
        DrawLeftArrow({qRgb(90, 97, 107), Palette::kButtonHover, Palette::kSignHover}),
        DrawLeftArrow({Palette::kButtonOnLight, Palette::kButtonOn, Palette::kSelectedCore}),
        DrawDisabledLeftArrow(),
    };
    for (int state = 0; state < 4; ++state) {
        gallery[QString::number(32 + state)] = left[state];
        gallery[QString::number(36 + state)] = MirroredSideways(left[state]);
    }
}

} // namespace Artwork
