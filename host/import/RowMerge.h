#pragma once

#include "document/Scene.h"

#include <QHash>
#include <QSet>

namespace host {

/// Takes the rows of a freshly built scene into another one, where rows of the same kind and name
/// may be there already: these keep their numbers and all that the user has set on them, and get
/// the new keys.
class RowMerge
{
public:
    /// Both are kept and outlive this object; only @p scene is changed.
    RowMerge(Scene& scene, const Scene& fresh) : m_scene(scene), m_fresh(fresh) {}

    /// What becomes of rows of the scene that the fresh one does not have.
    enum class Others
    {
        Stay,
        Go
    };

    /// The caption of a row that may not be replaced, because it or one of its keys is locked;
    /// empty when there is none. @p root is a root of the fresh scene.
    QString LockedRowUnder(TrackId root, Others others) const;
    /// Takes the rows under @p root, a root of the fresh scene, and all that refers to them.
    void Take(TrackId root, Others others);

private:
    TrackId RootLike(const SceneTrack& root) const;
    QHash<TrackId, TrackId> RowsLike(TrackId freshRoot, TrackId root) const;
    TrackId AddRoot(const SceneTrack& root);
    void TakeRow(const SceneTrack& fresh, TrackId root, TrackId known);
    void PlaceBehind(TrackId root, const QVector<TrackId>& rows);
    void RemoveRows(const QSet<TrackId>& rows);
    void TakeRelations(const QSet<TrackId>& replaced);
    void TakeButtons();
    void RemoveUnusedGroups(const QSet<GroupId>& candidates);
    void TakeGroups(QVector<SceneKey>& keys);
    QVector<TrackId> Mapped(const QVector<TrackId>& fresh) const;

    Scene& m_scene;
    const Scene& m_fresh;
    QHash<TrackId, TrackId> m_rows; ///< the scene's for the fresh scene's
    QHash<GroupId, GroupId> m_groups;
};

} // namespace host
