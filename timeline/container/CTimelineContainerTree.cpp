// The container's tree of tracks: showing, hiding, ordering, activation and selection across
// tracks.

#include "container/CTimelineContainer.h"

#include "library/CallOut.h"
#include "model/MessageCodes.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CTimelineTrackBase.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

#include <QPointer>

/// Shows a track that the caller has given an owner and a parent track. A root is the container's
/// child widget before it is shown; a child only becomes one afterwards, see ShowChildTrack.
void CTimelineContainer::Attach(CTimelineTrackBase* track)
{
    track->show();
    track->SetAttached(true);
    // The host may have changed its keys while nobody looked.
    track->InvalidateCaches();
}

/// Takes back all that showing gave a track, which the caller has taken out of the tree. The
/// parking widget keeps it alive for the next time.
void CTimelineContainer::Detach(CTimelineTrackBase* track, QWidget* parking)
{
    m_keyDrag.Forget(track);
    track->hide();
    track->SetAttached(false);
    track->setParent(parking);
    track->SetOwner(nullptr);
    track->SetParentTrack(nullptr);
    track->SetActive(false);
}

bool CTimelineContainer::ShowRootTrack(CTimelineTrackBase* root, unsigned int index, bool notify)
{
    if (m_tree.Contains(root))
        return true;
    root->SetActive(false);
    root->SetParentTrack(root);
    root->setParent(this);
    root->SetOwner(this);
    Attach(root);
    m_tree.InsertRoot(root, index);
    if (Layout(false) && notify)
        NotifyTrackListChanged();
    return true;
}

bool CTimelineContainer::ShowChildTrack(CTimelineTrackBase* root, CTimelineTrackBase* child,
                                        unsigned int index, bool notify)
{
    CTimelineMapData* const record = m_tree.FindRoot(root);
    if (!record)
        return false;
    if (m_tree.Contains(child))
        return true;
    child->SetActive(false);
    child->SetOwner(this);
    child->SetParentTrack(root);
    Attach(child);
    // Reparenting comes last and hides the widget again; the layout shows it in its place, so that
    // it never flashes at its old one.
    child->setParent(this);
    m_tree.InsertChild(*record, child, index);
    if (Layout(false) && notify)
        NotifyTrackListChanged();
    return true;
}

bool CTimelineContainer::HideRootTrack(CTimelineTrackBase* root, QWidget* parking, bool relayout,
                                       bool notify)
{
    const CTimelineMapData* const record = m_tree.FindRoot(root);
    if (!record)
        return true;
    while (!record->children.empty()) {
        CTimelineTrackBase* const child = record->children.back();
        m_tree.RemoveChild(child);
        Detach(child, parking);
    }
    m_tree.RemoveRoot(root);
    Detach(root, parking);
    if (relayout && !Layout(false))
        return true;
    if (notify)
        NotifyTrackListChanged();
    return true;
}

bool CTimelineContainer::HideChildTrack(CTimelineTrackBase* child, QWidget* parking, bool relayout,
                                        bool notify)
{
    if (!m_tree.FindChild(child).record)
        return true;
    m_tree.RemoveChild(child);
    Detach(child, parking);
    // Here alone the window hears of the change before the rows have moved.
    if (notify && !NotifyTrackListChanged())
        return true;
    if (relayout) {
        GetWndMinHeight();
        Layout(true);
    }
    return true;
}

bool CTimelineContainer::DeleteAllTrack(QWidget* parking)
{
    while (!m_tree.Records().empty())
        HideRootTrack(m_tree.Records().back()->root, parking, false, false);
    if (Layout(false))
        NotifyTrackListChanged();
    return true;
}

bool CTimelineContainer::SetRootTrackSortIndex(CTimelineTrackBase* root, unsigned int index,
                                               bool relayout, bool notify)
{
    if (!m_tree.FindRoot(root))
        return true;
    m_tree.MoveRoot(root, index);
    if (relayout && !Layout(false))
        return true;
    if (notify)
        NotifyTrackListChanged();
    return true;
}

bool CTimelineContainer::SetChildTrackSortIndex(CTimelineTrackBase* child, unsigned int index,
                                                bool relayout, bool notify)
{
    if (!m_tree.FindChild(child).record)
        return true;
    m_tree.MoveChild(child, index);
    if (relayout && !Layout(false))
        return true;
    if (notify)
        NotifyTrackListChanged();
    return true;
}

void CTimelineContainer::GetSelectedKeyTrack(VZ::CArrayList<CTimelineTrackBase*>& tracks) const
{
    m_tree.CollectSelectedKeyTracks(tracks);
}

bool CTimelineContainer::ClearKeySelectionExcept(const CTimelineTrackBase* except)
{
    VZ::CArrayList<CTimelineTrackBase*> tracks;
    GetSelectedKeyTrack(tracks);
    for (CTimelineTrackBase* const track : tracks) {
        if (track->GetTrackId() != except)
            track->Keys().ClearAllSelection();
    }
    const QPointer<CTimelineContainer> self(this);
    const CallOut callOut;
    if (UpdateAndNotify())
        SendToHost(kHostSelectionCleared, nullptr, nullptr);
    return !self.isNull();
}

bool CTimelineContainer::SetActiveRootTrack(CTimelineTrackBase* root)
{
    const CallOut callOut;
    CTimelineTrackBase* const old = m_tree.ActiveRoot();
    if (old == root) {
        UpdateAndNotify();
        return true;
    }
    if (!ClearKeySelectionExcept(nullptr))
        return true;
    if (const CTimelineMapData* const record = m_tree.FindRoot(old)) {
        old->SetActive(false);
        for (CTimelineTrackBase* const child : record->children)
            child->SetActive(false);
    }
    if (const CTimelineMapData* const record = m_tree.FindRoot(root)) {
        root->SetActive(true);
        if (!record->children.empty())
            record->children.front()->SetActive(true);
    }
    UpdateAndNotify();
    return true;
}

bool CTimelineContainer::SetActiveChildTrack(CTimelineTrackBase* child)
{
    const CallOut callOut;
    CTimelineTrackBase* const oldRoot = m_tree.ActiveRoot();
    CTimelineTrackBase* const oldChild = m_tree.ActiveChild();
    if (oldChild == child) {
        UpdateAndNotify();
        return true;
    }
    // Coming from a clip row the lips row starts without any selection, and nobody is told.
    if (child && child->GetTrackType() == TL_TRACK_VISEME_KEY && oldChild &&
        oldChild->GetTrackType() == TL_TRACK_CLIP) {
        VZ::CArrayList<CTimelineTrackBase*> tracks;
        GetSelectedKeyTrack(tracks);
        for (CTimelineTrackBase* const track : tracks)
            track->Keys().ClearAllSelection();
    }
    if (const CTimelineMapData* const record = m_tree.FindChild(oldChild).record) {
        record->root->SetActive(false);
        oldChild->SetActive(false);
    }
    if (const CTimelineMapData* record = m_tree.FindChild(child).record) {
        if (record->root != oldRoot && !ClearKeySelectionExcept(nullptr))
            return true;
        // The host was called: it may have taken the track out.
        record = m_tree.FindChild(child).record;
        if (record) {
            record->root->SetActive(true);
            child->SetActive(true);
        }
    }
    UpdateAndNotify();
    return true;
}

bool CTimelineContainer::ActivateTrack(CTimelineTrackBase* track)
{
    if (track == m_scrollTrack || track == m_tickTrack)
        return true;
    const QPointer<CTimelineContainer> self(this);
    const CallOut callOut;
    bool changed = false;
    if (track->GetParentTrack() != track->GetTrackId()) {
        if (track != m_tree.ActiveChild()) {
            SetActiveChildTrack(track);
            changed = true;
        }
    } else if (track != m_tree.ActiveRoot()) {
        SetActiveRootTrack(track);
        changed = true;
    }
    if (!self || !FocusContainer() || !HasOwner())
        return true;
    return SendToHost(changed ? kHostActiveTrackChanged : kHostActiveTrackTheSame,
                      m_tree.ActiveRoot(), m_tree.ActiveChild()) != 0;
}

void CTimelineContainer::SetDropTrackFocusAndPickJustLoadClip(CTimelineTrackBase* track)
{
    const CallOut callOut;
    const QPointer<CTimelineContainer> self(this);
    const QPointer<CTimelineTrackBase> alive(track);
    const bool wasShown = track->GetOwner() != nullptr;
    const auto isThere = [&] { return self && alive && (!wasShown || alive->GetOwner()); };
    ActivateTrack(track);
    if (!isThere())
        return;
    ClearKeySelectionExcept(track);
    if (!isThere())
        return;
    const int index = track->Keys().HitKey(GetCurrentFrame(), true);
    if (index < 0)
        return;
    track->Keys().SetSelectionByIndex(index, index, true, TL_KEY_ANY_KIND);
    Layout(false);
}
