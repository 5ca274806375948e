#include "RowMerge.h"

#include <algorithm>
#include <iterator>

namespace host {

namespace {

/// The roots in the order in which they stand in a scene that is built at once.
const QStringList kRootOrder{QStringLiteral("Layers"), QStringLiteral("Joints"),
                             QStringLiteral("Face"), QStringLiteral("Body")};

bool IsLocked(const SceneTrack& row)
{
    return row.locked || std::any_of(row.keys.cbegin(), row.keys.cend(),
                                     [](const SceneKey& key) { return key.locked; });
}

/// A row that an import fills; one without keys is there for the user to fill.
bool BringsKeys(const SceneTrack& fresh)
{
    return !fresh.keys.isEmpty() || fresh.kind != TrackKind::Clip;
}

/// The rows in their order, and those of @p brought that are not among them each behind the one
/// that it was brought behind.
QVector<TrackId> WithAdded(QVector<TrackId> rows, const QVector<TrackId>& brought)
{
    int place = 0;
    for (const TrackId row : brought) {
        const int known = rows.indexOf(row);
        if (known < 0)
            rows.insert(place, row);
        place = (known < 0 ? place : known) + 1;
    }
    return rows;
}

QSet<GroupId> GroupsOf(const SceneTrack& row)
{
    QSet<GroupId> groups;
    for (const SceneKey& key : row.keys)
        groups.insert(key.group);
    return groups;
}

} // namespace

TrackId RowMerge::RootLike(const SceneTrack& root) const
{
    for (const SceneTrack& track : qAsConst(m_scene.tracks)) {
        if (track.parent == kNoTrack && track.kind == root.kind && track.name == root.name)
            return track.id;
    }
    return kNoTrack;
}

/// The scene's row for each fresh one that it has; of rows of the same name the first for the
/// first.
QHash<TrackId, TrackId> RowMerge::RowsLike(TrackId freshRoot, TrackId root) const
{
    const Scene& scene = m_scene;
    QHash<QString, QVector<TrackId>> known;
    const auto nameOf = [](const SceneTrack& row) {
        return QString::number(static_cast<int>(row.kind)) + row.name;
    };
    if (root != kNoTrack) {
        for (const TrackId row : scene.ChildrenOf(root))
            known[nameOf(*scene.FindTrack(row))].append(row);
    }
    QHash<TrackId, TrackId> rows;
    for (const TrackId row : m_fresh.ChildrenOf(freshRoot)) {
        QVector<TrackId>& candidates = known[nameOf(*m_fresh.FindTrack(row))];
        if (!candidates.isEmpty())
            rows.insert(row, candidates.takeFirst());
    }
    return rows;
}

QString RowMerge::LockedRowUnder(TrackId freshRoot, Others others) const
{
    const Scene& scene = m_scene;
    const TrackId root = RootLike(*m_fresh.FindTrack(freshRoot));
    if (root == kNoTrack)
        return {};
    QSet<TrackId> replaced;
    const QHash<TrackId, TrackId> rows = RowsLike(freshRoot, root);
    for (auto row = rows.cbegin(); row != rows.cend(); ++row) {
        if (BringsKeys(*m_fresh.FindTrack(row.key())))
            replaced.insert(row.value());
    }
    for (const TrackId row : scene.ChildrenOf(root)) {
        const SceneTrack& track = *scene.FindTrack(row);
        if ((others == Others::Go || replaced.contains(row)) && IsLocked(track))
            return track.caption;
    }
    return {};
}

void RowMerge::Take(TrackId freshRoot, Others others)
{
    const SceneTrack& fresh = *m_fresh.FindTrack(freshRoot);
    const TrackId root = AddRoot(fresh);
    m_rows.insert(freshRoot, root);
    const QHash<TrackId, TrackId> known = RowsLike(freshRoot, root);
    const QVector<TrackId> before = m_scene.ChildrenOf(root);

    QSet<TrackId> replaced;
    QSet<GroupId> groups;
    QVector<TrackId> order;
    for (const TrackId row : m_fresh.ChildrenOf(freshRoot)) {
        const SceneTrack& taken = *m_fresh.FindTrack(row);
        const TrackId like = known.value(row, kNoTrack);
        if (like != kNoTrack && BringsKeys(taken)) {
            replaced.insert(like);
            groups += GroupsOf(*qAsConst(m_scene).FindTrack(like));
        }
        TakeRow(taken, root, like);
        order.append(m_rows.value(row));
    }
    QSet<TrackId> gone;
    for (const TrackId row : before) {
        if (order.contains(row) || others == Others::Stay)
            continue;
        gone.insert(row);
        groups += GroupsOf(*qAsConst(m_scene).FindTrack(row));
    }
    PlaceBehind(root, others == Others::Stay ? WithAdded(before, order) : order);
    TakeRelations(replaced + gone);
    TakeButtons();
    RemoveRows(gone);
    RemoveUnusedGroups(groups);
}

TrackId RowMerge::AddRoot(const SceneTrack& root)
{
    const TrackId known = RootLike(root);
    if (known != kNoTrack)
        return known;
    SceneTrack added = root;
    added.keys.clear();
    added.buttons.clear(); // they stand for fresh rows
    const TrackId id = m_scene.AddTrack(added);
    const int rank = kRootOrder.indexOf(root.name);
    const auto last = std::prev(m_scene.tracks.end());
    const auto place = std::find_if(m_scene.tracks.begin(), last, [rank](const SceneTrack& track) {
        return track.parent == kNoTrack && kRootOrder.indexOf(track.name) > rank;
    });
    std::rotate(place, last, m_scene.tracks.end());
    return id;
}

void RowMerge::TakeRow(const SceneTrack& fresh, TrackId root, TrackId known)
{
    if (known != kNoTrack) {
        m_rows.insert(fresh.id, known);
        if (!BringsKeys(fresh))
            return;
        QVector<SceneKey> keys = fresh.keys;
        m_scene.NumberKeys(keys);
        TakeGroups(keys);
        m_scene.FindTrack(known)->keys = keys;
        return;
    }
    SceneTrack added = fresh;
    added.parent = root;
    TakeGroups(added.keys);
    m_rows.insert(fresh.id, m_scene.AddTrack(added));
}

void RowMerge::TakeGroups(QVector<SceneKey>& keys)
{
    for (SceneKey& key : keys) {
        if (key.group == kNoGroup)
            continue;
        if (!m_groups.contains(key.group)) {
            const GroupId fresh = key.group;
            const auto group =
                std::find_if(m_fresh.groups.cbegin(), m_fresh.groups.cend(),
                             [fresh](const SceneGroup& each) { return each.id == fresh; });
            const QString name = group == m_fresh.groups.cend() ? QString() : group->name;
            m_groups.insert(fresh, m_scene.AddGroup(name));
        }
        key.group = m_groups.value(key.group);
    }
}

/// Moves the rows behind their root, in that order.
void RowMerge::PlaceBehind(TrackId root, const QVector<TrackId>& rows)
{
    QVector<SceneTrack> moved;
    for (const TrackId row : rows)
        moved.append(*m_scene.FindTrack(row));
    QVector<SceneTrack>& tracks = m_scene.tracks;
    tracks.erase(
        std::remove_if(tracks.begin(), tracks.end(),
                       [&rows](const SceneTrack& track) { return rows.contains(track.id); }),
        tracks.end());
    const auto place = std::find_if(tracks.begin(), tracks.end(),
                                    [root](const SceneTrack& track) { return track.id == root; });
    int index = static_cast<int>(place - tracks.begin()) + 1;
    // What else hangs under the root (rows that go) may stand anywhere behind it.
    for (const SceneTrack& track : qAsConst(moved))
        tracks.insert(index++, track);
}

void RowMerge::RemoveUnusedGroups(const QSet<GroupId>& candidates)
{
    QSet<GroupId> unused = candidates;
    for (const SceneTrack& track : qAsConst(m_scene.tracks))
        unused -= GroupsOf(track);
    const auto isUnused = [&unused](const SceneGroup& group) { return unused.contains(group.id); };
    m_scene.groups.erase(std::remove_if(m_scene.groups.begin(), m_scene.groups.end(), isUnused),
                         m_scene.groups.end());
}

} // namespace host
