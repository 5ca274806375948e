// The manager's life, its window, and the road from the timeline to the host. Operations on tracks
// stand in CTimelineManagerTracks.cpp, frames and view in CTimelineManagerFrames.cpp.

#include "CTimelineManager.h"

#include "CMyContainerInterface.h"
#include "CTimelineManagerInterface.h"
#include "CTimelineWndBase.h"
#include "CTimelineWndFactoryBase.h"
#include "ClipboardFilling.h"
#include "ManagerSideState.h"
#include "container/CTimelineContainer.h"
#include "library/CallOut.h"
#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "tracks/CTimelineTrackBase.h"
#include "tracks/PaintCaches.h"

#include <QDockWidget>
#include <QPoint>
#include <QPointer>

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
    // Without a factory the window goes on living; it must not speak to a manager that is gone.
    if (CTimelineContainer* const container = Container())
        container->SetOwnerInterface(nullptr);
    ManagerSideState::Forget(this);
    TimelineLibrary::Instance().images.Free();
    ClearPaintCaches();
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
    const auto alive = ManagerSideState::LifeOf(this);
    const QPointer<QDockWidget> wantedDock(dock);
    ReleaseWindow();
    // The window that went may have taken the manager or the dock along.
    if (!*alive || !m_factory || wantedDock != dock)
        return false;
    m_window = m_factory->CreateTimelineWnd(dock);
    if (!m_window)
        return false;
    if (QWidget* const widget = m_window->GetWidget(); wantedDock && widget)
        wantedDock->setWidget(widget);
    const bool complete = m_window->CreateWnd() && *alive && PlaceContainer();
    if (!*alive)
        return false;
    if (complete) {
        if (m_window)
            m_window->OnAfterCreate();
        return true;
    }
    // What is half made goes straight back: none of its operations is called any more.
    if (CTimelineContainer* const container = Container())
        container->SetOwnerInterface(nullptr);
    if (m_window)
        m_factory->ReleaseTimelineWnd(&m_window);
    return false;
}

/// Puts the window's timeline widget under the window's own, where the window wants it.
bool CTimelineManager::PlaceContainer()
{
    const auto alive = ManagerSideState::LifeOf(this);
    const QPointer<CTimelineContainer> container = Container();
    if (!container)
        return false;
    container->SetOwnerInterface(m_containerInterface);
    CTimelineWndBase* const window = m_window;
    // The container may outlive a window that is released in its own operation, the other way round
    // as well.
    const auto isThere = [&] { return *alive && m_window == window && container; };
    QRect geometry;
    window->GetInitialGeometry(geometry);
    if (!isThere())
        return false;
    QWidget* const widget = window->GetWidget();
    return isThere() && container->Create(widget, geometry) && isThere();
}

bool CTimelineManager::ShowTimelineWnd(bool show)
{
    if (!m_window)
        return false;
    const auto alive = ManagerSideState::LifeOf(this);
    if (CTimelineContainer* const container = Container())
        container->SetFrameCount(m_frameCount);
    if (!*alive)
        return false;
    m_currentFrame = ClampedFrame(m_currentFrame);
    if (CTimelineContainer* const container = Container())
        container->SetCurrentFrame(m_currentFrame);
    if (*alive && m_window)
        m_window->OnCurrentFrameChanged(m_currentFrame);
    if (!*alive)
        return false;
    m_timeMarkStart = ClampedFrame(m_timeMarkStart);
    m_timeMarkEnd = ClampedFrame(m_timeMarkEnd);
    if (CTimelineContainer* const container = Container())
        container->SetTimeMarkFrame(m_timeMarkStart, m_timeMarkEnd);
    if (!*alive || !m_window)
        return false;
    const bool result = m_window->ShowWnd(show);
    if (*alive)
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

void CTimelineManager::ReleaseWindow()
{
    if (!m_window || !m_factory)
        return;
    const auto alive = ManagerSideState::LifeOf(this);
    if (const QPointer<CTimelineContainer> container = Container()) {
        container->DeleteAllTrack(m_parent);
        if (!*alive)
            return;
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
    // Hidden tracks as well: what the host changed in them is shown later, or by the tracks related
    // to them.
    for (CTimelineTrackBase* const track : m_tracks) {
        if (CTimelineTrackBase::IsAlive(track))
            track->InvalidateCaches();
    }
    LayoutAndRepaint();
}

void CTimelineManager::LayoutAndRepaint()
{
    if (!m_window)
        return;
    const auto alive = ManagerSideState::LifeOf(this);
    if (CTimelineContainer* const container = Container())
        container->InvalidateTimeline();
    if (*alive && m_window)
        m_window->RepaintWnd();
}

void CTimelineManager::SetTimelineWndFocus()
{
    if (!m_window)
        return;
    const auto alive = ManagerSideState::LifeOf(this);
    if (QWidget* const widget = m_window->GetWidget())
        widget->setFocus(Qt::OtherFocusReason);
    if (!*alive)
        return;
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
    case kHostFrameMoved:
    case kHostFrameSet:
        ReceiveCurrentFrame(value1.toInt(), code == kHostFrameSet);
        return 0;
    case kHostTimeMarkMoved:
    case kHostTimeMarkSet:
        (value2.toInt() == 0 ? m_timeMarkStart : m_timeMarkEnd) = value3.toInt();
        host->OnMoveTimeMark(value2.toInt(), value3.toInt(), code == kHostTimeMarkSet);
        return 0;
    case kHostActiveTrackChanged:
        host->OnActiveTrackChanged(track, static_cast<CTimelineTrackBase*>(handle));
        return 0;
    case kHostActiveTrackTheSame:
        host->OnActiveTrackTheSame(track, static_cast<CTimelineTrackBase*>(handle));
        return 0;
    case kHostDoubleClicked:
        host->OnTrackLDbClick(track, value2.toInt());
        return 0;
    case kHostSwitchToggled:
        host->OnSwitchBtnStateChanged(track, value2.toInt());
        return 0;
    case kHostCaptionButton:
        host->OnCaptionBtnChanged(track, value2.toInt(), value3.toPoint());
        return 0;
    case kHostMenuQuery:
        host->OnQueryTrackRightMenu(track, static_cast<std::vector<_tmpTLMenuMapData*>*>(handle));
        return 0;
    case kHostMenuChosen:
        host->OnSelectedTrackRightMenu(track, value2.toInt());
        return 0;
    case kHostSelectionCleared:
        host->OnSelectedDataCleared();
        return 0;
    case kHostSelectionChanged:
        host->OnSelectedDataChanged();
        return 0;
    case kHostDragCheck:
        host->OnCheckDragFile(track, value2.toString(), value3.toInt());
        return 0;
    default:
        return -1;
    }
}

void CTimelineManager::ReceiveCurrentFrame(int frame, bool isFinal)
{
    CTimelineManagerInterface* const host = m_hostInterface;
    const auto alive = ManagerSideState::LifeOf(this);
    const bool changes = frame != m_currentFrame;
    // A gesture reports its last frame twice; the second report is the final notice that the host
    // is owed for the first, though the frame is the stored one by then.
    if (!changes && !(isFinal && ManagerSideState::IsFinalNoticeOwed(this)))
        return;
    if (changes) {
        m_currentFrame = frame;
        if (m_window)
            m_window->OnCurrentFrameChanged(frame);
    }
    if (!*alive)
        return;
    // Noted only now: the window may have moved the frame, and settled that frame's notice.
    ManagerSideState::SetFinalNoticeOwed(this, !isFinal);
    host->OnCurrentFrameChanged(frame, isFinal);
}

int CTimelineManager::ReceiveTrackEdit(TLEditType type,
                                       const VZ::CArrayList<CTimelineTrackBase*>& tracks,
                                       QVariant value1, QVariant value2)
{
    const CallOut callOut;
    const ClipboardFilling clipboards(type, tracks);
    const int answer = m_hostInterface->OnEditingKeys(type, tracks, value1.toInt(), value2.toInt());
    clipboards.Finish(answer);
    return answer;
}

bool CTimelineManager::ReceiveTrackDrop(TLDropFileType type, QString path)
{
    const CallOut callOut;
    return m_hostInterface->OnTrackDropFile(type, path);
}
