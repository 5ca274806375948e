#pragma once

#include "model/TimelineKeyValues.h"
#include "skin/TrackStyles.h"
#include "tracks/DisplayKeys.h"
#include "tracks/GlyphPainter.h"
#include "tracks/TransitionHandles.h"

/// Keys with one of these have a transition.
constexpr int kTransitionBits = TL_KEY_TRANSITION_IN | TL_KEY_TRANSITION_OUT;

/// The glyphs of a transition row.
GlyphStyle TransitionGlyphStyle(const LineKeyTrackStyle& style);

/// Paints the keys of a transition row: for the unselected keys and then for the selected ones, the
/// spans of their transitions, and over them the glyphs of the keys with those of their handles.
class TransitionPainter
{
public:
    TransitionPainter(QPainter& painter, const RowView& view, const LineKeyTrackStyle& style);

    /// @p list is the whole list of keys to draw or what CollectTransitionWindow gives.
    void Draw(const DisplayKeyList& list);

private:
    void DrawPass(const DisplayKeyList& list, bool selected);
    void DrawTransition(const DisplayKey& key);
    void DrawHandle(const DisplayKey& key);

    QPainter& m_painter;
    const RowView& m_view;
    const LineKeyTrackStyle& m_style;
    GlyphStyle m_glyphs;
    TransitionHandles m_handles;
};
