#include "axis/ScrollThumb.h"

#include "axis/ClampedInt.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using Wide = long long;

constexpr int kEdgeReach = 3; // an edge is hit closer than this
constexpr Wide kLargestPixelsPerFrame = 10;

Wide CeilQuotient(Wide dividend, Wide divisor)
{
    return dividend / divisor + (dividend % divisor > 0 ? 1 : 0);
}

/// part / whole in single precision.
float Fraction(Wide part, Wide whole)
{
    return static_cast<float>(part) / static_cast<float>(whole);
}

Wide Distance(int a, int b)
{
    return std::abs(Wide{a} - b);
}

} // namespace

void ScrollThumb::SetSize(int width, int height)
{
    m_width = std::max(width, 0);
    m_height = height;
    m_rowHeight = height;
}

/// Takes care of a bar that has nothing to scroll, in every command's first line.
bool ScrollThumb::FillWithoutView()
{
    if (HasView())
        return false;
    FillBar();
    m_axis.scrollX = 0;
    return true;
}

void ScrollThumb::FillBar()
{
    m_thumb = {0, 0, m_width - 1, m_height - 1};
}

void ScrollThumb::SetEdges(Wide left, Wide right)
{
    m_thumb.left = ClampedInt(left);
    m_thumb.right = ClampedInt(right);
}

int ScrollThumb::ThumbWidth() const
{
    return ClampedInt(Wide{m_thumb.right} - m_thumb.left + 1);
}

int ScrollThumb::MinimumWidth() const
{
    const Wide widest = kLargestPixelsPerFrame * m_axis.frameCount;
    if (m_width >= widest || !HasView())
        return m_width;
    return ClampedInt(double{std::ceil(Fraction(m_width, widest) * static_cast<float>(m_width))});
}

void ScrollThumb::Apply()
{
    if (!FillWithoutView())
        ApplyThumb();
}

void ScrollThumb::ApplyThumb()
{
    ZoomFromThumb();
    ScrollFromThumb();
}

void ScrollThumb::PublishFrameInfo()
{
    if (HasView())
        ZoomFromThumb();
}

void ScrollThumb::ZoomFromThumb()
{
    const Wide share = (Wide{m_thumb.right} - m_thumb.left) * m_axis.frameCount;
    const Wide square = Wide{m_width} * m_width;
    m_axis.info = CFrameInfo(share == 0 ? std::numeric_limits<double>::infinity()
                                        : static_cast<double>(square) / static_cast<double>(share));
}

/// The scroll offset at which the view begins where the thumb does. Frames per pixel divide rather
/// than multiply by their rounded reciprocal.
void ScrollThumb::ScrollFromThumb()
{
    const double fraction = Fraction(m_thumb.left, m_width);
    const double scroll = m_axis.IsFramesPerPixel()
                              ? fraction * m_axis.frameCount / m_axis.info.framesPerPixel
                              : m_axis.info.pixelsPerFrame * fraction * m_axis.frameCount;
    m_axis.scrollX = ClampedInt(std::ceil(scroll));
}

ScrollThumb::DragMode ScrollThumb::HitTest(int x, int y) const
{
    if (Distance(x, m_thumb.left) < kEdgeReach)
        return kLeftEdge;
    if (Distance(x, m_thumb.right) < kEdgeReach)
        return kRightEdge;
    if (x < m_thumb.left)
        return kPageLeft;
    if (x > m_thumb.right)
        return kPageRight;
    return y >= m_thumb.top && y <= m_thumb.bottom ? kBody : kNone;
}

void ScrollThumb::Page(int x)
{
    if (FillWithoutView())
        return;
    const Wide left = m_thumb.left;
    const Wide right = m_thumb.right;
    const Wide width = right - left + 1;
    const Wide step = x < (left + right) / 2 ? -width : width;
    if (left + step < 1)
        SetEdges(0, width);
    else if (right + step < m_width - 1)
        SetEdges(left + step, right + step);
    else
        SetEdges(m_width - 1 - width, m_width - 1);
    ScrollFromThumb();
}

void ScrollThumb::BeginDrag(DragMode mode, int x)
{
    m_dragMode = mode;
    if (mode == kBody)
        m_lastX = x;
}

void ScrollThumb::DragTo(int x)
{
    if (m_dragMode != kBody && m_dragMode != kLeftEdge && m_dragMode != kRightEdge)
        return;
    if (FillWithoutView())
        return;
    switch (m_dragMode) {
    case kBody:
        DragBody(x);
        ScrollFromThumb();
        return;
    case kLeftEdge:
        m_thumb.left = std::max(x, 0);
        KeepLeftEdgeInLimits();
        break;
    default:
        m_thumb.right = std::min(m_width - 1, x);
        KeepRightEdgeInLimits();
        break;
    }
    ApplyThumb();
}

void ScrollThumb::DragBody(int x)
{
    const Wide step = Wide{x} - m_lastX;
    const Wide left = m_thumb.left + step;
    const Wide right = m_thumb.right + step;
    const Wide span = Wide{m_thumb.right} - m_thumb.left;
    if (left < 1)
        SetEdges(0, span);
    else if (right < m_width - 1)
        SetEdges(left, right);
    else
        SetEdges(m_width - 1 - span, m_width - 1);
    m_lastX = x;
}

/// Limits the thumb's width by its left edge. It stops two pixels wider than the right edge does.
void ScrollThumb::KeepLeftEdgeInLimits()
{
    const int minimum = MinimumWidth();
    if (ThumbWidth() < minimum) {
        m_thumb.left = ClampedInt(Wide{m_thumb.right} - minimum - 1);
        if (m_thumb.left < 0)
            SetEdges(0, minimum - 1);
    }
    if (ThumbWidth() > m_width)
        m_thumb.left = ClampedInt(Wide{m_thumb.right} - m_width - 1);
}

/// Limits the thumb's width by its right edge.
void ScrollThumb::KeepRightEdgeInLimits()
{
    const int minimum = MinimumWidth();
    if (ThumbWidth() < minimum)
        m_thumb.right = ClampedInt(Wide{m_thumb.left} + minimum - 1);
    if (ThumbWidth() > m_width)
        m_thumb.right = ClampedInt(Wide{m_thumb.left} + m_width - 1);
}

/// Where the thumb begins for the axis's scroll offset, of @p total pixels in all.
long long ScrollThumb::LeftOfScroll(long long total) const
{
    return CeilQuotient(Wide{m_axis.scrollX} * m_width, total);
}

/// The thumb's span that stands for the part of @p total pixels that fits the bar.
int ScrollThumb::ShareInView(long long total) const
{
    return ClampedInt(double{Fraction(m_width, total) * static_cast<float>(m_width)});
}

void ScrollThumb::SetThumbHeightOfRow()
{
    m_thumb.top = 0;
    m_thumb.bottom = m_rowHeight;
}

void ScrollThumb::SyncThumb(bool force)
{
    const bool widthChanged = m_width != m_synchronisedWidth;
    m_synchronisedWidth = m_width;
    if (FillWithoutView())
        return;

    const Wide total = m_axis.SpanToPixel(m_axis.frameCount);
    if (m_width >= total) {
        FillBar();
        m_axis.scrollX = 0;
        return;
    }
    if (total - m_axis.scrollX >= m_width) {
        const bool wasNarrowest = ThumbWidth() <= MinimumWidth();
        const Wide left = widthChanged || force ? LeftOfScroll(total) : m_thumb.left;
        const int span = wasNarrowest ? MinimumWidth() - 1 : ShareInView(total);
        SetEdges(left, left + span);
        KeepRightEdgeInLimits();
    } else {
        // The view runs past the end: the thumb rests against it.
        m_axis.scrollX = ClampedInt(total - m_width - 1);
        SetEdges(LeftOfScroll(total), m_width - 1);
        KeepLeftEdgeInLimits();
    }
    SetThumbHeightOfRow();
    ScrollFromThumb();
}

bool ScrollThumb::ScrollToFrame(int frame, int align)
{
    if (!HasView()) {
        SyncThumb(true);
        return true;
    }
    const Wide target = std::clamp(frame, 0, m_axis.frameCount - 1);
    const Wide first = m_axis.PixelToFrame(0);
    const Wide last = m_axis.PixelToFrame(m_width);
    if (first < target && target < last)
        return false;
    Wide leftmost = target;
    if (align == 0)
        leftmost -= (last - first) / 2;
    else if (align > 0)
        leftmost += first - last;
    m_axis.scrollX = m_axis.SpanToPixel(std::max(leftmost, Wide{0}));
    SyncThumb(true);
    return true;
}

void ScrollThumb::UnZoom()
{
    if (FillWithoutView())
        return;
    const Wide minimum = MinimumWidth();
    const Wide left = (Wide{m_thumb.left} + m_thumb.right - 1 - minimum) / 2;
    SetEdges(left, left + minimum - 1);
    ApplyThumb();
}

void ScrollThumb::ZoomIn()
{
    if (FillWithoutView())
        return;
    const Wide minimum = MinimumWidth();
    Wide span = (Wide{m_thumb.right} - m_thumb.left) / 2;
    if (span < minimum)
        span = minimum - 1;
    const Wide centred = (Wide{m_thumb.left} + m_thumb.right - span) / 2;
    const Wide left = std::max(Wide{0}, std::min(centred, m_width - 1 - span));
    SetEdges(left, left + span);
    ApplyThumb();
}

void ScrollThumb::ZoomOut()
{
    if (FillWithoutView())
        return;
    const Wide span = std::min(2 * (Wide{m_thumb.right} - m_thumb.left), Wide{m_width});
    Wide left = (Wide{m_thumb.left} + m_thumb.right - span) / 2;
    if (left < 0)
        left = 0;
    else if (left + span > m_width - 1)
        left = m_width - 1 - span;
    SetEdges(left, left + span);
    ApplyThumb();
}

void ScrollThumb::ZoomAll()
{
    if (FillWithoutView())
        return;
    FillBar();
    ApplyThumb();
}

bool ScrollThumb::FillsBarButForAPixel() const
{
    return std::abs(Wide{m_thumb.right} - m_thumb.left - (Wide{m_width} - 1)) <= 1;
}

bool ScrollThumb::CanUnZoom() const
{
    return HasView() && Distance(ThumbWidth(), MinimumWidth()) > 1;
}

bool ScrollThumb::CanZoomIn() const
{
    return CanUnZoom() && ThumbWidth() > MinimumWidth();
}

bool ScrollThumb::CanZoomOut() const
{
    return CanZoomAll() && ThumbWidth() < m_width;
}

bool ScrollThumb::CanZoomAll() const
{
    return HasView() && !FillsBarButForAPixel();
}

ScrollThumb::ScrollInfo ScrollThumb::GetScrollInfo() const
{
    if (m_width == 0)
        return {0.0f, 1.0f, 0};
    return {Fraction(m_thumb.left, m_width), Fraction(m_thumb.right, m_width), m_width};
}

bool ScrollThumb::SetScrollInfo(float left, float right)
{
    if (!(left >= 0.0f && right <= 1.0f && left <= right))
        return false;
    if (FillWithoutView())
        return true;
    const auto width = static_cast<float>(m_width);
    SetEdges(ClampedInt(double{width * left}), ClampedInt(double{width * right}));
    ApplyThumb();
    return true;
}
