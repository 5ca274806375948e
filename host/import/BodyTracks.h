#pragma once

#include "document/Scene.h"

namespace host {

/// The rows that were made for a motion, for the buttons that show and hide them.
struct BodyRows
{
    QVector<TrackId> joints;
    QVector<TrackId> contacts;
    QVector<TrackId> blends;
};

/// Adds the Body root with its rows, groups and relations to a scene that holds a motion.
BodyRows AddBodyTracks(Scene& scene);

} // namespace host
