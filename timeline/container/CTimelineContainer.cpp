#include "container/CTimelineContainer.h"

#include "CTimelineWndBase.h"
#include "container/CTimelineContainerInterface.h"
#include "container/Hotkeys.h"
#include "container/QTimelineCaptionArea.h"
#include "container/TrackMessageDispatch.h"
#include "library/CallOut.h"
#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

#include <QPointer>

#include <optional>

namespace {

constexpr int kFixedTrackStyle = 1;

/// Messages that ask the host to do something: it may edit keys in place.
bool IsCommand(unsigned int code)
{
    return code == kHostDoubleClicked || code == kHostSwitchToggled || code == kHostCaptionButton ||
           code == kHostMenuChosen;
}

} // namespace

CTimelineContainer::CTimelineContainer(CTimelineWndBase* window)
    : m_window(window), m_layout(TimelineLibrary::Instance().images),
      m_captions(TimelineLibrary::Instance().images),
      m_captionPress(*this, [this] { CancelCaptionPress(); }), m_keyDrag(*this)
{
    setSizePolicy(
        QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding, QSizePolicy::DefaultType));
    setAccessibleName(QStringLiteral("CTimelineContainer"));
    AddHotkeys(*this);
}

CTimelineContainer::~CTimelineContainer()
{
    // The widget may go with its Qt parent before the window that made it.
    if (m_window)
        m_window->m_container = nullptr;
    delete m_scrollTrack;
    delete m_tickTrack;
    m_backBuffer.reset();
    delete m_captionArea;
}

void CTimelineContainer::Disconnect()
{
    m_window = nullptr;
    m_owner = nullptr;
}

bool CTimelineContainer::Create(QWidget* parent, const QRect& geometry)
{
    setParent(parent);
    setGeometry(geometry);
    show();
    if (!CreateFixedTrack(m_scrollTrack) || !CreateFixedTrack(m_tickTrack))
        return false;
    return Layout(false);
}

template <class Track>
bool CTimelineContainer::CreateFixedTrack(Track*& track)
{
    track = new Track;
    if (!track->Init(this) || !track->LoadStyle(kFixedTrackStyle))
        return false;
    track->MarkAsOwnTrack();
    track->SetOwner(this);
    track->show();
    return true;
}

// The host may delete its dock, and with it the container, in any of these calls. Every operation
// that goes on afterwards asks first.

bool CTimelineContainer::NotifyTrackListChanged()
{
    const QPointer<CTimelineContainer> self(this);
    const CallOut callOut;
    if (m_window)
        m_window->OnTrackListChanged();
    return !self.isNull();
}

bool CTimelineContainer::NotifyTimelineRefreshed()
{
    const QPointer<CTimelineContainer> self(this);
    const CallOut callOut;
    if (m_window)
        m_window->OnTimelineRefreshed();
    return !self.isNull();
}

bool CTimelineContainer::UpdateAndNotify()
{
    update();
    return NotifyTimelineRefreshed();
}

CTimelineContainer::InHostsHands::InHostsHands(CTimelineContainer& container)
    : m_container(&container)
{
    ++container.m_inHostsHands;
}

CTimelineContainer::InHostsHands::~InHostsHands()
{
    if (!m_container)
        return;
    --m_container->m_inHostsHands;
    m_container->m_onScreen = OnScreen();
}

int CTimelineContainer::SendToHost(unsigned int code, CTimelineTrackBase* track, HANDLE handle,
                                   const QVariant& value1, const QVariant& value2,
                                   const QVariant& value3)
{
    const CallOut callOut;
    std::optional<InHostsHands> inHostsHands;
    if (IsCommand(code))
        inHostsHands.emplace(*this);
    return m_owner ? m_owner->OnContainerMessage(code, track, handle, value1, value2, value3) : -1;
}

int CTimelineContainer::SendEdit(TLEditType type, const VZ::CArrayList<CTimelineTrackBase*>& tracks,
                                 const QVariant& value1, const QVariant& value2)
{
    const CallOut callOut;
    const InHostsHands inHostsHands(*this);
    const int answer = m_owner ? m_owner->OnContainerTrackEdit(type, tracks, value1, value2) : -1;
    // A host that changed keys in place may leave the refresh to the end of the gesture.
    for (CTimelineTrackBase* const track : tracks) {
        if (CTimelineTrackBase::IsAlive(track))
            track->InvalidateCaches();
    }
    return answer;
}

int CTimelineContainer::OnTrackMessage(int code, CTimelineTrackBase* track, int number,
                                       QVariant value1, QVariant value2, QVariant value3)
{
    const CallOut callOut;
    return DispatchTrackMessage(*this, {code, track, number, value1, value2, value3});
}

bool CTimelineContainer::FocusContainer()
{
    const QPointer<CTimelineContainer> self(this);
    const CallOut callOut;
    if (QWidget* const widget = m_window ? m_window->GetWidget() : nullptr)
        widget->setFocus(Qt::OtherFocusReason);
    if (self)
        setFocus(Qt::OtherFocusReason);
    return !self.isNull();
}
