#include "tracks/GlyphPainter.h"

#include "TimelineEnums.h"
#include "library/TimelineLibrary.h"
#include "model/TimelineKeyValues.h"
#include "skin/TrackStyles.h"
#include "tracks/CellGeometry.h"

#include <QPainter>

#include <algorithm>

namespace {

/// Glyphs are painted this far right of the place that centres them.
constexpr int kGlyphShift = 2;
/// Rows are never this high; keeps the wildest rectangles of segments within arithmetic.
constexpr int kReach = 1 << 20;

struct KindGlyphs
{
    int trackType;
    int groupOffset;
};
constexpr KindGlyphs kKindGlyphs[] = {
    {TL_TRACK_KEY, kKeyGlyphs},
    {TL_TRACK_TRANSITION_KEY, kTransitionGlyphs},
    {TL_TRACK_LINK_KEY, kLinkGlyphs},
    {TL_TRACK_VISEME_KEY, kVisemeGlyphs},
};

const ImageTables& Images()
{
    return TimelineLibrary::Instance().images;
}

/// Numbers come from skins and hosts; what lies beyond any table is no glyph.
int TableNumber(long long number)
{
    constexpr long long kBeyondTables = 1 << 20;
    return number >= 0 && number < kBeyondTables ? static_cast<int>(number) : -1;
}

int GlyphIndex(int trackType, const DisplayKey& key)
{
    const int selected = key.selected ? 1 : 0;
    switch (trackType) {
    case TL_TRACK_TRANSITION_KEY:
        return selected + (key.HasMask(TL_KEY_TRANSITION_OUT) ? 4 : 0);
    case TL_TRACK_VISEME_KEY:
        return TableNumber(selected + 2LL * key.key->hostValue6);
    default:
        return selected;
    }
}

int Byte(float fraction)
{
    // Written so that a fraction that is not a number gives 0.
    const float scaled = fraction * 255.0f;
    if (!(scaled > 0.0f))
        return 0;
    return scaled < 255.0f ? static_cast<int>(scaled) : 255;
}

} // namespace

std::optional<GlyphStyle> GlyphStyleOf(int trackType, const StyleRecord* style)
{
    const auto* keyStyle = dynamic_cast<const KeyTrackStyle*>(style);
    const bool hasGlyphs =
        std::any_of(std::begin(kKindGlyphs), std::end(kKindGlyphs),
                    [trackType](const KindGlyphs& kind) { return kind.trackType == trackType; });
    if (!keyStyle || !hasGlyphs)
        return std::nullopt;
    return GlyphStyle{trackType, keyStyle->keyBmpType, keyStyle->relatedKeyBmpType,
                      keyStyle->keyAlign};
}

int GlyphGroupOf(const GlyphStyle& style, bool related)
{
    long long group = related ? style.relatedBitmapType : style.bitmapType;
    for (const KindGlyphs& kind : kKindGlyphs) {
        if (kind.trackType == style.trackType)
            group += kind.groupOffset;
    }
    return TableNumber(group);
}

int WidestGlyph(const GlyphStyle& style)
{
    int widest = 0;
    for (const bool related : {false, true}) {
        const int group = GlyphGroupOf(style, related);
        for (int index = 0; index < Images().GlyphCount(group); ++index)
            widest = std::max(widest, Images().Glyph(group, index).width());
    }
    return widest;
}

const QPixmap& KeyGlyph(const GlyphStyle& style, const DisplayKey& key)
{
    return Images().Glyph(GlyphGroupOf(style, key.IsGrouped()), GlyphIndex(style.trackType, key));
}

int KeyGlyphX(const FrameAxis& axis, int frame, int width)
{
    return CentredInCell(axis, axis.FrameToPixel(frame), width);
}

QColor SegmentColour(const TimelineKeySegment& segment)
{
    return QColor(Byte(segment.red), Byte(segment.green), Byte(segment.blue), Byte(segment.alpha));
}

GlyphPainter::GlyphPainter(QPainter& painter, const RowView& view, const GlyphStyle& style)
    : m_painter(painter), m_view(view), m_style(style)
{
}

void GlyphPainter::DrawList(const DisplayKeyList& list)
{
    for (const bool selected : {false, true}) {
        for (const DisplayKey& key : list) {
            if (key.selected == selected)
                Draw(key);
        }
    }
}

void GlyphPainter::Draw(const DisplayKey& key)
{
    const QPixmap& glyph = KeyGlyph(m_style, key);
    const long long x = 1LL * kGlyphShift + KeyGlyphX(m_view.axis, key.frame, glyph.width());
    const bool inRow = x + glyph.width() >= 0 && x < m_view.endX;
    const bool segments = key.HasMask(TL_KEY_SEGMENTS) && !key.key->segments.empty();
    if (!inRow || (!segments && !m_view.Shows(x, x + glyph.width())))
        return;
    const QPoint corner(static_cast<int>(x),
                        AlignedTop(m_style.align, m_view.row.height(), glyph.height()));
    DrawPicture(corner, glyph);
    if (segments)
        DrawSegments(key, corner);
}

void GlyphPainter::DrawPicture(QPoint corner, const QPixmap& picture)
{
    if (m_view.Shows(corner.x(), corner.x() + picture.width() - 1LL))
        m_painter.drawPixmap(m_view.row.topLeft() + corner, picture);
}

void GlyphPainter::DrawSegments(const DisplayKey& key, QPoint corner)
{
    if (key.clip || !key.HasMask(TL_KEY_SEGMENTS))
        return;
    for (const TimelineKeySegment& segment : key.key->segments) {
        const QColor colour = SegmentColour(segment);
        for (const TimelineKeyRect& rect : segment.rects) {
            const long long left = 1LL * corner.x() + rect.left;
            const long long right = 1LL * corner.x() + rect.right;
            const long long top = std::max(1LL * corner.y() + rect.top, -1LL * kReach);
            const long long bottom = std::min(1LL * corner.y() + rect.bottom, 1LL * kReach);
            if (bottom < top || right < left)
                continue;
            m_painter.fillRect(
                m_view.Part(left, right, static_cast<int>(top), static_cast<int>(bottom - top + 1)),
                colour);
        }
    }
}

FrameWindow GlyphPainter::Window(const RowView& view, const GlyphStyle& style,
                                 const KeyFacts& facts)
{
    const long long cell = view.axis.info.pixelsPerFrame + 1LL;
    const long long margin = WidestGlyph(style) + cell + kGlyphShift;
    return view.Frames(margin + std::max(facts.segmentsRight, 0),
                       margin - std::min(facts.segmentsLeft, 0));
}
