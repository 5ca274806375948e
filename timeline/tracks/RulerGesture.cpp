#include "tracks/RulerGesture.h"

#include <algorithm>

void TimeMark::Drag(int marker, int frame)
{
    if (marker == kEndMarker)
        end = std::max(frame, start);
    else
        start = std::min(end, frame);
}
