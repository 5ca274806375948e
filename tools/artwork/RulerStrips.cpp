#include "artwork/Artwork.h"
#include "artwork/Palette.h"
#include "artwork/PixelMap.h"

namespace Artwork {
namespace {

constexpr int kRulerHeight = 27;
constexpr int kLabelBottom = 15; // frame numbers stand above this line, marks below it
constexpr int kMinorTickTop = 21;
constexpr int kMajorTickTop = 16;
constexpr int kHatchPeriod = 4;

// One pixel more than the bar: its thumb reaches that far down.
constexpr int kScrollHeight = 18;

QImage DrawRulerGround(QRgb body, QRgb top)
{
    QImage image = EmptyPicture(1, kRulerHeight);
    QPainter painter(&image);
    Fill(painter, 0, 0, 1, kRulerHeight, body);
    Fill(painter, 0, 0, 1, 1, top);
    Fill(painter, 0, kRulerHeight - 1, 1, 1, Palette::kRulerBottomLine);
    return image;
}

QImage DrawRulerBeyond()
{
    QImage image = DrawRulerGround(Palette::kRulerBeyond, Palette::kRulerBeyondHatch);
    QPainter painter(&image);
    for (int y = kHatchPeriod; y < kRulerHeight - 1; y += kHatchPeriod)
        Fill(painter, 0, y, 1, 1, Palette::kRulerBeyondHatch);
    return image;
}

// A mark at the foot of the ruler. The strip is clear above it, so that a mark never cuts through
// the number of its neighbour.
QImage DrawMark(int top, QRgb colour)
{
    QImage image = EmptyPicture(1, kRulerHeight);
    QPainter painter(&image);
    Fill(painter, 0, top, 1, kRulerHeight - 1 - top, colour);
    Fill(painter, 0, kRulerHeight - 1, 1, 1, Palette::kRulerBottomLine);
    return image;
}

// The current frame: a faint veil over the number, which stays legible, and a solid foot.
QImage DrawCurrentFrame(int labelAlpha, QRgb foot)
{
    QImage image = EmptyPicture(1, kRulerHeight);
    QPainter painter(&image);
    Fill(painter, 0, 0, 1, kLabelBottom, WithAlpha(Palette::kCurrent, labelAlpha));
    Fill(painter, 0, 0, 1, 2, Palette::kCurrent);
    Fill(painter, 0, kLabelBottom, 1, kRulerHeight - kLabelBottom, foot);
    return image;
}

QImage DrawScrollGround()
{
    QImage image = EmptyPicture(1, kScrollHeight);
    QPainter painter(&image);
    Fill(painter, 0, 0, 1, kScrollHeight, Palette::kScrollGround);
    Fill(painter, 0, 0, 1, 1, Palette::kRowLine);
    Fill(painter, 0, 1, 1, 1, Blend(Palette::kScrollGround, qRgb(0, 0, 0), 0.25));
    return image;
}

QImage DrawThumb()
{
    QImage image = DrawScrollGround();
    QPainter painter(&image);
    constexpr int kTop = 2, kBottom = 15;
    Fill(painter, 0, kTop, 1, kBottom - kTop, Palette::kThumb);
    Fill(painter, 0, kTop, 1, 1, Palette::kThumbLight);
    Fill(painter, 0, kBottom - 1, 1, 1, Palette::kThumbDark);
    for (const int y : {6, 8, 10})
        Fill(painter, 0, y, 1, 1, Palette::kThumbDark);
    return image;
}

// Spare flat strips: a track that grows lighter towards its middle.
QImage DrawFlatStrip(int width, QRgb edge, QRgb middle)
{
    QImage image = EmptyPicture(width, 1);
    QPainter painter(&image);
    const int half = width / 2;
    for (int x = 0; x < width; ++x)
        Fill(painter, x, 0, 1, 1, Blend(middle, edge, double(qAbs(x - half)) / half));
    return image;
}

} // namespace

void AddRulerStrips(Gallery& gallery)
{
    constexpr int kFrameAlpha = 56;
    constexpr int kVeilAlpha = 0;
    gallery["58"] = DrawFlatStrip(15, Palette::kThumbDark, Palette::kThumb);
    gallery["59"] = DrawScrollGround();
    gallery["60"] = DrawRulerGround(Palette::kRuler, Palette::kRulerCell);
    gallery["61"] = DrawRulerBeyond();
    gallery["62"] = DrawRulerGround(Palette::kRulerCell, qRgb(62, 66, 73));
    gallery["63"] = DrawMark(kMinorTickTop, Palette::kMinorTick);
    gallery["64"] = DrawMark(kMajorTickTop + 2, Palette::kMinorTick);
    gallery["65"] = DrawMark(kMajorTickTop, Palette::kMajorTick);
    gallery["66"] = DrawFlatStrip(13, Palette::kScrollGround, Palette::kThumbDark);
    gallery["67"] = DrawThumb();
    gallery["68"] = DrawCurrentFrame(kFrameAlpha, Palette::kCurrent);
    gallery["69"] = DrawCurrentFrame(kVeilAlpha, Palette::kCurrent);
    gallery["70"] = DrawMark(kLabelBottom + 2, Palette::kSelectedCore);
    gallery["71"] = DrawCurrentFrame(255, Palette::kCurrent);
}

} // namespace Artwork
