// The container's frame axis: frame count, current frame, time mark, zoom and horizontal view.

#include "container/CTimelineContainer.h"

#include "container/TrackMessageDispatch.h"
#include "library/CallOut.h"
#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

#include <QPointer>

#include <algorithm>

namespace {

FrameAxis& FramesAxis()
{
    return TimelineLibrary::Instance().axis;
}

constexpr int kCentred = 0;

} // namespace

void CTimelineContainer::SetFrameCount(int count)
{
    if (m_scrollTrack) {
        FramesAxis().frameCount = count;
        m_scrollTrack->SyncThumb(false);
        m_scrollTrack->PublishFrameInfo();
    }
    UpdateAndNotify();
}

void CTimelineContainer::SetCurrentFrame(int frame)
{
    if (!m_tickTrack)
        return;
    // The upper bound first: without any frame the current one is 0.
    FrameAxis& axis = FramesAxis();
    const int lastFrame = std::max(0, axis.frameCount) - 1;
    axis.currentFrame = std::max(0, std::min(frame, lastFrame));
    const QPointer<CTimelineContainer> self(this);
    ShowCurrentFrame();
    if (self)
        NotifyTimelineRefreshed();
}

int CTimelineContainer::GetCurrentFrame() const
{
    return m_tickTrack ? FramesAxis().currentFrame : 0;
}

void CTimelineContainer::GotoFrame(int frame)
{
    const QPointer<CTimelineContainer> self(this);
    const CallOut callOut;
    SetCurrentFrame(frame);
    if (!self)
        return;
    if (m_scrollTrack)
        m_scrollTrack->ScrollToFrame(GetCurrentFrame(), kCentred);
    const int current = GetCurrentFrame();
    SendToHost(kHostFrameMoved, nullptr, nullptr, QVariant(current));
    // Both notices name the frame that was gone to, whatever the host does in between.
    if (self)
        SendToHost(kHostFrameSet, nullptr, nullptr, QVariant(current));
}

void CTimelineContainer::SetTimeMarkFrame(int start, int end)
{
    if (!m_tickTrack)
        return;
    m_tickTrack->SetTimeMark(start, end);
    UpdateAndNotify();
}

void CTimelineContainer::GetTimeMarkFrame(int& start, int& end) const
{
    start = m_tickTrack ? m_tickTrack->TimeMarkStart() : 0;
    end = m_tickTrack ? m_tickTrack->TimeMarkEnd() : 1;
}

bool CTimelineContainer::ScrollToFrame(int frame, int align)
{
    return m_scrollTrack && m_scrollTrack->ScrollToFrame(frame, align);
}

bool CTimelineContainer::ScrollToTrack(CTimelineTrackBase*)
{
    return false;
}

void CTimelineContainer::GetScrollInfo(float& left, float& right) const
{
    if (m_scrollTrack)
        m_scrollTrack->GetScrollInfo(left, right);
}

void CTimelineContainer::SetScrollInfo(float left, float right)
{
    if (m_scrollTrack)
        m_scrollTrack->SetScrollInfo(left, right);
}

bool CTimelineContainer::CanDoZoomIn() const
{
    return m_scrollTrack && m_scrollTrack->CanZoomIn();
}
bool CTimelineContainer::CanDoZoomOut() const
{
    return m_scrollTrack && m_scrollTrack->CanZoomOut();
}
bool CTimelineContainer::CanDoZoomAll() const
{
    return m_scrollTrack && m_scrollTrack->CanZoomAll();
}
bool CTimelineContainer::CanDoUnZoom() const
{
    return m_scrollTrack && m_scrollTrack->CanUnZoom();
}

void CTimelineContainer::DoZoomIn()
{
    if (!CanDoZoomIn())
        return;
    m_scrollTrack->ZoomIn();
    m_scrollTrack->ScrollToFrame(GetCurrentFrame(), kCentred);
}

void CTimelineContainer::DoZoomOut()
{
    if (!CanDoZoomOut())
        return;
    m_scrollTrack->ZoomOut();
    m_scrollTrack->ScrollToFrame(GetCurrentFrame(), kCentred);
}

void CTimelineContainer::DoZoomAll()
{
    if (CanDoZoomAll())
        m_scrollTrack->ZoomAll();
}

void CTimelineContainer::DoUnZoom()
{
    if (!CanDoUnZoom())
        return;
    m_scrollTrack->UnZoom();
    m_scrollTrack->ScrollToFrame(GetCurrentFrame(), kCentred);
}
