#include "container/MultiTrackKeyDrag.h"

#include "container/TrackMessageDispatch.h"

int MultiTrackKeyDrag::Handle(const TrackMessage&)
{
    return -1;
}
