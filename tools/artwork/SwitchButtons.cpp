#include "artwork/Artwork.h"
#include "artwork/Palette.h"
#include "artwork/PixelMap.h"

namespace Artwork {
namespace {

constexpr int kHeight = 18;
constexpr int kLampX = 4;
constexpr int kLampY = 7;
constexpr int kLampSize = 4;

struct Look
{
    QRgb light;
    QRgb body;
    QRgb lampEdge;
    QRgb lamp;
};

// Off, off under the pointer, on, on under the pointer. A button that is on is a light plate with
// a lit lamp, one that is off a dark plate with an empty one.
constexpr Look kLooks[] = {
    {Palette::kButtonLight, Palette::kButton, Palette::kSign, Palette::kButtonEdge},
    {qRgb(90, 97, 107), Palette::kButtonHover, Palette::kSignHover, Palette::kButtonEdge},
    {Palette::kButtonOnLight, Palette::kButtonOn, Palette::kSelectedCore, qRgb(255, 255, 255)},
    {qRgb(255, 246, 220), Palette::kButtonOnHover, Palette::kSelectedCore, qRgb(255, 255, 255)},
};

QImage DrawSwitchButton(int width, const Look& look)
{
    QImage image = EmptyPicture(width, kHeight);
    QPainter painter(&image);
    PaintPlate(painter, image.rect(), Palette::kButtonEdge, look.light, look.body);
    Fill(painter, kLampX + 1, kLampY - 1, kLampSize - 2, 1, look.lampEdge);
    Fill(painter, kLampX + 1, kLampY + kLampSize, kLampSize - 2, 1, look.lampEdge);
    Fill(painter, kLampX - 1, kLampY + 1, kLampSize + 2, kLampSize - 2, look.lampEdge);
    Fill(painter, kLampX, kLampY, kLampSize, kLampSize, look.lampEdge);
    Fill(painter, kLampX, kLampY + 1, kLampSize, kLampSize - 2, look.lamp);
    Fill(painter, kLampX + 1, kLampY, kLampSize - 2, kLampSize, look.lamp);
    return image;
}

void AddRow(Gallery& gallery, int first, int width)
{
    for (int state = 0; state < 4; ++state)
        gallery[QString::number(first + state)] = DrawSwitchButton(width, kLooks[state]);
}

} // namespace

void AddSwitchButtons(Gallery& gallery)
{
    AddRow(gallery, 24, 84);
    AddRow(gallery, 28, 110);
}

} // namespace Artwork
