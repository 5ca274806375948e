#include "artwork/Artwork.h"
#include "artwork/Palette.h"
#include "artwork/PixelMap.h"

namespace Artwork {
namespace {

// All glyphs of a link row are placed as the 5 x 24 post is, by the top-left corner. The wider and
// shorter ones therefore hang at the row's top, with their pole on the post's middle column.

constexpr int kPostWidth = 5;
constexpr int kPostHeight = 24;

// A post: an outlined bar over the whole row with a slot of @p coreHeight pixels in its middle.
QImage DrawPost(QRgb edge, QRgb body, QRgb core, int coreHeight)
{
    QImage image = EmptyPicture(kPostWidth, kPostHeight);
    QPainter painter(&image);
    Fill(painter, 1, 0, kPostWidth - 2, kPostHeight, edge);
    Fill(painter, 0, 1, kPostWidth, kPostHeight - 2, edge);
    Fill(painter, 1, 1, kPostWidth - 2, kPostHeight - 2, body);
    Fill(painter, 2, (kPostHeight - coreHeight) / 2, 1, coreHeight, core);
    return image;
}

// A post cut into beads: a related key.
QImage DrawBeads(QRgb edge, QRgb body)
{
    QImage image = EmptyPicture(kPostWidth, kPostHeight);
    QPainter painter(&image);
    constexpr int kBead = 6;
    for (int y = 0; y < kPostHeight; y += kBead) {
        Fill(painter, 1, y, kPostWidth - 2, kBead - 1, edge);
        Fill(painter, 0, y + 1, kPostWidth, kBead - 3, edge);
        Fill(painter, 1, y + 1, kPostWidth - 2, kBead - 3, body);
    }
    return image;
}

// The start of a link: a pennant flying towards the key it is linked with.
const PixelRows kPennant = {
    ".#oo.....", ".#oooo...", ".#oooooo.", ".#ooooooo", ".#oooooo.",
    ".#oooo...", ".#oo.....", ".#oo.....", ".#oo.....",
};
const PixelRows kSelectedPennant = {
    ".WWW.....", ".WAAWW...", ".WAAAAWW.", ".W##AAAAW", ".WAAAAWW.",
    ".WAAWW...", ".WAW.....", ".WAW.....", ".WWW.....",
};

// A selected key of the alternate kind: an open ring, as its unselected post is open.
const PixelRows kSelectedAlternate = {
    "..WWWWW..", ".WAAAAAW.", "WAA###AAW", "WA#...#AW", "WA#...#AW",
    "WA#...#AW", "WAA###AAW", ".WAAAAAW.", "..WWWWW..",
};

// The start of a link of a related key: an open pennant.
const PixelRows kRelatedPennant = {
    ".#oo...", ".#ooo..", ".#o#oo.", ".#o##oo", ".#o#oo.", ".#ooo..",
    ".#oo...", ".#o#...", ".#oo...", ".#o#...", ".#oo...",
};
const PixelRows kSelectedRelatedPennant = {
    ".WW....", ".WAW...", ".WAAW..", ".WA#AWW", ".WAAW..", ".WAW...",
    ".WWW...", ".WA#...", ".WWW...", ".WA#...", ".WWW...",
};

const Inks kLinkInks = {{'#', Palette::kKeyOutline}, {'o', Palette::kKeyLight}};
const Inks kRelatedInks = {{'#', Palette::kKeyOutline}, {'o', Palette::kRelatedLight}};
const Inks kSelectedInks = {
    {'#', Palette::kSelectedCore}, {'A', Palette::kSelected}, {'W', Palette::kSelectedLight}};

} // namespace

void AddLinkGlyphs(Gallery& gallery)
{
    constexpr int kCore = 8;
    gallery["86"] = DrawPost(Palette::kKeyOutline, Palette::kKey, Palette::kKeyLight, kCore);
    gallery["87"] =
        DrawPost(Palette::kSelectedLight, Palette::kSelected, Palette::kSelectedCore, kCore);
    gallery["88"] = DrawPixels(kPennant, kLinkInks);
    gallery["89"] = DrawPixels(kSelectedPennant, kSelectedInks);
    gallery["148"] = DrawPost(Palette::kKeyLight, Palette::kKeyOutline, Palette::kKeyOutline, 0);
    gallery["149"] = DrawPixels(kSelectedAlternate, kSelectedInks);
    gallery["90"] = DrawBeads(Palette::kKeyOutline, Palette::kRelatedLight);
    gallery["91"] = DrawBeads(Palette::kSelectedLight, Palette::kSelected);
    gallery["92"] = DrawPixels(kRelatedPennant, kRelatedInks);
    gallery["93"] = DrawPixels(kSelectedRelatedPennant, kSelectedInks);
}

} // namespace Artwork
