#pragma once

#include "CTimelineKeyArray.h"
#include "skin/TrackStyles.h"
#include "tracks/NameShortener.h"
#include "tracks/RowView.h"
#include "tracks/ShapedTexts.h"

#include <array>
#include <optional>

class QPainter;

/// Paints the clips of one row for one paint. The painter's font is the style's and its brush
/// origin the row's top-left corner, which the gradients start from; pen and brush are left
/// changed. The work depends on the clips in view, as long as the keys are in frame order.
class ClipPainter
{
public:
    using KeyVector = CTimelineKeyArray::KeyVector;

    ClipPainter(QPainter& painter, const RowView& view, const ClipTrackStyle& style);
    ClipPainter(const ClipPainter&) = delete;
    ClipPainter& operator=(const ClipPainter&) = delete;

    /// @p searchable: the keys are in frame order and no clip reaches the next key; else all keys
    /// are looked at.
    void Draw(const KeyVector& keys, bool searchable);

private:
    /// A clip's bar; left and right are pixels of the row, top and bottom the painter's. Right lies
    /// left of left where the clip's display length is negative.
    struct Bar
    {
        int left, right, top, bottom;
    };

    bool IsInView(const CTimelineKey& clip) const;
    Bar BarOf(const CTimelineKey& clip) const;
    void DrawClip(const CTimelineKey& clip);
    void DrawBar(const CTimelineKey& clip, const Bar& bar);
    void DrawLeadIn(const Bar& bar, int leadInX);
    void DrawLoopDividers(const CTimelineKey& clip, const Bar& bar);
    void DrawName(const CTimelineKey& clip, const Bar& bar);
    void DrawVerticalLine(int x, const Bar& bar);
    void DrawHorizontalLine(int fromX, int toX, int y);

    /// The style's three sets of colours.
    enum Look : std::size_t
    {
        kNormal,
        kLocked,
        kAlternate,
        kLookCount
    };

    static Look LookIndex(const CTimelineKey& clip, bool isLocked);
    const ClipTrackStyle::Look& LookOf(Look look) const;
    const QBrush& GradientOf(const CTimelineKey& clip);

    QPainter& m_painter;
    RowView m_view;
    const ClipTrackStyle& m_style;
    int m_height;
    ShapedTexts& m_texts;
    NameShortener m_names;
    int m_fontHeight;
    int m_firstVisibleFrame;
    int m_lastVisibleFrame;
    /// Gradients of this paint, made when first needed: of each look, normal and selected.
    std::array<std::array<std::optional<QBrush>, 2>, kLookCount> m_gradients;
};
