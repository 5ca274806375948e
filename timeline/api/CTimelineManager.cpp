// The manager's life, its window, and the road from the timeline to the host. Operations on tracks
// stand in CTimelineManagerTracks.cpp, frames and view in CTimelineManagerFrames.cpp.

#include "CTimelineManager.h"

#include "CMyContainerInterface.h"
#include "CTimelineManagerInterface.h"
#include "CTimelineWndBase.h"
#include "CTimelineWndFactoryBase.h"
#include "ManagerSideState.h"
#include "container/CTimelineContainer.h"
#include "library/CallOut.h"
#include "library/TimelineLibrary.h"
#include "tracks/CTimelineTrackBase.h"

#include <QDockWidget>
#include <QPoint>
#include <QPointer>

#include <algorithm>

CTimelineManager::CTimelineManager(QWidget* parent)
    : m_parent(parent), m_window(nullptr), m_factory(nullptr), m_hostInterface(nullptr),
      m_containerInterface(nullptr), m_frameCount(0), m_currentFrame(0), m_timeMarkStart(0),
      m_timeMarkEnd(0)
{
    TimelineLibrary::Instance().images.Load();
}

CTimelineManager::~CTimelineManager()
{
    DeleteAllTrack();
    ReleaseWindow();
    ManagerSideState::Forget(this);
    TimelineLibrary::Instance().images.Free();
}

CTimelineContainer* CTimelineManager::Container() const
{
    return m_window ? m_window->GetContainer() : nullptr;
}

void CTimelineManager::SetTimelineWndFactoryBase(CTimelineWndFactoryBase* factory)
{
    m_factory = factory;
}

bool CTimelineManager::CreateTimelineManager(CTimelineManagerInterface* hostInterface,
                                             std::wstring skinPath)
{
    TimelineLibrary::Instance().skinPath = std::move(skinPath);
    if (!m_hostInterface)
        m_hostInterface = hostInterface;
    m_containerInterface = ManagerSideState::AddInterface(this);
    return m_containerInterface != nullptr;
}

bool CTimelineManager::CreateTimelineMainWidget(QDockWidget* dock)
{
    if (!m_factory)
        return false;
    ReleaseWindow();
    m_window = m_factory->CreateTimelineWnd(dock);
    if (!m_window)
        return false;
    QWidget* const widget = m_window->GetWidget();
    if (dock && widget)
        dock->setWidget(widget);
    CTimelineContainer* const container = m_window->CreateWnd() ? Container() : nullptr;
    if (container) {
        container->SetOwnerInterface(m_containerInterface);
        QRect geometry;
        m_window->GetInitialGeometry(geometry);
        if (container->Create(m_window->GetWidget(), geometry)) {
            m_window->OnAfterCreate();
            return true;
        }
    }
    ReleaseWindow();
    return false;
}

bool CTimelineManager::ShowTimelineWnd(bool show)
{
    if (!m_window)
        return false;
    CTimelineContainer* const container = Container();
    if (container)
        container->SetFrameCount(m_frameCount);
    m_currentFrame = ClampedFrame(m_currentFrame);
    if (container)
        container->SetCurrentFrame(m_currentFrame);
    m_window->OnCurrentFrameChanged(m_currentFrame);
    m_timeMarkStart = ClampedFrame(m_timeMarkStart);
    m_timeMarkEnd = ClampedFrame(m_timeMarkEnd);
    if (container)
        container->SetTimeMarkFrame(m_timeMarkStart, m_timeMarkEnd);
    const bool result = m_window->ShowWnd(show);
    SetTimelineWndFocus();
    return result;
}

bool CTimelineManager::EnableTimelineWnd(bool enable)
{
    return m_window && m_window->EnableWnd(enable);
}

bool CTimelineManager::IsTimelineWndVisible()
{
    return m_window && m_window->IsWndVisible();
}

void CTimelineManager::UpdateTimelineWnd()
{
    if (m_window)
        m_window->UpdateWnd();
}

bool CTimelineManager::ReleaseTimelineWnd()
{
    ReleaseWindow();
    return true;
}

bool CTimelineManager::ReleaseWindow()
{
    if (!m_window || !m_factory)
        return false;
    if (const QPointer<CTimelineContainer> container = Container()) {
        container->DeleteAllTrack(m_parent);
        if (container) {
            ParkUnplacedTracks(container);
            // The factory may defer the window's end beyond the manager's.
            container->SetOwnerInterface(nullptr);
            // And the window's widget may go, with all its children, while the timeline has frames
            // on the stack.
            if (CallOut::IsUnderWay()) {
                container->hide();
                container->setParent(nullptr);
            }
        }
    }
    if (m_window)
        m_factory->ReleaseTimelineWnd(&m_window);
    return true;
}

/// Tracks that were made but not shown are the timeline widget's children and would go with it.
void CTimelineManager::ParkUnplacedTracks(CTimelineContainer* container)
{
    for (CTimelineTrackBase* const track : m_tracks) {
        if (CTimelineTrackBase::IsAlive(track) && track->parentWidget() == container) {
            track->hide();
            track->setParent(m_parent);
        }
    }
}

void CTimelineManager::InvalidateTimeline()
{
    if (!m_window)
        return;
    if (CTimelineContainer* const container = Container())
        container->InvalidateTimeline();
    if (m_window)
        m_window->RepaintWnd();
}

void CTimelineManager::SetTimelineWndFocus()
{
    if (!m_window)
        return;
    if (QWidget* const widget = m_window->GetWidget())
        widget->setFocus(Qt::OtherFocusReason);
    if (CTimelineContainer* const container = Container())
        container->setFocus(Qt::OtherFocusReason);
}

void CTimelineManager::SetContainerEnabled(bool enable)
{
    if (CTimelineContainer* const container = Container())
        container->setEnabled(enable);
}

CTimelineWndBase* CTimelineManager::GetTimelineWnd()
{
    return m_window;
}

QWidget* CTimelineManager::GetParentWidget()
{
    return m_parent;
}

// Within the following three nothing of the manager is touched after the host was called: the host
// may have deleted it.

int CTimelineManager::ReceiveMessage(unsigned int code, CTimelineTrackBase* track, HANDLE handle,
                                     QVariant value1, QVariant value2, QVariant value3)
{
    const CallOut callOut;
    CTimelineManagerInterface* const host = m_hostInterface;
    switch (code) {
    case 1301:
    case 1302:
        ReceiveCurrentFrame(value1.toInt(), code == 1302);
        return 0;
    case 1303:
    case 1304:
        (value2.toInt() == 0 ? m_timeMarkStart : m_timeMarkEnd) = value3.toInt();
        host->OnMoveTimeMark(value2.toInt(), value3.toInt(), code == 1304);
        return 0;
    case 1305:
        host->OnActiveTrackChanged(track, static_cast<CTimelineTrackBase*>(handle));
        return 0;
    case 1306:
        host->OnActiveTrackTheSame(track, static_cast<CTimelineTrackBase*>(handle));
        return 0;
    case 1307:
        host->OnTrackLDbClick(track, value2.toInt());
        return 0;
    case 1308:
        host->OnSwitchBtnStateChanged(track, value2.toInt());
        return 0;
    case 1309:
        host->OnCaptionBtnChanged(track, value2.toInt(), value3.toPoint());
        return 0;
    case 1310:
        host->OnQueryTrackRightMenu(track, static_cast<std::vector<_tmpTLMenuMapData*>*>(handle));
        return 0;
    case 1311:
        host->OnSelectedTrackRightMenu(track, value2.toInt());
        return 0;
    case 1312:
        host->OnSelectedDataCleared();
        return 0;
    case 1313:
        host->OnSelectedDataChanged();
        return 0;
    case 1314:
        host->OnCheckDragFile(track, value2.toString(), value3.toInt());
        return 0;
    default:
        return -1;
    }
}

void CTimelineManager::ReceiveCurrentFrame(int frame, bool isFinal)
{
    CTimelineManagerInterface* const host = m_hostInterface;
    const bool changes = frame != m_currentFrame;
    // A gesture reports its last frame twice; the second report is the final notice that the host
    // is owed for the first, though the frame is the stored one by then.
    if (!changes && !(isFinal && ManagerSideState::IsFinalNoticeOwed(this)))
        return;
    ManagerSideState::SetFinalNoticeOwed(this, !isFinal);
    if (changes) {
        m_currentFrame = frame;
        if (m_window)
            m_window->OnCurrentFrameChanged(frame);
    }
    host->OnCurrentFrameChanged(frame, isFinal);
}

int CTimelineManager::ReceiveTrackEdit(TLEditType type,
                                       const VZ::CArrayList<CTimelineTrackBase*>& tracks,
                                       QVariant value1, QVariant value2)
{
    const CallOut callOut;
    return m_hostInterface->OnEditingKeys(type, tracks, value1.toInt(), value2.toInt());
}

bool CTimelineManager::ReceiveTrackDrop(TLDropFileType type, QString path)
{
    const CallOut callOut;
    return m_hostInterface->OnTrackDropFile(type, path);
}
