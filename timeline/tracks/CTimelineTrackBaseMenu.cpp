// The right button's menu of a row: what the press does before it opens, and what follows from it.

#include "tracks/CTimelineTrackBase.h"

#include "library/TimelineLibrary.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CTimelineTrackBaseInterface.h"
#include "tracks/TrackMenu.h"
#include "tracks/TrackReport.h"

#include <QContextMenuEvent>

#include <algorithm>

namespace {

using KeyPointer = VZ::CPointer<CTimelineKey>;

/// A row with fewer edit modes only shows the current frame.
constexpr int kFewestEditModes = 2;

/// The key at @p index, held so that it outlives the host's changes; null without one.
KeyPointer KeyAt(const CTimelineKeyArray& keys, int index)
{
    const bool isKey = index >= 0 && static_cast<std::size_t>(index) < keys.GetSize();
    return isKey ? keys.Keys()[static_cast<std::size_t>(index)] : KeyPointer();
}

/// Where @p key stands now; -1 when the host took it away.
int IndexOf(const CTimelineKeyArray& keys, const KeyPointer& key)
{
    const auto& all = keys.Keys();
    const auto found = std::find(all.begin(), all.end(), key);
    return found == all.end() ? -1 : static_cast<int>(found - all.begin());
}

void Select(CTimelineKeyArray& keys, int index)
{
    keys.SetSelectionByIndex(index, index, true, TL_KEY_ANY_KIND);
}

/// Selects the key at @p index and no other; no other clip keeps selected sub-keys.
void SelectAlone(CTimelineKeyArray& keys, int index)
{
    const int last = static_cast<int>(keys.GetSize()) - 1;
    keys.SetSelectionByIndex(0, index - 1, false, TL_KEY_ANY_KIND);
    keys.SetSelectionByIndex(index + 1, last, false, TL_KEY_ANY_KIND);
    for (int other = 0; other <= last; ++other) {
        const KeyPointer clip = KeyAt(keys, other);
        if (other != index && clip->subKeys)
            clip->subKeys->ClearAllSelection();
    }
    Select(keys, index);
}

/// What a press of the right button does to the selection and the current frame, much as one of
/// the left button would, though it never clears a selection without making another.
class MenuPress
{
public:
    MenuPress(CTimelineTrackBase& track, TrackReport& report)
        : m_track(track), m_report(report), m_axis(TimelineLibrary::Instance().axis)
    {
    }

    /// @p point is in pixels from the row's corner. @return whether the track is still there.
    bool At(QPoint point)
    {
        if (!MoveFrameTo(m_track.PixelToFrame(point.x())))
            return false;
        const int index = m_track.HitTestKey(point);
        const bool isThere = m_track.HasEditMode(TL_EDIT_SUB_KEYS)
                                 ? PressClip(index, m_track.HitTestSubKey(point, index))
                                 : PressKey(index);
        return isThere && m_report.SendCurrentFrame();
    }

private:
    /// The host hears at once of a frame that had to be brought back into the timeline.
    bool MoveFrameTo(int frame)
    {
        SetFrame(frame);
        return frame < m_axis.frameCount || m_report.SendCurrentFrame();
    }

    void SetFrame(long long frame)
    {
        const int last = std::max(m_axis.frameCount - 1, 0);
        m_axis.currentFrame = static_cast<int>(std::clamp<long long>(frame, 0, last));
    }

    bool PressKey(int index)
    {
        CTimelineKeyArray& keys = m_track.Keys();
        const KeyPointer key = KeyAt(keys, index);
        if (!key)
            return true;
        if (!key->selected) {
            keys.ClearAllSelection();
            if (!m_report.Send(kTrackSelectionCleared))
                return false;
            Select(keys, IndexOf(keys, key));
            if (!m_report.Send(kTrackSelectionChanged))
                return false;
        }
        if (!key->subKeys && IndexOf(keys, key) >= 0)
            SetFrame(key->frame);
        return true;
    }

    bool PressClip(int index, int subIndex)
    {
        CTimelineKeyArray& keys = m_track.Keys();
        const KeyPointer clip = KeyAt(keys, index);
        if (!clip)
            return true;
        const KeyPointer subKey = clip->subKeys ? KeyAt(*clip->subKeys, subIndex) : KeyPointer();
        if (!m_report.Send(kTrackSelectionCleared))
            return false;
        if (const int now = IndexOf(keys, clip); now >= 0)
            SelectAlone(keys, now);
        if (!m_report.Send(kTrackSelectionChanged))
            return false;
        if (!subKey || !clip->subKeys || IndexOf(keys, clip) < 0)
            return true;
        return PressSubKey(*clip, *clip->subKeys, subKey);
    }

    bool PressSubKey(const CTimelineKey& clip, CTimelineKeyArray& subKeys, const KeyPointer& subKey)
    {
        if (!subKey->selected) {
            subKeys.ClearAllSelection();
            Select(subKeys, IndexOf(subKeys, subKey));
            if (!m_report.Send(kTrackSelectionChanged))
                return false;
        }
        if (!subKey->subKeys)
            SetFrame(static_cast<long long>(subKey->frame) + clip.frame);
        return true;
    }

    CTimelineTrackBase& m_track;
    TrackReport& m_report;
    FrameAxis& m_axis;
};

} // namespace

void CTimelineTrackBase::contextMenuEvent(QContextMenuEvent* event)
{
    if (m_trackType == TL_TRACK_WAVE || m_editModes.GetSize() < kFewestEditModes) {
        event->ignore();
        return;
    }
    event->accept();
    BuildContextMenu(event->globalPos());
}

void CTimelineTrackBase::BuildContextMenu(QPoint globalPoint)
{
    TrackReport report(*this);
    const OpenGesture::Handling handling(Gesture());
    // The menu takes the pointer: a drag of the left button would never see its release.
    if (report.IsThere() && Gesture().IsOn())
        EndGesture();
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
    if (command && report.IsThere())
        Send(kTrackMenuChosen, *command);
}
