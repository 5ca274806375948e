#pragma once

#include "document/EditSession.h"
#include "document/RowStates.h"

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QHash>

#include <functional>

namespace host {

class SceneTracks;

/// The numbers that the skins give the buttons of captions.
constexpr int kMuteButton = 1;
constexpr int kLockButton = 2;
constexpr int kAddKeyButton = 3;
constexpr int kMenuButton = 4;

/// What such a button is called: "Mute"; empty for another number.
QString NameOfCaptionButton(int button);

/// The state of rows on the timeline: muted, soloed and locked. The scene holds it; the captions'
/// toggle buttons, a mark before the names of soloed rows and what a locked row lets the user do
/// follow every change of it, whoever made it.
class CaptionButtons : public QObject
{
    Q_OBJECT
public:
    /// All are kept and outlive this object.
    CaptionButtons(CTimelineManager& manager, const SceneTracks& tracks, EditSession& session);

    /// The timeline's tracks were made anew, or may show other states: shows the states of all.
    void ShowAll();

    /// A button of a caption was clicked, by its number in the skin. False when it is no toggle.
    bool Click(CTimelineTrackBase* track, int button);
    /// Switches the state over, as an edit of its own; nothing for a row that has none.
    void Toggle(CTimelineTrackBase* track, RowState state);
    bool Has(CTimelineTrackBase* track, RowState state) const;
    /// Whether rows of this kind have the states: all but those of buttons.
    bool Concerns(CTimelineTrackBase* track) const;

private:
    void FollowScene();
    void Show(const SceneTrack& row);
    const SceneTrack* RowOf(CTimelineTrackBase* track) const;

    CTimelineManager& m_manager;
    const SceneTracks& m_tracks;
    EditSession& m_session;
    QHash<TrackId, int> m_shown; ///< the states that the timeline shows, a bit for each
};

} // namespace host
