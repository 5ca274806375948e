#include "artwork/Artwork.h"
#include "artwork/Palette.h"
#include "artwork/PixelMap.h"

#include <QStringList>

#include <vector>

namespace Artwork {
namespace {

constexpr int kZoom = 4;
constexpr int kGap = 6;
constexpr int kSheetWidth = 480; // before zooming

/// One line of the sheet: pictures of a kind, side by side on the ground they are painted on.
struct Line
{
    QStringList names;
    QRgb ground;
};

QStringList Numbered(int first, int last)
{
    QStringList names;
    for (int number = first; number <= last; ++number)
        names.append(QString::number(number));
    return names;
}

std::vector<Line> AllLines()
{
    using namespace Palette;
    const QStringList linkGlyphs = Numbered(86, 93) + Numbered(148, 149);
    return {
        {Numbered(0, 1), kGround},
        {Numbered(2, 3), kGround},
        {Numbered(4, 5), kGround},
        {Numbered(6, 7), kGround},
        {Numbered(150, 150), kGround},
        {Numbered(8, 23), kCaption},
        {Numbered(8, 23), kCaptionFocus},
        {Numbered(24, 27), kGround},
        {Numbered(28, 31), kGround},
        {Numbered(32, 41), kGround},
        {Numbered(42, 57), kGround},
        {Numbered(58, 71), kGround},
        {Numbered(72, 85), kGround},
        {Numbered(72, 85), kSelection},
        {linkGlyphs, kGround},
        {linkGlyphs, kSelection},
        {Numbered(94, 107), kGround},
        {Numbered(108, 121), kGround},
        {Numbered(122, 127), kGround},
        {Numbered(128, 131), kRuler},
        {{QStringLiteral("Bitmap/loop"), QStringLiteral("Bitmap/speed")}, kGround},
    };
}

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
    for (const QString& name : line.names) {
        const auto found = gallery.find(name);
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
    for (const Line& line : AllLines()) {
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
