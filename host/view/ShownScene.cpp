#include "ShownScene.h"

#include "CaptionButtons.h"
#include "SceneTracks.h"
#include "TimelinePane.h"
#include "TimelineWindowFactory.h"
#include "document/EditSession.h"

namespace host {

bool ShownScene::Show()
{
    ShowTimes();
    if (!ShowRows())
        return false;
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
    ShowTimes();
    m_subjects.tracks.Update(m_subjects.session.Current());
    m_subjects.captionButtons.ShowAll();
    ShowArrows();
    manager.SetCurrentFrame(manager.GetCurrentFrame()); // and its display
    if (!manager.GetActiveChildTrack())
        ActivateLips();
}

void ShownScene::ShowArrows()
{
    const TimelineWindow* const window = m_subjects.factory.Window();
    if (window && window->Pane())
        m_subjects.switchRows.ShowArrows(window->Pane()->RowWidth());
}

void ShownScene::ShowTimes()
{
    const Scene& scene = m_subjects.session.Current();
    m_subjects.manager.SetFrameCount(scene.frameCount);
    m_subjects.manager.SetTimeMarkFrame(scene.timeMark.start, scene.timeMark.end);
}

void ShownScene::ActivateLips()
{
    if (CTimelineTrackBase* const lips = m_subjects.manager.GetLipsTrack())
        m_subjects.manager.SetActiveChildTrack(lips);
}

} // namespace host
