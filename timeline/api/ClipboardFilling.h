#pragma once

#include "CArrayList.h"
#include "CTimelineKeyArray.h"
#include "TimelineEnums.h"

#include <QPointer>

#include <vector>

class CTimelineTrackBase;

/// The clipboards that a cut or a copy fills: the keys are copied before the host is asked, as it
/// may take them out, and put aside when it has agreed. Lives for one call of the host.
class ClipboardFilling
{
public:
    /// Copies the selected keys of all @p tracks when @p type is a cut or a copy.
    ClipboardFilling(TLEditType type, const VZ::CArrayList<CTimelineTrackBase*>& tracks);
    /// Fills the clipboards of the tracks that had selected keys and still exist, unless @p answer,
    /// the host's, is negative.
    void Finish(int answer) const;

private:
    struct Entry
    {
        QPointer<CTimelineTrackBase> track;
        CTimelineKeyArray::KeyVector copies;
    };

    std::vector<Entry> m_entries;
};
