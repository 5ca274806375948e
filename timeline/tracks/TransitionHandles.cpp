#include "tracks/TransitionHandles.h"

#include "TimelineEnums.h"
#include "axis/ClampedInt.h"
#include "library/TimelineLibrary.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CellGeometry.h"

#include <algorithm>

namespace {

/// The far end of the transition of @p key, if that stood at @p frame.
int TransitionEndX(const FrameAxis& axis, const CTimelineKey& key, long long frame)
{
    if (key.kindMask & TL_KEY_TRANSITION_OUT)
        return axis.FrameToPixel(frame + key.transitionFrames);
    if (key.kindMask & TL_KEY_TRANSITION_IN)
        return axis.FrameToPixel(frame - key.transitionFrames);
    return 0;
}

} // namespace

TransitionHandles::TransitionHandles(const FrameAxis& axis, const GlyphStyle& style, int rowHeight)
    : m_axis(axis), m_style(style), m_rowHeight(rowHeight)
{
}

int TransitionHandles::EndX(const DisplayKey& key) const
{
    return TransitionEndX(m_axis, *key.key, key.frame);
}

QRect TransitionHandles::Box(const DisplayKey& key) const
{
    const int group = GlyphGroupOf(m_style, key.IsGrouped());
    const QSize size = TimelineLibrary::Instance().images.Glyph(group, 0).size();
    // Far outside any row the exact place does not matter, only that nothing overflows.
    constexpr int kFar = 1 << 30;
    const int x = std::clamp(EndX(key), -kFar, kFar) + CentredInCell(m_axis, 0, size.width());
    return QRect(QPoint(x, AlignedTop(m_style.align, m_rowHeight, size.height())), size);
}

int TransitionHandles::Find(const CTimelineKeyArray& keys, const KeyFacts& facts,
                            QPoint point) const
{
    const auto& list = keys.Keys();
    KeyRange range{0, list.size()};
    const auto hits = [&](const CTimelineKey& key) {
        const QRect box = Box(DisplayKey(&key));
        return box.x() <= point.x() && point.x() <= box.x() + box.width() && box.y() <= point.y() &&
               point.y() <= box.y() + box.height();
    };
    // The handles of keys without a transition stand at the row's left edge, wherever the keys are.
    const int reach = WidestGlyph(m_style) + std::max(m_axis.info.pixelsPerFrame, 0) + 1;
    if (point.x() > reach) {
        const FrameWindow around =
            FramesAround(m_axis, 1LL * point.x() - reach, 1LL * point.x() + reach);
        range = KeysReaching(list, facts, Widened(around, facts.longestTransition));
    }
    for (const bool selected : {true, false}) {
        for (std::size_t i = range.end; i-- > range.begin;) {
            if (list[i]->selected == selected && hits(*list[i]))
                return static_cast<int>(i);
        }
    }
    return -1;
}

std::optional<int> TransitionDragAmount(const FrameAxis& axis, const CTimelineKey& key, int x)
{
    const bool isOut = key.kindMask & TL_KEY_TRANSITION_OUT;
    if (!isOut && !(key.kindMask & TL_KEY_TRANSITION_IN))
        return std::nullopt;
    const long long outwards = static_cast<long long>(x) - TransitionEndX(axis, key, key.frame);
    const long long amount = std::max(axis.PixelsToFrames(isOut ? outwards : -outwards),
                                      -static_cast<long long>(key.transitionFrames));
    return amount == 0 ? std::nullopt : std::optional<int>(ClampedInt(amount));
}
