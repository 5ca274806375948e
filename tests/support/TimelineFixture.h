#pragma once

#include "library/TimelineLibrary.h"
#include "tracks/CTimelineTrackBase.h"

#include <QImage>
#include <QPainter>

namespace KestovaTest {

/// Loads the pictures and names the default skin, which every row needs before it paints; false
/// when a picture cannot be decoded. Call it once, from initTestCase.
inline bool PrepareTimeline()
{
    TimelineLibrary& library = TimelineLibrary::Instance();
    library.skinPath = QStringLiteral(KESTOVA_SOURCE_DIR "/skins/default.ini").toStdWString();
    return library.images.Load();
}

/// Puts the shared axis to a known state: @p frameCount frames at @p scale pixels per frame
/// (rounded as CFrameInfo does; 0 leaves one frame per pixel), scrolled by @p scrollX pixels. Call
/// it from init, since tests share the axis.
inline FrameAxis& ResetAxis(int frameCount = 0, double scale = 0.0, int scrollX = 0,
                            int currentFrame = -1)
{
    FrameAxis& axis = TimelineLibrary::Instance().axis;
    axis.frameCount = frameCount;
    axis.currentFrame = currentFrame;
    axis.scrollX = scrollX;
    axis.info = CFrameInfo(scale);
    return axis;
}

/// What a row shows, painted by its DrawTrack at @p size. What the row leaves unpainted is magenta.
inline QImage DrawRow(CTimelineTrackBase& track, const QSize& size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    track.DrawTrack(&painter, image.rect());
    painter.end();
    return image;
}

} // namespace KestovaTest
