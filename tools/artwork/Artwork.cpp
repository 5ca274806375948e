#include "artwork/Artwork.h"

#include <QDir>
#include <QFileInfo>

namespace Artwork {
namespace {

bool IsOpaque(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) != 255)
                return false;
    return true;
}

} // namespace

Gallery DrawAll()
{
    constexpr void (*kFamilies[])(Gallery&) = {
        AddCaptions,     AddCaptionButtons, AddSwitchButtons, AddScrollArrows,
        AddRangeMarkers, AddTextureStrips,  AddRulerStrips,   AddKeyGlyphs,
        AddLinkGlyphs,   AddMouthShapes,    AddCursors,       AddSpareIcons,
    };
    Gallery gallery;
    for (const auto addFamily : kFamilies)
        addFamily(gallery);
    // A picture without transparency is blitted, not blended.
    for (auto& [name, image] : gallery)
        image =
            image.convertToFormat(IsOpaque(image) ? QImage::Format_RGB32 : QImage::Format_ARGB32);
    return gallery;
}

QString Write(const Gallery& gallery, const QString& folder)
{
    for (const auto& [name, image] : gallery) {
        const QString path = folder + QLatin1Char('/') + name + QLatin1String(".png");
        if (!QDir().mkpath(QFileInfo(path).path()) || !image.save(path, "PNG"))
            return QStringLiteral("cannot write %1").arg(path);
    }
    return QString();
}

} // namespace Artwork
