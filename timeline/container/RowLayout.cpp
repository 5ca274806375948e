#include "container/RowLayout.h"

#include "container/TrackTree.h"
#include "skin/ImageTables.h"
#include "tracks/CTimelineTrackBase.h"

#include <algorithm>

namespace {

// A container of 42 pixels or less says nothing about the wave row; above, it gets at least 54
// pixels.
constexpr int kVariableRowThreshold = 42;
constexpr int kVariableRowFloor = 54;
constexpr int kVariableRowFactor = 3;

bool IsWave(const CTimelineTrackBase& track)
{
    return track.GetTrackType() == TL_TRACK_WAVE;
}

} // namespace

QSize RowLayout::ScrollCaptionSize() const
{
    return m_images.Picture(kCaptionPictures, kScrollCaption).size();
}

QSize RowLayout::TickCaptionSize() const
{
    return m_images.Picture(kCaptionPictures, kTickCaption).size();
}

QSize RowLayout::CaptionSize(const CTimelineTrackBase& track) const
{
    const auto* style = track.StyleAs<TrackStyle>();
    const int bitmapId = style ? style->caption.bitmapId : 0;
    return m_images.Picture(kCaptionPictures, RowCaptionIndex(bitmapId)).size();
}

int RowLayout::TrackHeight() const
{
    return m_images.Picture(kCaptionPictures, kFirstRowCaption).height();
}

int RowLayout::FixedHeight() const
{
    return ScrollCaptionSize().height() + TickCaptionSize().height();
}

int RowLayout::RowHeight(const CTimelineTrackBase& track) const
{
    return IsWave(track) ? m_variableRowHeight : CaptionSize(track).height();
}

int RowLayout::FixedRowsHeight(const TrackTree& tree) const
{
    int height = FixedHeight();
    for (const CTimelineTrackBase* track : tree.Rows()) {
        if (!IsWave(*track))
            height += CaptionSize(*track).height();
    }
    return height;
}

void RowLayout::FitVariableRow(const TrackTree& tree, int height)
{
    if (height <= kVariableRowThreshold)
        return;
    const int left = height - FixedRowsHeight(tree);
    m_variableRowHeight =
        left > m_variableRowMaximum ? m_variableRowMaximum : std::max(left, kVariableRowFloor);
}

int RowLayout::MinimumHeight(const TrackTree& tree) const
{
    int height = FixedHeight();
    for (const auto& record : tree.Records()) {
        const CTimelineTrackBase& root = *record->root;
        if (root.GetTrackType() == TL_TRACK_SWITCH && root.testAttribute(Qt::WA_WState_Visible))
            height += CaptionSize(root).height();
    }
    return height;
}

int RowLayout::MaximumHeight(const TrackTree& tree, bool withWave)
{
    int height = FixedHeight();
    for (const CTimelineTrackBase* track : tree.Rows()) {
        int rowHeight = CaptionSize(*track).height();
        if (withWave && IsWave(*track)) {
            rowHeight *= kVariableRowFactor;
            m_variableRowMaximum = rowHeight;
        }
        height += rowHeight;
    }
    return height;
}

int RowLayout::NeededHeight(const TrackTree& tree) const
{
    int height = FixedHeight();
    for (const CTimelineTrackBase* track : tree.Rows()) {
        const int pictureHeight = CaptionSize(*track).height();
        height += IsWave(*track) ? std::max(pictureHeight, m_variableRowHeight) : pictureHeight;
    }
    return height;
}

int RowLayout::TotalHeight(const TrackTree& tree) const
{
    int height = FixedHeight();
    for (const CTimelineTrackBase* track : tree.Rows())
        height += RowHeight(*track);
    return height;
}

RowLayout::Plan RowLayout::Compute(const TrackTree& tree, QSize size, bool fit) const
{
    const QSize scrollCaption = ScrollCaptionSize();
    const QSize tickCaption = TickCaptionSize();
    const int total = TotalHeight(tree);

    Plan plan;
    plan.height = !fit || size.height() > total ? total : size.height() - 1;
    plan.scrollRect = QRect(scrollCaption.width(), plan.height - scrollCaption.height(),
                            size.width() - scrollCaption.width(), scrollCaption.height());
    plan.tickRect =
        QRect(QPoint(tickCaption.width(), 0), QPoint(size.width() - 1, tickCaption.height() - 1));
    plan.captionRect = QRect(QPoint(0, 0), QPoint(tickCaption.width() - 1, plan.height - 1));

    int y = tickCaption.height();
    for (CTimelineTrackBase* track : tree.Rows()) {
        const int rowHeight = RowHeight(*track);
        const QRect rect(QPoint(CaptionSize(*track).width(), y),
                         QPoint(size.width() - 1, y + rowHeight - 1));
        plan.rows.push_back({track, rect, y <= plan.height});
        y += rowHeight;
    }
    return plan;
}
