#include "artwork/Artwork.h"
#include "artwork/Palette.h"
#include "artwork/PixelMap.h"

namespace Artwork {
namespace {

constexpr int kColumnWidth = 171;
constexpr int kNarrowWidth = 155;
constexpr int kScrollHeight = 17;
constexpr int kRulerHeight = 27;
constexpr int kRowHeight = 20;     // key rows
constexpr int kTallRowHeight = 26; // rows with 24-pixel glyphs, buttons or clips
constexpr int kGutterWidth = 3;

struct Look
{
    QRgb body;
    QRgb light;
    QRgb gutter;
    int gutterWidth;
};

// The focused caption is lighter, and its gutter is bright and wider: two signs beside the hue.
constexpr Look kNormal = {Palette::kCaption, qRgb(57, 61, 67), Palette::kCaptionGutter,
                          kGutterWidth};
constexpr Look kFocused = {Palette::kCaptionFocus, qRgb(73, 84, 102), Palette::kCaptionGutterFocus,
                           kGutterWidth + 2};

QImage DrawRowCaption(int width, int height, const Look& look)
{
    QImage image = EmptyPicture(width, height);
    QPainter painter(&image);
    Fill(painter, 0, 0, width, height, look.body);
    Fill(painter, 0, 1, width, 1, look.light);
    Fill(painter, 0, 1, look.gutterWidth, height - 1, look.gutter);
    Fill(painter, 0, 0, width, 1, Palette::kRowLine);
    Fill(painter, width - 1, 0, 1, height, Palette::kCaptionEdge);
    return image;
}

// Beside the ruler: its ground and bottom line, and a small sign of three rows with their clips.
QImage DrawRulerCaption()
{
    QImage image = EmptyPicture(kColumnWidth, kRulerHeight);
    QPainter painter(&image);
    Fill(painter, 0, 0, kColumnWidth, kRulerHeight, Palette::kRuler);
    Fill(painter, 0, 0, kColumnWidth, 1, Palette::kRulerCell);
    Fill(painter, 0, kRulerHeight - 1, kColumnWidth, 1, Palette::kRulerBottomLine);
    Fill(painter, kColumnWidth - 1, 0, 1, kRulerHeight, Palette::kCaptionEdge);
    constexpr QRgb kFaint = qRgb(76, 82, 90);
    struct Bar
    {
        int x, y, width;
        QRgb colour;
    };
    constexpr Bar kBars[] = {
        {9, 8, 12, kFaint},
        {23, 8, 4, Palette::kMinorTick},
        {9, 12, 4, Palette::kMinorTick},
        {15, 12, 8, kFaint},
        {9, 16, 16, kFaint},
    };
    for (const Bar& bar : kBars)
        Fill(painter, bar.x, bar.y, bar.width, 2, bar.colour);
    Fill(painter, 18, 6, 1, 14, Palette::kCurrent);
    return image;
}

QImage DrawScrollCaption()
{
    QImage image = EmptyPicture(kColumnWidth, kScrollHeight);
    QPainter painter(&image);
    Fill(painter, 0, 0, kColumnWidth, kScrollHeight, Palette::kRuler);
    Fill(painter, 0, 0, kColumnWidth, 1, Palette::kRowLine);
    Fill(painter, kColumnWidth - 1, 0, 1, kScrollHeight, Palette::kCaptionEdge);
    return image;
}

// A grip, three pairs of dots on a plate, for a splitter beside the rows.
QImage DrawGrip()
{
    QImage image = EmptyPicture(15, 25);
    QPainter painter(&image);
    PaintPlate(painter, image.rect(), Palette::kButtonEdge, Palette::kButtonLight,
               Palette::kButton);
    for (const int y : {6, 11, 16})
        for (const int x : {4, 9})
            Fill(painter, x, y, 2, 2, Palette::kSign);
    return image;
}

} // namespace

void AddCaptions(Gallery& gallery)
{
    gallery["0"] = DrawGrip();
    gallery["1"] = DrawScrollCaption();
    gallery["2"] = DrawRowCaption(kNarrowWidth, kRowHeight, kNormal);
    gallery["3"] = DrawRulerCaption();
    gallery["4"] = DrawRowCaption(kColumnWidth, kRowHeight, kNormal);
    gallery["5"] = DrawRowCaption(kColumnWidth, kRowHeight, kFocused);
    gallery["6"] = DrawRowCaption(kColumnWidth, kTallRowHeight, kNormal);
    gallery["7"] = DrawRowCaption(kColumnWidth, kTallRowHeight, kFocused);
    gallery["150"] = DrawRowCaption(kNarrowWidth, kRulerHeight, kNormal);
}

} // namespace Artwork
