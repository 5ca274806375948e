#pragma once

#include "KeySelections.h"
#include "document/EditSession.h"
#include "document/ShapeEdits.h"

#include <QHash>

namespace host {

class SceneTracks;

/// What the commands on keys are about on rows of mouth shapes, where the keys to be edited lie
/// inside clips: the timeline lets those be selected and dragged and leaves the commands to its
/// host. What is copied here is put aside here too, row by row.
class ShapeCommands : public QObject
{
    Q_OBJECT
public:
    /// All are kept and outlive this object.
    ShapeCommands(CTimelineManager& manager, const SceneTracks& tracks, EditSession& session);

    /// Whether the commands on this row are for shapes.
    bool Concerns(TrackId row) const;
    /// Whether the command, cut to insert, is possible now on such a row.
    bool CanDo(TrackId row, TLEditType type) const;

    /// The selected shapes of the row by their clips; those of locked clips are left out.
    QVector<KeySelection> Selection(TrackId row) const;
    /// The variant that all selected shapes of the row have; nothing without one.
    std::optional<int> CommonShape(TrackId row) const;
    /// Where a shape is inserted or pasted now; the selected clip comes before others.
    std::optional<ShapePlace> Place(TrackId row) const;

    /// Puts the selected shapes aside.
    void Copy(TrackId row);
    void ClearCopied() { m_copied.clear(); }
    /// The shapes put aside, in frame order; their frames are those of the scene.
    QVector<SceneKey> Copied(TrackId row) const { return m_copied.value(row); }

private:
    bool IsLocked(TrackId row) const;

    CTimelineManager& m_manager;
    const SceneTracks& m_tracks;
    EditSession& m_session;
    QHash<TrackId, QVector<SceneKey>> m_copied;
};

} // namespace host
