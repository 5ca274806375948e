#include "container/CaptionHitTest.h"

#include "container/CTimelineContainer.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

#include <algorithm>

namespace {

/// Buttons go by their ids: of several with one id the first is meant.
int IndexOfId(const std::vector<CaptionButtonStyle>& buttons, int id)
{
    const auto found =
        std::find_if(buttons.begin(), buttons.end(),
                     [id](const CaptionButtonStyle& each) { return each.buttonId == id; });
    return static_cast<int>(found - buttons.begin());
}

CaptionHit HitTestButtons(const CaptionColumn& column, CTimelineTrackBase& track, int y, int h,
                          QPoint point)
{
    CaptionHit hit;
    hit.track = &track;
    const auto* const style = track.StyleAs<TrackStyle>();
    if (!style)
        return hit;
    for (const CaptionButtonStyle& button : style->captionButtons) {
        const QRect rect = column.ButtonHitRect(button, y, h);
        if (!rect.contains(point))
            continue;
        if (button.buttonId != kNoCaptionButton) {
            hit.button = IndexOfId(style->captionButtons, button.buttonId);
            hit.buttonRect = rect;
        }
        break;
    }
    return hit;
}

} // namespace

CaptionHit HitTestCaption(const CTimelineContainer& container, QPoint point)
{
    CaptionHit hit;
    if (!container.ScrollTrack() || !container.TickTrack())
        return hit;
    const RowLayout& layout = container.Rows();
    if (QRect(QPoint(), layout.TickCaptionSize()).contains(point)) {
        hit.track = container.TickTrack();
        return hit;
    }
    int y = layout.TickCaptionSize().height();
    for (CTimelineTrackBase* const track : container.Tree().Rows()) {
        const int h = layout.RowHeight(*track);
        if (QRect(0, y, layout.CaptionSize(*track).width(), h).contains(point))
            return HitTestButtons(container.Captions(), *track, y, h, point);
        y += h;
    }
    if (QRect(QPoint(0, y), layout.ScrollCaptionSize()).contains(point))
        hit.track = container.ScrollTrack();
    return hit;
}

CaptionButtonStyle* FindCaptionButton(CTimelineTrackBase& track, int button)
{
    auto* const style = track.StyleAs<TrackStyle>();
    if (!style || button < 0 || static_cast<std::size_t>(button) >= style->captionButtons.size())
        return nullptr;
    return &style->captionButtons[static_cast<std::size_t>(button)];
}
