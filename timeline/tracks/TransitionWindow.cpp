#include "tracks/TransitionWindow.h"

#include "tracks/GlyphPainter.h"
#include "tracks/TransitionPainter.h"

#include <algorithm>
#include <cstdlib>
#include <set>

namespace {

/// Finds the keys whose handles stand at the row's left edge, wherever the keys are: those without
/// a transition, of which the last drawn one of each look covers the others.
class EdgeHandles
{
public:
    EdgeHandles(const CTimelineKeyArray& keys, const KeyFacts& facts, const DisplayScope& scope)
        : m_array(keys), m_keys(keys.Keys()), m_facts(facts), m_scope(scope)
    {
    }

    /// The frames of those keys.
    std::set<int> Frames()
    {
        for (const bool grouped : {false, true}) {
            for (const bool selected : {false, true}) {
                m_grouped = grouped;
                m_selected = selected;
                const std::size_t group = grouped ? 1 : 0;
                WalkBack(m_keys, m_facts.lastWithoutTransition[group][selected ? 1 : 0]);
                WalkBack(m_array.RelatedKeys(), m_facts.lastRelatedWithoutTransition[group]);
            }
        }
        return m_frames;
    }

private:
    bool Fits(const DisplayKey& key) const
    {
        return key.selected == m_selected && key.IsGrouped() == m_grouped &&
               key.frame < m_scope.lastFrame && !key.HasMask(kTransitionBits);
    }

    /// Takes the key's frame unless a related key took the key's place, or the key was a related
    /// one that found its place taken.
    bool Take(const CTimelineKey& key)
    {
        if (key.subKeys || !Fits(DisplayKey(&key)))
            return false;
        const DisplayKeyList there =
            CollectWindow(m_array, m_facts, m_scope, {key.frame, key.frame});
        if (std::none_of(there.begin(), there.end(),
                         [this](const DisplayKey& each) { return Fits(each); }))
            return false;
        m_frames.insert(key.frame);
        return true;
    }

    void WalkBack(const CTimelineKeyArray::KeyVector& keys, int last)
    {
        for (int i = std::min(last, static_cast<int>(keys.size()) - 1); i >= 0; --i) {
            if (Take(*keys[static_cast<std::size_t>(i)]))
                return;
        }
    }

    const CTimelineKeyArray& m_array;
    const CTimelineKeyArray::KeyVector& m_keys;
    const KeyFacts& m_facts;
    const DisplayScope& m_scope;
    bool m_grouped = false;
    bool m_selected = false;
    std::set<int> m_frames;
};

void Append(DisplayKeyList& list, const DisplayKeyList& more)
{
    list.insert(list.end(), more.begin(), more.end());
}

bool ShowsEdgeHandles(const RowView& view, const GlyphStyle& glyphs)
{
    const long long cell = std::max(view.axis.info.pixelsPerFrame, 0) + 1LL;
    return view.firstColumn <= WidestGlyph(glyphs) + cell;
}

/// Sub-keys are drawn where the row shows them, so those that have a handle at its left edge lie in
/// the row's own columns.
FrameWindow WithVisibleFrames(const FrameWindow& window, const DisplayScope& scope)
{
    return {std::min(window.first, scope.firstVisibleFrame),
            std::max(window.last, scope.lastVisibleFrame)};
}

} // namespace

DisplayKeyList CollectTransitionWindow(const CTimelineKeyArray& keys, const KeyFacts& facts,
                                       const DisplayScope& scope, const RowView& view,
                                       const LineKeyTrackStyle& style)
{
    const GlyphStyle glyphs = TransitionGlyphStyle(style);
    const bool showsEdge = ShowsEdgeHandles(view, glyphs);
    const bool ordered = facts.searchable && facts.subKeysInOrder;
    if (!ordered || (showsEdge && facts.subKeysOutOfView))
        return CollectAll(keys, scope);

    FrameWindow window =
        Widened(GlyphPainter::Window(view, glyphs, facts), facts.longestTransition);
    if (!showsEdge)
        return CollectWindow(keys, facts, scope, window);
    if (facts.hasSubKeys)
        window = WithVisibleFrames(window, scope);

    const std::set<int> edgeFrames = EdgeHandles(keys, facts, scope).Frames();
    DisplayKeyList list;
    for (auto frame = edgeFrames.begin(); frame != edgeFrames.lower_bound(window.first); ++frame)
        Append(list, CollectWindow(keys, facts, scope, {*frame, *frame}));
    Append(list, CollectWindow(keys, facts, scope, window));
    for (auto frame = edgeFrames.upper_bound(window.last); frame != edgeFrames.end(); ++frame)
        Append(list, CollectWindow(keys, facts, scope, {*frame, *frame}));
    return list;
}

long long LongestTransition(const DisplayKeyList& list)
{
    long long longest = 0;
    for (const DisplayKey& key : list) {
        if (key.HasMask(kTransitionBits))
            longest = std::max(longest, std::abs(1LL * key.key->transitionFrames));
    }
    return longest;
}
