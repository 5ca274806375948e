#include "container/KeyNavigation.h"

#include "container/CTimelineContainer.h"
#include "library/CallOut.h"
#include "model/MessageCodes.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CTimelineTrackBase.h"

#include <QPointer>

#include <algorithm>
#include <limits>

namespace {

using KeyPointer = VZ::CPointer<CTimelineKey>;
using ArrayPointer = VZ::CPointer<CTimelineKeyArray>;

bool HasSubKeys(const CTimelineKey& key)
{
    return key.subKeys && key.subKeys->GetSize() > 0;
}

bool NavigatesSubKeys(const CTimelineTrackBase& track)
{
    const CTimelineKeyArray& keys = track.Keys();
    return track.HasEditMode(TL_EDIT_SUB_KEYS) && keys.GetSize() > 0 &&
           HasSubKeys(*keys.Keys().front());
}

/// The clip whose sub-keys are walked; there is one where NavigatesSubKeys.
KeyPointer NavigatedClip(const CTimelineTrackBase& track)
{
    const CTimelineKeyArray& keys = track.Keys();
    for (const int index : keys.SelectedIndexes()) {
        if (index < 0 || static_cast<std::size_t>(index) >= keys.GetSize())
            continue;
        const KeyPointer clip = keys.GetAt(index);
        if (HasSubKeys(*clip))
            return clip;
    }
    return keys.Keys().front();
}

int IndexOf(const CTimelineKeyArray& keys, const CTimelineKey* key)
{
    const auto& all = keys.Keys();
    const auto found =
        std::find_if(all.begin(), all.end(), [key](const KeyPointer& each) { return each == key; });
    return found == all.end() ? -1 : static_cast<int>(found - all.begin());
}

int ToFrame(long long frame)
{
    constexpr long long kFirst = std::numeric_limits<int>::min();
    constexpr long long kLast = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(frame, kFirst, kLast));
}

/// What is walked: a track's own keys, or the sub-keys of one of its clips, whose frames count from
/// the clip's. It keeps its keys alive while the host is called.
class Walk
{
public:
    Walk(CTimelineContainer& container, CTimelineTrackBase& track)
        : m_container(&container), m_track(&track), m_owner(track.GetOwner())
    {
        if (!NavigatesSubKeys(track))
            return;
        m_clip = NavigatedClip(track);
        m_subKeys = m_clip->subKeys;
    }

    CTimelineKeyArray& Keys() const { return m_subKeys ? *m_subKeys : m_track->Keys(); }
    int CurrentFrame() const { return ToFrame(1LL * m_container->GetCurrentFrame() - Offset()); }
    /// Host code may have deleted or hidden what is walked, or taken the clip away.
    bool IsThere() const
    {
        return m_container && m_track && m_track->GetOwner() == m_owner &&
               (!m_clip ||
                (m_clip->subKeys == m_subKeys && IndexOf(m_track->Keys(), m_clip.Get()) >= 0));
    }

    void Goto(const CTimelineKey& key)
    {
        m_container->GotoFrame(ToFrame(1LL * key.frame + Offset()));
    }

    /// Makes @p key the only selected one and has the track report it, if it is shown; the key may
    /// have moved or gone meanwhile.
    void Select(const CTimelineKey* key)
    {
        Keys().ClearAllSelection();
        m_track->Send(kTrackSelectionCleared);
        if (!IsThere())
            return;
        const int index = IndexOf(Keys(), key);
        if (index < 0)
            return;
        Keys().SelAdd(index);
        Keys().GetAt(index)->selected = true;
        m_track->Send(kTrackSelectionChanged);
    }

private:
    int Offset() const { return m_clip ? m_clip->frame : 0; }

    QPointer<CTimelineContainer> m_container;
    QPointer<CTimelineTrackBase> m_track;
    const CTimelineTrackBaseInterface* m_owner;
    KeyPointer m_clip;
    ArrayPointer m_subKeys;
};

/// The index to select, or -1 when there is no key that may be.
int PreviousIndex(const CTimelineKeyArray& keys, int currentFrame)
{
    const int count = static_cast<int>(keys.GetSize());
    if (count == 0)
        return -1;
    int index = 0;
    if (keys.SelGetSize() > 0) {
        index = keys.SelGetAt(0);
    } else {
        bool found = false;
        keys.GetInsertIndex(currentFrame, true, index, found);
    }
    --index;
    // A track whose keys are all locked has nothing to select: one round, no more.
    for (int step = 0; step < count; ++step, --index) {
        if (index < 0 || index >= count)
            index = count - 1;
        if (keys.GetAt(index)->lockState != TL_KEY_LOCKED)
            return index;
    }
    return -1;
}

CTimelineTrackBase* TrackOrActive(const CTimelineContainer& container, CTimelineTrackBase* track)
{
    return track ? track : container.Tree().ActiveChild();
}

} // namespace

bool CanSelectNeighbourKey(const CTimelineContainer& container, const CTimelineTrackBase* track)
{
    if (!track)
        track = container.Tree().ActiveChild();
    return track && track->Keys().GetSize() > 0;
}

void SelectNextKey(CTimelineContainer& container, CTimelineTrackBase* track)
{
    track = TrackOrActive(container, track);
    if (!track || track->Keys().GetSize() == 0)
        return;
    const CallOut callOut;
    Walk walk(container, *track);
    const auto& keys = walk.Keys().Keys();
    const int reference = walk.CurrentFrame();
    const auto next = std::find_if(keys.begin(), keys.end(), [reference](const KeyPointer& key) {
        return key->frame > reference;
    });
    const KeyPointer target = next == keys.end() ? keys.front() : *next;
    walk.Goto(*target);
    if (walk.IsThere())
        walk.Select(target.Get());
}

void SelectPreviousKey(CTimelineContainer& container, CTimelineTrackBase* track)
{
    track = TrackOrActive(container, track);
    if (!track)
        return;
    const CallOut callOut;
    Walk walk(container, *track);
    const int index = PreviousIndex(walk.Keys(), walk.CurrentFrame());
    if (index < 0)
        return;
    const KeyPointer target = walk.Keys().GetAt(index);
    walk.Select(target.Get());
    if (walk.IsThere())
        walk.Goto(*target);
}
