#include "artwork/Artwork.h"
#include "artwork/Palette.h"
#include "artwork/PixelMap.h"

namespace Artwork {
namespace {

// Pictures that the timeline itself does not paint, for hosts and skins to come.

const PixelRows kFolded = {".....", "oo...", "ooo..", "oooo.", "ooooo", "oooo.", "ooo..", "oo..."};
const PixelRows kUnfolded = {"........", "........", "oooooooo",
                             ".oooooo.", "..oooo..", "...oo..."};

const PixelRows kKeyIcon = {
    "..............", "......##......", ".....#oo#.....", "....#oooo#....", "...#oooooo#...",
    "..#oooooooo#..", ".#oooooooooo#.", ".#oooooooooo#.", "..#oooooooo#..", "...#oooooo#...",
    "....#oooo#....", ".....#oo#.....", "......##......", "..............",
};
const PixelRows kClipIcon = {
    "..............", "..............", "..............", ".############.", ".#oooooooooo#.",
    ".#oooooooooo#.", ".#oo######oo#.", ".#oooooooooo#.", ".#oo####oooo#.", ".#oooooooooo#.",
    ".############.", "..............", "..............", "..............",
};

QImage DrawFoldButton(const PixelRows& sign, int x, int y)
{
    QImage image = EmptyPicture(15, 15);
    QPainter painter(&image);
    PaintPlate(painter, image.rect(), Palette::kButtonEdge, Palette::kButtonLight,
               Palette::kButton);
    PaintPixels(painter, x, y, sign, {{'o', Palette::kSignHover}});
    return image;
}

} // namespace

void AddSpareIcons(Gallery& gallery)
{
    const Inks inks = {{'#', Palette::kKeyOutline}, {'o', Palette::kKeyLight}};
    gallery["22"] = DrawFoldButton(kFolded, 5, 3);
    gallery["23"] = DrawFoldButton(kUnfolded, 4, 3);
    gallery["130"] = DrawPixels(kKeyIcon, inks);
    gallery["131"] = DrawPixels(kClipIcon, inks);
}

} // namespace Artwork
