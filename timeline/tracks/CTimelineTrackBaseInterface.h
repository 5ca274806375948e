#pragma once

#include <QVariant>

class CTimelineTrackBase;
class QDropEvent;

/// How a track talks to the container that shows it. Deleted only as what implements it.
class CTimelineTrackBaseInterface
{
public:
    /// Reports a gesture: one of the codes 1101 to 1214. An empty value is QVariant(0).
    /// @return the owner's answer; -1 for an unknown code. Two answers count: which edit the drag
    /// of a clip's end does (1212), TL_EDIT_CLIP_LOOP (3) or TL_EDIT_CLIP_SPEED (4), negative for
    /// none; and whether the row may open a menu (1116), negative for no.
    virtual int OnTrackMessage(int code, CTimelineTrackBase* track, int number, QVariant value1,
                               QVariant value2, QVariant value3) = 0;
    /// A file was dropped on the track; true when it was taken.
    virtual bool OnTrackDrop(QDropEvent* event, CTimelineTrackBase* track) = 0;
    /// A file is held over @p frame of the track; true when it may be dropped there.
    virtual bool OnTrackDragCheck(QDropEvent* event, CTimelineTrackBase* track, int frame) = 0;

protected:
    ~CTimelineTrackBaseInterface() = default;
};
