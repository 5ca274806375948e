#include "Scene.h"

#include <algorithm>
#include <tuple>

namespace host {

namespace {

auto Members(const Scene& scene)
{
    return std::tie(scene.frameRate, scene.frameCount, scene.tracks, scene.groups, scene.relations,
                    scene.timeMark, scene.motion, scene.line, scene.lastId);
}

} // namespace

TrackId Scene::AddTrack(SceneTrack track)
{
    const TrackId id = ++lastId;
    track.id = id;
    NumberKeys(track.keys);
    tracks.append(std::move(track));
    return id;
}

void Scene::NumberKeys(QVector<SceneKey>& keys)
{
    for (SceneKey& key : keys) {
        key.id = ++lastId;
        NumberKeys(key.subKeys);
    }
}

GroupId Scene::AddGroup(const QString& name)
{
    groups.append({++lastId, name});
    return lastId;
}

const SceneTrack* Scene::FindTrack(TrackId id) const
{
    const auto found = std::find_if(tracks.cbegin(), tracks.cend(),
                                    [id](const SceneTrack& track) { return track.id == id; });
    return found == tracks.cend() ? nullptr : &*found;
}

SceneTrack* Scene::FindTrack(TrackId id)
{
    const auto found = std::find_if(tracks.begin(), tracks.end(),
                                    [id](const SceneTrack& track) { return track.id == id; });
    return found == tracks.end() ? nullptr : &*found;
}

QVector<TrackId> Scene::ChildrenOf(TrackId parent) const
{
    QVector<TrackId> children;
    for (const SceneTrack& track : tracks) {
        if (track.parent == parent)
            children.append(track.id);
    }
    return children;
}

bool operator==(const SceneGroup& a, const SceneGroup& b)
{
    return a.id == b.id && a.name == b.name;
}

bool operator==(const TrackRelation& a, const TrackRelation& b)
{
    return a.kind == b.kind && a.tracks == b.tracks;
}

bool operator==(const TimeMark& a, const TimeMark& b)
{
    return a.start == b.start && a.end == b.end;
}

bool operator==(const Scene& a, const Scene& b)
{
    return Members(a) == Members(b);
}

} // namespace host
