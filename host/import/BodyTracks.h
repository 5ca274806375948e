#pragma once

#include "ImportProgress.h"
#include "document/Scene.h"

#include <optional>

namespace host {

/// The rows that were made for a motion, for the buttons that show and hide them.
struct BodyRows
{
    QVector<TrackId> joints;
    QVector<TrackId> contacts;
    QVector<TrackId> blends;
};

/// Adds the Body root with its rows, groups and relations to a scene that holds a motion. Nothing
/// is returned, and the scene has only a part of them, when @p progress cancels.
std::optional<BodyRows> AddBodyTracks(Scene& scene, const ImportProgress& progress = {});

} // namespace host
