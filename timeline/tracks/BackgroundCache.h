#pragma once

#include "axis/CFrameInfo.h"
#include "tracks/BackgroundPainter.h"

#include <QPixmap>
#include <QSize>

#include <list>

struct TrackStyle;

/// Ready pictures of row backgrounds. A grid background is a line for every frame, the same in
/// every row of one style, and most repaints change none of it; so a row's background is painted
/// once for all rows that look alike and copied from then on. Everything that a background depends
/// on is part of the key, so a picture never goes stale.
class BackgroundCache
{
public:
    /// The cache that all rows share.
    static BackgroundCache& Shared();

    /// Draws the background of the whole row or, where the view shows a part, of that part: from a
    /// ready picture, or one made now if the whole row is to be painted. Onto a painter that is
    /// scaled or has another pixel ratio it is painted without a picture.
    void Draw(QPainter& painter, const RowView& view, const TrackStyle& style,
              const TimeRange& range);

    /// Lets go of all pictures.
    void Clear() { m_entries.clear(); }
    /// The number of ready pictures.
    std::size_t Size() const { return m_entries.size(); }

private:
    struct Key
    {
        QSize size;
        int type = 0;
        int id = 0;
        int frameCount = 0;
        int scrollX = 0;
        int pixelsPerFrame = 0;
        int framesPerPixel = 0;
        int steps[4] = {};
        TimeRange range;
        qint64 texture = 0; ///< changes when the pictures were freed and loaded again
    };
    struct Entry
    {
        Key key;
        QPixmap picture;
    };

    static Key KeyOf(const RowView& view, const TrackStyle& style, const TimeRange& range);
    static bool AreSame(const Key& a, const Key& b);
    const QPixmap* Find(const Key& key);
    const QPixmap& Make(const Key& key, const RowView& view, const TrackStyle& style);

    std::list<Entry> m_entries; ///< the one used last stands first
};
