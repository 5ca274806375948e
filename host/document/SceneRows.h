#pragma once

#include "Scene.h"

#include <optional>

namespace host {

/// Picks rows of a scene: of one kind, and if it is asked for of one name, or under one root.
class RowFilter
{
public:
    explicit RowFilter(TrackKind kind) : m_kind(kind) {}
    RowFilter& Named(const QString& name);
    RowFilter& Under(TrackId parent);

    bool Fits(const SceneTrack& row) const;
    /// The first of them in display order, or null. Good until the scene's rows change.
    const SceneTrack* FirstIn(const Scene& scene) const;
    /// All of them in display order.
    QVector<const SceneTrack*> AllIn(const Scene& scene) const;

private:
    TrackKind m_kind;
    std::optional<QString> m_name;
    std::optional<TrackId> m_parent;
};

} // namespace host
