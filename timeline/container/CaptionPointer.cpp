#include "container/CaptionPointer.h"

#include "tracks/CTimelineTrackBase.h"

#include <utility>

namespace {

/// What a button shows in each of its situations, by type. A toggle button keeps on and off apart
/// from whether the pointer is on it, and shows nothing of being pressed.
int AtRest(int type, int state)
{
    if (type == kPushButton)
        return kPushNormal;
    if (type == kToggleButton && state == kToggleOffHovered)
        return kToggleOff;
    if (type == kToggleButton && state == kToggleOnHovered)
        return kToggleOn;
    return state;
}

int Hovered(int type, int state)
{
    if (type == kPushButton)
        return kPushHovered;
    if (type == kToggleButton && state == kToggleOff)
        return kToggleOffHovered;
    if (type == kToggleButton && state == kToggleOn)
        return kToggleOnHovered;
    return state;
}

int Pressed(int type, int state)
{
    return type == kPushButton ? static_cast<int>(kPushPressed) : state;
}

int Clicked(int type, int state)
{
    if (type != kToggleButton)
        return state;
    return state < kToggleOn ? kToggleOn : kToggleOff;
}

/// @return whether the button looks different.
bool Change(CaptionButtonStyle& button, int (*next)(int type, int state))
{
    const int before = std::exchange(button.state, next(button.type, button.state));
    return button.state != before;
}

bool Change(CTimelineTrackBase* track, int index, int (*next)(int type, int state))
{
    CaptionButtonStyle* const button = track ? FindCaptionButton(*track, index) : nullptr;
    return button && Change(*button, next);
}

/// Every button of the track goes back to rest. @return whether one looks different.
bool Rest(CTimelineTrackBase* track)
{
    auto* const style = track ? track->StyleAs<TrackStyle>() : nullptr;
    if (!style)
        return false;
    bool changed = false;
    for (CaptionButtonStyle& button : style->captionButtons)
        changed |= Change(button, AtRest);
    return changed;
}

} // namespace

bool CaptionPointer::MoveTo(QPoint point, const CaptionHit& hit)
{
    m_lastPosition = point;
    bool changed = Leave();
    if (hit.button != kNoCaptionButton) {
        m_hoveredTrack = hit.track;
        changed |= Change(hit.track, hit.button, Hovered);
    }
    return changed;
}

bool CaptionPointer::Leave()
{
    const bool changed = Rest(m_hoveredTrack);
    m_hoveredTrack.clear();
    return changed;
}

void CaptionPointer::Press(const CaptionHit& hit)
{
    m_pressed = {hit.track, hit.button};
    Change(hit.track, hit.button, Pressed);
}

bool CaptionPointer::Release(const CaptionHit& hit)
{
    const Button pressed = std::exchange(m_pressed, Button());
    if (hit.button != kNoCaptionButton && pressed.track == hit.track &&
        pressed.button == hit.button) {
        Change(hit.track, hit.button, Clicked);
        return true;
    }
    Rest(pressed.track);
    return false;
}
