#include "ClipboardFilling.h"

#include "tracks/CTimelineTrackBase.h"

ClipboardFilling::ClipboardFilling(TLEditType type,
                                   const VZ::CArrayList<CTimelineTrackBase*>& tracks)
{
    if (type != TL_EDIT_CUT && type != TL_EDIT_COPY)
        return;
    for (CTimelineTrackBase* const track : tracks) {
        if (CTimelineTrackBase::IsAlive(track))
            m_entries.push_back({track, track->Keys().CopySelected()});
    }
}

void ClipboardFilling::Finish(int answer) const
{
    if (answer < 0)
        return;
    for (const Entry& entry : m_entries) {
        if (entry.track)
            entry.track->FillClipboard(entry.copies);
    }
}
