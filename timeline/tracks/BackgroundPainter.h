#pragma once

class QPainter;
struct RowView;
struct TrackStyle;
struct WaveTrackStyle;

/// The textures of one banded background, in the order of the brush table.
enum BandedBrush
{
    kBandedNormal,
    kBandedSelection,
    kBandedBeyondEnd,
    kBandedBrushCount
};

/// The textures of one grid background, in the order of the brush table.
enum GridBrush
{
    kGridNormal,
    kGridSelection,
    kGridBeyondEnd,
    kGridBand,
    kGridBandSelected,
    kGridTick,
    kGridTickSelected,
    kGridBrushCount
};

/// A time range as a row shows it, the smaller end first; -1 stands for an end that is not set.
struct TimeRange
{
    int lo = -1;
    int hi = -1;

    /// One end is enough for the selection to be filled.
    bool IsShown() const { return lo >= 0 || hi >= 0; }
    /// Markers need both.
    bool HasBothEnds() const { return lo >= 0 && hi >= 0; }
};

/// Fills a row with the background that its style asks for, banded or grid.
void DrawBackground(QPainter& painter, const RowView& view, const TrackStyle& style,
                    const TimeRange& range);

/// Plain ground: normal up to the last frame, the time range, and the part beyond the end.
void DrawBandedBackground(QPainter& painter, const RowView& view, int backgroundId,
                          const TimeRange& range);
/// The same for the wave row, in its style's colours.
void DrawWaveBackground(QPainter& painter, const RowView& view, const WaveTrackStyle& style,
                        const TimeRange& range);
/// Ground with a tick line at each step of the axis and a band once in ten labelled steps.
void DrawGridBackground(QPainter& painter, const RowView& view, int backgroundId,
                        const TimeRange& range);
