#include "KeyCommands.h"

#include "SceneTracks.h"
#include "document/ClipEdits.h"

#include <algorithm>
#include <limits>

namespace host {

namespace {

constexpr int kDone = 0;
constexpr int kRefused = -1;

/// What a track's clipboard holds.
struct PutAside
{
    TrackId row = kNoTrack;
    QVector<SceneKey> keys;
    int firstFrame = 0;
};

} // namespace

KeyCommands::KeyCommands(CTimelineManager& manager, SceneTracks& tracks, EditSession& session)
    : m_manager(manager), m_tracks(tracks), m_session(session)
{
}

bool KeyCommands::CanDo(CTimelineTrackBase* track, TLEditType type) const
{
    return m_manager.CanDoTrackEdit(track, type);
}

bool KeyCommands::Do(CTimelineTrackBase* track, TLEditType type)
{
    if (!CanDo(track, type))
        return false;
    const TrackId row = m_tracks.IdOf(track ? track : m_manager.GetActiveChildTrack());
    switch (type) {
    case TL_EDIT_CUT:
        return Cut(SelectedRowsThatCan({TL_EDIT_COPY, TL_EDIT_DELETE}));
    case TL_EDIT_COPY:
        return Copy(SelectedRowsThatCan({TL_EDIT_COPY}));
    case TL_EDIT_PASTE:
        return PasteAndSelect(RowsThatCan(TL_EDIT_PASTE));
    case TL_EDIT_DELETE:
        return Delete(SelectedRowsThatCan({TL_EDIT_DELETE}), DeleteName);
    case TL_EDIT_INSERT_KEY:
        return Insert(row);
    case TL_EDIT_BREAK:
        return Break(row);
    default:
        return m_manager.DoTrackEdit(track, type);
    }
}

int KeyCommands::Handle(TLEditType type, const TrackList& list)
{
    const QVector<TrackId> rows = TracksOf(m_tracks, list);
    const auto can = [&](TrackId row) { return CanDo(m_tracks.TrackOf(row), type); };
    if (rows.isEmpty() || !std::all_of(rows.cbegin(), rows.cend(), can))
        return kRefused;
    switch (type) {
    case TL_EDIT_CUT:
        ClearClipboards();
        return Delete(rows, CutName) ? kDone : kRefused;
    case TL_EDIT_COPY:
        ClearClipboards();
        return kDone;
    case TL_EDIT_PASTE:
        return Paste(rows, CopyName).isEmpty() ? kRefused : kDone;
    case TL_EDIT_DELETE:
        return Delete(rows, DeleteName) ? kDone : kRefused;
    case TL_EDIT_INSERT_KEY:
        return Insert(rows.first()) ? kDone : kRefused;
    case TL_EDIT_BREAK:
        return Break(rows.first()) ? kDone : kRefused;
    default:
        return kRefused;
    }
}

QVector<TrackId> KeyCommands::RowsThatCan(TLEditType type) const
{
    QVector<TrackId> rows;
    for (const SceneTrack& track : m_session.Current().tracks) {
        CTimelineTrackBase* const row = m_tracks.TrackOf(track.id);
        if (row && m_manager.CanDoTrackEdit(row, type))
            rows.append(track.id);
    }
    return rows;
}

QVector<TrackId> KeyCommands::SelectedRowsThatCan(std::initializer_list<TLEditType> types) const
{
    TrackList selected;
    m_manager.GetSelectedKeyTrack(selected);
    QVector<TrackId> rows = TracksOf(m_tracks, selected);
    const auto cannot = [&](TrackId row) {
        return !std::all_of(types.begin(), types.end(), [&](TLEditType type) {
            return m_manager.CanDoTrackEdit(m_tracks.TrackOf(row), type);
        });
    };
    rows.erase(std::remove_if(rows.begin(), rows.end(), cannot), rows.end());
    return rows;
}

void KeyCommands::ClearClipboards()
{
    // What was copied last is what is pasted: on no row may older keys join it.
    for (const SceneTrack& track : m_session.Current().tracks)
        m_manager.ResetClipboard(m_tracks.TrackOf(track.id));
}

bool KeyCommands::Copy(const QVector<TrackId>& rows)
{
    if (rows.isEmpty())
        return false;
    ClearClipboards();
    for (const TrackId row : rows)
        m_manager.CopySelectionToClipboard(m_tracks.TrackOf(row));
    return true;
}

bool KeyCommands::Cut(const QVector<TrackId>& rows)
{
    return Copy(rows) && Delete(rows, CutName);
}

QVector<KeySelection> KeyCommands::Paste(const QVector<TrackId>& rows, NameOfPaste name)
{
    QVector<PutAside> clipboards;
    int firstFrame = std::numeric_limits<int>::max();
    for (const TrackId row : rows) {
        PutAside clipboard{row, {}, 0};
        CTimelineKeyArray::KeyVector keys;
        if (!m_manager.GetClipboardKeys(m_tracks.TrackOf(row), keys, clipboard.firstFrame))
            continue;
        for (const VZ::CPointer<CTimelineKey>& key : keys)
            clipboard.keys.append(TimelineKeys::Read(*key));
        firstFrame = std::min(firstFrame, clipboard.firstFrame);
        clipboards.append(clipboard);
    }
    // One shift for all rows, so that they keep their distances too.
    const int shift = m_manager.GetCurrentFrame() - firstFrame;
    Scene scene = m_session.Current();
    QVector<KeySelection> there;
    QVector<KeySelection> pasted;
    for (const PutAside& clipboard : qAsConst(clipboards)) {
        const TrackId row = clipboard.row;
        there.append(
            {row, kNoKey, KeysAlreadyPasted(m_session.Current(), row, clipboard.keys, shift)});
        pasted.append({row, kNoKey, PasteKeys(scene, row, clipboard.keys, shift)});
    }
    const bool isNew = std::any_of(there.cbegin(), there.cend(),
                                   [](const KeySelection& row) { return row.keys.isEmpty(); });
    if (!isNew) // or there is nothing to paste
        return there;
    Apply(name(ItemsOf(scene, pasted), m_manager.GetCurrentFrame()), scene);
    return pasted;
}

bool KeyCommands::PasteAndSelect(const QVector<TrackId>& rows)
{
    const QVector<KeySelection> pasted = Paste(rows, PasteName);
    if (pasted.isEmpty())
        return false;
    SelectInstead(pasted);
    return true;
}

void KeyCommands::SelectInstead(const QVector<KeySelection>& selections)
{
    TrackList selected;
    m_manager.GetSelectedKeyTrack(selected);
    for (const TrackId row : TracksOf(m_tracks, selected))
        m_tracks.KeysOf(row)->ClearAllSelection();
    for (const KeySelection& keys : selections)
        SelectOnly(*m_tracks.KeysOf(keys.track), keys.keys);
    m_manager.InvalidateTimeline();
}

bool KeyCommands::Delete(const QVector<TrackId>& rows, NameOfDelete name)
{
    if (rows.isEmpty())
        return false;
    QVector<KeySelection> selections;
    for (const TrackId row : rows)
        selections += SelectionOn(m_tracks, m_session.Current(), {row});
    Scene scene = m_session.Current();
    DeleteKeys(scene, selections);
    Apply(name(ItemsOf(m_session.Current(), selections)), scene);
    return true;
}

bool KeyCommands::Insert(TrackId row)
{
    Scene scene = m_session.Current();
    const KeyId inserted = InsertKey(scene, row, m_manager.GetCurrentFrame());
    if (inserted == kNoKey)
        return false;
    Apply(InsertName(m_manager.GetCurrentFrame()), scene);
    SelectInstead({{row, kNoKey, {inserted}}});
    return true;
}

bool KeyCommands::Break(TrackId row)
{
    const QVector<KeySelection> selection = SelectionOn(m_tracks, m_session.Current(), {row});
    if (selection.isEmpty() || selection.first().keys.isEmpty())
        return false;
    Scene scene = m_session.Current();
    const int frame = m_manager.GetCurrentFrame();
    if (!BreakClip(scene, row, selection.first().keys.first(), frame))
        return false;
    Apply(BreakName(frame), scene);
    return true;
}

void KeyCommands::Apply(const QString& name, const Scene& scene)
{
    m_session.Begin();
    m_session.Step(name, scene);
    m_tracks.ShowKeys(scene);
    m_session.Commit(); // who hears of it finds the timeline in step
}

} // namespace host
