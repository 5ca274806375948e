#include "SceneTracks.h"

#include "RowModes.h"
#include "document/RowStates.h"

#include <QSet>

#include <array>

namespace host {

namespace {

constexpr int kButtonOff = 0;
constexpr int kButtonOn = 2;
constexpr unsigned int kLast = 0xFFFFFFFF; ///< a place beyond the end

/// The timeline's number for each TrackKind, in the order of the enumeration.
constexpr std::array<TL_TRACK_TYPE, 6> kTrackTypes{TL_TRACK_SWITCH,         TL_TRACK_KEY,
                                                   TL_TRACK_TRANSITION_KEY, TL_TRACK_LINK_KEY,
                                                   TL_TRACK_VISEME_KEY,     TL_TRACK_CLIP};

constexpr int kNoKind = -1; ///< a relation that the timeline knows nothing of

/// The timeline's number for each RelationKind, in the order of the enumeration.
constexpr std::array<int, 4> kRelationKinds{0, 1, 3, kNoKind};

template <class Table, class Enumeration>
auto Entry(const Table& table, Enumeration value)
{
    return table.at(static_cast<std::size_t>(value));
}

std::vector<_tmpTLSwitchBtnData> ButtonsOf(const SceneTrack& track)
{
    std::vector<_tmpTLSwitchBtnData> buttons;
    for (const SwitchButton& button : track.buttons)
        buttons.push_back({button.text, button.on ? kButtonOn : kButtonOff});
    return buttons;
}

} // namespace

bool SceneTracks::Show(const Scene& scene)
{
    Clear();
    for (const SceneTrack& track : scene.tracks) {
        if (!MakeTrack(track))
            return false;
        Fill(track);
    }
    Relate(scene.relations);
    for (const SceneTrack& track : scene.tracks) {
        for (const SwitchButton& button : track.buttons) {
            for (const TrackId row : button.tracks)
                SetRowShown(scene, row, IsRowShown(scene, row));
        }
    }
    ShowRelatedKeys(scene);
    m_shown = scene;
    m_manager.InvalidateTimeline();
    return true;
}

bool SceneTracks::CanShow(const Scene& scene) const
{
    QSet<QPair<int, int>> tried; // kind and style
    for (const SceneTrack& track : scene.tracks) {
        const QPair<int, int> look(static_cast<int>(track.kind), track.styleNumber);
        if (tried.contains(look))
            continue;
        tried.insert(look);
        CTimelineTrackBase* const probe = m_manager.CreateTrack(
            Entry(kTrackTypes, track.kind), {}, static_cast<unsigned int>(track.styleNumber));
        if (!m_manager.DeleteTrack(probe))
            return false;
    }
    return true;
}

bool SceneTracks::Update(const Scene& scene)
{
    if (!HasRowsOf(scene))
        return Show(scene);
    const Scene before = m_shown;
    if (before.relations != scene.relations)
        Relate(scene.relations);
    for (int i = 0; i < scene.tracks.size(); ++i)
        UpdateRow(scene, scene.tracks[i], before.tracks[i]);
    ShowKeys(scene);
    return true;
}

bool SceneTracks::HasRowsOf(const Scene& scene) const
{
    const auto isSameRow = [](const SceneTrack& a, const SceneTrack& b) {
        return a.id == b.id && a.kind == b.kind && a.styleNumber == b.styleNumber &&
               a.parent == b.parent;
    };
    return std::equal(m_shown.tracks.cbegin(), m_shown.tracks.cend(), scene.tracks.cbegin(),
                      scene.tracks.cend(), isSameRow);
}

void SceneTracks::UpdateRow(const Scene& scene, const SceneTrack& track, const SceneTrack& shown)
{
    CTimelineTrackBase* const row = TrackOf(track.id);
    if (track.caption != shown.caption)
        m_manager.SetTrackName(row, track.caption);
    if (track.editModes != shown.editModes) {
        VZ::CArrayList<TLEditType> types = EditTypesOf(track);
        m_manager.SetTrackEditMode(row, types);
    }
    std::vector<_tmpTLSwitchBtnData> buttons = ButtonsOf(track);
    m_manager.SetTrackSwitchBtnList(row, buttons); // refused by other kinds
    for (const SwitchButton& button : track.buttons) {
        for (const TrackId child : button.tracks) {
            const bool isShown = m_manager.GetChildTrackSortIndex(TrackOf(child)) >= 0;
            if (isShown != IsRowShown(scene, child))
                SetRowShown(scene, child, !isShown);
        }
    }
}

void SceneTracks::ShowKeys(const Scene& scene, const QVector<TrackId>& touched)
{
    for (const SceneTrack& track : scene.tracks) {
        const SceneTrack* const shown = m_shown.FindTrack(track.id);
        CTimelineKeyArray* const keys = KeysOf(track.id);
        if (!shown || !keys || (shown->keys == track.keys && !touched.contains(track.id)))
            continue;
        m_keys.Update(*keys, track.keys);
    }
    ShowRelatedKeys(scene);
    m_shown = scene;
    m_manager.InvalidateTimeline();
}

void SceneTracks::SetRowShown(const Scene& scene, TrackId row, bool shown)
{
    const SceneTrack* const track = scene.FindTrack(row);
    if (!track || !TrackOf(row))
        return;
    if (!shown) {
        m_manager.HideChildTrack(TrackOf(row), true);
        return;
    }
    unsigned int place = 0;
    for (const TrackId sibling : scene.ChildrenOf(track->parent)) {
        if (sibling == row)
            break;
        place += m_manager.GetChildTrackSortIndex(TrackOf(sibling)) >= 0 ? 1 : 0;
    }
    m_manager.ShowChildTrack(TrackOf(track->parent), TrackOf(row), place, true);
}

void SceneTracks::Clear()
{
    m_manager.SetTrackRelMapTable({});
    for (CTimelineTrackBase* const track : qAsConst(m_tracks))
        m_manager.DeleteTrack(track);
    m_tracks.clear();
    m_ids.clear();
    m_keys = TimelineKeys();
    m_shown = Scene();
}

bool SceneTracks::MakeTrack(const SceneTrack& track)
{
    CTimelineTrackBase* const made =
        m_manager.CreateTrack(Entry(kTrackTypes, track.kind), track.caption,
                              static_cast<unsigned int>(track.styleNumber));
    if (!made)
        return false;
    m_tracks.insert(track.id, made);
    m_ids.insert(made, track.id);
    if (track.parent == kNoTrack)
        m_manager.ShowRootTrack(made, kLast, false);
    else
        m_manager.ShowChildTrack(TrackOf(track.parent), made, kLast, false);
    return true;
}

void SceneTracks::Fill(const SceneTrack& track)
{
    CTimelineTrackBase* const made = TrackOf(track.id);
    VZ::CArrayList<TLEditType> types = EditTypesOf(track);
    m_manager.SetTrackEditMode(made, types);
    std::vector<_tmpTLSwitchBtnData> buttons = ButtonsOf(track);
    m_manager.SetTrackSwitchBtnList(made, buttons); // refused by other kinds
    if (CTimelineKeyArray* const keys = m_manager.GetKeyDataArray(made))
        keys->AddKeys(m_keys.Make(track.keys), false);
}

void SceneTracks::ShowRelatedKeys(const Scene& scene)
{
    QSet<TrackId> emptied; // a row may follow several
    for (const TrackRelation& relation : scene.relations) {
        const CTimelineKeyArray* const source =
            relation.kind == RelationKind::RelatedKeys ? KeysOf(relation.tracks.value(0)) : nullptr;
        for (int i = 1; source && i < relation.tracks.size(); ++i) {
            CTimelineKeyArray* const keys = KeysOf(relation.tracks[i]);
            if (!keys)
                continue;
            if (!emptied.contains(relation.tracks[i]))
                keys->RelatedRemoveAll();
            emptied.insert(relation.tracks[i]);
            for (const VZ::CPointer<CTimelineKey>& key : source->Keys())
                keys->RelatedAdd(m_keys.Related(*key).Get(), false);
        }
    }
}

void SceneTracks::Relate(const QVector<TrackRelation>& relations)
{
    std::vector<_tmpTLRelatedMap> table;
    for (const TrackRelation& relation : relations) {
        _tmpTLRelatedMap row;
        row.kind = Entry(kRelationKinds, relation.kind);
        if (row.kind == kNoKind)
            continue;
        for (const TrackId id : relation.tracks)
            row.tracks.push_back(TrackOf(id));
        table.push_back(row);
    }
    m_manager.SetTrackRelMapTable(table);
}

} // namespace host
