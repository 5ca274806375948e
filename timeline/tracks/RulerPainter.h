#pragma once

#include "tracks/RowView.h"

class ImageTables;
class ShapedTexts;
struct TickTrackStyle;

/// Paints the frame ruler into a row: ground, ticks, frame numbers, the time-mark markers and the
/// current frame. Looks only at the ticks that can reach the columns to be painted, so that a
/// repaint of a few columns costs little and gives the pixels of a whole one. Leaves the painter
/// with the font and the pen of the frame numbers.
class RulerPainter
{
public:
    /// Borrows everything for one paint. @p rect is the row in the painter's coordinates.
    RulerPainter(QPainter& painter, const QRect& rect, const TickTrackStyle& style,
                 const FrameAxis& axis, const ImageTables& images);

    /// The markers stand at the frames @p timeMarkStart and @p timeMarkEnd, in any order and
    /// anywhere.
    void Paint(int timeMarkStart, int timeMarkEnd);
    /// The current frame alone, which is painted last.
    void PaintCurrentFrame();

private:
    void PaintGround();
    void PrepareNumbers();
    void PaintTicks();
    void PaintTick(long long frame, long long x);
    void PaintNumber(long long frame, long long x);
    void PaintMarkers(int timeMarkStart, int timeMarkEnd);

    int Width() const { return m_view.row.width(); }
    int NumberReach() const;
    void Fill(long long from, long long to, int brush);
    void PaintMarker(long long x, int image);

    QPainter& m_painter;
    const TickTrackStyle& m_style;
    const ImageTables& m_images;
    RowView m_view;
    long long m_interval;   ///< frames between ticks
    long long m_step;       ///< frames the walk advances at a time
    long long m_stepPixels; ///< pixels of one step, exact at every zoom

    // Of the frame numbers, once their font is set.
    ShapedTexts* m_numbers = nullptr;
    int m_baseline = 0; ///< below the row's top
    long long m_characterWidth = 0;
};
