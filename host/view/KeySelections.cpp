#include "KeySelections.h"

#include "SceneTracks.h"

#include <QSet>

namespace host {

namespace {

void Select(CTimelineKeyArray& keys, const QVector<KeyId>& selected)
{
    if (selected.isEmpty()) // so it is on nearly every row
        return;
    const QSet<KeyId> ids(selected.cbegin(), selected.cend());
    std::vector<CTimelineKeyArray::Choice> choices;
    const int count = static_cast<int>(keys.GetSize());
    for (int index = 0; index < count; ++index) {
        if (ids.contains(TimelineKeys::IdOf(*keys.Keys()[static_cast<std::size_t>(index)])))
            choices.push_back({index, true});
    }
    keys.SetSelectionOfKeys(choices);
}

KeySelection SelectionInside(TrackId row, const CTimelineKeyArray& keys)
{
    KeySelection selection{row, kNoKey, {}};
    if (keys.SelGetSize() == 0)
        return selection;
    const VZ::CPointer<CTimelineKey> clip = keys.SelGetKeyAt(0);
    if (!clip || !clip->subKeys)
        return selection;
    selection.clip = TimelineKeys::IdOf(*clip);
    selection.keys = SelectedIn(*clip->subKeys);
    return selection;
}

} // namespace

QVector<TrackId> TracksOf(const SceneTracks& tracks, const TrackList& list)
{
    QVector<TrackId> ids;
    for (CTimelineTrackBase* const track : list) {
        const TrackId id = tracks.IdOf(track);
        if (id != kNoTrack)
            ids.append(id);
    }
    return ids;
}

KeyId KeyIdAt(const CTimelineKeyArray& keys, int index)
{
    if (index < 0 || index >= static_cast<int>(keys.GetSize()))
        return kNoKey;
    return TimelineKeys::IdOf(*keys.GetAt(index));
}

QVector<KeyId> SelectedIn(const CTimelineKeyArray& keys)
{
    QVector<KeyId> selected;
    for (const int index : keys.SelectedIndexes()) {
        const KeyId id = KeyIdAt(keys, index);
        if (id != kNoKey)
            selected.append(id);
    }
    return selected;
}

QVector<KeySelection> SelectionOn(const SceneTracks& tracks, const Scene& scene,
                                  const QVector<TrackId>& rows)
{
    QVector<KeySelection> selections;
    for (const TrackId row : rows) {
        const SceneTrack* const track = scene.FindTrack(row);
        const CTimelineKeyArray* const keys = tracks.KeysOf(row);
        if (!track || !keys)
            continue;
        const bool isInside = rows.size() == 1 && track->editModes.contains(EditMode::EditSubKeys);
        selections.append(isInside ? SelectionInside(row, *keys)
                                   : KeySelection{row, kNoKey, SelectedIn(*keys)});
    }
    return selections;
}

void SelectOnly(CTimelineKeyArray& keys, const QVector<KeyId>& selected)
{
    keys.ClearAllSelection();
    Select(keys, selected);
}

void SelectToo(CTimelineKeyArray& keys, const KeySelection& selected)
{
    if (selected.clip == kNoKey)
        return Select(keys, selected.keys);
    Select(keys, {selected.clip});
    for (const VZ::CPointer<CTimelineKey>& clip : keys.Keys()) {
        if (TimelineKeys::IdOf(*clip) == selected.clip && clip->subKeys)
            SelectOnly(*clip->subKeys, selected.keys);
    }
}

} // namespace host
