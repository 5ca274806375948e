#pragma once

class CTimelineContainer;
struct TrackMessage;

/// The drag of the selected keys of all tracks together, a move or a copy: its state across the
/// messages of one drag, from the track that the pointer drags on. Owned by the container.
class MultiTrackKeyDrag
{
public:
    explicit MultiTrackKeyDrag(CTimelineContainer& container) : m_container(container) {}

    /// Acts on one of the codes 1109 to 1114. @return what the code answers; -1 when no track takes
    /// part.
    int Handle(const TrackMessage& message);

private:
    CTimelineContainer& m_container;
};
