#include "skin/ImageTables.h"

#include "skin/ImageRuns.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

template <typename Image>
using Groups = std::vector<std::vector<Image>>;

template <typename Image>
void Append(Groups<Image>& groups, int group, Image image)
{
    const auto place = static_cast<std::size_t>(group);
    groups.resize(std::max(groups.size(), place + 1));
    groups[place].push_back(std::move(image));
}

template <typename Image>
int CountIn(const Groups<Image>& groups, int group)
{
    const auto place = static_cast<std::size_t>(group);
    return group >= 0 && place < groups.size() ? static_cast<int>(groups[place].size()) : 0;
}

template <typename Image>
const Image& At(const Groups<Image>& groups, int group, long long index, const Image& none)
{
    if (index < 0 || index >= CountIn(groups, group))
        return none;
    return groups[static_cast<std::size_t>(group)][static_cast<std::size_t>(index)];
}

const QPixmap& NoPicture()
{
    // Made from no data at all, so that it may outlive the application, and be asked for without
    // one.
    static const QPixmap none(static_cast<QPlatformPixmap*>(nullptr));
    return none;
}

const QBrush& NoBrush()
{
    static const QBrush none;
    return none;
}

/// The texture beside itself, as often as fits into the width at which tiling is no longer slow.
QPixmap MakeWideStrip(const QImage& texture)
{
    constexpr int kFastWidth = 512;
    const int copies = std::max(1, kFastWidth / texture.width());
    QImage strip(texture.width() * copies, texture.height(), QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&strip);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (int copy = 0; copy < copies; ++copy)
        painter.drawImage(copy * texture.width(), 0, texture);
    painter.end();
    return QPixmap::fromImage(strip);
}

} // namespace

bool ImageTables::Load()
{
    return Load(QStringLiteral(":/"));
}

bool ImageTables::Load(const QString& prefix)
{
    if (m_loaded)
        return true;
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return false;
    for (const ImageRun& run : kImageRuns) {
        for (int number = run.first; number <= run.last; ++number) {
            const QString path = prefix + QString::number(number);
            const bool read =
                run.table == ImageTable::Brushes
                    ? AppendBrush(run.group, path)
                    : AppendPicture(run.table == ImageTable::Glyphs ? m_glyphs : m_pictures,
                                    run.group, path);
            if (!read)
                return false;
        }
    }
    m_loaded = true;
    return true;
}

bool ImageTables::AppendPicture(Groups<QPixmap>& groups, int group, const QString& path)
{
    // Not read as a pixmap: that would keep, and answer from, a copy in the process-wide cache.
    const QImage picture(path);
    if (picture.isNull())
        return false;
    Append(groups, group, QPixmap::fromImage(picture));
    return true;
}

bool ImageTables::AppendBrush(int group, const QString& path)
{
    const QImage texture(path);
    if (texture.isNull())
        return false;
    Append(m_brushes, group, QBrush(texture));
    Append(m_wideStrips, group, MakeWideStrip(texture));
    return true;
}

void ImageTables::Free()
{
    if (!m_loaded)
        return;
    m_pictures.clear();
    m_glyphs.clear();
    m_brushes.clear();
    m_wideStrips.clear();
    m_loaded = false;
}

const QPixmap& ImageTables::Picture(int group, long long index) const
{
    return At(m_pictures, group, index, NoPicture());
}

const QPixmap& ImageTables::Glyph(int group, long long index) const
{
    return At(m_glyphs, group, index, NoPicture());
}

const QBrush& ImageTables::Brush(int group, long long index) const
{
    return At(m_brushes, group, index, NoBrush());
}

const QPixmap& ImageTables::WideStrip(int group, long long index) const
{
    return At(m_wideStrips, group, index, NoPicture());
}

int ImageTables::PictureCount(int group) const
{
    return CountIn(m_pictures, group);
}

int ImageTables::GlyphCount(int group) const
{
    return CountIn(m_glyphs, group);
}

int ImageTables::BrushCount(int group) const
{
    return CountIn(m_brushes, group);
}
