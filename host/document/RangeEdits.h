#pragma once

#include "KeyEdits.h"

namespace host {

/// The keys of the rows that stand on the frames @p first to @p last, both included; of a row whose
/// clips are edited inside, the sub-keys that do. Rows and clips without such keys are left out.
QVector<KeySelection> KeysWithin(const Scene& scene, const QVector<TrackId>& rows, int first,
                                 int last);

/// The rows that show the time range of @p track with it: itself, and those that a relation makes
/// follow it.
QVector<TrackId> RowsSharingRange(const Scene& scene, TrackId track);

} // namespace host
