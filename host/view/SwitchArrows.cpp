#include "SwitchArrows.h"

#include "SceneTracks.h"

namespace host {

namespace {

// Pixels, as the pictures and the skins that come with the program have them.
constexpr int kCaptionWidth = 171;
constexpr int kArrowWidth = 7;
constexpr int kWideButton = 110;
constexpr int kNarrowButton = 84;
constexpr int kGap = 4;
constexpr int kNarrowStyle = 2;

int WidthOfButtons(const SceneTrack& row)
{
    const int button = row.styleNumber == kNarrowStyle ? kNarrowButton : kWideButton;
    return row.buttons.size() * (button + kGap) - kGap + 2 * kArrowWidth;
}

} // namespace

void ShowSwitchArrows(CTimelineManager& manager, const SceneTracks& tracks, const Scene& scene,
                      int width)
{
    bool isChanged = false;
    for (const SceneTrack& row : scene.tracks) {
        CTimelineTrackBase* const track = tracks.TrackOf(row.id);
        bool isShown = false;
        if (!manager.GetTrackSwitchScrollState(track, isShown))
            continue;
        const bool isNeeded = WidthOfButtons(row) > width - kCaptionWidth;
        manager.SetTrackSwitchScrollState(track, isNeeded);
        isChanged = isChanged || isNeeded != isShown;
    }
    if (isChanged)
        manager.InvalidateTimeline();
}

} // namespace host
