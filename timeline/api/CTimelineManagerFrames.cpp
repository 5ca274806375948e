// The manager's frames and view.

#include "CTimelineManager.h"

#include "CTimelineWndBase.h"
#include "ManagerSideState.h"
#include "container/CTimelineContainer.h"

#include <algorithm>
#include <limits>

/// The lower bound before the upper one: without any frame every frame becomes -1.
int CTimelineManager::ClampedFrame(int frame) const
{
    const long long last = m_frameCount - 1LL;
    return static_cast<int>(std::max<long long>(std::min<long long>(std::max(frame, 0), last),
                                                std::numeric_limits<int>::min()));
}

void CTimelineManager::SetFrameCount(int count)
{
    m_frameCount = count;
    if (CTimelineContainer* const container = Container())
        container->SetFrameCount(count);
}

int CTimelineManager::GetFrameCount()
{
    return m_frameCount;
}

void CTimelineManager::SetCurrentFrame(int frame)
{
    m_currentFrame = ClampedFrame(frame);
    const int current = m_currentFrame;
    const auto alive = ManagerSideState::LifeOf(this);
    if (CTimelineContainer* const container = Container())
        container->SetCurrentFrame(current);
    if (*alive && m_window)
        m_window->OnCurrentFrameChanged(current);
}

int CTimelineManager::GetCurrentFrame()
{
    const CTimelineContainer* const container = Container();
    return container ? container->GetCurrentFrame() : 0;
}

void CTimelineManager::SetTimeMarkFrame(int start, int end)
{
    m_timeMarkStart = ClampedFrame(start);
    m_timeMarkEnd = ClampedFrame(end);
    if (CTimelineContainer* const container = Container())
        container->SetTimeMarkFrame(m_timeMarkStart, m_timeMarkEnd);
}

void CTimelineManager::GetTimeMarkFrame(int& start, int& end)
{
    start = 0;
    end = 1;
    if (const CTimelineContainer* const container = Container())
        container->GetTimeMarkFrame(start, end);
}

bool CTimelineManager::ScrollToFrame(int frame, int align)
{
    CTimelineContainer* const container = Container();
    return container && container->ScrollToFrame(frame, align);
}

bool CTimelineManager::ScrollToTrack(CTimelineTrackBase* track)
{
    CTimelineContainer* const container = Container();
    return container && container->ScrollToTrack(track);
}

void CTimelineManager::GetScrollInfo(float& left, float& right)
{
    if (const CTimelineContainer* const container = Container())
        container->GetScrollInfo(left, right);
}

void CTimelineManager::SetScrollInfo(float left, float right)
{
    if (CTimelineContainer* const container = Container())
        container->SetScrollInfo(left, right);
}
