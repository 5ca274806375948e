#pragma once

#include "TimelineEnums.h"
#include "container/DraggedTrack.h"

#include <QPointer>

#include <cstdint>
#include <vector>

class CTimelineContainer;
class CTimelineTrackBase;
struct TrackMessage;

/// The drag of the selected keys of all tracks together, a move or a copy: its state across the
/// messages of one drag, from the track that the pointer drags on. One drag at a time; a new one
/// puts an end to one that was never finished. A copy drag moves copies, which stand selected
/// beside their originals until it ends. The host is asked about every edit and may do anything
/// meanwhile. Owned by the container. GUI thread only.
class MultiTrackKeyDrag
{
public:
    explicit MultiTrackKeyDrag(CTimelineContainer& container) : m_container(container) {}
    /// Takes the copies of an unfinished drag out again.
    ~MultiTrackKeyDrag();

    /// Acts on one of the codes 1109 to 1114; the frame delta is in value 2. The container is
    /// updated in any case. @return what the code answers: the host's answer for the codes that ask
    /// it, -1 for the begin of a copy, 0 for its step and for its end when the host refuses the
    /// copy; -1 when no track takes part, or none any more.
    int Handle(const TrackMessage& message);

    /// To be called when @p track leaves the container: it takes no part any more, and the copies
    /// that it holds are taken out. Without the track that it came from, the whole drag is over,
    /// and nobody is told.
    void Forget(const CTimelineTrackBase* track);

private:
    struct Answer
    {
        int value;   ///< what the host answered
        bool goesOn; ///< the drag outlived the call; otherwise not even this object may be there
    };

    int Act(const TrackMessage& message);
    bool Begin(CTimelineTrackBase* sender);
    int BeginMove(CTimelineTrackBase* sender);
    int BeginCopy(CTimelineTrackBase* sender);
    int StepMove(int delta);
    int StepCopy(int delta);
    int EndMove(int delta);
    int EndCopy(int delta);
    std::vector<DraggedTrack> Close();
    void Abandon();

    void SetOut();
    bool Move(int& delta);
    void DropDeadTracks();
    int PasteFrame() const;
    Answer Edit(TLEditType type, std::int64_t value);
    Answer Paste(int frame);

    CTimelineContainer& m_container;
    QPointer<CTimelineTrackBase> m_sender;
    std::vector<DraggedTrack> m_tracks;
    // Frames, in more room than a frame has, so that no sum of two overflows.
    std::int64_t m_moved = 0; ///< since the begin
    std::int64_t m_lowest = 0;
    std::int64_t m_highest = 0;
    /// Tells this drag from the ones that the host begins meanwhile.
    unsigned int m_number = 0;
};
