#include "artwork/Artwork.h"
#include "artwork/Palette.h"
#include "artwork/PixelMap.h"

#include <string>

namespace Artwork {
namespace {

constexpr int kFirst = 94;
constexpr int kWidth = 25;
constexpr int kHeight = 15;
constexpr int kMouthLeft = 2;
constexpr int kMouthTop = 2;

struct MouthShape
{
    const char* name;
    /// The left half of the mouth and its middle column: 'L' lip, '#' the dark inside, 'T' teeth,
    /// 't' tongue. The right half is the mirrored left one.
    const char* rows[11];
};

constexpr MouthShape kShapes[] = {
    {"rest", // lips lie on each other
     {"...........", "...........", "...........", "......LLL..", "...LLLLLLLL", ".##########",
      "...LLLLLLLL", ".....LLLLLL", "...........", "...........", "..........."}},
    {"closed: M, B, P", // lips pressed to a thin bar, corners drawn in
     {"...........", "...........", "...........", "#..........", ".#LLLLLLLLL", "..#########",
      ".#LLLLLLLLL", "#..........", "...........", "...........", "..........."}},
    {"clenched: K, S, T", // two rows of teeth
     {"...........", "...........", "....LLLLLLL", "..LLLLLLLLL", ".LL#TT#TT#T", ".L#########",
      ".LL#TT#TT#T", "..LLLLLLLLL", "....LLLLLLL", "...........", "..........."}},
    {"open: EH, AE",
     {"...........", ".....LLLLLL", "...LLLLLLLL", "..LL#TTTTTT", "..L########", "..L########",
      "..L########", "..LL###tttt", "...LLLLLLLL", ".....LLLLLL", "..........."}},
    {"wide open: AA",
     {"....LLLLLLL", "..LLLLLLLLL", ".LL#TTTTTTT", ".L#########", "LL#########", "LL#########",
      "LL#########", ".L####ttttt", ".LL#ttttttt", "..LLLLLLLLL", "....LLLLLLL"}},
    {"rounded: AO, ER", // a flat oval without teeth
     {"...........", "...........", ".....LLLLLL", "...LLLLLLLL", "...LL######", "..LL#######",
      "...LL######", "...LLLLLLLL", ".....LLLLLL", "...........", "..........."}},
    {"puckered: UW, W", // a small hole in thick lips
     {"...........", "...........", ".......LLLL", "......LLLLL", ".....LLLL##", ".....LLLL##",
      ".....LLLL##", "......LLLLL", ".......LLLL", "...........", "..........."}},
    {"bite: F, V", // two teeth on the lower lip
     {"...........", "...........", "....LLLLLLL", "..LLLLLLLLL", ".L######TT#", ".LL####LTT#",
      "..LLLLLLTT#", "...LLLLLLLL", "....LLLLLLL", "...........", "..........."}},
    {"tongue up: L", // the tongue touches the upper teeth
     {"...........", ".....LLLLLL", "...LLLLLLLL", "..LL#TTTTTT", "..L#####ttt", "..L#####ttt",
      "..L#####ttt", "..LL####ttt", "...LLLLLLLL", ".....LLLLLL", "..........."}},
    {"smile: IY", // one row of teeth, corners up
     {"...........", "LL.........", "LLLL.......", ".L#LLLLLLLL", ".LL#TTTTTTT", "..LL#TTTTTT",
      "...LLL#####", ".....LLLLLL", ".......LLLL", "...........", "..........."}},
    {"square: CH, SH, J", // narrow and tall, both rows of teeth
     {"...........", "....LLLLLLL", "...LLLLLLLL", "...L#TTT#TT", "...L#TTT#TT", "...L#######",
      "...L#TTT#TT", "...L#TTT#TT", "...LLLLLLLL", "....LLLLLLL", "..........."}},
    {"tongue out: TH", // the tongue lies on the lower lip
     {"...........", "....LLLLLLL", "..LLLLLLLLL", "..L#TTTTTTT", "..L##tttttt", "..LL#tttttt",
      "...LLLttttt", ".....LLtttt", ".......tttt", "........ttt", "..........."}},
    {"curled: R", // small, teeth above a curled tongue
     {"...........", "...........", "......LLLLL", ".....LLLLLL", "....LL#TTTT", "....L######",
      "....LL##ttt", ".....LLLLLL", "......LLLLL", "...........", "..........."}},
    {"tall oval: OW",
     {".......LLLL", "......LLLLL", ".....LLL###", ".....LL####", ".....LL####", ".....LL####",
      ".....LL####", ".....LL####", ".....LLL###", "......LLLLL", ".......LLLL"}},
    {"tongue behind teeth: N, D", // a slit with teeth above the tongue
     {"...........", "...........", "...........", "....LLLLLLL", "..LLLLLLLLL", ".L#TTTTTTTT",
      ".L###tttttt", "..LLLLLLLLL", "....LLLLLLL", "...........", "..........."}},
    {"tongue back: G, NG", // open, no teeth, the tongue humped
     {"...........", ".....LLLLLL", "...LLLLLLLL", "..LL#######", ".LL########", ".L######ttt",
      ".LL###ttttt", "..LL#tttttt", "...LLLLLLLL", ".....LLLLLL", "..........."}},
    {"laugh", // flat on top, teeth, a deep bowl
     {"LLL........", "LLLLLLLLLLL", ".L#TTTTTTTT", ".LL#TTTTTTT", "..L########", "..LL#######",
      "...LL######", "....LL##ttt", ".....LLLttt", ".......LLLL", "..........."}},
};

struct Look
{
    QRgb edge;
    QRgb light;
    QRgb plate;
    Inks inks;
};

// Selected, the plate is light and the lips are dark; otherwise it is the other way round.
const Look kLooks[] = {
    {Palette::kMouthPlateEdge,
     qRgb(62, 66, 74),
     Palette::kMouthPlate,
     {{'L', Palette::kLip},
      {'#', Palette::kMouthInside},
      {'T', Palette::kTeeth},
      {'t', Palette::kTongue}}},
    {Palette::kSelectedLight,
     Palette::kSelected,
     Palette::kSelected,
     {{'L', Palette::kLipSelected},
      {'#', Palette::kMouthInsideSelected},
      {'T', Palette::kTeethSelected},
      {'t', Palette::kTongueSelected}}},
};

QImage DrawMouth(const MouthShape& shape, const Look& look)
{
    QImage image = EmptyPicture(kWidth, kHeight);
    QPainter painter(&image);
    PaintPlate(painter, image.rect(), look.edge, look.light, look.plate);
    int y = kMouthTop;
    for (const char* half : shape.rows) {
        std::string row = half;
        row.append(row.rbegin() + 1, row.rend());
        PaintPixels(painter, kMouthLeft, y++, {row.c_str()}, look.inks);
    }
    return image;
}

} // namespace

void AddMouthShapes(Gallery& gallery)
{
    int number = kFirst;
    for (const MouthShape& shape : kShapes)
        for (const Look& look : kLooks)
            gallery[QString::number(number++)] = DrawMouth(shape, look);
}

} // namespace Artwork
