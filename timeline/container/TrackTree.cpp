#include "container/TrackTree.h"

#include "tracks/CTimelineTrackBase.h"

#include <algorithm>

namespace {

template <class Container, class Item>
void InsertAtOrAppend(Container& items, Item item, std::size_t index)
{
    const std::size_t place = std::min(index, items.size());
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(place), std::move(item));
}

bool HoldsSelectedSubKeys(const CTimelineTrackBase& track)
{
    const CTimelineKeyArray& keys = track.Keys();
    if (keys.SelGetSize() != 1)
        return false;
    const auto index = static_cast<std::size_t>(keys.SelGetAt(0));
    if (index >= keys.GetSize())
        return false;
    const auto& subKeys = keys.Keys()[index]->subKeys;
    return subKeys && subKeys->SelGetSize() > 0;
}

} // namespace

CTimelineMapData* TrackTree::FindRoot(const CTimelineTrackBase* root) const
{
    const int index = RootIndex(root);
    return index < 0 ? nullptr : m_records[static_cast<std::size_t>(index)].get();
}

TrackTree::ChildPlace TrackTree::FindChild(const CTimelineTrackBase* child) const
{
    for (const auto& record : m_records) {
        const auto found = std::find(record->children.begin(), record->children.end(), child);
        if (found != record->children.end())
            return {record.get(), static_cast<std::size_t>(found - record->children.begin())};
    }
    return {};
}

bool TrackTree::Contains(const CTimelineTrackBase* track) const
{
    return FindRoot(track) || FindChild(track).record;
}

void TrackTree::InsertRoot(CTimelineTrackBase* root, std::size_t index)
{
    InsertAtOrAppend(m_records, std::make_unique<CTimelineMapData>(root), index);
}

void TrackTree::InsertChild(CTimelineMapData& record, CTimelineTrackBase* child, std::size_t index)
{
    InsertAtOrAppend(record.children, child, index);
}

void TrackTree::RemoveRoot(const CTimelineTrackBase* root)
{
    const int index = RootIndex(root);
    if (index >= 0)
        m_records.erase(m_records.begin() + index);
}

void TrackTree::RemoveChild(const CTimelineTrackBase* child)
{
    const ChildPlace place = FindChild(child);
    if (place.record)
        place.record->children.erase(place.record->children.begin() +
                                     static_cast<std::ptrdiff_t>(place.position));
}

void TrackTree::MoveRoot(CTimelineTrackBase* root, std::size_t index)
{
    const int from = RootIndex(root);
    if (from < 0)
        return;
    std::unique_ptr<CTimelineMapData> record = std::move(m_records[static_cast<std::size_t>(from)]);
    m_records.erase(m_records.begin() + from);
    InsertAtOrAppend(m_records, std::move(record), index);
}

void TrackTree::MoveChild(CTimelineTrackBase* child, std::size_t index)
{
    const ChildPlace place = FindChild(child);
    if (!place.record)
        return;
    RemoveChild(child);
    InsertChild(*place.record, child, index);
}

int TrackTree::RootIndex(const CTimelineTrackBase* root) const
{
    const auto found = std::find_if(m_records.begin(), m_records.end(),
                                    [root](const auto& record) { return record->root == root; });
    return found == m_records.end() ? -1 : static_cast<int>(found - m_records.begin());
}

int TrackTree::ChildIndex(const CTimelineTrackBase* child) const
{
    const ChildPlace place = FindChild(child);
    return place.record ? static_cast<int>(place.position) : -1;
}

std::vector<CTimelineTrackBase*> TrackTree::RowsOf(const CTimelineMapData& record) const
{
    if (!record.children.empty() && !m_showRoots)
        return record.children;
    std::vector<CTimelineTrackBase*> rows{record.root};
    rows.insert(rows.end(), record.children.begin(), record.children.end());
    return rows;
}

std::vector<CTimelineTrackBase*> TrackTree::Rows() const
{
    std::vector<CTimelineTrackBase*> rows;
    for (const auto& record : m_records) {
        const std::vector<CTimelineTrackBase*> own = RowsOf(*record);
        rows.insert(rows.end(), own.begin(), own.end());
    }
    return rows;
}

std::vector<CTimelineTrackBase*> TrackTree::AllTracks() const
{
    std::vector<CTimelineTrackBase*> tracks;
    for (const auto& record : m_records) {
        tracks.push_back(record->root);
        tracks.insert(tracks.end(), record->children.begin(), record->children.end());
    }
    return tracks;
}

CTimelineTrackBase* TrackTree::ActiveRoot() const
{
    for (const auto& record : m_records) {
        if (record->root->IsActive())
            return record->root;
    }
    return nullptr;
}

CTimelineTrackBase* TrackTree::ActiveChild() const
{
    for (const auto& record : m_records) {
        if (!record->root->IsActive())
            continue;
        const auto& children = record->children;
        const auto found =
            std::find_if(children.rbegin(), children.rend(),
                         [](const CTimelineTrackBase* child) { return child->IsActive(); });
        if (found != children.rend())
            return *found;
    }
    return nullptr;
}

CTimelineTrackBase* TrackTree::LipsTrack() const
{
    for (const auto& record : m_records) {
        const auto& children = record->children;
        const auto found =
            std::find_if(children.rbegin(), children.rend(), [](const CTimelineTrackBase* child) {
                return child->GetTrackType() == TL_TRACK_VISEME_KEY;
            });
        if (found != children.rend())
            return *found;
    }
    return nullptr;
}

CTimelineTrackBase* TrackTree::WaveTrack() const
{
    CTimelineTrackBase* wave = nullptr;
    for (const auto& record : m_records) {
        const auto found = std::find_if(
            record->children.begin(), record->children.end(),
            [](const CTimelineTrackBase* child) { return child->GetTrackType() == TL_TRACK_WAVE; });
        if (found != record->children.end())
            wave = *found;
    }
    return wave;
}

void TrackTree::CollectSelectedKeyTracks(VZ::CArrayList<CTimelineTrackBase*>& tracks) const
{
    for (const auto& record : m_records) {
        for (CTimelineTrackBase* child : record->children) {
            if (child->IsActive() && child->HasEditMode(TL_EDIT_SUB_KEYS)) {
                tracks.RemoveAll();
                if (HoldsSelectedSubKeys(*child))
                    tracks.Add(child);
                return;
            }
            if (child->Keys().SelGetSize() > 0)
                tracks.Add(child);
        }
    }
}
