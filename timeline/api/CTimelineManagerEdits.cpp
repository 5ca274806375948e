// The manager's operations on keys and files: selection, clipboard, edits, drop filters.

#include "CTimelineManager.h"

#include "CTimelineWndBase.h"
#include "container/CTimelineContainer.h"
#include "container/EditCommands.h"
#include "tracks/CTimelineTrackBase.h"

void CTimelineManager::GetSelectedKeyTrack(VZ::CArrayList<CTimelineTrackBase*>& tracks)
{
    if (const CTimelineContainer* const container = Container())
        container->GetSelectedKeyTrack(tracks);
}

bool CTimelineManager::ResetClipboard(CTimelineTrackBase* track)
{
    if (!IsTrackExist(track))
        return false;
    track->Clipboard().Reset();
    return true;
}

bool CTimelineManager::CopySelectionToClipboard(CTimelineTrackBase* track)
{
    return IsTrackExist(track) && track->CopySelectionToClipboard();
}

bool CTimelineManager::GetClipboardKeys(CTimelineTrackBase* track,
                                        std::vector<VZ::CPointer<CTimelineKey>>& keys,
                                        int& sourceValue)
{
    if (!IsTrackExist(track) || !track->Clipboard().HasData())
        return false;
    keys = track->Clipboard().GetKeys();
    sourceValue = track->Clipboard().GetSourceValue();
    return true;
}

bool CTimelineManager::CanDoTrackEdit(CTimelineTrackBase* track, TLEditType type)
{
    const CTimelineContainer* const container = Container();
    return container && (!track || CTimelineTrackBase::IsAlive(track)) &&
           ::CanDoTrackEdit(*container, type, track);
}

bool CTimelineManager::DoTrackEdit(CTimelineTrackBase* track, TLEditType type)
{
    CTimelineContainer* const container = Container();
    return container && (!track || CTimelineTrackBase::IsAlive(track)) &&
           ::DoTrackEdit(*container, type, track);
}

void CTimelineManager::SetEnableDragEnterFiletype(bool filter1, bool filter2, bool filter3,
                                                  bool filter4, bool filter5, bool filter6)
{
    if (CTimelineContainer* const container = Container())
        container->SetDropFilters({filter1, filter2, filter3, filter4, filter5, filter6});
}

bool CTimelineManager::CheckIdleClip(CTimelineTrackBase* track, int frame)
{
    return Container() && CTimelineTrackBase::IsAlive(track) &&
           DropFileRules::CoversFrame(track->Keys(), frame, true);
}

bool CTimelineManager::CheckDragFileUnderVisemeClip(int frame)
{
    const CTimelineContainer* const container = Container();
    const CTimelineTrackBase* const wave = container ? container->Tree().WaveTrack() : nullptr;
    return wave && DropFileRules::CoversFrame(wave->Keys(), frame, false);
}

void CTimelineManager::SetDropTrackFocusAndPickJustLoadClip(CTimelineTrackBase* track)
{
    CTimelineContainer* const container = Container();
    if (container && CTimelineTrackBase::IsAlive(track))
        container->SetDropTrackFocusAndPickJustLoadClip(track);
}
