#pragma once

#include <QVariant>

class CTimelineContainer;
class CTimelineTrackBase;

/// What a track reports: a code from 1101 to 1214 and its values.
struct TrackMessage
{
    int code;
    CTimelineTrackBase* track;
    int number;
    QVariant value1, value2, value3;
};

/// Acts on a track's report or turns it into messages for the host, by a table of codes.
/// @return the answer that the table gives, 0 for most codes; -1 for a code that is not in it and
/// while the container has no owner.
int DispatchTrackMessage(CTimelineContainer& container, const TrackMessage& message);
