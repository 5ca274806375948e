#include "ShownScene.h"

#include "CaptionButtons.h"
#include "KeptTimeline.h"
#include "SceneTracks.h"
#include "TimelinePane.h"
#include "TimelineWindowFactory.h"
#include "document/EditSession.h"

namespace host {

bool ShownScene::Show()
{
    CTimelineManager& manager = m_subjects.manager;
    ShowTimes();
    if (!ShowRows())
        return false;
    manager.SetCurrentFrame(manager.GetCurrentFrame()); // the scene may end before it
    ActivateLips();
    return true;
}

bool ShownScene::ShowRows()
{
    if (!m_subjects.tracks.Show(m_subjects.session.Current()))
        return false;
    m_subjects.captionButtons.ShowAll();
    ShowArrows();
    return true;
}

void ShownScene::Update()
{
    CTimelineManager& manager = m_subjects.manager;
    const bool isOtherTime = ShowTimes();
    const Scene& scene = m_subjects.session.Current();
    SceneTracks& tracks = m_subjects.tracks;
    if (tracks.HasRowsOf(scene)) {
        tracks.Update(scene);
    } else { // all are made anew
        const KeptTimeline kept(manager, tracks, scene);
        tracks.Update(scene);
        kept.Restore(manager, tracks, scene);
    }
    m_subjects.captionButtons.ShowAll();
    ShowArrows();
    if (isOtherTime)                                        // paints all at once
        manager.SetCurrentFrame(manager.GetCurrentFrame()); // and its display
    if (!manager.GetActiveRootTrack())
        ActivateLips();
}

void ShownScene::ShowArrows()
{
    const TimelineWindow* const window = m_subjects.factory.Window();
    if (window && window->Pane())
        m_subjects.switchRows.ShowArrows(window->Pane()->RowWidth());
}

void ShownScene::LeaveOtherRoot(CTimelineTrackBase* root, CTimelineTrackBase* child)
{
    const SceneTracks& tracks = m_subjects.tracks;
    const SceneTrack* const row = m_subjects.session.Current().FindTrack(tracks.IdOf(child));
    if (root && row && row->parent != kNoTrack && row->parent != tracks.IdOf(root))
        m_subjects.manager.SetActiveRootTrack(nullptr);
}

/// Whether frames are counted or told in another way than before.
bool ShownScene::ShowTimes()
{
    const Scene& scene = m_subjects.session.Current();
    const bool isOther = scene.frameRate != m_frameRate || scene.frameCount != m_frameCount;
    m_frameRate = scene.frameRate;
    m_frameCount = scene.frameCount;
    m_subjects.manager.SetFrameCount(scene.frameCount);
    m_subjects.manager.SetTimeMarkFrame(scene.timeMark.start, scene.timeMark.end);
    return isOther;
}

void ShownScene::ActivateLips()
{
    if (CTimelineTrackBase* const lips = m_subjects.manager.GetLipsTrack())
        m_subjects.manager.SetActiveChildTrack(lips);
}

} // namespace host
