// The painting and the hit tests of a row: everything here hands the row's keys, style and axis to
// the painters.

#include "library/TimelineLibrary.h"
#include "tracks/BackgroundCache.h"
#include "tracks/BarPainter.h"
#include "tracks/CTimelineTrackBase.h"
#include "tracks/GlyphPainter.h"
#include "tracks/KeyHitTest.h"
#include "tracks/RangeMarkers.h"
#include "tracks/RowView.h"

#include <QPainter>

#include <algorithm>

namespace {

/// Keeps the three settings that painting a row gives back.
class PainterSettings
{
public:
    explicit PainterSettings(QPainter& painter)
        : m_painter(painter), m_pen(painter.pen()), m_brush(painter.brush()), m_font(painter.font())
    {
    }
    ~PainterSettings()
    {
        m_painter.setPen(m_pen);
        m_painter.setBrush(m_brush);
        m_painter.setFont(m_font);
    }
    PainterSettings(const PainterSettings&) = delete;
    PainterSettings& operator=(const PainterSettings&) = delete;

private:
    QPainter& m_painter;
    QPen m_pen;
    QBrush m_brush;
    QFont m_font;
};

} // namespace

void CTimelineTrackBase::DrawTrack(QPainter* painter, QRect rect)
{
    const PainterSettings settings(*painter);
    painter->setBrushOrigin(rect.topLeft());
    const RowView view(*painter, rect, Axis());
    if (const auto* style = StyleAs<TrackStyle>())
        BackgroundCache::Shared().Draw(*painter, view, *style, BackgroundRange());
    DrawKeys(painter, rect);
    DrawRelatedTracks(*painter, view);
    if (HasEditMode(TL_EDIT_TIME_RANGE))
        DrawRangeMarkers(*painter, view, OwnRange());
    DrawCurrentFrameLine(*painter, view, TimelineLibrary::Instance().currentFrameLine);
}

void CTimelineTrackBase::DrawKeys(QPainter*, QRect) {}

void CTimelineTrackBase::DrawPointKeys(QPainter* painter, QRect rect)
{
    ResizeTo(rect.size());
    const auto style = GlyphStyleOf(m_trackType, m_style.get());
    if (!style)
        return;
    const RowView view(*painter, rect, Axis());
    if (view.IsEmpty())
        return;
    const FrameWindow window = GlyphPainter::Window(view, *style, Facts());
    GlyphPainter(*painter, view, *style).DrawList(CollectWindow(*m_keys, Facts(), Scope(), window));
    DrawOwnKeyBars(*painter, view);
}

void CTimelineTrackBase::DrawOwnKeyBars(QPainter& painter, const RowView& view)
{
    if (const auto style = BarStyleOf(m_trackType, m_style.get(), view.row.height()))
        DrawKeyBars(painter, view, *style, *m_keys, Facts());
}

void CTimelineTrackBase::DrawRelatedTracks(QPainter& painter, const RowView& view)
{
    const auto* style = StyleAs<TrackStyle>();
    const auto bars = BarStyleOf(m_trackType, m_style.get(), view.row.height());
    if (!style || !bars || view.IsEmpty())
        return;
    const RelationTable& relations = TimelineLibrary::Instance().relations;
    for (CTimelineTrackBase* source : relations.SourcesOf(m_trackId, RelationTable::kClipBars)) {
        if (!IsAlive(source))
            continue;
        const QColor normal = style->disabled.ToColor();
        const QColor selected = style->disabledSelected.ToColor();
        DrawRelatedBars(painter, view, bars->height,
                        {normal, source->IsActive() ? selected : normal}, source->Keys(),
                        source->Facts());
    }
}

TimeRange CTimelineTrackBase::OwnRange() const
{
    TimeRange range;
    GetRangeFrames(range.lo, range.hi);
    return range;
}

TimeRange CTimelineTrackBase::BackgroundRange() const
{
    const RelationTable& relations = TimelineLibrary::Instance().relations;
    for (const CTimelineTrackBase* source :
         relations.SourcesOf(m_trackId, RelationTable::kSharedTimeRange)) {
        if (!IsAlive(source) || !source->IsActive())
            continue;
        const CTimelineTrackBase* parent = source->GetParentTrack();
        if (parent && IsAlive(parent) && parent->IsActive())
            return source->OwnRange();
    }
    return OwnRange();
}

bool CTimelineTrackBase::ResizeTo(const QSize& wanted)
{
    if (size() == wanted)
        return false;
    resize(wanted);
    return true;
}

DisplayScope CTimelineTrackBase::Scope() const
{
    DisplayScope scope;
    scope.firstVisibleFrame = Axis().PixelToFrame(0);
    scope.lastVisibleFrame = Axis().PixelToFrame(width());
    scope.lastFrame = Axis().frameCount;
    scope.clipSelects = HasEditMode(TL_EDIT_SUB_KEYS);
    return scope;
}

void CTimelineTrackBase::CollectDisplayKeys(KeyVector& out)
{
    out = CountedCopies(CollectAll(*m_keys, Scope()));
}

const KeyFacts& CTimelineTrackBase::Facts()
{
    const int frameCount = Axis().frameCount;
    if (!m_facts.IsCurrent(*m_keys, frameCount))
        m_facts = GatherFacts(*m_keys, m_trackType, frameCount);
    GatherSelection(*m_keys, m_trackType, m_facts);
    return m_facts;
}

void CTimelineTrackBase::NoteTransition(long long frames)
{
    m_facts.longestTransition = std::max(m_facts.longestTransition, frames);
}

int CTimelineTrackBase::HitTestKey(QPoint point)
{
    return KeyHitTest(Axis(), m_trackType, m_style.get(), m_rowHeight)
        .FindKey(*m_keys, Facts(), point);
}

int CTimelineTrackBase::HitTestSubKey(QPoint point, int keyIndex)
{
    if (keyIndex < 0 || static_cast<std::size_t>(keyIndex) >= m_keys->GetSize())
        return -1;
    const CTimelineKey& clip = *m_keys->Keys()[static_cast<std::size_t>(keyIndex)];
    return KeyHitTest(Axis(), m_trackType, m_style.get(), m_rowHeight).FindSubKey(clip, point);
}

int CTimelineTrackBase::HitTestRangeMarker(QPoint point)
{
    if (!HasEditMode(TL_EDIT_TIME_RANGE))
        return kNoMarker;
    return HitRangeMarker(Axis(), OwnRange(), point);
}
