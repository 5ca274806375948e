#include "KeyCommands.h"

#include "AppliedEdit.h"
#include "SceneTracks.h"
#include "document/ClipEdits.h"

#include <algorithm>
#include <limits>

namespace host {

namespace {

constexpr int kDone = 0;
constexpr int kRefused = -1;

/// Whether the edit, on a row of shapes, is for those.
bool IsForShapes(TLEditType type)
{
    return type == TL_EDIT_CUT || type == TL_EDIT_COPY || type == TL_EDIT_PASTE ||
           type == TL_EDIT_DELETE || type == TL_EDIT_INSERT_KEY;
}

} // namespace

KeyCommands::KeyCommands(CTimelineManager& manager, SceneTracks& tracks, EditSession& session)
    : m_manager(manager), m_tracks(tracks), m_session(session), m_shapes(manager, tracks, session)
{
}

bool KeyCommands::CanDo(CTimelineTrackBase* track, TLEditType type) const
{
    const TrackId row = RowOf(track);
    return IsForShapes(type) && m_shapes.Concerns(row) ? m_shapes.CanDo(row, type)
                                                       : m_manager.CanDoTrackEdit(track, type);
}

bool KeyCommands::Do(CTimelineTrackBase* track, TLEditType type)
{
    if (!CanDo(track, type))
        return false;
    const TrackId row = RowOf(track);
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
    // Beside keys of other rows it is the clips of shapes that are dragged, which none may copy.
    const auto can = [&](TrackId row) {
        return m_shapes.Concerns(row) ? rows.size() == 1 && m_shapes.CanDo(row, type)
                                      : m_manager.CanDoTrackEdit(m_tracks.TrackOf(row), type);
    };
    if (rows.isEmpty() || !std::all_of(rows.cbegin(), rows.cend(), can))
        return kRefused;
    switch (type) {
    case TL_EDIT_CUT:
        ClearClipboards();
        CopyShapes(rows);
        return Delete(rows, CutName) ? kDone : kRefused;
    case TL_EDIT_COPY:
        ClearClipboards();
        CopyShapes(rows);
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

TrackId KeyCommands::RowOf(CTimelineTrackBase* track) const
{
    return m_tracks.IdOf(track ? track : m_manager.GetActiveChildTrack());
}

bool KeyCommands::RowCan(TrackId row, TLEditType type) const
{
    return CanDo(m_tracks.TrackOf(row), type);
}

QVector<TrackId> KeyCommands::RowsThatCan(TLEditType type) const
{
    QVector<TrackId> rows;
    for (const SceneTrack& track : m_session.Current().tracks) {
        CTimelineTrackBase* const row = m_tracks.TrackOf(track.id);
        if (row && RowCan(track.id, type))
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
        return !std::all_of(types.begin(), types.end(),
                            [&](TLEditType type) { return RowCan(row, type); });
    };
    rows.erase(std::remove_if(rows.begin(), rows.end(), cannot), rows.end());
    return rows;
}

void KeyCommands::ClearClipboards()
{
    // What was copied last is what is pasted: on no row may older keys join it.
    for (const SceneTrack& track : m_session.Current().tracks)
        m_manager.ResetClipboard(m_tracks.TrackOf(track.id));
    m_shapes.ClearCopied();
}

void KeyCommands::CopyShapes(const QVector<TrackId>& rows)
{
    for (const TrackId row : rows) {
        if (m_shapes.Concerns(row))
            m_shapes.Copy(row);
    }
}

bool KeyCommands::Copy(const QVector<TrackId>& rows)
{
    if (rows.isEmpty())
        return false;
    ClearClipboards();
    CopyShapes(rows);
    for (const TrackId row : rows) {
        if (!m_shapes.Concerns(row))
            m_manager.CopySelectionToClipboard(m_tracks.TrackOf(row));
    }
    return true;
}

bool KeyCommands::Cut(const QVector<TrackId>& rows)
{
    return Copy(rows) && Delete(rows, CutName);
}

KeyCommands::PutAside KeyCommands::ClipboardOf(TrackId row) const
{
    PutAside clipboard{row, {}, 0};
    if (m_shapes.Concerns(row)) {
        clipboard.keys = m_shapes.Copied(row);
        clipboard.firstFrame = clipboard.keys.isEmpty() ? 0 : clipboard.keys.first().frame;
        return clipboard;
    }
    CTimelineKeyArray::KeyVector keys;
    m_manager.GetClipboardKeys(m_tracks.TrackOf(row), keys, clipboard.firstFrame);
    for (const VZ::CPointer<CTimelineKey>& key : keys)
        clipboard.keys.append(TimelineKeys::Read(*key));
    return clipboard;
}

QVector<KeySelection> KeyCommands::Paste(const QVector<TrackId>& rows, NameOfPaste name)
{
    QVector<PutAside> clipboards;
    int firstFrame = std::numeric_limits<int>::max();
    for (const TrackId row : rows) {
        const PutAside clipboard = ClipboardOf(row);
        if (clipboard.keys.isEmpty())
            continue;
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
        const auto place = m_shapes.Concerns(row) ? m_shapes.Place(row) : std::nullopt;
        if (place) {
            there.append({row, place->clip, {}}); // shapes are made anew
            pasted.append(
                {row, place->clip,
                 PasteShapes(scene, row, place->clip, clipboard.keys, place->frame - firstFrame)});
            continue;
        }
        there.append(
            {row, kNoKey, KeysAlreadyPasted(m_session.Current(), row, clipboard.keys, shift)});
        pasted.append({row, kNoKey, PasteKeys(scene, row, clipboard.keys, shift)});
    }
    const bool isNew = std::any_of(there.cbegin(), there.cend(),
                                   [](const KeySelection& row) { return row.keys.isEmpty(); });
    if (!isNew) // or there is nothing to paste
        return there;
    ApplyEdit(m_session, m_tracks, name(ItemsOf(scene, pasted), m_manager.GetCurrentFrame()),
              scene);
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
        SelectToo(*m_tracks.KeysOf(keys.track), keys);
    m_manager.InvalidateTimeline();
}

bool KeyCommands::Delete(const QVector<TrackId>& rows, NameOfDelete name)
{
    if (rows.isEmpty())
        return false;
    QVector<KeySelection> selections;
    for (const TrackId row : rows)
        selections += SelectionOf(row);
    Scene scene = m_session.Current();
    DeleteKeys(scene, selections);
    ApplyEdit(m_session, m_tracks, name(ItemsOf(m_session.Current(), selections)), scene);
    return true;
}

bool KeyCommands::Insert(TrackId row)
{
    Scene scene = m_session.Current();
    const int frame = m_manager.GetCurrentFrame();
    const bool isShape = m_shapes.Concerns(row);
    const std::optional<ShapePlace> place = isShape ? m_shapes.Place(row) : std::nullopt;
    if (isShape && !place)
        return false;
    const KeyId inserted = isShape ? InsertShape(scene, row, *place) : InsertKey(scene, row, frame);
    if (inserted == kNoKey)
        return false;
    ApplyEdit(m_session, m_tracks, isShape ? InsertShapeName(frame) : InsertName(frame), scene);
    SelectInstead({{row, isShape ? place->clip : kNoKey, {inserted}}});
    return true;
}

bool KeyCommands::IsRowOfShapes(CTimelineTrackBase* track) const
{
    return m_shapes.Concerns(RowOf(track));
}

bool KeyCommands::CanChangeShapes(CTimelineTrackBase* track) const
{
    return IsRowOfShapes(track) && m_shapes.CanDo(RowOf(track), TL_EDIT_DELETE);
}

void KeyCommands::ChangeShapesTo(CTimelineTrackBase* track, int shape)
{
    if (!CanChangeShapes(track))
        return;
    const QVector<KeySelection> shapes = m_shapes.Selection(RowOf(track));
    Scene scene = m_session.Current();
    ChangeShapes(scene, shapes, shape);
    ApplyEdit(m_session, m_tracks, ChangeShapesName(ItemsOf(scene, shapes), shape), scene);
}

std::optional<int> KeyCommands::CommonShape(CTimelineTrackBase* track) const
{
    return IsRowOfShapes(track) ? m_shapes.CommonShape(RowOf(track)) : std::nullopt;
}

QVector<KeySelection> KeyCommands::Selection() const
{
    TrackList selected;
    m_manager.GetSelectedKeyTrack(selected);
    QVector<KeySelection> selection;
    for (const TrackId row : TracksOf(m_tracks, selected))
        selection += SelectionOf(row);
    return selection;
}

QVector<KeySelection> KeyCommands::SelectionOf(TrackId row) const
{
    return m_shapes.Concerns(row) ? m_shapes.Selection(row)
                                  : SelectionOn(m_tracks, m_session.Current(), {row});
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
    ApplyEdit(m_session, m_tracks, BreakName(frame), scene);
    return true;
}

} // namespace host
