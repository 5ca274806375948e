#include "RangeCommands.h"

#include "AppliedEdit.h"
#include "KeySelections.h"
#include "SceneTracks.h"
#include "document/EditNames.h"
#include "document/KeyList.h"

#include <algorithm>

namespace host {

namespace {

/// Frames that the range moves by with its keys: as many as the first of them did.
int FramesMoved(const Scene& before, const Scene& after, const KeySelection& moved)
{
    const auto frameIn = [&moved](const Scene& scene) {
        const SceneKey* key = moved.clip == kNoKey ? FindKey(scene, moved.track, moved.keys.first())
                                                   : FindKey(scene, moved.track, moved.clip);
        if (moved.clip == kNoKey)
            return key ? key->frame : 0;
        const int index = key ? IndexOfKey(key->subKeys, moved.keys.first()) : -1;
        return index < 0 ? 0 : key->subKeys[index].frame;
    };
    return frameIn(after) - frameIn(before);
}

} // namespace

RangeCommands::RangeCommands(CTimelineManager& manager, SceneTracks& tracks, EditSession& session)
    : m_manager(manager), m_tracks(tracks), m_session(session)
{
}

bool RangeCommands::HasRange() const
{
    return Current().row != kNoTrack;
}

void RangeCommands::Select()
{
    const Range range = Current();
    if (range.row == kNoTrack)
        return;
    for (const SceneTrack& row : m_session.Current().tracks) {
        if (CTimelineKeyArray* const keys = m_tracks.KeysOf(row.id))
            keys->ClearAllSelection();
    }
    for (const KeySelection& row : Keys(range, false))
        SelectToo(*m_tracks.KeysOf(row.track), row);
    m_manager.InvalidateTimeline();
}

void RangeCommands::Delete()
{
    const Range range = Current();
    const QVector<KeySelection> keys =
        range.row == kNoTrack ? QVector<KeySelection>() : Keys(range, true);
    if (keys.isEmpty())
        return;
    Scene scene = m_session.Current();
    DeleteKeys(scene, keys);
    ApplyEdit(m_session, m_tracks, DeleteName(ItemsOf(m_session.Current(), keys)), scene);
}

void RangeCommands::Shift(int frames)
{
    const Range range = Current();
    const QVector<KeySelection> keys =
        range.row == kNoTrack ? QVector<KeySelection>() : Keys(range, true);
    if (keys.isEmpty() || frames == 0)
        return;
    const Scene before = m_session.Current();
    Scene scene = before;
    MoveKeys(scene, keys, frames);
    const int moved = FramesMoved(before, scene, keys.first());
    ApplyEdit(m_session, m_tracks, MoveName(ItemsOf(before, keys), moved), scene);
    const int last = scene.frameCount - 1;
    m_manager.SetTrackSelFrame(m_tracks.TrackOf(range.row),
                               std::clamp(range.first + moved, 0, last),
                               std::clamp(range.last + moved, 0, last));
}

void RangeCommands::ShiftToCurrentFrame()
{
    Shift(m_manager.GetCurrentFrame() - Current().first);
}

void RangeCommands::Mark()
{
    const Range range = Current();
    if (range.row == kNoTrack)
        return;
    Scene scene = m_session.Current();
    scene.timeMark = {range.first, range.last};
    m_manager.SetTimeMarkFrame(range.first, range.last);
    m_session.Apply(tr("Mark frames %1 to %2").arg(range.first).arg(range.last), scene);
}

void RangeCommands::DropLeftEnds()
{
    for (const SceneTrack& row : m_session.Current().tracks) {
        CTimelineTrackBase* const track = m_tracks.TrackOf(row.id);
        int first = -1;
        int last = -1;
        m_manager.GetTrackSelFrame(track, first, last);
        if (first < 0 && last >= 0)
            m_manager.SetTrackSelFrame(track, -1, -1);
    }
}

RangeCommands::Range RangeCommands::Current() const
{
    Range range;
    CTimelineTrackBase* const track = m_manager.GetActiveChildTrack();
    m_manager.GetTrackSelFrame(track, range.first, range.last);
    if (range.first >= 0 && range.first < range.last)
        range.row = m_tracks.IdOf(track);
    return range;
}

QVector<KeySelection> RangeCommands::Keys(const Range& range, bool forChange) const
{
    const Scene& scene = m_session.Current();
    QVector<TrackId> rows = RowsSharingRange(scene, range.row);
    const auto isLeftOut = [&](TrackId id) {
        const SceneTrack* const row = scene.FindTrack(id);
        return !row || (forChange && row->locked);
    };
    rows.erase(std::remove_if(rows.begin(), rows.end(), isLeftOut), rows.end());
    return KeysWithin(scene, rows, range.first, range.last);
}

} // namespace host
