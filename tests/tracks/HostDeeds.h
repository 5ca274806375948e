#pragma once

#include "library/TimelineLibrary.h"
#include "support/HostFixture.h"

#include <initializer_list>
#include <memory>

namespace KestovaTest {

/// What a host may do to the timeline from inside one of its calls.
enum HostDeed
{
    DeleteTheTrack,
    DeleteAllTracks,
    ReleaseTheWindow,
    DeleteTheDock,
    DeleteTheManager,
    HostDeeds
};
constexpr const char* kDeedNames[] = {"deletes the track", "deletes all tracks",
                                      "releases the window", "deletes the dock",
                                      "deletes the manager"};

/// @param tracks the one that the deed is about, then all others.
inline void Do(int deed, HostFixture& fixture, std::initializer_list<CTimelineTrackBase*> tracks)
{
    switch (deed) {
    case DeleteTheTrack:
        fixture.manager->DeleteTrack(*tracks.begin());
        break;
    case DeleteAllTracks:
        for (CTimelineTrackBase* const track : tracks)
            fixture.manager->DeleteTrack(track);
        break;
    case ReleaseTheWindow:
        fixture.manager->ReleaseTimelineWnd();
        break;
    case DeleteTheDock:
        delete fixture.dock;
        fixture.dock = nullptr;
        break;
    default:
        // Not reset(): that calls the destructor with the pointer already null.
        delete fixture.manager.release();
        break;
    }
}

/// Makes again whatever a deed destroyed, and a row in it that takes every gesture; null when the
/// timeline no longer works.
inline CTimelineTrackBase* RowAfterDeed(HostFixture& fixture)
{
    fixture.host.reaction = nullptr;
    fixture.Settle();
    if (!fixture.manager) {
        fixture.manager = std::make_unique<CTimelineManager>(&fixture.mainWindow);
        fixture.manager->SetTimelineWndFactoryBase(&fixture.factory);
        fixture.manager->CreateTimelineManager(&fixture.host, TimelineLibrary::Instance().skinPath);
    }
    if (!fixture.dock) {
        fixture.dock = new QDockWidget(&fixture.mainWindow);
        fixture.mainWindow.addDockWidget(Qt::BottomDockWidgetArea, fixture.dock);
    }
    if (!fixture.manager->CreateTimelineMainWidget(fixture.dock))
        return nullptr;
    fixture.manager->SetFrameCount(100);
    fixture.manager->ShowTimelineWnd(true);
    CTimelineTrackBase* const again = fixture.Root(TL_TRACK_KEY, "Again");
    fixture.SetEditModes(again, {TL_EDIT_MOVE_KEYS, TL_EDIT_COPY});
    fixture.Settle();
    fixture.ForgetCalls();
    return again;
}

} // namespace KestovaTest
