#include "container/PaintedState.h"

#include "container/CTimelineContainer.h"
#include "library/TimelineLibrary.h"
#include "model/KeyArrayRevision.h"
#include "skin/TrackStyles.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackSwitch.h"
#include "tracks/CTimelineTrackTick.h"

#include <QHash>

#include <tuple>

namespace {

unsigned int DigestOfSwitches(const CTimelineTrackBase& track)
{
    if (track.GetTrackType() != TL_TRACK_SWITCH)
        return 0;
    const auto* const row = qobject_cast<const CTimelineTrackSwitch*>(&track);
    if (!row)
        return 0;
    uint digest = qHash(row->ScrollOffset(), row->AreArrowsShown() ? 1 : 0);
    for (const _tmpTLSwitchBtnData& button : row->GetButtons())
        digest = qHash(button.text, digest) * 31 + qHash(button.state);
    return digest;
}

unsigned int DigestOfButtons(const CTimelineTrackBase& track)
{
    const auto* const style = track.StyleAs<TrackStyle>();
    if (!style)
        return 0;
    uint digest = 0;
    for (const CaptionButtonStyle& button : style->captionButtons)
        digest = digest * 31 + qHash(button.state);
    return digest;
}

auto Tied(const CFrameInfo& info)
{
    return std::tie(info.pixelsPerFrame, info.framesPerPixel, info.step1, info.step2, info.step3,
                    info.step4);
}

} // namespace

PaintedState::Row::Row(const CTimelineTrackBase& row)
    : track(&row), caption(row.GetCaption()), rangeStart(row.RangeStart()),
      rangeEnd(row.RangeEnd()), height(row.height()),
      visible(row.testAttribute(Qt::WA_WState_Visible)), active(row.IsActive()),
      showsRange(row.HasEditMode(TL_EDIT_TIME_RANGE)), switches(DigestOfSwitches(row)),
      buttons(DigestOfButtons(row))
{
}

bool PaintedState::Row::operator==(const Row& other) const
{
    const auto tied = [](const Row& row) {
        return std::tie(row.track, row.rangeStart, row.rangeEnd, row.height, row.visible,
                        row.active, row.showsRange, row.switches, row.buttons, row.caption);
    };
    return tied(*this) == tied(other);
}

PaintedState::PaintedState(const CTimelineContainer& container)
    : m_size(container.size()), m_line(TimelineLibrary::Instance().currentFrameLine.rgba()),
      m_pictures(
          TimelineLibrary::Instance().images.Picture(kCaptionPictures, kTickCaption).cacheKey()),
      m_relations(TimelineLibrary::Instance().relations.Generation()), m_keys(KeyArrayRevision())
{
    const FrameAxis& axis = TimelineLibrary::Instance().axis;
    m_frameCount = axis.frameCount;
    m_scrollX = axis.scrollX;
    m_info = axis.info;
    container.GetTimeMarkFrame(m_timeMark[0], m_timeMark[1]);
    if (const CTimelineTrackHScroll* const scroll = container.ScrollTrack()) {
        m_thumb[0] = scroll->GetThumb().left;
        m_thumb[1] = scroll->GetThumb().right;
    }
    for (const auto& record : container.Tree().Records()) {
        m_rows.emplace_back(*record->root);
        for (const CTimelineTrackBase* const child : record->children)
            m_rows.emplace_back(*child);
    }
}

bool PaintedState::operator==(const PaintedState& other) const
{
    const auto tied = [](const PaintedState& state) {
        return std::tie(state.m_size, state.m_frameCount, state.m_scrollX, state.m_timeMark[0],
                        state.m_timeMark[1], state.m_thumb[0], state.m_thumb[1], state.m_line,
                        state.m_pictures, state.m_relations, state.m_keys, state.m_rows);
    };
    return tied(*this) == tied(other) && Tied(m_info) == Tied(other.m_info);
}
