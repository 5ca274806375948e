#include "tracks/RulerPainter.h"

#include "skin/ImageTables.h"
#include "skin/SkinFont.h"
#include "skin/TrackStyles.h"
#include "tracks/CellGeometry.h"
#include "tracks/RangeMarkers.h"
#include "tracks/ShapedTexts.h"
#include "tracks/StripPainter.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace {

using Wide = long long;

/// Places in the ruler's group of the brush table.
enum RulerBrush
{
    kGroundBrush = 2,
    kBeyondEndBrush = 3,
    kNumberedCellBrush = 4,
    kMinorTickBrush = 5,
    kMajorTickBrush = 7,
    kCurrentCellBrush = 10,
    kCurrentCellInsideBrush = 11,
    kCurrentCellMiddleBrush = 12,
    kCurrentColumnBrush = 13
};

constexpr Wide kTicksPerNumber = 5;

/// The baseline of the numbers below the row's top: the font centred in the row and lifted by the
/// skin's offset, in single precision.
int BaselineOf(int rowHeight, int fontHeight, int offset)
{
    constexpr float farthest = 1 << 20; // no skin's number may leave the range of int
    const auto height = static_cast<float>(rowHeight);
    const float baseline =
        (height - static_cast<float>(offset)) - (height - static_cast<float>(fontHeight)) * 0.5f;
    return static_cast<int>(std::clamp(baseline, -farthest, farthest));
}

} // namespace

RulerPainter::RulerPainter(QPainter& painter, const QRect& rect, const TickTrackStyle& style,
                           const FrameAxis& axis, const ImageTables& images)
    : m_painter(painter), m_style(style), m_images(images), m_view(painter, rect, axis),
      m_interval(std::max(axis.info.step2, 1)), m_step(std::max(axis.info.step3, 1)),
      m_stepPixels(axis.IsFramesPerPixel() ? 1 : m_step * axis.info.pixelsPerFrame)
{
}

void RulerPainter::Paint(int timeMarkStart, int timeMarkEnd)
{
    if (m_view.IsEmpty())
        return;
    PaintGround();
    PrepareNumbers();
    PaintTicks();
    PaintMarkers(timeMarkStart, timeMarkEnd);
    PaintCurrentFrame();
}

void RulerPainter::Fill(long long from, long long to, int brush)
{
    FillStrip(m_painter, m_view.Part(from, to), m_images.WideStrip(kRulerBrushes, brush),
              m_view.row.topLeft());
}

void RulerPainter::PaintGround()
{
    const Wide endX = m_view.endX;
    const Wide lastX = Width() - 1;
    if (endX > 0)
        Fill(0, std::min(endX, lastX), kGroundBrush);
    if (endX <= Width())
        Fill(std::max(endX, Wide{0}), lastX, kBeyondEndBrush);
}

void RulerPainter::PrepareNumbers()
{
    QFont font(m_style.textFace);
    SetPixelSize(font, m_style.textMinSize);
    m_painter.setFont(font);
    m_painter.setPen(m_style.textColour.ToColor());
    m_numbers = &ShapedTexts::For(m_painter);
    m_baseline = BaselineOf(m_view.row.height(), m_numbers->Metrics().height(), m_style.textOffset);
    m_characterWidth = m_numbers->Metrics().averageCharWidth();
}

/// How far from its tick a number, or the cell before it, may reach to either side.
int RulerPainter::NumberReach() const
{
    const QFontMetrics& metrics = m_numbers->Metrics();
    int widest = 0;
    for (const char character : {'-', '0', '1', '2', '3', '4', '5', '6', '7', '8', '9'})
        widest = std::max(widest, metrics.horizontalAdvance(QLatin1Char(character)));
    const Wide lastFrame = m_view.axis.PixelToFrame(0) + (Width() / m_stepPixels + 1) * m_step;
    const int length = std::max(QString::number(lastFrame).length(),
                                QString::number(m_view.axis.PixelToFrame(0)).length());
    const int spare = widest; // for what a glyph paints beside its advance
    return widest * length + spare + static_cast<int>(m_stepPixels) + 1;
}

/// The walk begins at the first visible frame, whatever is painted: what the ticks are aligned to
/// must not depend on the clip. It only leaves out the ticks that cannot be seen.
void RulerPainter::PaintTicks()
{
    const Wide firstFrame = m_view.axis.PixelToFrame(0);
    const Wide firstX = m_view.axis.FrameToPixel(firstFrame);
    const Wide reach = NumberReach();
    const Wide lastX = std::min(Wide{Width()} - 1, m_view.lastColumn + reach);
    const Wide stepsPerTick = m_interval % m_step == 0 ? m_interval / m_step : 1;

    Wide steps = std::max(Wide{0}, (m_view.firstColumn - reach - firstX) / m_stepPixels);
    while (firstX + steps * m_stepPixels <= lastX) {
        const Wide frame = firstFrame + steps * m_step;
        if (frame % m_interval != 0) {
            ++steps;
            continue;
        }
        PaintTick(frame, firstX + steps * m_stepPixels);
        steps += stepsPerTick;
    }
}

void RulerPainter::PaintTick(long long frame, long long x)
{
    const bool isMajor = frame % (kTicksPerNumber * m_interval) == 0;
    if (x >= m_view.endX) {
        Fill(x, x + 1, kBeyondEndBrush);
    } else if (!isMajor) {
        Fill(x, x + 1, kMinorTickBrush);
    } else if (m_interval > 1) {
        Fill(x, x + 1, kMajorTickBrush);
    } else {
        // One frame per tick: the numbered frame's cell ends at its tick.
        const Wide cell = x - m_stepPixels;
        Fill(cell, x + 1, kNumberedCellBrush);
        Fill(cell, cell + 1, kMajorTickBrush);
    }
    if (isMajor)
        PaintNumber(frame, x);
}

void RulerPainter::PaintNumber(long long frame, long long x)
{
    const QString text = QString::number(frame);
    const Wide textX = (2 * x - m_characterWidth * text.length() - m_stepPixels) / 2;
    const QRect& row = m_view.row;
    const QPoint origin(row.left() - 1 + static_cast<int>(textX), row.top() + m_baseline);
    m_numbers->Draw(m_painter, origin, text);
}

void RulerPainter::PaintMarkers(int timeMarkStart, int timeMarkEnd)
{
    PaintMarker(m_view.axis.FrameToPixel(timeMarkStart), kStartMarker);
    const int width = m_images.Glyph(kTimeMarkGlyphs, kStartMarker).width();
    const Wide endX = Wide{m_view.axis.FrameToPixel(timeMarkEnd + 1LL)} - width;
    if (endX < Width() - 1)
        PaintMarker(endX, kEndMarker);
}

void RulerPainter::PaintMarker(long long x, int image)
{
    const QPixmap& marker = m_images.Glyph(kTimeMarkGlyphs, image);
    if (m_view.Shows(x, x + marker.width() - 1))
        m_painter.drawPixmap(m_view.row.left() + static_cast<int>(x), m_view.row.top(), marker);
}

void RulerPainter::PaintCurrentFrame()
{
    const CurrentFrameCell cell(m_view.axis);
    if (cell.IsEmpty())
        return;
    if (cell.isPlain) {
        Fill(cell.first, cell.last, kCurrentColumnBrush);
        return;
    }
    const Wide middle = (cell.last + cell.first) / 2;
    Fill(cell.first, cell.last, kCurrentCellBrush);
    Fill(cell.first + 1, cell.last - 1, kCurrentCellInsideBrush);
    Fill(middle, middle + 1, kCurrentCellMiddleBrush);
}
