#include "CTimelineWndBase.h"

#include "container/CTimelineContainer.h"
#include "container/KeyNavigation.h"
#include "library/CallOut.h"

#include <new>

CTimelineWndBase::CTimelineWndBase() : m_container(new (std::nothrow) CTimelineContainer(this)) {}

CTimelineWndBase::~CTimelineWndBase()
{
    if (!m_container)
        return;
    // The derived window is gone: its operations must not be called any more. And the timeline may
    // have frames on the stack, when the window is released from one of its callbacks.
    CTimelineContainer* const container = m_container;
    container->Disconnect();
    m_container = nullptr;
    if (CallOut::IsUnderWay()) {
        container->hide();
        container->setParent(nullptr);
    }
    CallOut::Delete(container);
}

bool CTimelineWndBase::CanDoZoomIn()
{
    return m_container && m_container->CanDoZoomIn();
}
bool CTimelineWndBase::CanDoZoomOut()
{
    return m_container && m_container->CanDoZoomOut();
}
bool CTimelineWndBase::CanDoZoomAll()
{
    return m_container && m_container->CanDoZoomAll();
}
bool CTimelineWndBase::CanDoUnZoom()
{
    return m_container && m_container->CanDoUnZoom();
}

void CTimelineWndBase::DoZoomIn()
{
    if (m_container)
        m_container->DoZoomIn();
}

void CTimelineWndBase::DoZoomOut()
{
    if (m_container)
        m_container->DoZoomOut();
}

void CTimelineWndBase::DoZoomAll()
{
    if (m_container)
        m_container->DoZoomAll();
}

void CTimelineWndBase::DoUnZoom()
{
    if (m_container)
        m_container->DoUnZoom();
}

bool CTimelineWndBase::CanDoSelectNextKey()
{
    return m_container && CanSelectNeighbourKey(*m_container, nullptr);
}

bool CTimelineWndBase::CanDoSelectPreviousKey()
{
    return m_container && CanSelectNeighbourKey(*m_container, nullptr);
}

void CTimelineWndBase::DoSelectNextKey()
{
    if (m_container)
        SelectNextKey(*m_container, nullptr);
}

void CTimelineWndBase::DoSelectPreviousKey()
{
    if (m_container)
        SelectPreviousKey(*m_container, nullptr);
}

void CTimelineWndBase::GotoFrame(int frame)
{
    if (m_container)
        m_container->GotoFrame(frame);
}

int CTimelineWndBase::GetTrackHeight() const
{
    return m_container ? m_container->GetTrackHeight() : 0;
}

int CTimelineWndBase::GetWndMinRestraint() const
{
    return m_container ? m_container->GetWndMinRestraint() : 0;
}

int CTimelineWndBase::GetWndMinHeight()
{
    return m_container ? m_container->GetWndMinHeight() : 0;
}

int CTimelineWndBase::GetWndMaxHeight(bool withWave)
{
    return m_container ? m_container->GetWndMaxHeight(withWave) : 0;
}

int CTimelineWndBase::GetWndNeedHeight()
{
    return m_container ? m_container->GetWndNeedHeight() : 0;
}

void CTimelineWndBase::GetWndCurrSize(int& width, int& height)
{
    width = 0;
    height = 0;
    if (m_container)
        m_container->GetWndCurrSize(width, height);
}

bool CTimelineWndBase::WndSizeChanged(int width, int height)
{
    return !m_container || m_container->WndSizeChanged(width, height);
}

bool CTimelineWndBase::IsWndVScrollable()
{
    return false;
}
bool CTimelineWndBase::ProcessScrollEventBase(QWheelEvent*)
{
    return false;
}

void CTimelineWndBase::SetLoopSpeedState(bool speed)
{
    if (m_container)
        m_container->SetLoopSpeedState(speed);
}
