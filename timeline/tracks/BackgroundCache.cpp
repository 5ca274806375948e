#include "tracks/BackgroundCache.h"

#include "library/TimelineLibrary.h"
#include "skin/TrackStyles.h"
#include "tracks/RowView.h"

#include <QPainter>

#include <algorithm>
#include <iterator>

namespace {

// Rows of a few styles and heights, and some with time ranges of their own: 16 pictures of a row
// are a fraction of what one picture of the window takes.
constexpr std::size_t kMostEntries = 16;

bool DrawsPixelForPixel(const QPainter& painter)
{
    return painter.worldTransform().type() <= QTransform::TxTranslate &&
           qFuzzyCompare(painter.device()->devicePixelRatioF(), 1.0);
}

const QPixmap& Ground(const TrackStyle& style)
{
    const ImageTables& images = TimelineLibrary::Instance().images;
    const int set = style.backgroundId;
    return style.backgroundType == 0
               ? images.WideStrip(kGridBrushes, IndexInSets(set, kGridBrushCount, kGridNormal))
               : images.WideStrip(kBandedBrushes,
                                  IndexInSets(set, kBandedBrushCount, kBandedNormal));
}

/// Whether the background covers its row: not for a number that the skin made up, nor for the wave
/// row, which is painted in colours.
bool HasGround(const TrackStyle& style)
{
    return !Ground(style).isNull() && !dynamic_cast<const WaveTrackStyle*>(&style);
}

bool IsWholeRow(const RowView& view)
{
    return view.firstColumn == 0 && view.lastColumn == view.row.width() - 1;
}

} // namespace

BackgroundCache& BackgroundCache::Shared()
{
    static BackgroundCache cache;
    return cache;
}

void BackgroundCache::Draw(QPainter& painter, const RowView& view, const TrackStyle& style,
                           const TimeRange& range)
{
    if (view.IsEmpty() || view.row.isEmpty())
        return;
    if (!HasGround(style) || !DrawsPixelForPixel(painter)) {
        DrawBackground(painter, view, style, range);
        return;
    }
    const Key key = KeyOf(view, style, range);
    const QPixmap* picture = Find(key);
    if (!picture && IsWholeRow(view))
        picture = &Make(key, view, style);
    if (!picture) {
        DrawBackground(painter, view, style, range);
        return;
    }
    const QRect part(view.firstColumn, 0, view.lastColumn - view.firstColumn + 1,
                     view.row.height());
    painter.drawPixmap(view.row.topLeft() + part.topLeft(), *picture, part);
}

BackgroundCache::Key BackgroundCache::KeyOf(const RowView& view, const TrackStyle& style,
                                            const TimeRange& range)
{
    const FrameAxis& axis = view.axis;
    Key key;
    key.size = view.row.size();
    key.type = style.backgroundType;
    key.id = style.backgroundId;
    key.frameCount = axis.frameCount;
    key.scrollX = axis.scrollX;
    key.pixelsPerFrame = axis.info.pixelsPerFrame;
    key.framesPerPixel = axis.info.framesPerPixel;
    // Not derived from the zoom: an axis that was never computed has steps of its own.
    const int steps[] = {axis.info.step1, axis.info.step2, axis.info.step3, axis.info.step4};
    std::copy(std::begin(steps), std::end(steps), std::begin(key.steps));
    key.range = range;
    key.texture = Ground(style).cacheKey();
    return key;
}

bool BackgroundCache::AreSame(const Key& a, const Key& b)
{
    return a.size == b.size && a.type == b.type && a.id == b.id && a.frameCount == b.frameCount &&
           a.scrollX == b.scrollX && a.pixelsPerFrame == b.pixelsPerFrame &&
           a.framesPerPixel == b.framesPerPixel &&
           std::equal(std::begin(a.steps), std::end(a.steps), std::begin(b.steps)) &&
           a.range.lo == b.range.lo && a.range.hi == b.range.hi && a.texture == b.texture;
}

const QPixmap* BackgroundCache::Find(const Key& key)
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&key](const Entry& entry) { return AreSame(entry.key, key); });
    if (found == m_entries.end())
        return nullptr;
    m_entries.splice(m_entries.begin(), m_entries, found);
    return &m_entries.front().picture;
}

const QPixmap& BackgroundCache::Make(const Key& key, const RowView& view, const TrackStyle& style)
{
    // A background covers its row, so the picture needs no transparency and copies fast.
    QImage image(key.size, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    const RowView whole(QRect(QPoint(), key.size), view.axis, 0, key.size.width() - 1);
    DrawBackground(painter, whole, style, key.range);
    painter.end();
    if (m_entries.size() == kMostEntries)
        m_entries.pop_back();
    m_entries.push_front({key, QPixmap::fromImage(std::move(image))});
    return m_entries.front().picture;
}
