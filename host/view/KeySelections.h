#pragma once

#include "document/KeyEdits.h"

#include <KestovaTimelineQU/KestovaTimelineQU.h>

namespace host {

class SceneTracks;

using TrackList = VZ::CArrayList<CTimelineTrackBase*>;

/// The scene's tracks for the timeline's, without those that are not of the scene.
QVector<TrackId> TracksOf(const SceneTracks& tracks, const TrackList& list);

/// The number of the scene key at @p index of a row of the timeline, or kNoKey.
KeyId KeyIdAt(const CTimelineKeyArray& keys, int index);

/// The numbers of the keys that are selected in the array.
QVector<KeyId> SelectedIn(const CTimelineKeyArray& keys);

/// The keys that are selected on the rows. A single row whose clips are edited inside gives the
/// selected sub-keys of its first selected clip.
QVector<KeySelection> SelectionOn(const SceneTracks& tracks, const Scene& scene,
                                  const QVector<TrackId>& rows);

/// Selects these keys of the row and no others.
void SelectOnly(CTimelineKeyArray& keys, const QVector<KeyId>& selected);
/// Selects more keys of the row. When they lie inside a clip, that is selected too, and of what is
/// in it nothing but they.
void SelectToo(CTimelineKeyArray& keys, const KeySelection& selected);

} // namespace host
