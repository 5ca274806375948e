#pragma once

#include "library/TimelineLibrary.h"
#include "support/HostFixture.h"
#include "tracks/CTimelineTrackBase.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace KestovaTest {

/// What the host and its window heard, in one list and in order; the window's lines begin with
/// "window". It takes the place of their reactions while it lives.
class Journal
{
public:
    explicit Journal(HostFixture& fixture) : m_fixture(fixture)
    {
        fixture.host.reaction = [this](const QString& line) { Add(line); };
        fixture.Window().reaction = [this](const QString& line) { Add("window " + line); };
    }
    ~Journal()
    {
        m_fixture.host.reaction = nullptr;
        if (m_fixture.factory.window)
            m_fixture.factory.window->reaction = nullptr;
    }
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    /// What was heard since it was last asked.
    QStringList Take() { return std::exchange(m_lines, {}); }

    /// Called after each line was written: room for a host that acts.
    std::function<void(const QString&)> reaction;

private:
    void Add(const QString& line)
    {
        m_lines << line;
        if (const auto act = reaction)
            act(line);
    }

    HostFixture& m_fixture;
    QStringList m_lines;
};

/// The worst that a host may do in a callback.
enum HostDeed
{
    DeleteTheTrack,
    DeleteAllTracks,
    HideTheTrack,
    ReloadTheStyle,
    ReplaceTheKeys,
    ReleaseTheWindow,
    DeleteTheDock,
    DeleteTheManager,
    HostDeedCount
};
constexpr const char* kHostDeedNames[] = {
    "delete the track", "delete all tracks",  "hide the track",  "reload the style",
    "replace the keys", "release the window", "delete the dock", "delete the manager"};

/// Does it; @p style is the style that the track is given anew.
inline void Do(HostDeed deed, HostFixture& fixture, CTimelineTrackBase* track,
               std::initializer_list<CTimelineTrackBase*> others, int style = 2)
{
    switch (deed) {
    case DeleteTheTrack:
        fixture.manager->DeleteTrack(track);
        return;
    case DeleteAllTracks:
        fixture.manager->DeleteTrack(track);
        for (CTimelineTrackBase* const other : others)
            fixture.manager->DeleteTrack(other);
        return;
    case HideTheTrack:
        fixture.manager->HideChildTrack(track, true);
        return;
    case ReloadTheStyle:
        track->LoadStyle(style);
        return;
    case ReplaceTheKeys:
        track->Keys().RemoveAll();
        fixture.AddKeys(track, {77});
        return;
    case ReleaseTheWindow:
        fixture.manager->ReleaseTimelineWnd();
        return;
    case DeleteTheDock:
        delete std::exchange(fixture.dock, nullptr);
        return;
    default:
        // Not reset(): that calls the destructor with the pointer already null, which a host's own
        // operations would meet.
        delete fixture.manager.release();
    }
}

/// Whether the timeline works: a new track, on a new window, dock and manager where they are gone,
/// can be shown and seen.
inline bool WorksAgain(HostFixture& fixture)
{
    fixture.Settle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (!fixture.manager) {
        fixture.manager = std::make_unique<CTimelineManager>(&fixture.mainWindow);
        fixture.manager->SetTimelineWndFactoryBase(&fixture.factory);
        fixture.manager->CreateTimelineManager(&fixture.host, TimelineLibrary::Instance().skinPath);
    }
    if (!fixture.dock) {
        fixture.dock = new QDockWidget(&fixture.mainWindow);
        fixture.mainWindow.addDockWidget(Qt::BottomDockWidgetArea, fixture.dock);
    }
    if (!fixture.Container() && !fixture.manager->CreateTimelineMainWidget(fixture.dock))
        return false;
    if (!fixture.manager->ShowTimelineWnd(true))
        return false;
    CTimelineTrackBase* const again = fixture.Root(TL_TRACK_KEY, "Again");
    fixture.Settle();
    return fixture.manager->IsTrackExist(again) && again->isVisible();
}

} // namespace KestovaTest
