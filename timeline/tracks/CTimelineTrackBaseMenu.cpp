// The right button's menu of a row: what the press does before it opens, and what follows from it.

#include "tracks/CTimelineTrackBase.h"

#include "library/TimelineLibrary.h"
#include "tracks/CTimelineTrackBaseInterface.h"
#include "tracks/CurrentFrame.h"
#include "tracks/KeyHit.h"
#include "tracks/PressSelection.h"
#include "tracks/TrackMenu.h"
#include "tracks/TrackReport.h"

#include <QContextMenuEvent>

#include <algorithm>

namespace {

/// What a press of the right button does to the selection and the current frame, much as one of
/// the left button would, though it never clears a selection without making another.
class MenuPress
{
public:
    MenuPress(CTimelineTrackBase& track, TrackReport& report)
        : m_track(track), m_report(report), m_axis(TimelineLibrary::Instance().axis)
    {
    }

    /// @p point is in pixels from the row's corner. @return whether the menu may open.
    bool At(QPoint point)
    {
        if (!MoveFrameTo(m_track.PixelToFrame(point.x())) || !Select(KeyHit(m_track, point)))
            return false;
        // The host may have taken frames away since the current one was written.
        SetFrame(m_axis.currentFrame);
        return m_report.SendCurrentFrame();
    }

private:
    /// The host hears at once of a frame that had to be brought back into the timeline.
    bool MoveFrameTo(int frame)
    {
        SetFrame(frame);
        return frame < m_axis.frameCount || m_report.SendCurrentFrame();
    }

    /// The valid frame nearest to @p frame; 0 while there are no frames.
    void SetFrame(int frame) { m_axis.currentFrame = std::max(NearestFrame(frame), 0); }

    bool Select(const KeyHit& hit)
    {
        if (hit.EditsSubKeys() && hit.Key() && !SelectHitClip(m_track, hit, m_report))
            return false;
        if (hit.EditedIndex() < 0)
            return true;
        if (!hit.Edited()->selected &&
            (!SelectHitAlone(hit, m_report) || !m_report.Send(kTrackSelectionChanged)))
            return false;
        GoToHit(hit);
        return true;
    }

    CTimelineTrackBase& m_track;
    TrackReport& m_report;
    FrameAxis& m_axis;
};

} // namespace

void CTimelineTrackBase::contextMenuEvent(QContextMenuEvent* event)
{
    if (m_trackType == TL_TRACK_WAVE || IsFrameOnlyRow()) {
        event->ignore();
        return;
    }
    event->accept();
    BuildContextMenu(event->globalPos());
}

void CTimelineTrackBase::BuildContextMenu(QPoint globalPoint)
{
    const TrackReport choice(*this);
    // The menu takes the pointer: a drag of the left button would never see its release, nor would
    // a press that is still being reported.
    const OpenGesture::PressHandling handling(Gesture());
    if (!choice.IsThere())
        return;
    TrackReport report(*this, handling.GetTurn());
    if (!report.Send(kTrackPressed))
        return;
    if (!MenuPress(*this, report).At(mapFromGlobal(globalPoint)))
        return;

    TrackMenu::Entries entries;
    const int answer =
        m_owner->OnTrackMessage(kTrackMenuQuery, m_trackId, 0, QVariant::fromValue<void*>(&entries),
                                QVariant(0), QVariant(0));
    if (answer < 0 || !report.IsThere())
        return;
    const std::optional<int> command = TrackMenu(entries).Choose(globalPoint);
    if (command && choice.IsThere())
        Send(kTrackMenuChosen, *command);
}
