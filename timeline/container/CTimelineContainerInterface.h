#pragma once

#include "CArrayList.h"
#include "KestovaExport.h"
#include "TimelineEnums.h"

#include <QString>
#include <QVariant>

class CTimelineTrackBase;

/// How a container talks to the manager that owns it.
class CTimelineContainerInterface
{
public:
    virtual ~CTimelineContainerInterface() = default;

    /// A host message, code 1301 to 1314. @p handle is a second track (1305, 1306), the menu list
    /// (1310) or the track message's number, widened. @return 0 when it was handled, -1 for an
    /// unknown code.
    virtual int OnContainerMessage(unsigned int code, CTimelineTrackBase* track, HANDLE handle,
                                   QVariant value1, QVariant value2, QVariant value3) = 0;
    /// A host edit. @return the host's answer.
    virtual int OnContainerTrackEdit(TLEditType type,
                                     const VZ::CArrayList<CTimelineTrackBase*>& tracks,
                                     QVariant value1, QVariant value2) = 0;
    /// A dropped file. @return true when the host took it.
    virtual bool OnContainerDrop(TLDropFileType type, QString path) = 0;
};
