#pragma once

#include "support/HostFixture.h"

namespace KestovaTest {

/// A timeline of a root with two rows of clips, of which the first is active.
class DropScene
{
public:
    HostFixture fixture;
    CTimelineTrackBase* body;
    CTimelineTrackBase* arm;
    CTimelineTrackBase* leg;

    DropScene()
        : body(fixture.Root(TL_TRACK_CLIP, "Body")), arm(fixture.Child(body, TL_TRACK_CLIP, "Arm")),
          leg(fixture.Child(body, TL_TRACK_CLIP, "Leg"))
    {
        fixture.Settle();
        fixture.manager->SetActiveChildTrack(arm);
        fixture.ForgetCalls();
    }

    CTimelineManager& Manager() { return *fixture.manager; }
    /// Only the filter at @p index is on.
    void SetFilter(int index)
    {
        Manager().SetEnableDragEnterFiletype(index == 0, index == 1, index == 2, index == 3,
                                             index == 4, index == 5);
    }
    QStringList Calls() { return fixture.host.TakeCalls(); }
};

} // namespace KestovaTest
