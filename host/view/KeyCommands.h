#pragma once

#include "KeySelections.h"
#include "ShapeCommands.h"
#include "document/EditNames.h"
#include "document/EditSession.h"

namespace host {

/// The commands on keys and mouth shapes: cut, copy, paste, delete, insert, break, the selecting
/// ones and what changes shapes. They come from menus, which name a track, and some of them from
/// the timeline itself (keys that were dragged as copies are copied and pasted), which lists its
/// tracks.
class KeyCommands
{
public:
    /// All are kept and outlive this object.
    KeyCommands(CTimelineManager& manager, SceneTracks& tracks, EditSession& session);

    /// Whether the command is possible now on @p track (null: the active one).
    bool CanDo(CTimelineTrackBase* track, TLEditType type) const;
    /// Does it, on all tracks that it concerns: cut, copy and delete on every track with selected
    /// keys, paste on every track with keys put aside, the others on @p track (null: the active
    /// one). False when it is not possible.
    bool Do(CTimelineTrackBase* track, TLEditType type);

    /// Whether the row of @p track (null: the active one) is one of mouth shapes.
    bool IsRowOfShapes(CTimelineTrackBase* track) const;
    /// Whether mouth shapes are selected on @p track (null: the active one) that can be changed.
    bool CanChangeShapes(CTimelineTrackBase* track) const;
    /// Makes the selected shapes of @p track this one, a variant as MouthShapes.h has them.
    void ChangeShapesTo(CTimelineTrackBase* track, int shape);
    /// The shape that all selected ones of @p track are, nothing when they differ.
    std::optional<int> CommonShape(CTimelineTrackBase* track) const;
    /// All that is selected: keys, clips, and where clips are edited inside what is in them.
    QVector<KeySelection> Selection() const;

    /// The timeline asks for the edit on these tracks, and fills their clipboards itself when the
    /// answer to a copy or cut is 0 or more. -1 refuses.
    int Handle(TLEditType type, const TrackList& list);

private:
    using NameOfPaste = QString (*)(const EditedItems& items, int frame);
    using NameOfDelete = QString (*)(const EditedItems& items);

    /// What was put aside on a row.
    struct PutAside
    {
        TrackId row = kNoTrack;
        QVector<SceneKey> keys;
        int firstFrame = 0;
    };

    TrackId RowOf(CTimelineTrackBase* track) const;
    QVector<KeySelection> SelectionOf(TrackId row) const;
    bool RowCan(TrackId row, TLEditType type) const;
    PutAside ClipboardOf(TrackId row) const;
    void CopyShapes(const QVector<TrackId>& rows);
    QVector<TrackId> RowsThatCan(TLEditType type) const;
    QVector<TrackId> SelectedRowsThatCan(std::initializer_list<TLEditType> types) const;
    void ClearClipboards();
    bool Copy(const QVector<TrackId>& rows);
    bool Cut(const QVector<TrackId>& rows);
    /// Pastes at the current frame; the keys made stand in the result, by row. Where their likes
    /// stand already the scene stays as it is, and the result has those.
    QVector<KeySelection> Paste(const QVector<TrackId>& rows, NameOfPaste name);
    bool PasteAndSelect(const QVector<TrackId>& rows);
    void SelectInstead(const QVector<KeySelection>& selections);
    bool Delete(const QVector<TrackId>& rows, NameOfDelete name);
    bool Insert(TrackId row);
    bool Break(TrackId row);

    CTimelineManager& m_manager;
    SceneTracks& m_tracks;
    EditSession& m_session;
    ShapeCommands m_shapes;
};

} // namespace host
