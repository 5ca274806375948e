#include "ShapeCommands.h"

#include "SceneTracks.h"
#include "document/KeyList.h"

#include <algorithm>

namespace host {

ShapeCommands::ShapeCommands(CTimelineManager& manager, const SceneTracks& tracks,
                             EditSession& session)
    : m_manager(manager), m_tracks(tracks), m_session(session)
{
    connect(&session, &EditSession::Restarted, this, &ShapeCommands::ClearCopied);
}

bool ShapeCommands::Concerns(TrackId row) const
{
    const SceneTrack* const track = m_session.Current().FindTrack(row);
    return track && track->kind == TrackKind::Viseme &&
           track->editModes.contains(EditMode::EditSubKeys);
}

bool ShapeCommands::CanDo(TrackId row, TLEditType type) const
{
    const std::optional<ShapePlace> place = Place(row);
    switch (type) {
    case TL_EDIT_COPY:
        return !Selection(row).isEmpty();
    case TL_EDIT_CUT:
    case TL_EDIT_DELETE:
        return !IsLocked(row) && !Selection(row).isEmpty();
    case TL_EDIT_PASTE:
        return !IsLocked(row) && place && !Copied(row).isEmpty();
    case TL_EDIT_INSERT_KEY:
        return !IsLocked(row) && place && IsFreeForShape(m_session.Current(), row, *place);
    default:
        return false;
    }
}

QVector<KeySelection> ShapeCommands::Selection(TrackId row) const
{
    QVector<KeySelection> selection;
    const CTimelineKeyArray* const clips = m_tracks.KeysOf(row);
    if (!clips)
        return selection;
    for (const int index : clips->SelectedIndexes()) {
        const KeyId clip = KeyIdAt(*clips, index);
        const SceneKey* const key = FindKey(m_session.Current(), row, clip);
        if (!key || key->locked || !clips->GetAt(index)->subKeys)
            continue;
        const QVector<KeyId> shapes = SelectedIn(*clips->GetAt(index)->subKeys);
        if (!shapes.isEmpty())
            selection.append({row, clip, shapes});
    }
    return selection;
}

std::optional<int> ShapeCommands::CommonShape(TrackId row) const
{
    std::optional<int> common;
    for (const KeySelection& inside : Selection(row)) {
        for (const SceneKey& shape : FindKey(m_session.Current(), row, inside.clip)->subKeys) {
            if (!inside.keys.contains(shape.id))
                continue;
            if (common.value_or(shape.mouthShape) != shape.mouthShape)
                return std::nullopt;
            common = shape.mouthShape;
        }
    }
    return common;
}

std::optional<ShapePlace> ShapeCommands::Place(TrackId row) const
{
    const CTimelineKeyArray* const clips = m_tracks.KeysOf(row);
    const bool isClipSelected = clips && !clips->SelectedIndexes().empty();
    const KeyId preferred =
        isClipSelected ? KeyIdAt(*clips, clips->SelectedIndexes().front()) : kNoKey;
    return ShapePlaceAt(m_session.Current(), row, m_manager.GetCurrentFrame(), preferred);
}

void ShapeCommands::Copy(TrackId row)
{
    QVector<SceneKey> copied;
    for (const KeySelection& inside : Selection(row)) {
        const SceneKey& clip = *FindKey(m_session.Current(), row, inside.clip);
        for (SceneKey shape : clip.subKeys) {
            if (!inside.keys.contains(shape.id))
                continue;
            shape.frame += clip.frame;
            copied.append(shape);
        }
    }
    std::stable_sort(copied.begin(), copied.end(),
                     [](const SceneKey& a, const SceneKey& b) { return a.frame < b.frame; });
    m_copied.insert(row, copied);
}

bool ShapeCommands::IsLocked(TrackId row) const
{
    const SceneTrack* const track = m_session.Current().FindTrack(row);
    return !track || track->locked;
}

} // namespace host
