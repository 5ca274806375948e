#include "artwork/Artwork.h"
#include "artwork/Palette.h"
#include "artwork/PixelMap.h"

namespace Artwork {
namespace {

// The line that parts two rows lies at the top of the strip and the rest is even, so that one strip
// serves rows of every height up to its own.
constexpr int kStripHeight = 54;
constexpr int kHatchPeriod = 4;

QImage DrawGround(QRgb body, double lift)
{
    QImage image = EmptyPicture(1, kStripHeight);
    QPainter painter(&image);
    Fill(painter, 0, 0, 1, kStripHeight, body);
    Fill(painter, 0, 1, 1, 1, Blend(body, qRgb(255, 255, 255), lift));
    Fill(painter, 0, 0, 1, 1, Palette::kRowLine);
    return image;
}

QImage DrawRowGround(QRgb body)
{
    constexpr double kLift = 0.03;
    return DrawGround(body, kLift);
}

// Beyond the last frame: darker than any row, with thin lines across, which no other ground has.
QImage DrawBeyond()
{
    QImage image = DrawGround(Palette::kBeyond, 0);
    QPainter painter(&image);
    for (int y = kHatchPeriod; y < kStripHeight; y += kHatchPeriod)
        Fill(painter, 0, y, 1, 1, Palette::kBeyondHatch);
    return image;
}

void AddBandedStyle(Gallery& gallery, int first, QRgb normal, QRgb selection)
{
    gallery[QString::number(first)] = DrawRowGround(normal);
    gallery[QString::number(first + 1)] = DrawRowGround(selection);
    gallery[QString::number(first + 2)] = DrawBeyond();
}

} // namespace

void AddTextureStrips(Gallery& gallery)
{
    gallery["42"] = DrawRowGround(Palette::kGround);
    gallery["43"] = DrawRowGround(Palette::kSelection);
    gallery["44"] = DrawBeyond();
    gallery["45"] = DrawRowGround(Palette::kMajorBand);
    gallery["46"] = DrawRowGround(Palette::kMajorBandSelected);
    gallery["47"] = DrawRowGround(Palette::kGridTick);
    gallery["48"] = DrawRowGround(Palette::kGridTickSelected);

    AddBandedStyle(gallery, 49, Palette::kGround, Palette::kSelection);
    AddBandedStyle(gallery, 52, Palette::kGroundRaised, Palette::kSelectionRaised);
    AddBandedStyle(gallery, 55, Palette::kGroundDeep, Palette::kSelectionDeep);
}

} // namespace Artwork
