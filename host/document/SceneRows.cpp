#include "SceneRows.h"

#include <algorithm>

namespace host {

RowFilter& RowFilter::Named(const QString& name)
{
    m_name = name;
    return *this;
}

RowFilter& RowFilter::Under(TrackId parent)
{
    m_parent = parent;
    return *this;
}

bool RowFilter::Fits(const SceneTrack& row) const
{
    return row.kind == m_kind && m_parent.value_or(row.parent) == row.parent &&
           (!m_name || *m_name == row.name);
}

const SceneTrack* RowFilter::FirstIn(const Scene& scene) const
{
    const auto found = std::find_if(scene.tracks.cbegin(), scene.tracks.cend(),
                                    [this](const SceneTrack& row) { return Fits(row); });
    return found == scene.tracks.cend() ? nullptr : &*found;
}

QVector<const SceneTrack*> RowFilter::AllIn(const Scene& scene) const
{
    QVector<const SceneTrack*> rows;
    for (const SceneTrack& row : scene.tracks) {
        if (Fits(row))
            rows.append(&row);
    }
    return rows;
}

} // namespace host
