#include "artwork/Artwork.h"
#include "artwork/Palette.h"
#include "artwork/PixelMap.h"

namespace Artwork {
namespace {

constexpr int kZoom = 4;
constexpr int kGap = 6;
constexpr int kSheetWidth = 480; // before zooming

/// One line of the sheet: pictures of a kind, side by side on the ground they are painted on.
struct Line
{
    int first;
    int last;
    QRgb ground;
};

constexpr Line kLines[] = {
    {0, 1, Palette::kGround},        {2, 3, Palette::kGround},     {4, 5, Palette::kGround},
    {6, 7, Palette::kGround},        {150, 150, Palette::kGround}, {8, 23, Palette::kCaption},
    {8, 23, Palette::kCaptionFocus}, {24, 27, Palette::kGround},   {28, 31, Palette::kGround},
    {32, 41, Palette::kGround},      {42, 71, Palette::kGround},   {72, 85, Palette::kGround},
    {72, 85, Palette::kSelection},   {86, 93, Palette::kGround},   {148, 149, Palette::kGround},
    {86, 93, Palette::kSelection},   {94, 107, Palette::kGround},  {108, 121, Palette::kGround},
    {122, 127, Palette::kGround},    {128, 131, Palette::kRuler},
};

// A strip is shown as wide as it is useful to look at.
QImage Displayed(const QImage& image)
{
    constexpr int kStripWidth = 10;
    return image.width() == 1 ? image.scaled(kStripWidth, image.height()) : image;
}

QImage DrawLine(const Gallery& gallery, const Line& line)
{
    std::vector<QImage> pictures;
    int height = 0;
    for (int number = line.first; number <= line.last; ++number) {
        const auto found = gallery.find(QString::number(number));
        if (found == gallery.end())
            continue;
        pictures.push_back(Displayed(found->second));
        height = qMax(height, pictures.back().height());
    }
    QImage image(kSheetWidth, height + kGap, QImage::Format_RGB32);
    image.fill(line.ground);
    QPainter painter(&image);
    int x = kGap;
    for (const QImage& picture : pictures) {
        painter.drawImage(x, kGap / 2, picture);
        x += picture.width() + kGap;
    }
    return image;
}

} // namespace

QImage DrawContactSheet(const Gallery& gallery)
{
    std::vector<QImage> lines;
    int height = 0;
    for (const Line& line : kLines) {
        lines.push_back(DrawLine(gallery, line));
        height += lines.back().height();
    }
    QImage sheet(kSheetWidth * (kZoom + 1), height * kZoom, QImage::Format_RGB32);
    sheet.fill(Palette::kRowLine);
    QPainter painter(&sheet);
    int y = 0;
    for (const QImage& line : lines) {
        painter.drawImage(0, y, line);
        painter.drawImage(
            QRect(kSheetWidth, y * kZoom, line.width() * kZoom, line.height() * kZoom), line);
        y += line.height();
    }
    return sheet;
}

} // namespace Artwork
