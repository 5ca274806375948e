#pragma once

#include "Journal.h"
#include "TestTracks.h"
#include "container/CTimelineContainer.h"
#include "model/TimelineKeyValues.h"
#include "support/Pointer.h"

namespace KestovaTest {

// Ids of the caption buttons of the default skin.
constexpr int kHideId = 1; ///< a toggle button, as the next one
constexpr int kLockId = 2;
constexpr int kAddId = 3; ///< a push button

/// A timeline with two rows that have a push button and two toggle buttons in their captions, one
/// row of clips under another root and a lips row; and a hand on the mouse.
struct CaptionScene
{
    CaptionScene()
    {
        body = fixture.Root(TL_TRACK_KEY, "Body");
        arm = fixture.Child(body, TL_TRACK_KEY, "Arm");
        leg = fixture.Child(body, TL_TRACK_KEY, "Leg");
        face = fixture.Root(TL_TRACK_KEY, "Face");
        clips = fixture.Child(face, TL_TRACK_CLIP, "Clips");
        lips = fixture.Child(face, TL_TRACK_VISEME_KEY, "Lips");
        for (CTimelineTrackBase* const track : {arm, leg, clips, lips})
            fixture.AddKeys(track, {10, 20, 30});
        fixture.Settle();
        // The pointer starts outside of the timeline. Two places, since a move to where the scene
        // before left it is none.
        for (const int place : {2, 1})
            pointer.MoveTo(&fixture.mainWindow, QPoint(place, place));
        fixture.ForgetCalls();
    }

    CTimelineContainer& Container() const { return *fixture.Container(); }

    /// A place in the row's caption where no button is, and one on a button of its.
    static QPoint CaptionOf(const CTimelineTrackBase* track) { return {50, track->y() + 8}; }
    static QPoint ButtonOf(CTimelineTrackBase* track, int id)
    {
        for (const CaptionButtonStyle& button : track->StyleAs<TrackStyle>()->captionButtons) {
            if (button.buttonId == id)
                return {button.position + 5, track->y() + track->height() / 2};
        }
        qFatal("the row has no such button");
    }

    int StateOf(CTimelineTrackBase* track, int id) const
    {
        int state = -1;
        fixture.manager->GetTrackCaptionBtnState(track, id, state);
        return state;
    }
    /// Of the push button and the two toggle buttons, in this order.
    QList<int> StatesOf(CTimelineTrackBase* track) const
    {
        return {StateOf(track, kAddId), StateOf(track, kHideId), StateOf(track, kLockId)};
    }

    void Select(CTimelineTrackBase* track, int index) const
    {
        track->Keys().SetSelectionByIndex(index, index, true, TL_KEY_ANY_KIND);
    }
    static int Selected(CTimelineTrackBase* track)
    {
        return static_cast<int>(track->Keys().SelGetSize());
    }

    /// What the host hears of a click on a button of the row's.
    QString Clicked(CTimelineTrackBase* track, int id) const
    {
        const QPoint point = Container().mapToGlobal(ButtonOf(track, id));
        return QString("caption button %1 %2 (%3,%4)")
            .arg(track->GetCaption())
            .arg(id)
            .arg(point.x())
            .arg(point.y());
    }

    HostFixture fixture;
    CTimelineTrackBase* body;
    CTimelineTrackBase* arm;
    CTimelineTrackBase* leg;
    CTimelineTrackBase* face;
    CTimelineTrackBase* clips;
    CTimelineTrackBase* lips;
    Pointer pointer{&fixture.mainWindow};
};

} // namespace KestovaTest
