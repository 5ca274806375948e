#include "tracks/ClipPainter.h"

#include "axis/FrameAxis.h"
#include "model/TimelineKeyValues.h"
#include "tracks/ClipEdges.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <climits>

namespace {

constexpr int kHighestClip = 1 << 20; ///< pixels; keeps a skin's wildest height within arithmetic
constexpr int kNameIndent = 5;        ///< pixels from the bar's left edge to its name
constexpr int kOutlineReach =
    2; ///< pixels beyond the painted columns where an edge is out of sight

struct GradientStop
{
    double position;
    bool lower; ///< the bottom colour instead of the top one
};
constexpr GradientStop kGradientStops[] = {{0.0, false}, {0.3, false}, {0.7, true}, {1.0, true}};

/// The frame at which pass @p pass of a looped clip is divided from the one before.
long long DividerFrame(const CTimelineKey& clip, long long pass)
{
    return clip.frame + pass * clip.clipLength + 1;
}

/// The first pass from 1 whose divider lies at pixel @p x or right of it; the loop count if none.
long long FirstPassFrom(const FrameAxis& axis, const CTimelineKey& clip, int x)
{
    long long low = 1;
    long long high = std::max(clip.loopCount, 1);
    while (low < high) {
        const long long middle = low + (high - low) / 2;
        if (axis.FrameToPixel(DividerFrame(clip, middle)) < x)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

} // namespace

ClipPainter::ClipPainter(QPainter& painter, const RowView& view, const ClipTrackStyle& style)
    : m_painter(painter), m_view(view), m_style(style),
      m_height(std::clamp(style.height, -kHighestClip, kHighestClip)),
      m_texts(ShapedTexts::For(painter)),
      m_names([this](const QString& text) { return m_texts.Width(text); }),
      m_fontHeight(m_texts.Metrics().height()), m_firstVisibleFrame(view.axis.PixelToFrame(0)),
      m_lastVisibleFrame(view.axis.PixelToFrame(view.row.width()))
{
}

void ClipPainter::Draw(const KeyVector& keys, bool searchable)
{
    auto first = keys.begin();
    auto last = keys.end();
    if (searchable) {
        first = std::partition_point(keys.begin(), keys.end(), [this](const auto& key) {
            return key->frame < m_firstVisibleFrame;
        });
        last = std::partition_point(first, keys.end(), [this](const auto& key) {
            return key->frame <= m_lastVisibleFrame;
        });
        // A clip ends before the next key, so of those that start out of view only the last one can
        // reach into it.
        if (first != keys.begin())
            --first;
    }
    for (; first != last; ++first) {
        if (IsInView(**first))
            DrawClip(**first);
    }
}

bool ClipPainter::IsInView(const CTimelineKey& clip) const
{
    return clip.clipLength >= 1 && clip.frame < m_view.LastFrame() &&
           clip.frame <= m_lastVisibleFrame && ClipEndFrame(clip) >= m_firstVisibleFrame;
}

ClipPainter::Bar ClipPainter::BarOf(const CTimelineKey& clip) const
{
    Bar bar;
    bar.left = m_view.axis.FrameToPixel(clip.frame);
    bar.right = std::min({ClipEndPixel(m_view.axis, clip), m_view.row.width(), m_view.endX});
    if (bar.left == bar.right)
        ++bar.right;
    const int centred = (m_view.row.bottom() - m_height - m_view.row.top() + 1) / 2;
    bar.top = m_view.row.top() + static_cast<int>(centred - 0.5);
    bar.bottom = bar.top + m_height;
    return bar;
}

void ClipPainter::DrawClip(const CTimelineKey& clip)
{
    const Bar bar = BarOf(clip);
    if (bar.right < 0 || bar.left > m_view.endX)
        return;

    const int leadInX = ClipTrimPixel(m_view.axis, clip);
    const auto [barLow, barHigh] = std::minmax(bar.left, bar.right);
    const int left = clip.selected ? std::min(barLow, leadInX) : barLow;
    const int right = clip.selected ? std::max(barHigh, leadInX) : barHigh;
    // Letters may overhang the place they are measured for.
    if (!m_view.Shows(left - 1LL * m_fontHeight, right + 1LL + m_fontHeight))
        return;

    const Look look = LookIndex(clip, clip.lockState == TL_KEY_LOCKED);
    m_painter.setPen(LookOf(look).border[clip.selected]);
    DrawBar(clip, bar);
    if (clip.selected)
        DrawLeadIn(bar, leadInX);
    DrawLoopDividers(clip, bar);
    DrawName(clip, bar);
}

void ClipPainter::DrawBar(const CTimelineKey& clip, const Bar& bar)
{
    // Qt's outline runs one pixel right of and below the rectangle. A host that writes a display
    // length far below zero turns the bar round: it then runs from its end to its start.
    const auto [low, high] = std::minmax(bar.left, bar.right);
    if (!m_view.Shows(low, high + 1LL))
        return;
    const int lowest = m_view.firstColumn - kOutlineReach;
    const int highest = m_view.lastColumn + kOutlineReach;
    const int left = std::clamp(bar.left, lowest, highest);
    const int right = std::clamp(bar.right, lowest, highest);
    m_painter.setBrush(GradientOf(clip));
    m_painter.drawRect(QRect(QPoint(m_view.row.left() + left, bar.top),
                             QPoint(m_view.row.left() + right, bar.bottom)));
}

void ClipPainter::DrawLeadIn(const Bar& bar, int leadInX)
{
    DrawVerticalLine(leadInX, bar);
    DrawHorizontalLine(leadInX, bar.left, bar.top);
    DrawHorizontalLine(leadInX, bar.left, bar.bottom + 1);
}

void ClipPainter::DrawLoopDividers(const CTimelineKey& clip, const Bar& bar)
{
    const int end = std::min(bar.right, m_view.lastColumn + 1);
    int x = m_view.firstColumn;
    for (;;) {
        // Passes narrower than a pixel share their divider's column; it is drawn once.
        const long long pass = FirstPassFrom(m_view.axis, clip, x);
        if (pass >= clip.loopCount)
            return;
        x = m_view.axis.FrameToPixel(DividerFrame(clip, pass));
        if (x >= end)
            return;
        DrawVerticalLine(x, bar);
        ++x;
    }
}

void ClipPainter::DrawName(const CTimelineKey& clip, const Bar& bar)
{
    if (clip.name.isEmpty())
        return;
    const long long left = static_cast<long long>(bar.left) + kNameIndent;
    if (!m_view.Shows(left - m_fontHeight, bar.right + 1LL * m_fontHeight))
        return;
    const int width = static_cast<int>(std::min<long long>(bar.right - left + 1, INT_MAX));
    const QString text = m_names.Fitted(clip.name, width);
    if (text.isEmpty())
        return;

    const int pointSize = m_style.font.pointSize();
    const int baseline =
        m_view.row.top() +
        static_cast<int>((m_view.row.bottom() - m_view.row.top() - pointSize) * 0.5) + pointSize;
    const bool trial = (clip.kindMask & TL_KEY_TRIAL) != 0;
    const auto& colours = trial ? m_style.normal.textColourTrial : m_style.normal.textColour;
    m_painter.setPen(colours[clip.selected].ToColor());
    m_texts.Draw(m_painter, QPoint(static_cast<int>(m_view.row.left() + left), baseline), text);
}

void ClipPainter::DrawVerticalLine(int x, const Bar& bar)
{
    if (m_view.Shows(x, x))
        m_painter.drawLine(m_view.row.left() + x, bar.top, m_view.row.left() + x, bar.bottom);
}

void ClipPainter::DrawHorizontalLine(int fromX, int toX, int y)
{
    const auto [low, high] = std::minmax(fromX, toX);
    if (!m_view.Shows(low, high))
        return;
    m_painter.drawLine(m_view.row.left() + std::max(low, m_view.firstColumn), y,
                       m_view.row.left() + std::min(high, m_view.lastColumn), y);
}

ClipPainter::Look ClipPainter::LookIndex(const CTimelineKey& clip, bool isLocked)
{
    if (isLocked)
        return kLocked;
    return clip.alternateStyle ? kAlternate : kNormal;
}

const ClipTrackStyle::Look& ClipPainter::LookOf(Look look) const
{
    switch (look) {
    case kLocked:
        return m_style.locked;
    case kAlternate:
        return m_style.alternate;
    default:
        return m_style.normal;
    }
}

const QBrush& ClipPainter::GradientOf(const CTimelineKey& clip)
{
    // A selected clip that is locked is filled as if it were not locked, inside the locked border.
    const Look look = LookIndex(clip, clip.lockState == TL_KEY_LOCKED && !clip.selected);
    const std::size_t selected = clip.selected ? 1 : 0;

    std::optional<QBrush>& brush = m_gradients[look][selected];
    if (!brush) {
        const QColor up = LookOf(look).gradientUp[selected].ToColor();
        const QColor down = LookOf(look).gradientDown[selected].ToColor();
        QLinearGradient gradient(0, 0, 0, m_height + 1);
        for (const GradientStop& stop : kGradientStops)
            gradient.setColorAt(stop.position, stop.lower ? down : up);
        brush = QBrush(gradient);
    }
    return *brush;
}
