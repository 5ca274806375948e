#include "tracks/ClipEdges.h"

#include "TimelineEnums.h"
#include "axis/ClampedInt.h"
#include "axis/FrameAxis.h"
#include "tracks/KeyFacts.h"

#include <algorithm>
#include <cstdlib>

namespace {

// An edge is grabbed from two pixels left of it to one pixel right of it.
constexpr int kGrabLeft = 2;
constexpr int kGrabRight = 1;
constexpr int kNearEdge = 2;
// More passes than any two ints are apart.
constexpr long long kMostPasses = 1LL << 33;

bool IsGrabbed(long long edge, long long x)
{
    return x >= edge - kGrabLeft && x <= edge + kGrabRight;
}

bool IsClip(const CTimelineKey& key)
{
    return key.clipLength >= 1;
}

/// A host may leave a loop count of 0 or less on a clip; it is one pass all the same.
long long LoopCount(const CTimelineKey& clip)
{
    return std::max(clip.loopCount, 1);
}

std::optional<int> Amount(long long value)
{
    return value == 0 ? std::nullopt : std::optional<int>(ClampedInt(value));
}

} // namespace

ClipEdges::ClipEdges(const FrameAxis& axis, const CTimelineKeyArray& keys, const KeyFacts& facts,
                     int rowHeight, int clipHeight)
    : m_axis(axis), m_keys(keys.Keys()), m_facts(facts), m_rowHeight(rowHeight),
      m_clipHeight(clipHeight)
{
}

ClipEdgeHit ClipEdges::HitTest(QPoint point, const ClipEdgeModes& modes,
                               const std::function<int()>& askWhich) const
{
    if (modes.trim) {
        const int clip = HitTrimEdge(point);
        if (clip >= 0)
            return {clip, TL_EDIT_CLIP_TRIM};
    }
    if (!modes.loop && !modes.speed)
        return {};

    int kind = modes.loop ? TL_EDIT_CLIP_LOOP : TL_EDIT_CLIP_SPEED;
    if (modes.loop && modes.speed)
        kind = askWhich();
    if (kind < 0)
        return {};
    const int clip = HitEndEdge(point);
    return clip >= 0 ? ClipEdgeHit{clip, kind} : ClipEdgeHit{};
}

int ClipEdges::HitTrimEdge(QPoint point) const
{
    if (!IsInBar(point.y()))
        return -1;
    const FrameWindow around =
        FramesAround(m_axis, 1LL * point.x() - kGrabRight, 1LL * point.x() + kGrabLeft);
    const KeyRange range = KeysReaching(m_keys, m_facts, Widened(around, m_facts.longestLeadIn));
    for (std::size_t i = range.end; i-- > range.begin;) {
        if (IsTrimEdge(*m_keys[i], point.x()))
            return static_cast<int>(i);
    }
    return -1;
}

/// Whether the lead-in of @p clip is drawn, and starts at @p x.
bool ClipEdges::IsTrimEdge(const CTimelineKey& clip, int x) const
{
    if (!clip.selected || !IsClip(clip))
        return false;
    const int start = ClipTrimPixel(m_axis, clip);
    return start >= 0 && IsGrabbed(start, x);
}

int ClipEdges::HitEndEdge(QPoint point) const
{
    if (!IsInBar(point.y()))
        return -1;
    const int lastX = m_axis.FrameToPixel(m_axis.frameCount);
    if (lastX < point.x() - kGrabRight)
        return -1;

    // A clip ends at or before the next key, so the keys that can end here are those around the
    // pointer; only the last frame, where every clip beyond it ends too, makes all later keys
    // candidates.
    auto end = m_keys.end();
    if (m_facts.searchable && lastX > point.x() + kGrabLeft) {
        end = std::partition_point(m_keys.begin(), m_keys.end(), [&](const auto& key) {
            return m_axis.FrameToPixel(key->frame) <= point.x() + kGrabLeft;
        });
    }
    while (end != m_keys.begin()) {
        const CTimelineKey& key = **--end;
        const int x = std::min(ClipEndPixel(m_axis, key), lastX);
        if (IsClip(key) && IsGrabbed(x, point.x()))
            return static_cast<int>(end - m_keys.begin());
        if (m_facts.searchable && m_axis.FrameToPixel(key.frame) < point.x() - kGrabRight)
            return -1;
    }
    return -1;
}

bool ClipEdges::IsInBar(int y) const
{
    // Unsigned halving: a clip higher than its row puts the bar out of every pointer's reach.
    const auto space = static_cast<quint32>(m_rowHeight) - static_cast<quint32>(m_clipHeight);
    const qint64 top = space / 2;
    return y >= top && y <= top + m_clipHeight - 1;
}

long long ClipEndFrame(const CTimelineKey& clip)
{
    return static_cast<long long>(clip.frame) + clip.displayLength + 1;
}

int ClipEndPixel(const FrameAxis& axis, const CTimelineKey& clip)
{
    return axis.FrameToPixel(ClipEndFrame(clip));
}

int ClipTrimPixel(const FrameAxis& axis, const CTimelineKey& clip)
{
    return axis.FrameToPixel(static_cast<long long>(clip.frame) - clip.transitionFrames);
}

bool IsNearEdge(int kind, const FrameAxis& axis, const CTimelineKey& clip, int x)
{
    const long long edge =
        kind == TL_EDIT_CLIP_TRIM ? ClipTrimPixel(axis, clip) : ClipEndPixel(axis, clip);
    return std::llabs(edge - x) <= kNearEdge;
}

std::optional<int> LoopDragAmount(const FrameAxis& axis, const CTimelineKey& clip, int x)
{
    const long long distance =
        static_cast<long long>(x) + axis.scrollX - axis.SpanToPixel(clip.frame);
    if (distance <= 0 || !IsClip(clip))
        return std::nullopt;

    // Distance over the pixels of one pass, both multiplied up to whole numbers.
    const bool framesPerPixel = axis.IsFramesPerPixel();
    const long long k = framesPerPixel ? std::max(axis.info.framesPerPixel, 1) : 1;
    const long long pass =
        static_cast<long long>(clip.clipLength) * (framesPerPixel ? 1 : axis.info.pixelsPerFrame);
    // Quotient and remainder are multiplied apart, and passes that no int can tell are cut off: the
    // product itself would leave the range of a long long.
    const long long wholePasses = std::min(distance / pass, kMostPasses / k) * k;
    const long long rest = distance % pass * k;
    long long passes = wholePasses + rest / pass;
    // A pass that is narrower than a pixel counts only once it is covered whole.
    if (pass >= k && rest % pass != 0)
        ++passes;
    return Amount(std::max(passes, 1LL) - clip.loopCount);
}

std::optional<int> SpeedDragAmount(const FrameAxis& axis, const CTimelineKey& clip, int x)
{
    const long long loops = LoopCount(clip);
    const long long length = loops * clip.clipLength;
    const long long longest = loops * clip.hostValue2;
    const long long shortest = loops * clip.hostValue3;

    const long long pixels = static_cast<long long>(x) - ClipEndPixel(axis, clip);
    long long amount = axis.PixelsToFrames(pixels) / loops;
    if (length + amount > longest)
        amount = longest - length;
    if (length + amount < shortest)
        amount = shortest - length;
    return Amount(amount);
}

std::optional<int> TrimDragAmount(const FrameAxis& axis, const CTimelineKey& clip, int x)
{
    const long long pixels = static_cast<long long>(ClipTrimPixel(axis, clip)) - x;
    const long long leadIn = clip.transitionFrames;
    return Amount(std::max(axis.PixelsToFrames(pixels), -leadIn));
}

std::optional<int> EdgeDragAmount(int kind, const FrameAxis& axis, const CTimelineKey& clip, int x)
{
    switch (kind) {
    case TL_EDIT_CLIP_LOOP:
        return LoopDragAmount(axis, clip, x);
    case TL_EDIT_CLIP_SPEED:
        return SpeedDragAmount(axis, clip, x);
    case TL_EDIT_CLIP_TRIM:
        return TrimDragAmount(axis, clip, x);
    default:
        return std::nullopt;
    }
}
