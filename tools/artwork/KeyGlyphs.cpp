#include "artwork/Artwork.h"
#include "artwork/Palette.h"
#include "artwork/PixelMap.h"

namespace Artwork {
namespace {

// Signs: '#' dark outline or core, 'o' body, '+' light, 'A' selected body, 'W' selected edge.
// A selected glyph has a light edge, a bright body and a dark core, whatever its kind.

const PixelRows kKey = {
    "..##..", ".#++#.", ".#oo#.", "#+ooo#", "#oooo#",
    "#oooo#", "#oooo#", ".#oo#.", ".#oo#.", "..##..",
};
const PixelRows kSelectedKey = {
    "..WW..", ".WAAW.", ".WAAW.", "WAAAAW", "WA##AW",
    "WA##AW", "WAAAAW", ".WAAW.", ".WAAW.", "..WW..",
};

// Related keys, first kind: an open diamond.
const PixelRows kDiamond = {
    "...o...", "..ooo..", ".oo#oo.", "oo###oo", ".oo#oo.", "..ooo..", "...o...",
};
const PixelRows kSelectedDiamond = {
    "...W...", "..WAW..", ".WAAAW.", "WAA#AAW", ".WAAAW.", "..WAW..", "...W...",
};

// Related keys, second kind: a ring with a dot.
const PixelRows kRing = {
    "..ooo..", ".o###o.", "o#####o", "o##o##o", "o#####o", ".o###o.", "..ooo..",
};
const PixelRows kSelectedRing = {
    "..WWW..", ".WAAAW.", "WAA#AAW", "WA###AW", "WAA#AAW", ".WAAAW.", "..WWW..",
};

// A key whose transition runs into it from the left: flat on the key's side, pointing to where the
// transition begins. The key of a transition that leaves it is the mirrored picture.
const PixelRows kTransitionKey = {
    "....#+o", "..#+ooo", "#+ooooo", "+oooooo", "#oooooo", "..#oooo", "....#oo",
};
const PixelRows kSelectedTransitionKey = {
    "....WWW", "..WWAAW", "WWAAA#W", "WAAAA#W", "WWAAA#W", "..WWAAW", "....WWW",
};

// The handle at the far end of a transition: an open box with a thick outer side.
const PixelRows kHandle = {
    "oooooo.", "oo####o", "oo####o", "oo####o", "oo####o", "oo####o", "oooooo.",
};
const PixelRows kSelectedHandle = {
    "WWWWWW.", "WWAA##W", "WWAA##W", "WWAA##W", "WWAA##W", "WWAA##W", "WWWWWW.",
};

const Inks kKeyInks = {{'#', Palette::kKeyOutline},
                       {'o', Palette::kKey},
                       {'+', Palette::kKeyLight},
                       {'A', Palette::kSelected},
                       {'W', Palette::kSelectedLight}};
const Inks kRelatedInks = {{'#', Palette::kKeyOutline}, {'o', Palette::kRelatedLight}};
const Inks kSelectedInks = {
    {'#', Palette::kSelectedCore}, {'A', Palette::kSelected}, {'W', Palette::kSelectedLight}};

} // namespace

void AddKeyGlyphs(Gallery& gallery)
{
    gallery["72"] = DrawPixels(kKey, kKeyInks);
    gallery["73"] = DrawPixels(kSelectedKey, kSelectedInks);
    gallery["74"] = DrawPixels(kDiamond, kRelatedInks);
    gallery["75"] = DrawPixels(kSelectedDiamond, kSelectedInks);
    gallery["76"] = DrawPixels(kRing, kRelatedInks);
    gallery["77"] = DrawPixels(kSelectedRing, kSelectedInks);

    constexpr int kFirstTransition = 78;
    const QImage into[] = {
        DrawPixels(kTransitionKey, kKeyInks),
        DrawPixels(kSelectedTransitionKey, kSelectedInks),
        DrawPixels(kHandle, kKeyInks),
        DrawPixels(kSelectedHandle, kSelectedInks),
    };
    for (int state = 0; state < 4; ++state) {
        gallery[QString::number(kFirstTransition + state)] = into[state];
        gallery[QString::number(kFirstTransition + 4 + state)] = MirroredSideways(into[state]);
    }
}

} // namespace Artwork
