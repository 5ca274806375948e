// The manager's operations on tracks: their life, their place in the tree, and their state.

#include "CTimelineManager.h"

#include "CTimelineWndBase.h"
#include "container/CTimelineContainer.h"
#include "library/CallOut.h"
#include "library/TimelineLibrary.h"
#include "tracks/CTimelineTrackClip.h"
#include "tracks/CTimelineTrackKey.h"
#include "tracks/CTimelineTrackLinkKey.h"
#include "tracks/CTimelineTrackSwitch.h"
#include "tracks/CTimelineTrackTransKey.h"
#include "tracks/CTimelineTrackVisemeKey.h"

#include <QPointer>

#include <algorithm>
#include <memory>

namespace {

struct Maker
{
    TL_TRACK_TYPE type;
    CTimelineTrackBase* (*make)();
};

constexpr Maker kMakers[] = {
    {TL_TRACK_SWITCH, []() -> CTimelineTrackBase* { return new CTimelineTrackSwitch; }},
    {TL_TRACK_KEY, []() -> CTimelineTrackBase* { return new CTimelineTrackKey; }},
    {TL_TRACK_TRANSITION_KEY, []() -> CTimelineTrackBase* { return new CTimelineTrackTransKey; }},
    {TL_TRACK_LINK_KEY, []() -> CTimelineTrackBase* { return new CTimelineTrackLinkKey; }},
    {TL_TRACK_VISEME_KEY, []() -> CTimelineTrackBase* { return new CTimelineTrackVisemeKey; }},
    {TL_TRACK_CLIP, []() -> CTimelineTrackBase* { return new CTimelineTrackClip; }},
};

std::vector<CaptionButtonStyle>* CaptionButtons(CTimelineTrackBase* track)
{
    auto* const style = track->StyleAs<TrackStyle>();
    return style ? &style->captionButtons : nullptr;
}

CTimelineTrackSwitch* AsSwitchTrack(CTimelineManager& manager, CTimelineTrackBase* track)
{
    return manager.IsTrackExist(track) ? qobject_cast<CTimelineTrackSwitch*>(track) : nullptr;
}

} // namespace

CTimelineTrackBase* CTimelineManager::CreateTrack(TL_TRACK_TYPE type, QString name,
                                                  unsigned int styleIndex)
{
    CTimelineContainer* const container = Container();
    const auto maker = std::find_if(std::begin(kMakers), std::end(kMakers),
                                    [type](const Maker& each) { return each.type == type; });
    if (!container || maker == std::end(kMakers))
        return nullptr;
    std::unique_ptr<CTimelineTrackBase> track(maker->make());
    if (!track->Init(container))
        return nullptr;
    track->show();
    if (!track->LoadStyle(static_cast<int>(styleIndex)))
        return nullptr;
    track->MarkAsOwnTrack();
    track->SetCaption(name);
    m_tracks.push_back(track.get());
    return track.release();
}

bool CTimelineManager::IsTrackExist(CTimelineTrackBase* track)
{
    return CTimelineTrackBase::IsAlive(track) &&
           std::find(m_tracks.begin(), m_tracks.end(), track) != m_tracks.end();
}

bool CTimelineManager::DeleteTrack(CTimelineTrackBase* track)
{
    if (!IsTrackExist(track))
        return false;
    // Out of the list first: while the window hears of the change, the track exists no more.
    m_tracks.erase(std::find(m_tracks.begin(), m_tracks.end(), track));
    const QPointer<CTimelineTrackBase> guarded(track);
    if (CTimelineContainer* const container = Container()) {
        if (track->IsRootTrack())
            container->HideRootTrack(track, m_parent, true, true);
        else
            container->HideChildTrack(track, m_parent, true, true);
    }
    if (guarded)
        guarded->hide();
    CallOut::Delete(guarded);
    return true;
}

bool CTimelineManager::DeleteAllTrack()
{
    if (CTimelineContainer* const container = Container())
        return container->DeleteAllTrack(m_parent);
    std::vector<CTimelineTrackBase*> tracks;
    tracks.swap(m_tracks);
    for (CTimelineTrackBase* const track : tracks) {
        if (CTimelineTrackBase::IsAlive(track))
            CallOut::Delete(track);
    }
    return true;
}

TL_TRACK_TYPE CTimelineManager::GetTrackType(CTimelineTrackBase* track)
{
    return IsTrackExist(track) ? static_cast<TL_TRACK_TYPE>(track->GetTrackType()) : TL_TRACK_NONE;
}

CTimelineKeyArray* CTimelineManager::GetKeyDataArray(CTimelineTrackBase* track)
{
    return IsTrackExist(track) ? &track->Keys() : nullptr;
}

bool CTimelineManager::ShowRootTrack(CTimelineTrackBase* track, unsigned int sortIndex, bool notify)
{
    CTimelineContainer* const container = Container();
    return IsTrackExist(track) && container && container->ShowRootTrack(track, sortIndex, notify);
}

bool CTimelineManager::ShowChildTrack(CTimelineTrackBase* parent, CTimelineTrackBase* child,
                                      unsigned int sortIndex, bool notify)
{
    CTimelineContainer* const container = Container();
    return IsTrackExist(parent) && IsTrackExist(child) && container &&
           container->ShowChildTrack(parent, child, sortIndex, notify);
}

bool CTimelineManager::HideRootTrack(CTimelineTrackBase* track, bool notify)
{
    CTimelineContainer* const container = Container();
    return IsTrackExist(track) && container &&
           container->HideRootTrack(track, m_parent, true, notify);
}

bool CTimelineManager::HideChildTrack(CTimelineTrackBase* track, bool notify)
{
    CTimelineContainer* const container = Container();
    return IsTrackExist(track) && container &&
           container->HideChildTrack(track, m_parent, true, notify);
}

int CTimelineManager::GetRootTrackSortIndex(CTimelineTrackBase* track)
{
    const CTimelineContainer* const container = Container();
    return IsTrackExist(track) && container ? container->Tree().RootIndex(track) : -1;
}

int CTimelineManager::GetChildTrackSortIndex(CTimelineTrackBase* track)
{
    const CTimelineContainer* const container = Container();
    return IsTrackExist(track) && container ? container->Tree().ChildIndex(track) : 0;
}

bool CTimelineManager::SetRootTrackSortIndex(CTimelineTrackBase* track, unsigned int sortIndex,
                                             bool notify)
{
    CTimelineContainer* const container = Container();
    return IsTrackExist(track) && container &&
           container->SetRootTrackSortIndex(track, sortIndex, true, notify);
}

bool CTimelineManager::SetChildTrackSortIndex(CTimelineTrackBase* track, unsigned int sortIndex,
                                              bool notify)
{
    CTimelineContainer* const container = Container();
    return IsTrackExist(track) && container &&
           container->SetChildTrackSortIndex(track, sortIndex, true, notify);
}

void CTimelineManager::GetVisibleRootTrackList(std::vector<CTimelineTrackBase*>& tracks)
{
    if (const CTimelineContainer* const container = Container()) {
        for (const auto& record : container->Tree().Records())
            tracks.push_back(record->root);
    }
}

bool CTimelineManager::SetActiveChildTrack(CTimelineTrackBase* track)
{
    CTimelineContainer* const container = Container();
    return IsTrackExist(track) && container && container->SetActiveChildTrack(track);
}

bool CTimelineManager::SetActiveRootTrack(CTimelineTrackBase* track)
{
    CTimelineContainer* const container = Container();
    if (!track)
        return !container || container->SetActiveRootTrack(nullptr);
    return IsTrackExist(track) && container && container->SetActiveRootTrack(track);
}

CTimelineTrackBase* CTimelineManager::GetActiveRootTrack()
{
    const CTimelineContainer* const container = Container();
    return container ? container->Tree().ActiveRoot() : nullptr;
}

CTimelineTrackBase* CTimelineManager::GetActiveChildTrack()
{
    const CTimelineContainer* const container = Container();
    return container ? container->Tree().ActiveChild() : nullptr;
}

bool CTimelineManager::SetTrackName(CTimelineTrackBase* track, QString name)
{
    CTimelineContainer* const container = Container();
    if (!IsTrackExist(track) || !container)
        return false;
    track->SetCaption(name);
    container->InvalidateTimeline();
    return true;
}

void CTimelineManager::SetTrackSelFrame(CTimelineTrackBase* track, int frameA, int frameB)
{
    if (!IsTrackExist(track) || !Container())
        return;
    track->SetRange(frameA, frameB);
    LayoutAndRepaint();
}

void CTimelineManager::GetTrackSelFrame(CTimelineTrackBase* track, int& first, int& last)
{
    if (IsTrackExist(track))
        track->GetRangeFrames(first, last);
}

bool CTimelineManager::SetTrackEditMode(CTimelineTrackBase* track,
                                        VZ::CArrayList<TLEditType>& modes)
{
    if (!IsTrackExist(track) || !Container())
        return false;
    track->SetEditModes(modes);
    LayoutAndRepaint();
    return true;
}

bool CTimelineManager::GetTrackCaptionBtnState(CTimelineTrackBase* track, int buttonId, int& state)
{
    if (!IsTrackExist(track))
        return false;
    if (const auto* const buttons = CaptionButtons(track)) {
        for (const CaptionButtonStyle& button : *buttons) {
            if (button.buttonId == buttonId) {
                state = button.state;
                return true;
            }
        }
    }
    return false;
}

bool CTimelineManager::SetTrackCaptionBtnState(CTimelineTrackBase* track, int buttonId, int& state)
{
    if (!IsTrackExist(track))
        return false;
    if (auto* const buttons = CaptionButtons(track)) {
        for (CaptionButtonStyle& button : *buttons) {
            if (button.buttonId == buttonId)
                button.state = state;
        }
    }
    return false;
}

bool CTimelineManager::GetTrackSwitchBtnList(CTimelineTrackBase* track,
                                             std::vector<_tmpTLSwitchBtnData>& buttons)
{
    const auto* const switchTrack = AsSwitchTrack(*this, track);
    if (!switchTrack)
        return false;
    buttons = switchTrack->GetButtons();
    return true;
}

bool CTimelineManager::SetTrackSwitchBtnList(CTimelineTrackBase* track,
                                             std::vector<_tmpTLSwitchBtnData>& buttons)
{
    auto* const switchTrack = AsSwitchTrack(*this, track);
    if (!switchTrack)
        return false;
    switchTrack->SetButtons(buttons);
    return true;
}

bool CTimelineManager::GetTrackSwitchScrollState(CTimelineTrackBase* track, bool& shown)
{
    const auto* const switchTrack = AsSwitchTrack(*this, track);
    if (!switchTrack)
        return false;
    shown = switchTrack->AreArrowsShown();
    return true;
}

bool CTimelineManager::SetTrackSwitchScrollState(CTimelineTrackBase* track, bool shown)
{
    auto* const switchTrack = AsSwitchTrack(*this, track);
    if (!switchTrack)
        return false;
    switchTrack->SetArrowsShown(shown);
    return true;
}

bool CTimelineManager::GetTrackRelMapTable(std::vector<_tmpTLRelatedMap>& table)
{
    if (!Container())
        return false;
    table = TimelineLibrary::Instance().relations.Rows();
    return true;
}

bool CTimelineManager::SetTrackRelMapTable(const std::vector<_tmpTLRelatedMap>& table)
{
    if (!Container())
        return false;
    TimelineLibrary::Instance().relations.Set(table);
    return true;
}

CTimelineTrackBase* CTimelineManager::GetLipsTrack()
{
    const CTimelineContainer* const container = Container();
    return container ? container->Tree().LipsTrack() : nullptr;
}
