#include "RowMerge.h"

#include <algorithm>

// What refers to rows: relations and buttons.

namespace host {

namespace {

void RemoveIf(QVector<TrackId>& ids, const QSet<TrackId>& gone)
{
    ids.erase(
        std::remove_if(ids.begin(), ids.end(), [&gone](TrackId id) { return gone.contains(id); }),
        ids.end());
}

/// Lets the button of that text, which is made when there is none, stand for the rows too.
void AddToButton(QVector<SwitchButton>& buttons, const QString& text, const QVector<TrackId>& rows)
{
    const auto known =
        std::find_if(buttons.begin(), buttons.end(),
                     [&text](const SwitchButton& each) { return each.text == text; });
    if (known == buttons.end()) {
        buttons.append({text, true, rows});
        return;
    }
    for (const TrackId row : rows) {
        if (!known->tracks.contains(row))
            known->tracks.append(row);
    }
}

} // namespace

void RowMerge::RemoveRows(const QSet<TrackId>& rows)
{
    if (rows.isEmpty())
        return;
    QVector<SceneTrack>& tracks = m_scene.tracks;
    tracks.erase(
        std::remove_if(tracks.begin(), tracks.end(),
                       [&rows](const SceneTrack& track) { return rows.contains(track.id); }),
        tracks.end());
    for (SceneTrack& track : tracks) {
        for (int i = track.buttons.size() - 1; i >= 0; --i) {
            const bool hadRows = !track.buttons[i].tracks.isEmpty();
            RemoveIf(track.buttons[i].tracks, rows);
            if (hadRows && track.buttons[i].tracks.isEmpty())
                track.buttons.removeAt(i);
        }
    }
    for (TrackRelation& relation : m_scene.relations)
        RemoveIf(relation.tracks, rows);
}

/// The fresh relations take the place of those among replaced rows.
void RowMerge::TakeRelations(const QSet<TrackId>& replaced)
{
    const auto isReplaced = [&replaced](const TrackRelation& relation) {
        return std::all_of(relation.tracks.cbegin(), relation.tracks.cend(),
                           [&replaced](TrackId id) { return replaced.contains(id); });
    };
    QVector<TrackRelation>& relations = m_scene.relations;
    relations.erase(std::remove_if(relations.begin(), relations.end(), isReplaced),
                    relations.end());
    for (const TrackRelation& relation : m_fresh.relations) {
        const QVector<TrackId> rows = Mapped(relation.tracks);
        if (!rows.isEmpty() && !relations.contains({relation.kind, rows}))
            relations.append({relation.kind, rows});
    }
}

/// The scene's row of buttons for each fresh one learns of the rows that came.
void RowMerge::TakeButtons()
{
    for (const SceneTrack& fresh : m_fresh.tracks) {
        for (const SwitchButton& brought : fresh.buttons) {
            const QVector<TrackId> rows = Mapped(brought.tracks);
            if (!rows.isEmpty())
                AddToButton(m_scene.FindTrack(AddRoot(fresh))->buttons, brought.text, rows);
        }
    }
}

/// The scene's rows for those fresh ones that were taken.
QVector<TrackId> RowMerge::Mapped(const QVector<TrackId>& fresh) const
{
    QVector<TrackId> rows;
    for (const TrackId row : fresh) {
        if (m_rows.contains(row))
            rows.append(m_rows.value(row));
    }
    return rows;
}

} // namespace host
