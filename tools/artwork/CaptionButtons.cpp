#include "artwork/Artwork.h"
#include "artwork/Palette.h"
#include "artwork/PixelMap.h"

namespace Artwork {
namespace {

const PixelRows kPlus = {
    "...........", "...........", ".....o.....", ".....o.....", ".....o.....", "..ooooooo..",
    ".....o.....", ".....o.....", ".....o.....", "...........", "...........",
};

// Three lines: what a menu button opens.
const PixelRows kMenu = {
    "..........", "..........", "..........", "..oooooo..", "..........", "..oooooo..",
    "..........", "..oooooo..", "..........", "..........", "..........",
};

const PixelRows kOpenPadlock = {
    "......oooo..", ".....oo..oo.", ".....o....o.", ".....o....o.", ".....o......", ".oooooooo...",
    ".o......o...", ".o......o...", ".o......o...", ".o......o...", ".oooooooo...", "............",
};

const PixelRows kClosedPadlock = {
    "....oooo....", "...oo..oo...", "...o....o...", "...o....o...", "..oooooooo..", "..oooooooo..",
    "..ooo##ooo..", "..ooo##ooo..", "..oooo#ooo..", "..oooooooo..", "..oooooooo..", "............",
};

const PixelRows kOpenEye = {
    ".................", ".................", ".................", ".....ooooooo.....",
    "...oo.......oo...", "..o....ooo....o..", ".o....ooooo....o.", "o.....oo.oo.....o",
    ".o....ooooo....o.", "..o....ooo....o..", "...oo.......oo...", ".....ooooooo.....",
    ".................", ".................", ".................",
};

// A closed lid with lashes: hidden.
const PixelRows kClosedEye = {
    ".................", ".................", ".................", ".................",
    ".................", "oo.............oo", ".oo...........oo.", "..ooo.......ooo..",
    "...ooooooooooo...", "..oo.ooooooo.oo..", ".oo...o...o...oo.", "......o...o......",
    ".....oo...oo.....", ".................", ".................",
};

// Push button: a bare sign, on a plate under the pointer, inverted while pressed.
void AddPushButton(Gallery& gallery, int first, const PixelRows& sign)
{
    const Inks normal = {{'o', Palette::kSign}};
    const Inks hover = {{'o', Palette::kSignHover}};
    const Inks pressed = {{'o', Palette::kSelectedCore}};
    gallery[QString::number(first)] = DrawPixels(sign, normal);

    QImage hovered = EmptyPicture(static_cast<int>(qstrlen(sign.front())), int(sign.size()));
    QImage down = hovered;
    {
        QPainter painter(&hovered);
        PaintPlate(painter, hovered.rect(), Palette::kButtonEdge, Palette::kButtonLight,
                   Palette::kButtonHover);
        PaintPixels(painter, 0, 0, sign, hover);
    }
    {
        QPainter painter(&down);
        PaintPlate(painter, down.rect(), Palette::kButtonEdge, Palette::kButtonOn,
                   Palette::kButtonOn);
        PaintPixels(painter, 0, 0, sign, pressed);
    }
    gallery[QString::number(first + 1)] = hovered;
    gallery[QString::number(first + 2)] = down;
}

QImage DrawToggle(const PixelRows& sign, QRgb ink, QRgb core, bool hovered)
{
    QImage image = EmptyPicture(static_cast<int>(qstrlen(sign.front())), int(sign.size()));
    QPainter painter(&image);
    if (hovered)
        PaintPlate(painter, image.rect(), Palette::kButtonEdge, Palette::kButtonLight,
                   Palette::kButtonHover);
    PaintPixels(painter, 0, 0, sign, {{'o', ink}, {'#', core}});
    return image;
}

// Toggle button: off, off under the pointer, on, on under the pointer. On has a sign of its own.
void AddToggleButton(Gallery& gallery, int first, const PixelRows& off, const PixelRows& on)
{
    const QRgb core = Palette::kSelectedCore;
    gallery[QString::number(first)] = DrawToggle(off, Palette::kSign, core, false);
    gallery[QString::number(first + 1)] = DrawToggle(off, Palette::kSignHover, core, true);
    gallery[QString::number(first + 2)] = DrawToggle(on, Palette::kSelected, core, false);
    gallery[QString::number(first + 3)] = DrawToggle(on, Palette::kSelectedLight, core, true);
}

} // namespace

void AddCaptionButtons(Gallery& gallery)
{
    AddPushButton(gallery, 8, kPlus);
    AddPushButton(gallery, 11, kMenu);
    AddToggleButton(gallery, 14, kOpenPadlock, kClosedPadlock);
    AddToggleButton(gallery, 18, kOpenEye, kClosedEye);
}

} // namespace Artwork
