#pragma once

#include "SwitchRows.h"

namespace host {

class CaptionButtons;
class TimelineWindowFactory;

/// Keeps the timeline in line with the session's scene where it has other rows, another length or
/// another state of its rows; keys alone are shown by who changes them.
class ShownScene
{
public:
    /// All are kept and outlive this object.
    struct Subjects
    {
        CTimelineManager& manager;
        SceneTracks& tracks;
        EditSession& session;
        CaptionButtons& captionButtons;
        SwitchRows& switchRows;
        const TimelineWindowFactory& factory;
    };
    explicit ShownScene(const Subjects& subjects) : m_subjects(subjects) {}

    /// Makes all rows. False when the skin lacks a style that the scene needs.
    bool Show();
    /// The same in a timeline that was made anew and has its times already.
    bool ShowRows();
    /// Follows a scene that may have other rows or another length.
    void Update();
    /// Gives the rows of buttons the arrows that they need at the width they have.
    void ShowArrows();

    /// The user has gone to another row. A root row without rows of its own stays active then, when
    /// the row is of another root: leaves it.
    void LeaveOtherRoot(CTimelineTrackBase* root, CTimelineTrackBase* child);

private:
    bool ShowTimes();
    void ActivateLips();

    Subjects m_subjects;
    int m_frameRate = 0; ///< that frames were last told in, and of how many
    int m_frameCount = 0;
};

} // namespace host
