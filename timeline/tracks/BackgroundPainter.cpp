#include "tracks/BackgroundPainter.h"

#include "skin/TrackStyles.h"
#include "tracks/RowView.h"
#include "tracks/StripPainter.h"

#include <QPainter>

#include <algorithm>

namespace {

const QColor kWaveSelection(100, 100, 100);
const QColor kWaveBeyondEnd(150, 150, 150);

/// One set of textures out of a group of the brush table, painted from the row's corner on.
class Textures
{
public:
    Textures(QPainter& painter, const RowView& view, BrushGroup group, int set, int setSize)
        : m_painter(painter), m_view(view), m_group(group), m_set(set), m_setSize(setSize)
    {
    }

    /// Fills the columns @p from to @p to, both included.
    void Fill(long long from, long long to, int brush) const
    {
        FillStrip(m_painter, m_view.Part(from, to), m_group, IndexInSets(m_set, m_setSize, brush),
                  m_view.row.topLeft());
    }

private:
    QPainter& m_painter;
    const RowView& m_view;
    BrushGroup m_group;
    int m_set;
    int m_setSize;
};

/// The columns of a time range, both included: from its first frame to the frame after its last.
struct Columns
{
    long long first = 0;
    long long last = -1;

    bool Contains(long long column) const { return first <= column && column <= last; }
};

Columns ColumnsOf(const RowView& view, const TimeRange& range)
{
    if (!range.IsShown())
        return {};
    return {view.axis.FrameToPixel(range.lo), view.axis.FrameToPixel(range.hi + 1LL)};
}

/// Ticks and bands between the first visible frame and the end of the timeline.
void DrawGridMarks(const RowView& view, const Textures& textures, const Columns& selection)
{
    const FrameAxis& axis = view.axis;
    const long long label = std::max(axis.info.step1, 1);
    const long long advance = std::max(axis.info.step3, 1);
    const long long bandFrames = advance * axis.info.step4;
    const int bandWidth = axis.SpanToPixel(bandFrames);
    const long long firstVisible = axis.PixelToFrame(0);

    // Marks that end left of the painted columns are left out, in whole advances, so that the walk
    // meets the same frames as one from the first visible frame.
    const long long reached = axis.PixelToFrame(view.firstColumn - bandWidth - 2LL);
    const long long skipped = std::max(0LL, (reached - firstVisible) / advance);
    // From the first labelled frame on, nothing stands between labelled frames.
    long long frame = firstVisible + skipped * advance;
    const bool aligned = frame % advance == 0 && label % advance == 0;
    if (aligned && frame % label != 0)
        frame += frame > 0 ? label - frame % label : -(frame % label);
    const long long step = aligned ? label : advance;

    for (; frame <= view.LastFrame(); frame += step) {
        const int x = axis.FrameToPixel(frame);
        if (x > view.lastColumn)
            break;
        if (frame % label != 0)
            continue;
        if ((frame - 9 * bandFrames) % (10 * label) == 0) {
            const long long end = 1LL * x + bandWidth;
            textures.Fill(x, end, kGridBand);
            textures.Fill(std::max<long long>(x, selection.first), std::min(end, selection.last),
                          kGridBandSelected);
        }
        textures.Fill(x, x, selection.Contains(x) ? kGridTickSelected : kGridTick);
    }
}

} // namespace

void DrawBackground(QPainter& painter, const RowView& view, const TrackStyle& style,
                    const TimeRange& range)
{
    if (style.backgroundType == 0)
        DrawGridBackground(painter, view, style.backgroundId, range);
    else if (const auto* wave = dynamic_cast<const WaveTrackStyle*>(&style))
        DrawWaveBackground(painter, view, *wave, range);
    else
        DrawBandedBackground(painter, view, style.backgroundId, range);
}

void DrawBandedBackground(QPainter& painter, const RowView& view, int backgroundId,
                          const TimeRange& range)
{
    const Textures textures(painter, view, kBandedBrushes, backgroundId, kBandedBrushCount);
    const Columns selection = ColumnsOf(view, range);
    textures.Fill(0, view.endX, kBandedNormal);
    textures.Fill(selection.first, selection.last, kBandedSelection);
    if (view.row.width() - 1 > view.endX)
        textures.Fill(view.endX, view.lastColumn, kBandedBeyondEnd);
}

void DrawWaveBackground(QPainter& painter, const RowView& view, const WaveTrackStyle& style,
                        const TimeRange& range)
{
    const int height = view.row.height();
    const auto line = [&](int y, const StyleColour& colour) {
        painter.fillRect(view.Part(0, view.lastColumn, y, 1), colour.ToColor());
    };
    painter.fillRect(view.Part(0, view.endX), style.background.ToColor());
    line(0, style.backgroundTopLine);
    line(height - 2, style.backgroundBottomUpper);
    line(height - 1, style.backgroundBottom);

    const Columns selection = ColumnsOf(view, range);
    painter.fillRect(view.Part(selection.first, selection.last), kWaveSelection);
    if (view.row.width() - 1 > view.endX)
        painter.fillRect(view.Part(view.endX, view.lastColumn, 1, height - 2), kWaveBeyondEnd);
}

void DrawGridBackground(QPainter& painter, const RowView& view, int backgroundId,
                        const TimeRange& range)
{
    const Textures textures(painter, view, kGridBrushes, backgroundId, kGridBrushCount);
    const Columns selection = ColumnsOf(view, range);
    textures.Fill(0, view.endX, kGridNormal);
    textures.Fill(selection.first, selection.last, kGridSelection);
    if (view.axis.PixelToFrame(0) <= view.LastFrame())
        DrawGridMarks(view, textures, selection);
    if (view.row.width() - 1 > view.endX)
        textures.Fill(view.endX, view.lastColumn, kGridBeyondEnd);
}
