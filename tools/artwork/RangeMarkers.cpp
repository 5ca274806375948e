#include "artwork/Artwork.h"
#include "artwork/Palette.h"
#include "artwork/PixelMap.h"

namespace Artwork {
namespace {

// The start of a frame range in a row: a stem on the range's first pixel and a flag at its top
// that flies into the range. The flag is at the top, since a lower row covers the end of the stem.
QImage DrawRangeStart()
{
    QImage image = EmptyPicture(7, 26);
    QPainter painter(&image);
    Fill(painter, 0, 0, 2, 26, Palette::kTimeMark);
    const PixelRows flag = {"ooooo", "ooooo", "oooo.", "ooo..", "oo...", "o...."};
    PaintPixels(painter, 2, 0, flag, {{'o', Palette::kTimeMark}});
    Fill(painter, 2, 1, 3, 1, qRgb(206, 218, 255));
    return image;
}

// The start of the time mark on the ruler: the flag stands at the foot, below the frame numbers.
QImage DrawTimeMarkStart()
{
    QImage image = EmptyPicture(11, 25);
    QPainter painter(&image);
    Fill(painter, 0, 0, 2, 25, Palette::kTimeMark);
    const PixelRows flag = {
        "#........", "o##......", "ooo##....", "ooooo##..", "ooooooo##", "ooooooooo",
        "ooooooo##", "ooooo##..", "ooo##....", "o##......", "#........",
    };
    PaintPixels(painter, 2, 14, flag, {{'o', Palette::kTimeMark}, {'#', Palette::kTimeMarkDark}});
    return image;
}

} // namespace

void AddRangeMarkers(Gallery& gallery)
{
    gallery["40"] = DrawRangeStart();
    gallery["41"] = MirroredSideways(gallery["40"]);
    gallery["128"] = DrawTimeMarkStart();
    gallery["129"] = MirroredSideways(gallery["128"]);
}

} // namespace Artwork
